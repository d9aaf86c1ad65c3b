// The clerk who performs an errand.
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "platform/scripted/Doing.h"
#include "platform/scripted/Errand.h"
#include "platform/scripted/Mismatch.h"
#include "platform/scripted/Stage.h"
#include "platform/ui/Clerk.h"

namespace payslate::scripted {

/// Where an errand failed and why.
struct Failure {
  std::string file;
  int line = 0;
  std::string instruction;
  std::string expected;
  std::string found;
};

/// Performs one errand once. Instructions follow each other in the order in which the clerk sees things:
/// while a form, a message box or a menu is open, the next lines are about it. From the first failure on
/// nothing more is performed: messages are answered with No or OK, menus are dismissed, forms are closed
/// without asking, and run() returns when all of them are gone.
class ErrandRunner : public ui::Clerk {
 public:
  /// All must outlive the runner. The transcript gets every instruction when it begins.
  ErrandRunner(const Errand& errand, ui::Hands& hands, Stage& stage, std::ostream& transcript);

  /// True when every expectation held and the errand left no form open.
  bool run();
  [[nodiscard]] const std::optional<Failure>& failure() const { return failure_; }

  void attend(ui::Form& form) override;
  ui::Answer answer(const ui::Message& message) override;
  ui::MenuItem* pick(ui::Form& form, const ui::PopupMenu& menu) override;

 private:
  void performNext();
  void performHere(const Instruction& instruction);
  void performBehind(const Instruction& instruction);
  const Instruction* nextAbout(Verb verb, const std::string& what);
  void show(const Instruction& instruction);
  void checkShowError(const Instruction* instruction);
  void checkError(const Instruction& instruction);
  void checkForm(const Instruction& instruction) const;
  void guarded(const Instruction& instruction, const std::function<void()>& action);
  void fail(const Instruction* instruction, const std::string& expected, const std::string& found);
  void write(const Instruction& instruction);
  [[nodiscard]] bool failed() const { return failure_.has_value(); }
  [[nodiscard]] bool atEnd() const { return next_ == errand_->instructions.size(); }
  [[nodiscard]] const Instruction& upcoming() const { return errand_->instructions[next_]; }

  const Errand* errand_;
  Stage* stage_;
  std::ostream* transcript_;
  Doing doing_;
  std::size_t next_ = 0;
  std::vector<ui::Form*> forms_;  // the last one is in front
  std::optional<Failure> failure_;
  const Instruction* shown_ = nullptr;    // the last show
  std::optional<std::string> showError_;  // what it raised
  bool showErrorSeen_ = false;
  bool hasSession_ = false;
};

}  // namespace payslate::scripted
