// The statements about employees, calendars and sheets.
#include "persistence/MonthPeople.h"

#include "component/DatabaseValues.h"
#include "persistence/EachRow.h"
#include "persistence/PayItems.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

std::string employeeStatement(const Session& session, const MonthScope& scope) {
  return "select eEmpID, eName, eActive, eCurrencyID, eDeptID, eDateofJoin, DepartmentID, DepartmentName "
         "from " +
         session.TableLinks["pemployee"] + " left outer join " + session.TableLinks["pDepartment"] +
         " on CompanyID = eCompanyID and DepartmentID = eDeptID where eCompanyID = " + session.companyText() +
         inDepartments(scope) + " and (eActive = 1 or eEmpID in (select emhempID from " +
         session.TableLinks["pempmonthlyentryheader"] + " where " + inBothMonths(session, scope) + "))";
}

std::string modeStatement(const Session& session) {
  return "select calendardepwise from " + session.TableLinks["psettings"] +
         " where companyid = " + session.companyText();
}

std::string calendarStatement(const Session& session, DaySpan period) {
  return "select departmentid, financialid from " + session.TableLinks["pcalenderheader"] +
         " where CompanyID = " + session.companyText() + " and financialid in (" +
         std::to_string(period.first.year()) + ", " + std::to_string(period.last.year()) + ")";
}

std::string sheetStatement(const Session& session, const MonthScope& scope) {
  return "select eEmpID, eaStartDate, eaEndDate from " + session.TableLinks["pemployee"] + ", " +
         session.TableLinks["pEmployeeattendence"] + " where eCompanyID = " + session.companyText() +
         inDepartments(scope) + " and eActive = 1 and eEmpID not in (select emhempID from " +
         session.TableLinks["pempmonthlyentryheader"] + " where " + inMonth(session, scope) +
         " and emhCancelled = 0) and eaEmpID = eEmpID and eacompanyid = eCompanyID and eaCancelled = 0"
         " and eaStartDate <= '" +
         compactDate(scope.period.last) + "' and eaEndDate >= '" + compactDate(scope.period.first) + "'";
}

std::int32_t idOf(const ado::Field& field) {
  return static_cast<std::int32_t>(numberOf(field.Value()));
}

EmployeeMonth employeeOf(ado::Recordset& row, const PayItems& items) {
  EmployeeMonth employee;
  employee.isKnown = true;
  employee.employeeId = idOf(row.Fields("eEmpID"));
  employee.name = basic::Trim(row.Fields("eName").Text());
  employee.active = idOf(row.Fields("eActive")) == 1;
  employee.hasCurrency = items.currency(idOf(row.Fields("eCurrencyID"))) != nullptr;
  employee.symbol = items.symbolOf(idOf(row.Fields("eCurrencyID")));
  employee.departmentId = idOf(row.Fields("eDeptID"));
  employee.departmentIsKnown = !basic::isNull(row.Fields("DepartmentID").Value());
  employee.department = basic::Trim(row.Fields("DepartmentName").Text());
  if (employee.department.empty()) employee.department = row.Fields("eDeptID").Text();
  employee.joined = dateOf(row.Fields("eDateofJoin").Value());
  return employee;
}

}  // namespace

EmployeeMonths readEmployees(Session& session, const MonthScope& scope, const PayItems& items) {
  EmployeeMonths employees;
  forEachRow(session, employeeStatement(session, scope), [&](ado::Recordset& row) {
    EmployeeMonth employee = employeeOf(row, items);
    employees.emplace(employee.employeeId, std::move(employee));
  });
  return employees;
}

MonthCalendars readCalendars(Session& session, DaySpan period) {
  MonthCalendars calendars;
  forEachRow(session, modeStatement(session), [&](ado::Recordset& row) {
    // Any number is as good as another; only Null stands for one calendar for all.
    calendars.byDepartment = !basic::isNull(row.Fields(0).Value());
  });
  forEachRow(session, calendarStatement(session, period), [&](ado::Recordset& row) {
    calendars.known.emplace(idOf(row.Fields(0)), static_cast<int>(idOf(row.Fields(1))));
  });
  return calendars;
}

void readSheets(Session& session, const MonthScope& scope, EmployeeMonths& employees) {
  forEachRow(session, sheetStatement(session, scope), [&](ado::Recordset& row) {
    const auto employee = employees.find(idOf(row.Fields(0)));
    if (employee != employees.end())
      employee->second.sheets.push_back({dateOf(row.Fields(1).Value()), dateOf(row.Fields(2).Value())});
  });
}

}  // namespace payslate
