// Findings about recoveries of facilities' costs.
#include <algorithm>

#include "component/Amounts.h"
#include "component/PayRows.h"
#include "platform/basic/Numbers.h"
#include "review/Findings.h"

namespace payslate {

namespace {

/// What is recovered in one currency through one deduction type, in cents.
struct Recovery {
  std::int32_t type;
  std::string symbol;
  double deducted = 0;
  double ticked = 0;
};

bool recovers(const ListRow& deduction) {
  return cell(deduction, DeductColumn::Type) == DeductKind::Facility;
}

std::int32_t typeOf(const ListRow& deduction) {
  return basic::numberOrZero(cell(deduction, DeductColumn::DeductID));
}

std::string symbolOf(const ListRow& deduction) {
  return basic::Trim(cell(deduction, DeductColumn::CurrencySymbol));
}

std::vector<Recovery> recoveries(const EntryRecord& entry) {
  std::vector<Recovery> found;
  const auto of = [&found](std::int32_t type, const std::string& symbol) -> Recovery& {
    const auto same = [&](const Recovery& one) { return one.type == type && one.symbol == symbol; };
    const auto known = std::find_if(found.begin(), found.end(), same);
    return known != found.end() ? *known : found.emplace_back(Recovery{type, symbol});
  };
  for (const ListRow& row : entry.deductions)
    if (recovers(row)) of(typeOf(row), symbolOf(row)).deducted += wholeCents(cell(row, DeductColumn::Amount));
  for (const FacilityRow& row : entry.facilities)
    of(basic::numberOrZero(row.deductionId), basic::Trim(row.symbol)).ticked += wholeCents(row.settlement);
  return found;
}

/// The deduction of the type, that of the currency before any other; none where nothing is deducted.
std::optional<std::size_t> deductionRow(const EntryRecord& entry, const Recovery& recovery) {
  std::optional<std::size_t> found;
  for (std::size_t row = 0; row < entry.deductions.size(); ++row) {
    const ListRow& deduction = entry.deductions[row];
    if (!recovers(deduction) || typeOf(deduction) != recovery.type) continue;
    if (symbolOf(deduction) == recovery.symbol) return row;
    if (!found) found = row;
  }
  return found;
}

/// Where the type stands, and its description before the colon.
Finding place(const Reviewed& month, const Recovery& recovery) {
  if (const auto row = deductionRow(month.entry, recovery))
    return {cell(month.entry.deductions[*row], DeductColumn::DeductionType), ReviewPage::Deductions, row};
  for (const FacilityRow& row : month.entry.facilities) {
    if (basic::numberOrZero(row.deductionId) != recovery.type) continue;
    const std::string description = month.stored.deductionDescription(recovery.type);
    return {description.empty() ? row.name : description, ReviewPage::Facilities,
            static_cast<std::size_t>(row.position - 1)};
  }
  return {};
}

std::string inCurrency(double cents, const Recovery& recovery) {
  return centsText(cents) + (recovery.symbol.empty() ? "" : " " + recovery.symbol);
}

}  // namespace

void deductionsThatAreNotTheRecoveries(Reviewed& month, Findings& findings) {
  for (const Recovery& recovery : recoveries(month.entry)) {
    if (recovery.deducted == recovery.ticked) continue;
    Finding finding = place(month, recovery);
    finding.line += ": " + inCurrency(recovery.deducted, recovery) +
                    " is deducted, but the ticked recoveries come to " +
                    inCurrency(recovery.ticked, recovery);
    findings.push_back(std::move(finding));
  }
}

}  // namespace payslate
