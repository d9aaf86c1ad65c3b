// What the database knows beside the entry at hand, for those who judge an entry without a database.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/basic/Date.h"

namespace payslate {

/// Salary carried forward in one live entry; no amount is negative.
struct EntryMovements {
  std::string number;
  basic::Date date;
  double keptBack = 0;
  double paidOut = 0;
};

/// What is still owed, by TransactionID; without an amount for one that is not there.
using Balances = std::map<std::int32_t, double>;

class StoredState {
 public:
  virtual ~StoredState() = default;

  /// Of issued loans, of opened savings accounts; of none, nobody is asked.
  virtual Balances loanBalances(const std::set<std::int32_t>& issues) = 0;
  virtual Balances savingsBalances(const std::set<std::int32_t>& accounts) = 0;

  /// The employee's live entries with movements, by date, but for one entry (0: for none).
  virtual std::vector<EntryMovements> otherMovements(std::int32_t employeeId, std::int32_t exceptEntry) = 0;
  /// The same of the employee of a live entry, without it; none at all where that entry keeps nothing back.
  virtual std::vector<EntryMovements> movementsBeside(std::int32_t keepingEntry) = 0;

  /// Empty when there is no such type.
  virtual std::string deductionDescription(std::int32_t deductionId) = 0;
};

}  // namespace payslate
