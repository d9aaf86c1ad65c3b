// The entries of two months, row for row as their forms would show them, read at once.
#pragma once

#include "persistence/MonthPeople.h"

namespace payslate {

/// Gives the employees their entries. A header whose employee the company does not know makes one more
/// employee, unless the scope is of some departments. A statement for each kind of rows, and none for a kind
/// that cannot be there; ado::Error.
void readEntries(Session& session, const MonthScope& scope, const PayItems& items, EmployeeMonths& employees);

}  // namespace payslate
