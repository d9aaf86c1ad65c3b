// Command buttons, check boxes and option buttons.
#include "platform/ui/Buttons.h"

#include "platform/basic/Numbers.h"
#include "platform/ui/Form.h"

namespace payslate::ui {

using basic::sameName;

CommandButton::CommandButton(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)), Caption(std::move(caption), [this] { tell(Aspect::Caption); }) {}

std::optional<std::string> CommandButton::propertyText(std::string_view property) const {
  if (sameName(property, "Caption")) return Caption();
  return Control::propertyText(property);
}

bool CommandButton::keyAction(const Key& key) {
  if (key.code != KeyCode::Return && key.code != KeyCode::Space) return false;
  userClicks();
  return true;
}

CheckBox::CheckBox(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)),
      Caption(std::move(caption), [this] { tell(Aspect::Caption); }),
      Value(CheckState::Unchecked, [this] {
        tell(Aspect::Value);
        Click.raise();
      }) {}

std::optional<std::string> CheckBox::propertyText(std::string_view property) const {
  if (sameName(property, "Value")) return std::to_string(static_cast<int>(Value()));
  if (sameName(property, "Caption")) return Caption();
  return Control::propertyText(property);
}

bool CheckBox::keyAction(const Key& key) {
  if (key.code != KeyCode::Space) return false;
  userClicks();
  return true;
}

OptionButton::OptionButton(Form& form, std::string name, std::string caption, int group)
    : Control(form, std::move(name)),
      Caption(std::move(caption), [this] { tell(Aspect::Caption); }),
      Value(false,
            [this] {
              tell(Aspect::Value);
              if (!Value()) return;
              releaseOthers();
              Click.raise();
            }),
      group_(group) {}

void OptionButton::userClicks() {
  if (Value()) {
    Click.raise();
  } else {
    Value = true;
  }
}

void OptionButton::releaseOthers() {
  for (Control* other : form().Controls()) {
    auto* option = dynamic_cast<OptionButton*>(other);
    if (option != nullptr && option != this && option->group_ == group_) option->Value = false;
  }
}

std::optional<std::string> OptionButton::propertyText(std::string_view property) const {
  if (sameName(property, "Value")) return flagText(Value());
  if (sameName(property, "Caption")) return Caption();
  return Control::propertyText(property);
}

bool OptionButton::keyAction(const Key& key) {
  if (key.code != KeyCode::Space) return false;
  userClicks();
  return true;
}

}  // namespace payslate::ui
