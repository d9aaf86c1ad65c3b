// A desktop without a screen: its user is a clerk that is a program.
#pragma once

#include <string>

#include "platform/ui/Clerk.h"
#include "platform/ui/Desktop.h"

namespace payslate::scripted {

/// Serves errands, batch work and tests. Showing anything without a clerk throws std::logic_error.
class ScriptedDesktop : public ui::Desktop {
 public:
  explicit ScriptedDesktop(std::string applicationFolder = ".") : folder_(std::move(applicationFolder)) {}

  /// The clerk must outlive everything shown while he is set. Null dismisses him.
  void setClerk(ui::Clerk* clerk) { clerk_ = clerk; }

  /// A form that the clerk leaves open is closed without asking.
  void showModal(ui::Form& form) override;
  ui::Answer showMessage(const ui::Message& message) override;
  ui::MenuItem* showMenu(ui::Form& form, const ui::PopupMenu& menu) override;
  void beep() override { ++beeps_; }
  [[nodiscard]] int beeps() const { return beeps_; }
  [[nodiscard]] std::string applicationFolder() const override { return folder_; }

 private:
  [[nodiscard]] ui::Clerk& clerk() const;

  std::string folder_;
  ui::Clerk* clerk_ = nullptr;
  int beeps_ = 0;
};

}  // namespace payslate::scripted
