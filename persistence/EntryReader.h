// Reading entries: one that is stored, those of a month, and the recoveries that no entry has taken.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "component/EntryRecord.h"
#include "platform/basic/Date.h"

namespace payslate {

struct Session;

namespace ado {
class Recordset;
}
namespace common {
class CommonDB;
}

/// The header alone. ado::Error when the entry is not there any more.
EntryRecord readHeader(Session& session, std::int32_t entryId);

/// Header of the employee's live entry in the month of the date, if there is one. Where the way began at an
/// opened entry, the second asks: its statement reads cancelled entries too.
std::optional<EntryRecord> liveInMonth(Session& session, std::int32_t employeeId, basic::Date date);
std::optional<EntryRecord> liveAmongAllInMonth(Session& session, std::int32_t employeeId, basic::Date date);

/// The company's entry with this number; its number, empty when there is no such entry.
std::optional<std::int32_t> entryOfNumber(Session& session, const std::string& number);
std::string numberOfEntry(Session& session, std::int32_t entryId);

/// Has the payroll run taken the entry?
bool isProcessedEntry(Session& session, std::int32_t entryId);

/// What asks for currency symbols on its way.
class EntryReader {
 public:
  /// The helper must have its connection; both must outlive the reader.
  EntryReader(Session& session, common::CommonDB& database) : session_(session), database_(database) {}

  /// The rows of an entry, each kind by its own statements. They are appended to what the record holds, so
  /// that salary carried forward, which goes into both lists, comes behind the allowances and deductions.
  void readDeductions(EntryRecord& entry);
  void readAllowances(EntryRecord& entry);
  void fnLoadEntryFacilities(EntryRecord& entry);
  void fnLoadEntryCarryForward(EntryRecord& entry);
  /// All of them.
  void readRows(EntryRecord& entry);
  /// How many rows the stored entry has beyond those that were read, because a join found nothing to show
  /// them with.
  [[nodiscard]] int hiddenRows(const EntryRecord& entry);
  /// Header and rows.
  [[nodiscard]] EntryRecord whole(std::int32_t entryId);

  /// The employee's recoveries that no entry has taken. ado::Error for one that lacks something.
  [[nodiscard]] std::vector<FacilityRow> openRecoveries(std::int32_t employeeId);

 private:
  [[nodiscard]] ListRow deduction(ado::Recordset& rows);

  Session& session_;
  common::CommonDB& database_;
};

}  // namespace payslate
