// What is read, in its order.
#include "persistence/MonthReader.h"

#include <algorithm>

#include "persistence/MonthEntries.h"
#include "persistence/MonthState.h"
#include "persistence/PayItems.h"

namespace payslate {

MonthRows readMonth(Session& session, const MonthScope& scope) {
  const auto items = std::make_shared<const PayItems>(session);
  EmployeeMonths employees = readEmployees(session, scope, *items);
  readEntries(session, scope, *items, employees);
  MonthRows rows;
  rows.stored = std::make_shared<MonthState>(session, scope, employees, items);
  const auto lacksEntry = [](const auto& employee) {
    return employee.second.active && employee.second.now.empty();
  };
  if (std::any_of(employees.begin(), employees.end(), lacksEntry)) {
    rows.calendars = readCalendars(session, scope.period);
    readSheets(session, scope, employees);
  }
  rows.employees.reserve(employees.size());
  for (auto& [id, employee] : employees) rows.employees.push_back(std::move(employee));
  return rows;
}

}  // namespace payslate
