// Findings about the amounts of deductions.
#include <algorithm>
#include <array>
#include <string_view>

#include "component/Amounts.h"
#include "component/PayRows.h"
#include "platform/basic/Numbers.h"
#include "review/Findings.h"

namespace payslate {

namespace {

/// Kinds of rows that have no formula of their own.
constexpr std::array<std::string_view, 3> fixedKinds{DeductKind::Loan, DeductKind::Savings,
                                                     DeductKind::Facility};

double centsOf(const ListRow& row) {
  return wholeCents(cell(row, DeductColumn::Amount));
}

Finding about(const EntryRecord& entry, std::size_t row, const std::string& what) {
  return {cell(entry.deductions[row], DeductColumn::DeductionType) + ": " + what, ReviewPage::Deductions,
          row};
}

/// Has the row of a new entry, which is loaded with the balance at most, stayed within what was loaded?
bool withinLoaded(const Reviewed& month, std::size_t row) {
  if (month.rewrites()) return false;
  const DeductionKey key = deductionKey(month.entry.deductions, row);
  const std::vector<ListRow>& loaded = month.loaded.entry.deductions;
  for (std::size_t other = 0; other < loaded.size(); ++other)
    if (deductionKey(loaded, other) == key)
      return centsOf(month.entry.deductions[row]) <= centsOf(loaded[other]);
  return false;
}

/// A row that may be above the balance of its account.
struct Suspect {
  std::size_t row;
  std::string kind;
  std::int32_t account;
};

std::vector<Suspect> suspects(const Reviewed& month) {
  const std::vector<ListRow>& rows = month.entry.deductions;
  std::vector<Suspect> found;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const std::string& kind = cell(rows[row], DeductColumn::Type);
    // A row without an account is refused by the save.
    const std::int32_t account = basic::numberOrZero(cell(rows[row], DeductColumn::TransactionID));
    const bool hasBalance = account != 0 && (kind == DeductKind::Loan || kind == DeductKind::Savings);
    if (hasBalance && centsOf(rows[row]) > 0 && !withinLoaded(month, row))
      found.push_back({row, kind, account});
  }
  return found;
}

}  // namespace

void amountsReplacedByRefresh(Reviewed& month, Findings& findings) {
  const std::vector<ListRow>& rows = month.entry.deductions;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (std::find(fixedKinds.begin(), fixedKinds.end(), cell(rows[row], DeductColumn::Type)) ==
        fixedKinds.end())
      continue;
    const DeductionKey key = deductionKey(rows, row);
    const double cents = centsOf(rows[row]);
    for (const Replacement& refreshed : month.loaded.replacements) {
      const double before = wholeCents(refreshed.before);
      // The clerk has changed what Refresh wrote, or nothing was lost by it.
      if (refreshed.row != key || wholeCents(refreshed.written) != cents || before == cents) continue;
      findings.push_back(about(month.entry, row,
                               "Refresh replaced " + centsText(before) +
                                   " by the amount of another item's formula, " + centsText(cents)));
    }
  }
}

void rowsAboveTheirBalance(Reviewed& month, Findings& findings) {
  const std::vector<Suspect> rows = suspects(month);
  const auto accounts = [&rows](const char* kind) {
    std::set<std::int32_t> asked;
    for (const Suspect& suspect : rows)
      if (suspect.kind == kind) asked.insert(suspect.account);
    return asked;
  };
  std::map<std::string, Balances> balances{
      {DeductKind::Loan, month.stored.loanBalances(accounts(DeductKind::Loan))},
      {DeductKind::Savings, month.stored.savingsBalances(accounts(DeductKind::Savings))}};
  for (const Suspect& suspect : rows) {
    const double cents = centsOf(month.entry.deductions[suspect.row]);
    const double balance = wholeCents(balances[suspect.kind][suspect.account]);
    if (cents <= balance) continue;
    findings.push_back(about(month.entry, suspect.row,
                             centsText(cents) + " is more than the balance, " + centsText(balance)));
  }
}

}  // namespace payslate
