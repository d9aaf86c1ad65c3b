// Rows that statements can join: two companies, three employees, one entry.
#include "fuzz/PayrollDatabase.h"

#include "platform/ado/Recordset.h"
#include "schema/schema.h"

namespace payslate::fuzz {
namespace {

constexpr const char* filling[] = {
    "insert into psettings values (1, 90, null, 0, 0), (2, 0, 1, 1, 1)",
    "insert into pusers values (1, 1, 'Imke Overgaard'), (1, 2, 'Lotte Marisk  '), (2, 1, null)",
    "insert into puserrights values (1, 40001, 'ADMIN'), (2, 40001, ' n e d '), (3, 40001, null)",
    "insert into pemployee values (1, 101, 'Asha', 1, 1, null, null, 28000, 10, '2018/01/01', 8, null, 0)",
    "insert into pemployee values (1, 102, 'asha ', 1, 2, 1, 1, 0.05, null, '20240229', 7.5, 12.5, 0)",
    "insert into pemployee values (2, 201, 'Été', 0, 3, 2, 2, -9999999999999999.99, 30, null, 1, 1, 99.99)",
    "insert into pDepartment values (1, 10, 'Weaving'), (2, 30, 'Dispatch ')",
    "insert into pCurrencyMaster values (1, 1, 'Rs'), (1, 2, '$'), (2, 3, 'Eu')",
    "insert into pformula values (1, 1, 'BP * PD / MD * 0.10', 'F-PRESENT'), (1, 2, '( bp - ', null)",
    "insert into pAllowances values (1, 1, 'House rent', 1, null, 1), (1, 2, 'Attendance', 1, 1, 2)",
    "insert into pDeductions values (1, 1, 'Provident fund', 1, 2, 1), (1, 2, 'Canteen', 0, 0, null)",
    "insert into pempallowances values (1, 101, 1, 1500.25), (1, 102, 2, 0)",
    "insert into pLoansIssue values (1, 1, 1, 101, 400, 1000, 1, 0, 1)",
    "insert into popeningsavings values (1, 1, 1, 101, 5000, 250, 1, 1, 0)",
    "insert into psavingsdetails values (1, 1, 1, '2026/03/15'), (1, 1, 1, '2026/04/30')",
    "insert into pEmployeeattendence values (1, 1, 101, '2026/04/01', '2026/04/30', 0)",
    "insert into pempattendancedetail values (1, 1, '2026/04/01', 'P'), (1, 1, '2026/04/02', 'hd')",
    "insert into pleaveregisterheader values (1, 1, 101, 0)",
    "insert into pleaveregisterdetail values (1, 1, 1, '2026/03/30', '2026/04/02', 3.5)",
    "insert into pempmonthlyentryheader values (1, 1, 'E7', '20260430', 101, 28, 1, null, null, 28, 0, null, 0)",
    "insert into pempmonthlyentryheader values (1, 2, 'E12', null, 102, .05, 0, null, '20260430', 0, 1, '', 1)",
    "insert into pemployeeallowancedetail values (1, 1, 1, 1500.25, 1), (1, 1, 1, 12.5, 0)",
    "insert into pemployeeDeductiondetail values (1, 1, 1, 1, null, null, null, null, 'D', 300.1)",
    "insert into pEmployeeCurrentDetails values (1, 1, 1, 0.1, 2), (1, 1, 2, -1e300, null)",
    "insert into ppaymonths values (1, 1, '2026/01/01'), (1, 4, '2026/04/01'), (2, 1, '2025/12/26')",
};

}  // namespace

void createPayroll(ado::Connection& connection) {
  schema::create(connection);
  for (const char* const statement : filling) connection.Execute(statement);
}

}  // namespace payslate::fuzz
