// One entry as plain values: as it is stored, as its form shows it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "component/Origins.h"
#include "platform/basic/Date.h"

namespace payslate {

/// Codes of emhpaidcash. A stored entry can have any other number too, which means none of these.
enum class PaidCash : std::int16_t { Normal = 0, PaidInCash = 1, OnHold = 2 };

/// The cells of one row of a pay list, in the list's column order (PayRows.h).
using ListRow = std::vector<std::string>;

/// A cell of a row; empty where the row ends before it.
const std::string& cell(const ListRow& row, int column);

/// One recovery of a facility's cost; identifiers and amounts as the list shows them.
struct FacilityRow {
  std::int16_t position = 0;  ///< In the list, 1 for the first row.
  std::string trackingId;
  std::string number;
  std::string name;
  std::string actual;      ///< The whole amount.
  std::string deducted;    ///< As loaded.
  std::string settlement;  ///< What is recovered in this entry.
  std::string deductionId;
  std::string symbol;
};

struct DayCounts {
  double present = 0;
  double absent = 0;
  double leave = 0;

  [[nodiscard]] double sum() const { return present + absent + leave; }
};

struct EntryRecord {
  std::int32_t id = 0;  ///< emhID; 0 while it is not stored.
  std::string number;
  basic::Date date;
  std::int32_t employeeId = 0;
  PaidCash paidCash = PaidCash::Normal;
  /// As the clerk left it; a text without a number is refused when it is stored.
  std::string basicPay;
  DayCounts days;  ///< As the form shows them: they are not stored.
  basic::Date periodStart;
  basic::Date periodEnd;
  bool cancelled = false;
  bool processed = false;  ///< The payroll run has taken it.

  std::vector<ListRow> allowances;
  std::vector<ListRow> deductions;
  std::vector<FacilityRow> facilities;  ///< Those that are taken.
  EntryOrigins origins;                 ///< What the form knows of them.
};

}  // namespace payslate
