// Findings about salary carried forward: what entries keep back, and what others pay out of it.
#include <algorithm>
#include <string_view>

#include "component/Amounts.h"
#include "component/PayRows.h"
#include "review/Findings.h"

namespace payslate {

namespace {

/// The rows carried forward in one list.
struct Carried {
  double cents = 0;
  std::optional<std::size_t> row;  ///< The first of them.
};

Carried carried(const std::vector<ListRow>& rows, int kindColumn, int amountColumn) {
  static_assert(std::string_view(AllowKind::CarriedForward) == DeductKind::CarriedForward);
  Carried found;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (cell(rows[row], kindColumn) != AllowKind::CarriedForward) continue;
    found.cents += wholeCents(cell(rows[row], amountColumn));
    if (!found.row) found.row = row;
  }
  return found;
}

Carried paidOut(const EntryRecord& entry) {
  return carried(entry.allowances, AllowColumn::Default, AllowColumn::Amount);
}

Carried keptBack(const EntryRecord& entry) {
  return carried(entry.deductions, DeductColumn::Type, DeductColumn::Amount);
}

/// What entries kept back less what they paid out, in cents: rounded once, as the balance is that is offered.
double left(const std::vector<EntryMovements>& entries) {
  double amount = 0;
  for (const EntryMovements& one : entries) amount += one.keptBack - one.paidOut;
  return wholeCents(amount);
}

double paidOutAfter(const std::vector<EntryMovements>& entries, basic::Date date) {
  double amount = 0;
  for (const EntryMovements& one : entries)
    if (basic::daysBetween(date, one.date) > 0) amount += one.paidOut;
  return wholeCents(amount);
}

/// One must have paid out.
const EntryMovements& lastThatPaidOut(const std::vector<EntryMovements>& entries) {
  return *std::find_if(entries.rbegin(), entries.rend(),
                       [](const EntryMovements& one) { return one.paidOut > 0; });
}

}  // namespace

void payingOutWhatIsNotLeft(Reviewed& month, Findings& findings) {
  const Carried paid = paidOut(month.entry);
  if (paid.cents <= 0) return;
  const std::vector<EntryMovements>& others = month.others();
  // Later entries pay out what this one keeps back before they touch what the others have left.
  const double forLater = std::min(keptBack(month.entry).cents, paidOutAfter(others, month.entry.date));
  const double remaining = left(others) + forLater;
  if (paid.cents <= remaining) return;
  findings.push_back({cell(month.entry.allowances[*paid.row], AllowColumn::AllowanceType) + ": " +
                          centsText(paid.cents) + " is paid out, but only " + centsText(remaining) +
                          " is left",
                      ReviewPage::Allowances, paid.row});
}

void keepingBackTooLittle(Reviewed& month, Findings& findings) {
  if (!month.rewrites() || keptBack(month.loaded.entry).cents <= 0) return;
  const Carried kept = keptBack(month.entry);
  const double missing = -left(month.others());
  if (kept.cents >= missing) return;
  findings.push_back({std::string(carryForwardDescription) + ": " + centsText(kept.cents) +
                          " is kept back, but later months paid out " + centsText(missing) + " (" +
                          lastThatPaidOut(month.others()).number + ")",
                      ReviewPage::Deductions, kept.row});
}

std::string cancellationQuestion(std::int32_t entryId, StoredState& stored) {
  const std::vector<EntryMovements> others = stored.movementsBeside(entryId);
  const double missing = -left(others);
  if (missing <= 0) return {};
  const EntryMovements& last = lastThatPaidOut(others);
  return last.number + " of " + basic::formatDate(last.date, "dd/mm/yyyy") +
         " paid out what this entry kept back, " + centsText(missing) + ". Cancel it all the same?";
}

}  // namespace payslate
