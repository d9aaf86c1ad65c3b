// What an explanation asks: masters, accounts, sheets and movements, as they are at that moment.
#pragma once

#include "component/PayFacts.h"

namespace payslate {

struct Session;

/// Of what the database alone knows. The session must outlive the reader; its pay period is the entry's.
class PayFactsReader : public PayFacts {
 public:
  /// `entryId` is 0 for an entry that is not stored.
  PayFactsReader(Session& session, std::int32_t employeeId, std::int32_t entryId)
      : session_(session), employeeId_(employeeId), entryId_(entryId) {}

  std::string formulaCode(std::int32_t formulaId) override;
  std::optional<double> standing(PayKind kind, std::int32_t componentId) override;
  std::optional<AccountFact> loan(std::int32_t issue) override;
  std::optional<AccountFact> savings(std::int32_t account) override;
  std::vector<BookedHours> bookedHours(PayKind kind, std::int32_t componentId) override;
  std::vector<EntryMovements> movements() override;
  EmployeeFact employee() override;
  AttendanceFact attendance() override;

 protected:
  [[nodiscard]] Session& session() const { return session_; }
  [[nodiscard]] std::int32_t employeeId() const { return employeeId_; }

 private:
  Session& session_;
  std::int32_t employeeId_;
  std::int32_t entryId_;
};

}  // namespace payslate
