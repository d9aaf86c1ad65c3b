// What each rule says of its row.
#include <algorithm>
#include <exception>

#include "component/Amounts.h"
#include "component/PayRows.h"
#include "explain/Row.h"
#include "explain/Sentences.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

std::string onOneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char character) { return character == '\r' || character == '\n'; }, ' ');
  return text;
}

const char* nameOf(PayKind kind) {
  return kind == PayKind::Allowance ? "allowance " : "deduction ";
}

}  // namespace

void Explainer::formula(const FormulaOrigin& formula, Lines& lines) const {
  explainFormula(lines, formula, facts_ == nullptr ? std::string() : facts_->formulaCode(formula.id));
}

// Nothing where the type has none. By the days as they count when a month is entered, which the boxes of a
// stored entry do not show.
Explainer::Today Explainer::formulaToday(const Row& row, Lines& lines) const {
  if (facts_ == nullptr) return {};
  const std::int32_t id = facts_->formulaOf(row.kind, row.componentId());
  if (id <= 0) return {};
  try {
    const FormulaOrigin computed = facts_->formula(id, enteredDays());
    formula(computed, lines);
    return computed.answer;
  } catch (const std::exception& error) {
    lines.push_back({"Formula", onOneLine(error.what())});
    return {};
  }
}

Explainer::Today Explainer::standing(const Row& row, Lines& lines) const {
  if (row.origin.formula.id > 0) {
    formula(row.origin.formula, lines);
    return {};
  }
  const auto say = [&](const std::string& amount) {
    lines.push_back({"Standing pay", amount + ", the employee's standing " + nameOf(row.kind) + row.id});
  };
  if (row.origin.known) {
    say(row.origin.amount);
    return {};
  }
  if (facts_ == nullptr) return {};
  const std::size_t before = lines.size();
  const Today computed = formulaToday(row, lines);
  if (lines.size() > before) return computed;
  const auto amount = facts_->standing(row.kind, row.componentId());
  if (amount) {
    say(amountText(*amount));
  } else {
    lines.push_back({"Standing pay",
                     std::string("the employee has no standing ") + nameOf(row.kind) + row.id + " any more"});
  }
  return amount;
}

Explainer::Today Explainer::added(const Row& row, Lines& lines) const {
  if (row.origin.hours.source != RateSource::None) return hours(row, lines);
  if (row.origin.formula.id > 0) {
    formula(row.origin.formula, lines);
    return {};
  }
  if (row.origin.known || facts_ == nullptr) return {};
  const bool fromHours =
      row.kind == PayKind::Allowance && !facts_->bookedHours(row.kind, row.componentId()).empty();
  if (fromHours) return hours(row, lines);
  const std::size_t before = lines.size();
  const Today computed = formulaToday(row, lines);
  if (lines.size() == before) lines.push_back({"Typed", "by the clerk"});
  return computed;
}

Explainer::Today Explainer::hours(const Row& row, Lines& lines) const {
  HoursOrigin origin = row.origin.hours;
  std::vector<BookedHours> booked;
  if (facts_ != nullptr) booked = facts_->bookedHours(row.kind, row.componentId());
  if (!row.origin.known) {
    if (facts_ == nullptr) return {};
    origin = facts_->rate(row.kind);
    for (const BookedHours& one : booked) origin.hours += one.hours;
  }
  explainHours(lines, origin, booked);
  Today today = origin.hours * origin.rate;
  const std::size_t before = lines.size();
  if (row.origin.formula.id > 0) {
    lines.push_back({"Instead", "the formula decides, whatever the hours"});
    formula(row.origin.formula, lines);
    return {};
  }
  if (row.origin.known) return {};
  const Today computed = formulaToday(row, lines);
  if (lines.size() == before) return today;
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(before),
               {"Instead", "the formula decides, whatever the hours"});
  return computed;
}

Explainer::Today Explainer::account(const Row& row, Lines& lines) const {
  const bool loan = row.type == DeductKind::Loan;
  const char* kind = loan ? "Loan account" : "Savings account";
  if (facts_ == nullptr) {
    lines.push_back({kind, row.transaction});
    if (row.origin.known) lines.push_back({"Due", row.origin.amount});
    return {};
  }
  const std::int32_t id = basic::numberOrZero(row.transaction);
  const auto fact = loan ? facts_->loan(id) : facts_->savings(id);
  if (!fact) {
    lines.push_back({kind, row.transaction + ", which is gone"});
    return {};
  }
  double above = 0;
  for (std::size_t at = 0; at < row.index; ++at) {
    const Row other = deductionRow(at);
    if (other.type == row.type && other.transaction == row.transaction) above += basic::Val(other.amount);
  }
  explainAccount(lines, kind, row.transaction, *fact, basic::Val(row.amount), above);
  if (month_.entry.processed) lines.back().text = "the balance above, the payroll run has taken this entry";
  return dueOf(*fact);
}

Explainer::Today Explainer::recoveries(const Row& row, Lines& lines) const {
  double cents = 0;
  for (const ShownRecovery& shown : month_.recoveries) {
    const FacilityRow& facility = shown.row;
    if (!shown.taken || basic::numberOrZero(facility.deductionId) != row.componentId()) continue;
    cents += wholeCents(facility.settlement);
    lines.push_back({"Recovery " + facility.number,
                     facility.name + ", " + facility.settlement + " of " + facility.actual});
  }
  lines.push_back({"Recoveries in all", centsText(cents)});
  return {};
}

Explainer::Today Explainer::balance(const Row& row, Lines& lines) const {
  if (facts_ == nullptr) {
    if (row.origin.known) lines.push_back({"Balance", amountText(basic::Val(row.origin.amount))});
    return {};
  }
  std::vector<EntryMovements> before = facts_->movements();
  std::erase_if(before, [&](const EntryMovements& one) {
    return basic::daysBetween(one.date, month_.entry.date) <= 0;
  });
  explainBalance(lines, before);
  return balanceOf(before);
}

Explainer::Today Explainer::keptBack(const Row&, Lines& lines) const {
  lines.push_back({"Kept back", "for a later month, which offers it among its allowances"});
  if (facts_ == nullptr) return {};
  const std::vector<EntryMovements> others = facts_->movements();
  if (!others.empty()) explainBalance(lines, others);
  return {};
}

}  // namespace payslate
