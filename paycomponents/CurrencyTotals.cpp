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

void CurrencyTotals::addRow(const std::string& indent, StatementRow row) {
  controls_.lvwCurrency.addRow({nextSerialNumber(controls_.lvwCurrency), indent + row.details, row.amount});
  statement_.push_back(std::move(row));
}

double CurrencyTotals::addAmount(const std::string& indent, StatementRow row, double amount) {
  row.amount = Format(amount, amountPattern);
  const double shown = Val(row.amount);
  addRow(indent, std::move(row));
  return shown;
}

double CurrencyTotals::showPart(const ListPart& part, const std::string& symbol) {
  double sum = 0;
  bool headed = false;
  for (int row = 0; row < part.list.rowCount(); ++row) {
    if (Trim(part.list.cellText(row, part.symbol)) != symbol) continue;
    if (!headed) addRow(headingIndent, {StatementPart::Heading, 0, symbol, part.heading, {}});
    headed = true;
    const std::string& description = part.list.cellText(row, part.description);
    sum +=
        part.sign * addAmount(lineIndent, {part.part, static_cast<std::size_t>(row), symbol, description, {}},
                              Val(part.list.cellText(row, part.amount)));
  }
  return sum;
}

void CurrencyTotals::showCurrency(const std::string& symbol) {
  double total = 0;
  addRow({}, {StatementPart::Heading, 0, symbol, "Currency-Wise Details - " + symbol, {}});
  if (Trim(controls_.lblcursymbol.Caption()) == symbol)
    total += addAmount(lineIndent, {StatementPart::BasicPay, 0, symbol, "Basic Pay", {}},
                       Val(controls_.txtBasicPay.Text()));
  total += showPart({controls_.lvwAllow, "Allowances", AllowColumn::AllowanceType, AllowColumn::Amount,
                     AllowColumn::Symbol, 1, StatementPart::Allowance},
                    symbol);
  total += showPart({controls_.lvwDeduct, "Deductions", DeductColumn::DeductionType, DeductColumn::Amount,
                     DeductColumn::CurrencySymbol, -1, StatementPart::Deduction},
                    symbol);
  addAmount(headingIndent, {StatementPart::Total, 0, symbol, "Total (" + symbol + ")", {}}, total);
  netPay_.push_back({symbol, Format(total, amountPattern)});
  addRow({}, {StatementPart::Heading, 0, symbol, {}, {}});
}

void CurrencyTotals::DisplayCurrency() {
  controls_.lvwCurrency.clear();
  netPay_.clear();
  statement_.clear();
  showcurrency();
  for (const std::string& symbol : cur_) showCurrency(symbol);
}

}  // namespace payslate
