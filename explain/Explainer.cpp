// From a figure to its explanation.
#include "explain/Explainer.h"

#include <array>
#include <string_view>

#include "component/Amounts.h"
#include "component/PayRows.h"
#include "explain/Row.h"
#include "explain/Sentences.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

namespace Part {
constexpr const char* BasicPay = "Basic pay";
constexpr const char* Allowances = "Allowances";
constexpr const char* Deductions = "Deductions";
constexpr const char* Facilities = "Facilities";
constexpr const char* Totals = "Totals";
}  // namespace Part

Origin originOf(const std::vector<Origin>& origins, std::size_t row) {
  return row < origins.size() ? origins[row] : Origin();
}

bool sameNumber(const std::string& left, const std::string& right) {
  return basic::numberOrZero(left) == basic::numberOrZero(right);
}

}  // namespace

std::int32_t Explainer::Row::componentId() const {
  return basic::numberOrZero(id);
}

Explainer::Row Explainer::allowanceRow(std::size_t row) const {
  const ListRow& cells = month_.entry.allowances.at(row);
  return {PayKind::Allowance,
          Part::Allowances,
          cell(cells, AllowColumn::AllowanceType),
          cell(cells, AllowColumn::Amount),
          cell(cells, AllowColumn::AllowID),
          cell(cells, AllowColumn::Default),
          cell(cells, AllowColumn::Symbol),
          {},
          originOf(month_.entry.origins.allowances, row),
          row};
}

Explainer::Row Explainer::deductionRow(std::size_t row) const {
  const ListRow& cells = month_.entry.deductions.at(row);
  return {PayKind::Deduction,
          Part::Deductions,
          cell(cells, DeductColumn::DeductionType),
          cell(cells, DeductColumn::Amount),
          cell(cells, DeductColumn::DeductID),
          cell(cells, DeductColumn::Type),
          cell(cells, DeductColumn::CurrencySymbol),
          cell(cells, DeductColumn::TransactionID),
          originOf(month_.entry.origins.deductions, row),
          row};
}

Explanation Explainer::explained(const Row& row) const {
  struct Rule {
    PayKind kind;
    const char* type;
    Today (Explainer::*explain)(const Row&, Lines&) const;
  };
  static const std::array<Rule, 10> rules{{
      {PayKind::Allowance, AllowKind::Standing, &Explainer::standing},
      {PayKind::Allowance, AllowKind::Added, &Explainer::added},
      {PayKind::Allowance, AllowKind::CarriedForward, &Explainer::balance},
      {PayKind::Deduction, DeductKind::Standing, &Explainer::standing},
      {PayKind::Deduction, DeductKind::Loan, &Explainer::account},
      {PayKind::Deduction, DeductKind::Savings, &Explainer::account},
      {PayKind::Deduction, DeductKind::Facility, &Explainer::recoveries},
      {PayKind::Deduction, DeductKind::Hourly, &Explainer::hours},
      {PayKind::Deduction, DeductKind::Added, &Explainer::added},
      {PayKind::Deduction, DeductKind::CarriedForward, &Explainer::keptBack},
  }};
  Explanation explanation{row.part, row.description, row.amount, row.symbol, {}};
  Lines& lines = explanation.lines;
  const bool derived = row.type == DeductKind::Facility;  // From the recoveries as they are now.
  const bool stored = month_.stored() && !row.origin.known && !derived;
  if (stored) lines.push_back({"Stored", row.ruleAmount()});
  Today today;
  for (const Rule& rule : rules)
    if (rule.kind == row.kind && rule.type == row.type) today = (this->*rule.explain)(row, lines);
  const bool moved =
      today && !row.origin.amount.empty() && wholeCents(*today) != wholeCents(row.origin.amount);
  if (today && (stored || moved)) lines.push_back({"Today the rule gives", amountText(*today)});
  explainChange(lines, row.origin, row.amount);
  // Refresh computes whatever has a formula with the row's number.
  const bool told = row.type == AllowKind::Standing || row.type == AllowKind::Added ||
                    row.type == DeductKind::Standing || row.type == DeductKind::Hourly;
  if (row.origin.change == ChangedBy::Refresh && !told) formula(row.origin.formula, lines);
  return explanation;
}

