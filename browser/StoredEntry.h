// A stored entry, read into the entry form.
#pragma once

#include <cstdint>
#include <string>

#include "platform/basic/Date.h"

namespace payslate {

class BasPaySlate;
class frmpayslate;

namespace common {
class CommonDB;
class CommonGen;
}  // namespace common
namespace ui {
class ListView;
}

/// The header is read when the object is made: ado::Error when the entry is gone. Every other procedure reads
/// its own rows; the form they fill must have been loaded for an existing entry.
class StoredEntry {
 public:
  StoredEntry(BasPaySlate& bas, common::CommonDB& database, std::string entryId);

  /// Number, date, employee, basic pay, and how it is paid.
  void showHeader(frmpayslate& form, common::CommonGen& general) const;
  [[nodiscard]] bool isCancelled() const { return cancelled_; }
  [[nodiscard]] std::int32_t employeeId() const { return employeeId_; }

  /// The attendance day counts of the pay period.
  void fnLoadAttendanceCounts(frmpayslate& form, std::int32_t employeeId);
  void loadDeductions(ui::ListView& lvwDeduct);
  void loadAllowances(ui::ListView& lvwAllow);
  /// The recoveries taken in the entry, ticked, with the amounts deducted then.
  void fnLoadEntryFacilities(ui::ListView& lvwfacility, std::int32_t employeeId);
  /// Salary paid out and salary withheld.
  void fnLoadEntryCarryForward(frmpayslate& form);

 private:
  void dateAndNumber(frmpayslate& form) const;
  [[nodiscard]] std::string currencySymbol(const char* field, const std::string& condition);
  [[nodiscard]] std::string allowanceSymbol(const std::string& allowanceId);

  BasPaySlate& bas_;
  common::CommonDB& database_;
  std::string entryId_;
  std::int32_t employeeId_ = 0;
  std::string number_;
  basic::Date date_;
  double basicPay_ = 0;
  std::int16_t paidCash_ = 0;
  bool cancelled_ = false;
};

}  // namespace payslate
