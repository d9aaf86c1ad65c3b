// Which entries belong to a review: those of a calendar month, of the month before, of some departments.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "component/EmployeeMonth.h"

namespace payslate {

struct Session;

struct MonthScope {
  basic::Date date;                       ///< Any day of the month.
  DaySpan period;                         ///< The pay period of the month.
  std::vector<std::int32_t> departments;  ///< Empty: all.

  [[nodiscard]] basic::Date firstDay() const;
  [[nodiscard]] basic::Date firstDayBefore() const { return firstDay().plusMonths(-1); }
};

/// Conditions on headers, which stand in statements without an alias: of the scope's company and departments,
/// dated in the month, or in one of both. An entry is of the month that its date lies in, as for the combo of
/// a new entry.
std::string inMonth(const Session& session, const MonthScope& scope);
std::string inBothMonths(const Session& session, const MonthScope& scope);
/// " and eDeptID in (…)", nothing for all departments.
std::string inDepartments(const MonthScope& scope);

}  // namespace payslate
