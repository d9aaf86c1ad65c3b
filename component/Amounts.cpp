// Writing amounts.
#include "component/Amounts.h"

#include "component/DatabaseValues.h"
#include "platform/basic/Numbers.h"

namespace payslate {

std::string amountText(double amount) {
  return basic::Format(amount, "0.00");
}

std::string amountText(const basic::Value& amount) {
  return amountText(numberOf(amount));
}

std::string typedAmountText(const std::string& typed) {
  return basic::IsNumeric(typed) ? amountText(basic::Val(typed)) : typed;
}

}  // namespace payslate
