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
  ui::Answer answer = clerk().answer(message);
  while (answer == ui::Answer::Escape && message.asksYesNo()) answer = clerk().answer(message);
  return answer == ui::Answer::Escape ? ui::Answer::Ok : answer;
}

ui::MenuItem* ScriptedDesktop::showMenu(ui::Form& form, const ui::PopupMenu& menu) {
  return clerk().pick(form, menu);
}

}  // namespace payslate::scripted
