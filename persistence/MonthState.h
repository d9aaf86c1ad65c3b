// The stored state beside the entries of a whole month, read at once.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "component/StoredState.h"
#include "persistence/MonthPeople.h"

namespace payslate {

struct Session;
class PayItems;

/// Knows the accounts that the month's entries take from, and the movements of everybody who has one in the
/// month; of nobody else.
class MonthState : public StoredState {
 public:
  /// At most three statements: of what no entry of the month has, none is asked. ado::Error.
  MonthState(Session& session, const MonthScope& scope, const EmployeeMonths& employees,
             std::shared_ptr<const PayItems> items);

  Balances loanBalances(const std::set<std::int32_t>& issues) override;
  Balances savingsBalances(const std::set<std::int32_t>& accounts) override;
  std::vector<EntryMovements> otherMovements(std::int32_t employeeId, std::int32_t exceptEntry) override;
  std::vector<EntryMovements> movementsBeside(std::int32_t keepingEntry) override;
  std::string deductionDescription(std::int32_t deductionId) override;

 private:
  struct OwnedMovements {
    std::int32_t entryId = 0;
    EntryMovements movements;
  };

  std::shared_ptr<const PayItems> items_;
  Balances loans_;
  Balances savings_;
  std::map<std::int32_t, std::vector<OwnedMovements>> movements_;  ///< By employee, each by their dates.
};

}  // namespace payslate
