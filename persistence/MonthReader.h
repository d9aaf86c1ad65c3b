// A month and the one before as they are stored, for everybody.
#pragma once

#include <memory>
#include <vector>

#include "component/EmployeeMonth.h"
#include "persistence/MonthScope.h"

namespace payslate {

struct Session;
class StoredState;

struct MonthRows {
  std::vector<EmployeeMonth> employees;  ///< By their numbers.
  MonthCalendars calendars;              ///< Read where somebody active has no entry.
  std::shared_ptr<StoredState> stored;   ///< What entries of the month can be held against.
};

/// Everybody of the scope who is active or has an entry in one of the months. A fixed number of statements,
/// whatever the number of employees; ado::Error.
MonthRows readMonth(Session& session, const MonthScope& scope);

}  // namespace payslate
