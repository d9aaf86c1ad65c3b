// What the rows of a chain add up to: the amounts that the entry should have.
#pragma once

#include <map>
#include <vector>

#include "persistence/EntryAmounts.h"
#include "persistence/JournalRow.h"

namespace payslate {

class JournalState {
 public:
  void apply(const JournalRow& row);

  /// What was changed without a row in the chain, from what the chain knows to what is stored. Of an entry
  /// that is older than its chain, amounts that the chain never names are not known, and not compared.
  [[nodiscard]] std::vector<AmountChange> changesTo(const EntryAmounts& stored) const;

 private:
  bool knowsAll_ = false;  ///< The chain begins with the entry.
  std::map<AmountKey, std::vector<std::string>> known_;
};

}  // namespace payslate
