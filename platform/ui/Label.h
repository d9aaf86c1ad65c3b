// Labels and frames: what the user reads.
#pragma once

#include "platform/ui/Control.h"

namespace payslate::ui {

class Label : public Control {
 public:
  Label(Form& form, std::string name, std::string caption = {});
  [[nodiscard]] std::string_view TypeName() const override { return "Label"; }
  [[nodiscard]] std::string mnemonicCaption() const override { return Caption(); }
  [[nodiscard]] bool acceptsFocus() const override { return false; }

  Property<std::string> Caption;  ///< & marks the mnemonic of the field that the label stands with.
  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
};

class Frame : public Control {
 public:
  Frame(Form& form, std::string name, std::string caption = {});
  [[nodiscard]] std::string_view TypeName() const override { return "Frame"; }
  [[nodiscard]] bool acceptsFocus() const override { return false; }

  Property<std::string> Caption;
  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
};

}  // namespace payslate::ui
