// Writing amounts.
#include "component/Amounts.h"

#include <cmath>

#include "component/DatabaseValues.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {
constexpr double centsOfOne = 100;
}

std::string amountText(double amount) {
  return basic::Format(amount, "0.00");
}

std::string amountText(const basic::Value& amount) {
  return amountText(numberOf(amount));
}

std::string typedAmountText(const std::string& typed) {
  return basic::IsNumeric(typed) ? amountText(basic::Val(typed)) : typed;
}

double wholeCents(double amount) {
  return std::round(basic::Val(amountText(amount)) * centsOfOne);
}

double wholeCents(const std::string& listed) {
  return wholeCents(basic::Val(listed));
}

std::string centsText(double cents) {
  return amountText(cents / centsOfOne);
}

}  // namespace payslate
