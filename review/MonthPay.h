// What stored entries add up to by currency, and of what two months differ.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "component/EmployeeMonth.h"
#include "platform/basic/Decimal.h"

namespace payslate {

/// 0.00
basic::Decimal noMoney();

/// In one currency, of the rows that the form of an entry shows.
struct PaySums {
  basic::Decimal basicPay = noMoney();
  basic::Decimal allowances = noMoney();
  basic::Decimal deductions = noMoney();

  [[nodiscard]] basic::Decimal net() const { return basicPay + allowances - deductions; }
  PaySums& operator+=(const PaySums& other);
};

/// By currency symbol: that of the basic pay first, the others as the lists come to them.
using PayBySymbol = std::vector<std::pair<std::string, PaySums>>;
/// None without entries. Symbols count without the blanks around them, as on the form.
PayBySymbol payOf(const std::vector<LoadedMonth>& entries, const std::string& basicPaySymbol);
/// Null when the currency is not among them.
const PaySums* paidIn(const PayBySymbol& pay, const std::string& symbol);

/// Rows of one kind and description, together.
struct PayElement {
  std::string what;
  basic::Decimal before = noMoney();
  basic::Decimal now = noMoney();
  bool isBasicPay = false;

  [[nodiscard]] basic::Decimal difference() const;  ///< Without a sign.
};

/// What differs in one currency between the two months, the largest difference first.
std::vector<PayElement> differingElements(const EmployeeMonth& employee, const std::string& symbol);

basic::Decimal withoutSign(const basic::Decimal& amount);

}  // namespace payslate
