// The payroll database with a few rows in most of its tables, for targets that run statements.
#pragma once

#include "platform/ado/Connection.h"

namespace payslate::fuzz {

/// Creates the tables of the schema and fills them.
void createPayroll(ado::Connection& connection);

}  // namespace payslate::fuzz
