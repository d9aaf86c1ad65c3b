// The payroll database: its tables, and two demo companies to fill them with.
#pragma once

#include "platform/ado/Connection.h"

namespace payslate::schema {

/// Creates every table, index, view and procedure, and the rows of linkTable. All or nothing, in a
/// transaction of its own: ado::Error when the connection is closed, a transaction is open, or the tables are
/// there already.
void create(ado::Connection& connection);

/// The same, and fills the tables with two companies: 1 on calendar months with 44 employees, 2 on the 26th
/// to the 25th with 12, interface 40001, attendance from January to April 2026, earlier entries. Process date
/// 2026/04/30, financial year 2026. Always the same rows. All or nothing; ado::Error as for create.
void createDemo(ado::Connection& connection);

}  // namespace payslate::schema
