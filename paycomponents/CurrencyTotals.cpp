// The statement of pay per currency.
#include "paycomponents/CurrencyTotals.h"

#include <algorithm>

#include "component/ListPage.h"
#include "paycomponents/ListColumns.h"
#include "platform/basic/Numbers.h"
#include "platform/ui/Label.h"

namespace payslate {

using basic::Format;
using basic::Trim;
using basic::Val;

namespace {
constexpr const char* amountPattern = "#0.00";
const std::string headingIndent(4, ' ');
const std::string lineIndent(8, ' ');
}  // namespace

void CurrencyTotals::showcurrency() {
  cur_ = {Trim(controls_.lblcursymbol.Caption())};
  const auto collect = [this](const ui::ListView& list, int column) {
    for (int row = 0; row < list.rowCount(); ++row) AddcurrencySyboltoArray(Trim(list.cellText(row, column)));
  };
  collect(controls_.lvwAllow, AllowColumn::Symbol);
  collect(controls_.lvwDeduct, DeductColumn::CurrencySymbol);
}

void CurrencyTotals::AddcurrencySyboltoArray(const std::string& symbol) {
  if (std::find(cur_.begin(), cur_.end(), symbol) == cur_.end()) cur_.push_back(symbol);
}

void CurrencyTotals::addRow(const std::string& details, const std::string& amount) {
  controls_.lvwCurrency.addRow({nextSerialNumber(controls_.lvwCurrency), details, amount});
}

double CurrencyTotals::addAmount(const std::string& details, double amount) {
  const std::string shown = Format(amount, amountPattern);
  addRow(details, shown);
  return Val(shown);
}

double CurrencyTotals::showPart(const ListPart& part, const std::string& symbol) {
  double sum = 0;
  bool headed = false;
  for (int row = 0; row < part.list.rowCount(); ++row) {
    if (Trim(part.list.cellText(row, part.symbol)) != symbol) continue;
    if (!headed) addRow(headingIndent + part.heading);
    headed = true;
    sum += part.sign * addAmount(lineIndent + part.list.cellText(row, part.description),
                                 Val(part.list.cellText(row, part.amount)));
  }
  return sum;
}

void CurrencyTotals::showCurrency(const std::string& symbol) {
  double total = 0;
  addRow("Currency-Wise Details - " + symbol);
  if (Trim(controls_.lblcursymbol.Caption()) == symbol)
    total += addAmount(lineIndent + "Basic Pay", Val(controls_.txtBasicPay.Text()));
  total += showPart({controls_.lvwAllow, "Allowances", AllowColumn::AllowanceType, AllowColumn::Amount,
                     AllowColumn::Symbol, 1},
                    symbol);
  total += showPart({controls_.lvwDeduct, "Deductions", DeductColumn::DeductionType, DeductColumn::Amount,
                     DeductColumn::CurrencySymbol, -1},
                    symbol);
  addAmount(headingIndent + "Total (" + symbol + ")", total);
  netPay_.push_back({symbol, Format(total, amountPattern)});
  addRow({});
}

void CurrencyTotals::DisplayCurrency() {
  controls_.lvwCurrency.clear();
  netPay_.clear();
  showcurrency();
  for (const std::string& symbol : cur_) showCurrency(symbol);
}

}  // namespace payslate
