// One entry as it is to be stored: plain values copied from the form.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/basic/Date.h"

namespace payslate {

/// Codes of emhpaidcash.
enum class PaidCash : std::int16_t { Normal = 0, PaidInCash = 1, OnHold = 2 };

/// The cells of one row of a pay list, in the list's column order.
using ListRow = std::vector<std::string>;

struct EntryRecord {
  std::int32_t employeeId = 0;
  basic::Date entryDate;  ///< Stored with a new entry only.
  PaidCash paidCash = PaidCash::Normal;
  /// As the clerk left it; a text without a number is refused.
  std::string basicPay;
  /// The browse list's current entry identifier as it stands there; names the entry in mode "E".
  std::string browseEntryId;
  std::vector<ListRow> allowances;
  std::vector<ListRow> deductions;
};

}  // namespace payslate