Explanation Explainer::allowance(std::size_t row) const {
  return explained(allowanceRow(row));
}

Explanation Explainer::deduction(std::size_t row) const {
  return explained(deductionRow(row));
}

Explanation Explainer::recovery(std::size_t row) const {
  const ShownRecovery& shown = month_.recoveries.at(row);
  const FacilityRow& facility = shown.row;
  Explanation explanation{Part::Facilities, facility.name, facility.settlement, facility.symbol, {}};
  explanation.lines.push_back({"Recovery", facility.number});
  explainLowering(explanation.lines, facility.actual, facility.settlement);
  if (!shown.taken) {
    explanation.lines.push_back({"Goes into", "nothing, it is not ticked"});
    return explanation;
  }
  std::string into = "no deduction of the entry";
  for (std::size_t at = 0; at < month_.entry.deductions.size(); ++at) {
    const Row deduction = deductionRow(at);
    if (deduction.type == DeductKind::Facility && sameNumber(deduction.id, facility.deductionId))
      into = "deduction " + std::to_string(at + 1) + ", " + deduction.description + ": " + deduction.amount;
  }
  explanation.lines.push_back({"Goes into", into});
  return explanation;
}

Explanation Explainer::basicPay() const {
  const EntryRecord& entry = month_.entry;
  Explanation explanation{Part::BasicPay, "Basic pay", entry.basicPay, month_.symbol, {}};
  Lines& lines = explanation.lines;
  if (entry.origins.basicPay.known) {
    explainBasicPay(lines, entry.origins.basicPay);
  } else {
    lines.push_back({"Stored", month_.loadedBasicPay});
    if (facts_ != nullptr) {
      const EmployeeFact employee = facts_->employee();
      if (employee.whenStored)
        lines.push_back({"Basic pay in the master when stored", amountText(*employee.whenStored)});
      const BasicPayOrigin today = basicPayToday(employee);
      explainBasicPay(lines, today);
      lines.push_back({"Today the rule gives", amountText(today.reduced())});
    }
  }
  if (wholeCents(entry.basicPay) != wholeCents(month_.loadedBasicPay))
    explainTyping(lines, entry.basicPay, month_.loadedBasicPay);
  return explanation;
}

Explanation Explainer::total(std::size_t row) const {
  const StatementRow& total = month_.statement[row];
  Explanation explanation{Part::Totals, total.details, total.amount, total.symbol, {}};
  for (const StatementRow& one : month_.statement) {
    if (one.symbol != total.symbol || one.part == StatementPart::Total || one.part == StatementPart::Heading)
      continue;
    explanation.lines.push_back(
        {one.details, (one.part == StatementPart::Deduction ? "- " : "+ ") + one.amount});
  }
  return explanation;
}

std::optional<Explanation> Explainer::statement(std::size_t row) const {
  const StatementRow& shown = month_.statement.at(row);
  switch (shown.part) {
    case StatementPart::BasicPay:
      return basicPay();
    case StatementPart::Allowance:
      return allowance(shown.row);
    case StatementPart::Deduction:
      return deduction(shown.row);
    case StatementPart::Total:
      return total(row);
    case StatementPart::Heading:
      break;
  }
  return {};
}

std::vector<Explanation> Explainer::all() const {
  std::vector<Explanation> all;
  for (std::size_t box = 0; box < dayBoxes; ++box) all.push_back(countOf(static_cast<DayBox>(box)));
  if (facts_ != nullptr) sheets(all.back().lines);
  all.push_back(basicPay());
  for (std::size_t row = 0; row < month_.entry.allowances.size(); ++row) all.push_back(allowance(row));
  for (std::size_t row = 0; row < month_.entry.deductions.size(); ++row) all.push_back(deduction(row));
  for (std::size_t row = 0; row < month_.recoveries.size(); ++row) all.push_back(recovery(row));
  for (std::size_t row = 0; row < month_.statement.size(); ++row)
    if (month_.statement[row].part == StatementPart::Total) all.push_back(total(row));
  return all;
}

}  // namespace payslate
