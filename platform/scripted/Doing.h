// What an errand's clerk does to the form in front.
#pragma once

#include <functional>

#include "platform/scripted/Errand.h"
#include "platform/ui/Clerk.h"

namespace payslate::scripted {

class Doing {
 public:
  /// `interrupted` is asked between two keystrokes: true stops the typing.
  Doing(ui::Hands& hands, std::function<bool()> interrupted)
      : hands_(&hands), interrupted_(std::move(interrupted)) {}

  /// Complete with all that it sets off, nested forms included. Throws Mismatch when the clerk cannot do it.
  void perform(const Instruction& instruction, ui::Form& form);

 private:
  void goTo(ui::Form& form, ui::Control& control);
  void type(ui::Form& form, std::string_view text);
  void replace(ui::Form& form, ui::Control& control, const std::string& text);
  void edit(const Instruction& instruction, ui::Form& form);
  void choose(const Instruction& instruction, ui::Form& form);
  void turnPage(const Instruction& instruction, ui::Form& form);
  void actOnRow(const Instruction& instruction, ui::Form& form);
  void tick(const Instruction& instruction, ui::Form& form);

  ui::Hands* hands_;
  std::function<bool()> interrupted_;
};

}  // namespace payslate::scripted
