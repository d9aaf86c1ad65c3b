// A date that the user picks.
#pragma once

#include "platform/basic/Date.h"
#include "platform/ui/Control.h"

namespace payslate::ui {

class DatePicker : public Control {
 public:
  DatePicker(Form& form, std::string name);
  [[nodiscard]] std::string_view TypeName() const override { return "DatePicker"; }

  Property<basic::Date> Value;
  Event<> Change;  ///< Raised by the user alone.

  void userPicks(basic::Date date);
  /// Value reads as yyyy/mm/dd.
  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
  bool keyAction(const Key& key) override;  ///< Up and Down: a day later or earlier.
};

}  // namespace payslate::ui
