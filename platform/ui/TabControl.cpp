// Pages of controls.
#include "platform/ui/TabControl.h"

#include "platform/basic/Numbers.h"

namespace payslate::ui {

TabControl::TabControl(Form& form, std::string name, std::vector<std::string> captions)
    : Control(form, std::move(name)),
      Tab(0,
          [this] {
            tell(Aspect::Page);
            Click.raise();
          }),
      captions_(std::move(captions)) {}

std::optional<std::string> TabControl::propertyText(std::string_view property) const {
  if (basic::sameName(property, "Tab")) return std::to_string(Tab());
  if (basic::sameName(property, "Caption")) return captions_.at(static_cast<std::size_t>(Tab()));
  if (basic::sameName(property, "Tabs")) return std::to_string(captions_.size());
  return Control::propertyText(property);
}

bool TabControl::keyAction(const Key& key) {
  const int last = static_cast<int>(captions_.size()) - 1;
  if (key.code == KeyCode::Left && Tab() > 0) {
    Tab = Tab() - 1;
  } else if (key.code == KeyCode::Right && Tab() < last) {
    Tab = Tab() + 1;
  } else {
    return key.code == KeyCode::Left || key.code == KeyCode::Right;
  }
  return true;
}

}  // namespace payslate::ui
