// A month as it is to be explained: what the entry form shows of it, as plain data.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "component/EntryRecord.h"
#include "component/PayStatement.h"

namespace payslate {

/// The boxes with day counts.
enum class DayBox : std::size_t { Total, Working, Present, Leave, Absent };
constexpr std::size_t dayBoxes = 5;

struct ShownRecovery {
  FacilityRow row;
  bool taken = false;
};

struct ExplainedMonth {
  EntryRecord entry;
  std::string symbol;                      ///< Of the basic pay.
  std::string loadedBasicPay;              ///< Before the clerk changed it.
  std::array<std::string, dayBoxes> days;  ///< By DayBox.
  DayCounts loadedDays;                    ///< Before the clerk changed them.
  std::vector<ShownRecovery> recoveries;   ///< All that are listed.
  std::vector<StatementRow> statement;

  [[nodiscard]] bool stored() const { return entry.id != 0; }
};

}  // namespace payslate
