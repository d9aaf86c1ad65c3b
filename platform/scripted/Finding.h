// Finding what an instruction names on the form in front.
#pragma once

#include <string>

#include "platform/scripted/Mismatch.h"
#include "platform/ui/Form.h"

namespace payslate::scripted {

/// Throws Mismatch when the form has no such control.
ui::Control& controlOf(const ui::Form& form, const std::string& name);

[[noreturn]] void refuseKind(const ui::Control& control, const std::string& wanted);

/// `wanted` says what C is, for the reader: "a combo".
template <class C>
C& controlOf(const ui::Form& form, const std::string& name, const std::string& wanted) {
  ui::Control& control = controlOf(form, name);
  if (auto* found = dynamic_cast<C*>(&control)) return *found;
  refuseKind(control, wanted);
}

/// Throws Mismatch for a control that a user cannot reach: hidden, on a page behind, disabled, or one that
/// takes no input.
void requireReachable(const ui::Form& form, const ui::Control& control);

}  // namespace payslate::scripted
