// Labels and frames.
#include "platform/ui/Label.h"

#include "platform/basic/Numbers.h"

namespace payslate::ui {

Label::Label(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)), Caption(std::move(caption), [this] { tell(Aspect::Caption); }) {}

std::optional<std::string> Label::propertyText(std::string_view property) const {
  if (basic::sameName(property, "Caption")) return Caption();
  return Control::propertyText(property);
}

Frame::Frame(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)), Caption(std::move(caption), [this] { tell(Aspect::Caption); }) {}

std::optional<std::string> Frame::propertyText(std::string_view property) const {
  if (basic::sameName(property, "Caption")) return Caption();
  return Control::propertyText(property);
}

}  // namespace payslate::ui
