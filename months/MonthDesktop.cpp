// Answering without a person.
#include "months/MonthDesktop.h"

#include <stdexcept>

#include "platform/ui/Form.h"

namespace payslate {

void MonthDesktop::showModal(ui::Form& form) {
  throw std::logic_error(form.Name() + " cannot be shown while a month is entered at once.");
}

ui::Answer MonthDesktop::showMessage(const ui::Message& message) {
  if (message.asksYesNo()) return ui::Answer::Yes;
  messages_.push_back(message.text);
  return ui::Answer::Ok;
}

}  // namespace payslate
