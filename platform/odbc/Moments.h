// Dates between the program's day count and the drivers' structure. For source files of this folder alone.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include "platform/basic/Date.h"

namespace payslate::odbc {

/// To the millisecond.
SQL_TIMESTAMP_STRUCT timestampOf(basic::Date date);
/// basic::ValueError for a day outside the calendar, or a time outside the day.
basic::Date dateOf(const SQL_TIMESTAMP_STRUCT& moment);

}  // namespace payslate::odbc
