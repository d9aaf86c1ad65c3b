// What all controls have in common.
#include "platform/ui/Control.h"

#include "platform/basic/Numbers.h"
#include "platform/ui/Form.h"

namespace payslate::ui {

using basic::sameName;

Control::Control(Form& form, std::string name)
    : Enabled(true,
              [this] {
                tell(Aspect::Enabled);
                form_->focusMayMove(*this);
              }),
      Visible(true,
              [this] {
                tell(Aspect::Visible);
                form_->focusMayMove(*this);
              }),
      form_(&form),
      name_(std::move(name)) {
  form.adopt(*this);
}

void Control::SetFocus() {
  form_->moveFocus(*this);
}

std::optional<std::string> Control::propertyText(std::string_view property) const {
  if (sameName(property, "Enabled")) return flagText(Enabled());
  if (sameName(property, "Visible")) return flagText(Visible());
  if (sameName(property, "Tag")) return Tag();
  if (sameName(property, "Name")) return name_;
  return {};
}

bool Control::keyAction(const Key&) {
  return false;
}

bool Control::paste(std::u32string_view, const KeyFilter&) {
  return true;
}

std::string flagText(bool flag) {
  return flag ? "True" : "False";
}

}  // namespace payslate::ui
