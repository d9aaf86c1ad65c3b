// Amounts of money as texts.
#pragma once

#include <string>

#include "platform/basic/Value.h"

namespace payslate {

/// Two decimals and a period: how lists show an amount and how it is stored.
std::string amountText(double amount);
/// The same of a value out of the database; Null is 0.
std::string amountText(const basic::Value& amount);
/// The same of what was typed, where that is a number; any other text as it is.
std::string typedAmountText(const std::string& typed);

/// The amount in cents, rounded as amountText rounds it: amounts are stored, and compared, in whole cents. A
/// double, because the boxes take more digits than a whole number holds.
double wholeCents(double amount);
/// The same of a list's cell.
double wholeCents(const std::string& listed);
std::string centsText(double cents);

}  // namespace payslate
