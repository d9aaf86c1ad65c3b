// Lines of text to be read: they can be selected and copied, and not changed.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/Control.h"

namespace payslate::ui {

class TextPage : public Control {
 public:
  TextPage(Form& form, std::string name);
  [[nodiscard]] std::string_view TypeName() const override { return "TextPage"; }

  Property<std::string> Text;  ///< Lines are parted by \n.
  [[nodiscard]] std::vector<std::string> lines() const;

  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
};

}  // namespace payslate::ui
