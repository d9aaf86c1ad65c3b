// The conditions.
#include "persistence/MonthScope.h"

#include "component/DatabaseValues.h"
#include "component/Session.h"

namespace payslate {

namespace {

// A range and no functions of the date, which every database finds by its index.
std::string between(const Session& session, const MonthScope& scope, basic::Date first, basic::Date end) {
  std::string condition = "emhCompanyID = " + session.companyText() + " and emhDate >= '" +
                          compactDate(first) + "' and emhDate < '" + compactDate(end) + "'";
  if (!scope.departments.empty())
    condition += " and emhempID in (select eEmpID from " + session.TableLinks["pemployee"] +
                 " where eCompanyID = " + session.companyText() + inDepartments(scope) + ")";
  return condition;
}

}  // namespace

basic::Date MonthScope::firstDay() const {
  return basic::Date::fromCalendar(date.year(), date.month(), 1);
}

std::string inMonth(const Session& session, const MonthScope& scope) {
  return between(session, scope, scope.firstDay(), scope.firstDay().plusMonths(1));
}

std::string inBothMonths(const Session& session, const MonthScope& scope) {
  return between(session, scope, scope.firstDayBefore(), scope.firstDay().plusMonths(1));
}

std::string inDepartments(const MonthScope& scope) {
  if (scope.departments.empty()) return {};
  std::string list;
  for (const std::int32_t department : scope.departments)
    list += (list.empty() ? "" : ", ") + std::to_string(department);
  return " and eDeptID in (" + list + ")";
}

}  // namespace payslate
