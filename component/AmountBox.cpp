// Typing amounts.
#include "component/AmountBox.h"

#include "component/BasPaySlate.h"
#include "component/FormHelpers.h"
#include "platform/basic/Numbers.h"
#include "platform/ui/TextBox.h"

namespace payslate {

namespace {
constexpr int integerDigits = 18;
constexpr int decimals = 2;
constexpr const char* listPattern = "0.00";
}  // namespace

void makeAmountBox(ui::TextBox& box, const BasPaySlate& bas, const FormHelpers& helpers) {
  box.numeric = true;
  box.GotFocus = [&box] { box.SelectAll(); };
  box.KeyPress = [&box, &bas, &helpers](int& keyAscii) {
    bas.EnterToTab(keyAscii);
    helpers.objCommonGen->TextValidateNum(box, keyAscii, integerDigits, decimals);
  };
}

std::string listAmount(const ui::TextBox& box) {
  return basic::Format(basic::Val(box.Text()), listPattern);
}

}  // namespace payslate
