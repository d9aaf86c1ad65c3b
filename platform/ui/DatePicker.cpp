// A date that the user picks.
#include "platform/ui/DatePicker.h"

#include "platform/basic/Numbers.h"

namespace payslate::ui {

DatePicker::DatePicker(Form& form, std::string name)
    : Control(form, std::move(name)), Value(basic::Date(), [this] { tell(Aspect::Value); }) {}

void DatePicker::userPicks(basic::Date date) {
  if (date == Value()) return;
  Value = date;
  Change.raise();
}

std::optional<std::string> DatePicker::propertyText(std::string_view property) const {
  if (basic::sameName(property, "Value")) return basic::formatDate(Value(), "yyyy/mm/dd");
  return Control::propertyText(property);
}

bool DatePicker::keyAction(const Key& key) {
  if (key.code != KeyCode::Up && key.code != KeyCode::Down) return false;
  userPicks(Value().plusDays(key.code == KeyCode::Up ? 1 : -1));
  return true;
}

}  // namespace payslate::ui
