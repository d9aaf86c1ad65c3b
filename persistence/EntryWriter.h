// Writing one entry: header row, carried-forward movements, allowance, deduction and recovery rows.
#pragma once

#include <cstdint>

#include "component/EntryRecord.h"
#include "platform/basic/Value.h"

namespace payslate {

class EntryNumbers;
struct Session;

namespace ado {
class Recordset;
}
namespace common {
class CommonDB;
}

class EntryWriter {
 public:
  /// The helper must have its connection; all must outlive the writer.
  EntryWriter(Session& session, common::CommonDB& database, EntryNumbers& numbers)
      : session_(session), database_(database), numbers_(numbers) {}

  /// Adds an entry that has no identifier yet, or rewrites the one that has it, every row of it, and returns
  /// its identifier. Number and date of a stored entry stay. Runs inside the caller's transaction and hands
  /// every error (ado::Error, basic::ValueError) to the caller, who rolls back.
  std::int32_t store(const EntryRecord& entry);

 private:
  void fnSaveHeader(const EntryRecord& entry);
  void startNew(ado::Recordset& header, const EntryRecord& entry);
  void startStored(ado::Recordset& header, const EntryRecord& entry);
  void fnSaveAllowanceDetails(const EntryRecord& entry);
  void fnSaveDeductionDetails(const EntryRecord& entry);
  void fnSaveFacilityDetails(const EntryRecord& entry);
  /// The employee's basic pay as it stands in the database; ado::Error when there is no such employee.
  [[nodiscard]] basic::Value originalBasic(std::int32_t employeeId);

  Session& session_;
  common::CommonDB& database_;
  EntryNumbers& numbers_;
  std::int32_t lngEntryID_ = 0;
  std::int16_t intCurDetailID_ = 1;
};

}  // namespace payslate
