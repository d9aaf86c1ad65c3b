// Pages of controls, one of them in front.
#pragma once

#include <vector>

#include "platform/ui/Control.h"

namespace payslate::ui {

class TabControl : public Control {
 public:
  TabControl(Form& form, std::string name, std::vector<std::string> captions);
  [[nodiscard]] std::string_view TypeName() const override { return "Tab"; }

  [[nodiscard]] const std::vector<std::string>& captions() const { return captions_; }
  Property<int> Tab;  ///< The page in front, from 0. Raises Click when it differs.
  Event<> Click;

  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
  bool keyAction(const Key& key) override;

 private:
  std::vector<std::string> captions_;
};

}  // namespace payslate::ui
