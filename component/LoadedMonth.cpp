// Knowing a deduction again, and remembering what Refresh replaced.
#include "component/LoadedMonth.h"

#include <algorithm>

#include "component/Amounts.h"
#include "component/PayRows.h"

namespace payslate {

DeductionKey deductionKey(const std::vector<ListRow>& deductions, std::size_t row) {
  const auto named = [](const ListRow& cells) {
    return DeductionKey{cell(cells, DeductColumn::Type), cell(cells, DeductColumn::DeductID),
                        cell(cells, DeductColumn::TransactionID)};
  };
  DeductionKey key = named(deductions.at(row));
  const auto first = deductions.begin();
  const auto equals = std::count_if(first, first + static_cast<std::ptrdiff_t>(row),
                                    [&](const ListRow& other) { return named(other) == key; });
  key.nth = static_cast<std::size_t>(equals);
  return key;
}

void LoadedMonth::refreshed(const DeductionKey& row, double before, double written) {
  const auto same = [&row](const Replacement& one) { return one.row == row; };
  const auto known = std::find_if(replacements.begin(), replacements.end(), same);
  if (known == replacements.end()) {
    replacements.push_back({row, before, written});
    return;
  }
  if (wholeCents(known->written) != wholeCents(before)) known->before = before;
  known->written = written;
}

}  // namespace payslate
