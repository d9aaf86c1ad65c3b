// The general helper of the component's own.
#pragma once

#include "platform/common/CommonGen.h"

namespace payslate::common {

class clsCommonGen : public CommonGen {
 public:
  void selectcomboitembyvalue(ui::ComboBox& combo, std::int32_t value) override;
  void TextValidateNum(const ui::TextBox& box, int& keyAscii, int integerDigits, int decimals) override;
};

}  // namespace payslate::common
