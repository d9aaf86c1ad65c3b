// Handing forms, messages and menus to the clerk.
#include "platform/scripted/ScriptedDesktop.h"

#include <stdexcept>

#include "platform/ui/Form.h"

namespace payslate::scripted {

ui::Clerk& ScriptedDesktop::clerk() const {
  if (clerk_ == nullptr) throw std::logic_error("Nobody attends to the scripted desktop.");
  return *clerk_;
}

void ScriptedDesktop::showModal(ui::Form& form) {
  clerk().attend(form);
  form.abandon();
}

ui::Answer ScriptedDesktop::showMessage(const ui::Message& message) {
  return clerk().answer(message);
}

ui::MenuItem* ScriptedDesktop::showMenu(ui::Form& form, const ui::PopupMenu& menu) {
  return clerk().pick(form, menu);
}

}  // namespace payslate::scripted
