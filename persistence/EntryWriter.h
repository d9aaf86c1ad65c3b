// Writing one entry: header row, allowance and deduction rows, carried-forward movements.
#pragma once

#include <cstdint>
#include <string>

#include "persistence/EntryRecord.h"
#include "platform/basic/Value.h"

namespace payslate {

struct Session;

namespace common {
class CommonDB;
}

/// All procedures run inside the caller's transaction, in the order in which they are declared, and hand
/// every error (ado::Error, basic::ValueError) to the caller, who rolls back.
class EntryWriter {
 public:
  /// The helper must have its connection; it and the entry must outlive the writer.
  EntryWriter(Session& session, common::CommonDB& database, const EntryRecord& entry)
      : session_(session), database_(database), entry_(entry) {}

  /// Adds (mode "N") or rewrites (mode "E") the header row; returns the entry's identifier.
  std::int32_t fnSaveHeader();
  /// Mode "E": deletes the movements of an entry. Mode "N": nothing.
  void fnDeleteCarryForward(std::int32_t entryId);
  void fnSaveAllowanceDetails();
  void fnSaveDeductionDetails();

 private:
  void fnGetEntryNo();
  void fnAddCarryForwardRow(std::int32_t entryId, double amount, std::int16_t mode);
  /// The employee's basic pay as it stands in the database; ado::Error when there is no such employee.
  [[nodiscard]] basic::Value originalBasic();
  [[nodiscard]] std::string entryPrefix();
  [[nodiscard]] double largestRunningNumber(const std::string& prefix);

  Session& session_;
  common::CommonDB& database_;
  const EntryRecord& entry_;
  std::int32_t lngEntryID_ = 0;
  std::string strEntryNo_;
  std::int16_t intCurDetailID_ = 1;
};

}  // namespace payslate
