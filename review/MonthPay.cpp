// Adding up, and comparing.
#include "review/MonthPay.h"

#include <algorithm>
#include <map>

#include "component/PayRows.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

basic::Decimal amountOf(const ListRow& row, int column) {
  return basic::Decimal::parse(cell(row, column));
}

PaySums& sumsIn(PayBySymbol& pay, const std::string& symbol) {
  const auto known =
      std::find_if(pay.begin(), pay.end(), [&symbol](const auto& one) { return one.first == symbol; });
  return known != pay.end() ? known->second : pay.emplace_back(symbol, PaySums{}).second;
}

enum class ElementKind { BasicPay, Allowance, Deduction };
using Elements = std::map<std::pair<ElementKind, std::string>, PayElement>;

void addElements(Elements& elements, const std::vector<LoadedMonth>& entries, const EmployeeMonth& employee,
                 const std::string& symbol, basic::Decimal PayElement::*month) {
  const auto add = [&](ElementKind kind, const std::string& what, const basic::Decimal& amount) {
    basic::Decimal& sum = elements[{kind, what}].*month;
    sum = sum + amount;
  };
  for (const LoadedMonth& one : entries) {
    const EntryRecord& entry = one.entry;
    if (basic::Trim(employee.symbol) == symbol)
      add(ElementKind::BasicPay, "basic pay", basic::Decimal::parse(entry.basicPay));
    for (const ListRow& row : entry.allowances)
      if (basic::Trim(cell(row, AllowColumn::Symbol)) == symbol)
        add(ElementKind::Allowance, cell(row, AllowColumn::AllowanceType),
            amountOf(row, AllowColumn::Amount));
    for (const ListRow& row : entry.deductions)
      if (basic::Trim(cell(row, DeductColumn::CurrencySymbol)) == symbol)
        add(ElementKind::Deduction, cell(row, DeductColumn::DeductionType),
            amountOf(row, DeductColumn::Amount));
  }
}

}  // namespace

basic::Decimal noMoney() {
  constexpr int cents = 2;
  return basic::Decimal().rounded(cents);
}

basic::Decimal withoutSign(const basic::Decimal& amount) {
  return amount.isNegative() ? amount.negated() : amount;
}

PaySums& PaySums::operator+=(const PaySums& other) {
  basicPay = basicPay + other.basicPay;
  allowances = allowances + other.allowances;
  deductions = deductions + other.deductions;
  return *this;
}

basic::Decimal PayElement::difference() const {
  return withoutSign(now - before);
}

PayBySymbol payOf(const std::vector<LoadedMonth>& entries, const std::string& basicPaySymbol) {
  PayBySymbol pay;
  for (const LoadedMonth& one : entries) {
    const EntryRecord& entry = one.entry;
    PaySums& own = sumsIn(pay, basic::Trim(basicPaySymbol));
    own.basicPay = own.basicPay + basic::Decimal::parse(entry.basicPay);
    for (const ListRow& row : entry.allowances) {
      PaySums& sums = sumsIn(pay, basic::Trim(cell(row, AllowColumn::Symbol)));
      sums.allowances = sums.allowances + amountOf(row, AllowColumn::Amount);
    }
    for (const ListRow& row : entry.deductions) {
      PaySums& sums = sumsIn(pay, basic::Trim(cell(row, DeductColumn::CurrencySymbol)));
      sums.deductions = sums.deductions + amountOf(row, DeductColumn::Amount);
    }
  }
  return pay;
}

const PaySums* paidIn(const PayBySymbol& pay, const std::string& symbol) {
  const auto found =
      std::find_if(pay.begin(), pay.end(), [&symbol](const auto& one) { return one.first == symbol; });
  return found == pay.end() ? nullptr : &found->second;
}

std::vector<PayElement> differingElements(const EmployeeMonth& employee, const std::string& symbol) {
  Elements elements;
  addElements(elements, employee.before, employee, symbol, &PayElement::before);
  addElements(elements, employee.now, employee, symbol, &PayElement::now);
  std::vector<PayElement> differing;
  for (auto& [key, element] : elements) {
    if (element.now == element.before) continue;
    element.what = key.second;
    element.isBasicPay = key.first == ElementKind::BasicPay;
    differing.push_back(std::move(element));
  }
  std::stable_sort(differing.begin(), differing.end(), [](const PayElement& left, const PayElement& right) {
    return left.difference() > right.difference();
  });
  return differing;
}

}  // namespace payslate
