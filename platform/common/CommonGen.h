// The general helper that forms create by name.
#pragma once

#include <cstdint>

#include "platform/common/ObjectRegistry.h"

namespace payslate::ui {
class ComboBox;
class TextBox;
}  // namespace payslate::ui

namespace payslate::common {

class CommonGen : public Object {
 public:
  static constexpr const char* registeredName = "CommonModule.clsCommonGen";

  /// Selects the item whose item data equals the value, which raises the combo's Click. Without such an item
  /// the selection stays.
  virtual void selectcomboitembyvalue(ui::ComboBox& combo, std::int32_t value) = 0;

  /// Key-press filter of numeric boxes: 0 in `keyAscii` when the character would not leave an unsigned number
  /// of at most so many integer digits and decimals. Control characters pass.
  virtual void TextValidateNum(const ui::TextBox& box, int& keyAscii, int integerDigits, int decimals) = 0;
};

}  // namespace payslate::common
