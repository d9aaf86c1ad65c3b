// Companies, people, their months and earlier entries. A stored date is milliseconds since 1900, an exact
// decimal is text with the decimals of its column.
#include "bench/PayrollRows.h"

#include <string_view>

namespace payslate::bench {

namespace {

// counted(i) from 0 to below :n, whatever :n is.
std::string numbersBelow(std::string_view count) {
  std::string sql = "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < ";
  sql += count;
  return sql += ") ";
}

// Months before April 2026: their days as the engine stores dates. A month is read by its rowid.
constexpr const char* months = "CREATE TEMP TABLE month (back INTEGER PRIMARY KEY, first INT, last INT)";
constexpr const char* monthRows =
    "INSERT INTO temp.month SELECT i, "
    "CAST(julianday('2026-04-01', '-' || i || ' months') - julianday('1900-01-01') AS INT) * 86400000, "
    "CAST(julianday('2026-04-01', '-' || i || ' months', '+1 month', '-1 day') - julianday('1900-01-01') AS INT) "
    "* 86400000 FROM n";

// Of each company c = i + 1.
constexpr const char* ofCompanies[] = {
    "INSERT INTO psettings SELECT i + 1, 90, NULL, 0, 0 FROM n",
    "INSERT INTO pPrefix SELECT i + 1, 40001, 'EN' FROM n",
    "INSERT INTO pusers SELECT i + 1, 1, 'Imke Overgaard' FROM n",
    "INSERT INTO pDepartment SELECT i + 1, column1, column2 FROM n, "
    "(VALUES (10, 'Weaving'), (20, 'Dye house'), (30, 'Office'))",
    "INSERT INTO pCurrencyMaster SELECT i + 1, column1, column2 FROM n, (VALUES (1, 'Rs'), (2, '$'))",
    "INSERT INTO pformula SELECT i + 1, column1, column2, column3 FROM n, "
    "(VALUES (1, 'BP * PD / MD * 0.10', 'F-PRESENT'), (2, 'BP * 0.12', 'F-FUND'))",
    "INSERT INTO pAllowances SELECT i + 1, column1, column2, 1, column3, 1 FROM n, "
    "(VALUES (1, 'House rent', NULL), (2, 'Attendance bonus', 1), (3, 'Overtime', NULL), (4, 'Schooling', NULL), "
    "(5, 'Meals', NULL))",
    "INSERT INTO pDeductions SELECT i + 1, column1, column2, 1, column3, 1 FROM n, "
    "(VALUES (1, 'Provident fund', 2), (2, 'Canteen', NULL), (3, 'Vehicle recovery', NULL), (4, 'Late hours', NULL), "
    "(5, 'Union fee', NULL), (6, 'Salary advance', NULL))",
    "INSERT INTO ploans SELECT i + 1, column1, column2, 1 FROM n, (VALUES (1, 'Festival loan'), (2, 'House loan'))",
    "INSERT INTO psavings SELECT i + 1, column1, column2, 1 FROM n, (VALUES (1, 'Thrift'), (2, 'Old age'))",
    "INSERT INTO pFacilityMaster SELECT i + 1, 1, 'Motor cycle', 3, 1 FROM n",
    "INSERT INTO pleaves SELECT i + 1, column1, column2 FROM n, (VALUES (1, 'Sick leave'), (2, 'Casual leave'))",
    "INSERT INTO pcalenderheader SELECT i + 1, column1, NULL, column2 FROM n, (VALUES (1, 2025), (2, 2026))",
    "INSERT INTO ppaymonths SELECT i + 1, 4 - back, first FROM n, temp.month WHERE back < 4",
};

// Of employee i + 1 of company 1. Whoever is chosen differs from the next one who is, by i / :step.
constexpr const char* ofEmployees[] = {
    "INSERT INTO pemployee SELECT 1, i + 1, printf('Employee %06d', i + 1), 1, 1, 1 + i % 4, 1 + i % 6, "
    "printf('%.2f', 20000 + i * 7.25), 10 + i % 3 * 10, 43099 * 86400000, '8.00', NULL, NULL FROM n",
    "INSERT INTO pempallowances SELECT 1, i + 1, column1, printf('%d.00', column2 + i % 50) FROM n, "
    "(VALUES (1, 2000), (2, 0))",
    "INSERT INTO pempdeductions SELECT 1, i + 1, column1, printf('%d.00', column2) FROM n, "
    "(VALUES (1, 0), (2, 300), (5, 15)) WHERE column1 < 5 OR (i + 1) / :step % 3 = 1",
    "INSERT INTO pLoansIssue SELECT 1, i + 1, 1, i + 1, '0.00', '750.00', 0, 0, 1 FROM n",
    "INSERT INTO pLoansIssue SELECT 1, 100001 + i, 2, i + 1, '84000.00', '1500.50', 1, 0, 1 FROM n "
    "WHERE (i + 1) / :step % 2 = 0",
    "INSERT INTO popeningsavings SELECT 1, i + 1, 1, i + 1, '0.00', '250.00', 1, 0, 0 FROM n",
    "INSERT INTO popeningsavings SELECT 1, 100001 + i, 2, i + 1, '5000.00', '250.00', 1, 1, 0 FROM n "
    "WHERE (i + 1) / :step % 3 = 0",
    "INSERT INTO psavingsdetails SELECT 1, 2, 100001 + i, first + 14 * 86400000 FROM n, temp.month "
    "WHERE back < 6 AND (i + 1) / :step % 3 = 0",
    "INSERT INTO pFacilityTrackingHeader SELECT 1, 10000001 + i, 'FT-' || i, 1, i + 1, '640.00', 0 FROM n "
    "WHERE (i + 1) / :step % 5 = 0",
    // A sheet a month: absent on up to three days and a half, on leave for two days in April, off on Sundays.
    "INSERT INTO pEmployeeattendence SELECT (i + 1) * 2 - back, 1, i + 1, first, last, 0 FROM n, temp.month "
    "WHERE back < 2",
    "INSERT INTO pempattendancedetail SELECT eaid, eacompanyid, eaStartDate + (column1 - 1) * 86400000, "
    "CASE WHEN (eaStartDate / 86400000 + column1 - 1) % 7 = 6 THEN 'h' WHEN column1 - 13 BETWEEN 1 AND "
    "eaEmpID / :step % 4 THEN 'a' WHEN column1 = 22 AND eaEmpID / :step % 5 < 2 THEN 'HL' ELSE 'p' END "
    "FROM pEmployeeattendence, (VALUES (1), (2), (3), (4), (5), (6), (7), (8), (9), (10), (11), (12), (13), (14), (15), "
    "(16), (17), (18), (19), (20), (21), (22), (23), (24), (25), (26), (27), (28), (29), (30), (31)) "
    "WHERE eaStartDate + (column1 - 1) * 86400000 <= eaEndDate "
    "AND NOT (column1 IN (8, 9) AND eaid % 2 = 0 AND eaEmpID / :step % 6 = 0)",
    "INSERT INTO pEmpAttendanceAllowanceDeductions SELECT eaid, 1, eaStartDate + 15 * 86400000, '2.50', "
    "CASE eaEmpID / :step % 4 WHEN 1 THEN 3 END, CASE eaEmpID / :step % 4 WHEN 2 THEN 4 END "
    "FROM pEmployeeattendence WHERE eaEmpID / :step % 4 IN (1, 2)",
    "INSERT INTO pleaveregisterheader SELECT 1, i + 1, i + 1, 0 FROM n",
    "INSERT INTO pleaveregisterdetail SELECT 1, i + 1, 2, first + 7 * 86400000, first + 8 * 86400000, '2.0' "
    "FROM n, temp.month WHERE back = CASE (i + 1) / :step % 6 WHEN 0 THEN 0 ELSE 2 END",
    "INSERT INTO pleavecancellationheader SELECT 1, i + 1, 0 FROM n",
    "INSERT INTO pleavecancellationdetail SELECT 1, i + 1, i + 1, 2, 's' FROM n",
};

// Headers, i from 0: the measured company's are the even i. Of those, j = i / 2, the last belong to the
// chosen employees, a month's behind each other; before them k counts from the newest back, through all
// employees who are not chosen, a month after the other, in blocks of 32,000 numbers a prefix.
constexpr const char* ownHeaders =
    "INSERT INTO pempmonthlyentryheader SELECT 1, i + 1, 'EN' || (m + 1), last, :step * (m % :chosen + 1), "
    "'20000.00', 0, first, last, '20000.00', 0, NULL, CASE WHEN back > 1 THEN 1 END "
    "FROM (SELECT i, i / 2 - (:headers / 2 - 5 * :chosen) m FROM n WHERE i % 2 = 0) "
    "CROSS JOIN temp.month ON back = 5 - m / :chosen WHERE m >= 0";
constexpr const char* otherHeaders =
    "INSERT INTO pempmonthlyentryheader SELECT 1, i + 1, 'L' || char(65 + k / 32000) || (k % 32000 + 1), last, "
    "CASE WHEN o < :chosen * (:step - 1) THEN o / (:step - 1) * :step + o % (:step - 1) + 1 "
    "ELSE o + :chosen + 1 END, '21000.00', 0, first, last, '21000.00', 0, NULL, CASE WHEN back > 1 THEN 1 END "
    "FROM (SELECT i, k, k / (:employees - :chosen) + 1 months, k % (:employees - :chosen) o FROM "
    "(SELECT i, :headers / 2 - 5 * :chosen - 1 - i / 2 k FROM n WHERE i % 2 = 0) WHERE k >= 0) "
    "CROSS JOIN temp.month ON back = months";
constexpr const char* headersElsewhere =
    "INSERT INTO pempmonthlyentryheader SELECT 2 + i / 2 % 39, i + 1, 'X' || (j + 1), last, 1 + j % 200, "
    "'19000.00', 0, first, last, '19000.00', 0, NULL, 1 FROM (SELECT i, i / 2 / 39 j FROM n WHERE i % 2 = 1) "
    "CROSS JOIN temp.month ON back = 1 + j / 200";

constexpr const char* ofHeaders[] = {
    "INSERT INTO pemployeeallowancedetail SELECT emhCompanyID, emhID, column1, printf('%d.00', column2), column1 < 3 "
    "FROM pempmonthlyentryheader, (VALUES (1, 2000), (2, 1800), (3, 400), (4, 120), (5, 80))",
    "INSERT INTO pemployeeDeductiondetail SELECT emhCompanyID, emhID, column1, column2, NULL, NULL, NULL, NULL, column3, "
    "printf('%d.00', column4) FROM pempmonthlyentryheader, (VALUES (1, 1, 'D', 2400), (2, 2, 'D', 300), "
    "(3, 5, 'N', 15), (4, 4, 'O', 40), (5, 6, 'N', 100))",
    // The company's every tenth took a facility's cost, every eighth kept something back.
    "INSERT INTO pFacilityTrackingHeader SELECT 1, emhID, 'FT-' || emhID, 1, emhempID, '640.00', 0 "
    "FROM pempmonthlyentryheader WHERE emhCompanyID = 1 AND emhID / 2 % 10 = 0",
    "INSERT INTO pempfacilitydeductiondetail SELECT 1, emhID, 1, emhID, '640.00', '640.00' "
    "FROM pempmonthlyentryheader WHERE emhCompanyID = 1 AND emhID / 2 % 10 = 0",
    "INSERT INTO pEmployeeCurrentDetails SELECT emhCompanyID, emhID, 1, 100.0, 1 "
    "FROM pempmonthlyentryheader WHERE emhID / 2 % 8 = 0",
};

}  // namespace

std::vector<std::string> rowStatements() {
  std::vector<std::string> statements{months, numbersBelow("200") + monthRows};
  for (const char* insert : ofCompanies) statements.push_back(numbersBelow("40") + insert);
  for (const char* insert : ofEmployees) statements.push_back(numbersBelow(":employees") + insert);
  statements.push_back(numbersBelow("7800") +
                       "INSERT INTO pemployee SELECT 2 + i / 200, 1 + i % 200, 'Employee ' || i, 1, 1, 1, 1, "
                       "'19000.00', 10, 43099 * 86400000, '8.00', NULL, NULL FROM n");
  for (const char* insert : {ownHeaders, otherHeaders, headersElsewhere})
    statements.push_back(numbersBelow(":headers") + insert);
  for (const char* insert : ofHeaders) statements.emplace_back(insert);
  return statements;
}

}  // namespace payslate::bench
