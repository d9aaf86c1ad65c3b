// Whom the review of a month is about, and what a new entry of theirs would ask for.
#pragma once

#include <cstdint>
#include <map>

#include "component/EmployeeMonth.h"
#include "persistence/MonthScope.h"

namespace payslate {

struct Session;
class PayItems;

using EmployeeMonths = std::map<std::int32_t, EmployeeMonth>;

/// Everybody of the scope's departments who is active or has an entry in one of the months, without the
/// entries. By one statement; ado::Error.
EmployeeMonths readEmployees(Session& session, const MonthScope& scope, const PayItems& items);

/// The calendars of the years that the period touches, by two statements.
MonthCalendars readCalendars(Session& session, DaySpan period);

/// Gives active employees without an entry their live sheets of the period, by one statement.
void readSheets(Session& session, const MonthScope& scope, EmployeeMonths& employees);

}  // namespace payslate
