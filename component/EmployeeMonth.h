// What is stored of an employee's month and of the month before, as plain data for those who look over
// everybody.
#pragma once

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "component/LoadedMonth.h"
#include "platform/basic/Date.h"

namespace payslate {

/// Whole days, the last one too.
struct DaySpan {
  basic::Date first;
  basic::Date last;
};

struct CancelledEntry {
  std::string number;
  std::string remark;  ///< By whom and why, "Name:reason".
};

/// Of the two calendar months one is reviewed and the other lies before it.
struct EmployeeMonth {
  std::int32_t employeeId = 0;
  std::string name;
  std::int32_t departmentId = 0;   ///< 0: none
  std::string department;          ///< Its number where it has no name.
  bool departmentIsKnown = false;  ///< It is one of the company's.
  bool isKnown = false;            ///< The employee is one of the company's; else a number with entries.
  bool active = false;
  basic::Date joined;
  bool hasCurrency = false;  ///< It is one of the company's.
  std::string symbol;        ///< Of this currency, which basic pay is in.

  /// Live entries by their identifiers. Absent days are those of the attendance sheets, and only where the
  /// basic pay is below the employee's.
  std::vector<LoadedMonth> now;
  std::vector<LoadedMonth> before;
  std::vector<CancelledEntry> cancelled;  ///< In the month.
  std::vector<DaySpan> sheets;            ///< Live attendance sheets, where an active employee has no entry.
};

/// The holiday calendars that a month needs.
struct MonthCalendars {
  bool byDepartment = false;
  std::set<std::pair<std::int32_t, int>> known;  ///< Department (0: none) and year.

  [[nodiscard]] bool has(const EmployeeMonth& employee, int year) const {
    if (byDepartment && employee.departmentIsKnown) return known.contains({employee.departmentId, year});
    return std::any_of(known.begin(), known.end(), [year](const auto& one) { return one.second == year; });
  }
};

}  // namespace payslate
