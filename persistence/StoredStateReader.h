// What the database knows beside an entry: balances, and salary carried forward in other entries.
#pragma once

#include "component/StoredState.h"

namespace payslate {

struct Session;

/// Each question is one statement. What is asked of nothing sends none.
class StoredStateReader : public StoredState {
 public:
  /// The session must outlive the reader.
  explicit StoredStateReader(Session& session) : session_(session) {}

  Balances loanBalances(const std::set<std::int32_t>& issues) override;
  Balances savingsBalances(const std::set<std::int32_t>& accounts) override;
  /// An entry without a date comes first.
  std::vector<EntryMovements> otherMovements(std::int32_t employeeId, std::int32_t exceptEntry) override;
  std::vector<EntryMovements> movementsBeside(std::int32_t keepingEntry) override;
  std::string deductionDescription(std::int32_t deductionId) override;

 private:
  [[nodiscard]] std::vector<EntryMovements> movements(const std::string& statement);

  Session& session_;
};

}  // namespace payslate
