// Adding up, and comparing.
#include "persistence/JournalState.h"

#include <algorithm>
#include <iterator>

namespace payslate {

void JournalState::apply(const JournalRow& row) {
  if (row.action == JournalAction::Store && row.item == EntryItem::Employee) {
    known_.clear();  // Its number may have been that of an entry which another program has removed.
    knowsAll_ = true;
  }
  const AmountKey key{row.kind, row.item};
  std::vector<std::string>& amounts = known_[key];
  if (row.before) {
    const auto replaced = std::find(amounts.begin(), amounts.end(), *row.before);
    if (replaced != amounts.end()) amounts.erase(replaced);
  }
  if (row.after) amounts.push_back(*row.after);
}

std::vector<AmountChange> JournalState::changesTo(const EntryAmounts& stored) const {
  EntryAmounts before;
  for (const auto& [key, amounts] : known_)
    for (const std::string& amount : amounts) before.push_back({key, amount});
  EntryAmounts after;
  std::copy_if(stored.begin(), stored.end(), std::back_inserter(after),
               [this](const EntryAmount& amount) { return knowsAll_ || known_.contains(amount.key); });
  return changesOf(before, after);
}

}  // namespace payslate
