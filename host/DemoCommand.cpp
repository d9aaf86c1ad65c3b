// payroll-host demo: the demo company in a window, or a clerk's walk through it where nobody watches.
#include <filesystem>
#include <map>
#include <optional>
#include <ostream>

#include "host/Commands.h"
#include "host/ComponentStage.h"
#include "host/Database.h"
#include "host/Performance.h"
#include "host/TablePrint.h"
#include "host/demo_errand.h"
#include "platform/ado/Recordset.h"
#include "schema/schema.h"

namespace payslate::host {

namespace {

using basic::Date;

constexpr const char* usualScreens = "payroll-demo-screens";
constexpr std::int64_t employeeWithEverything = 101;  // the demo company's rows of every kind are hers

struct DemoMonth {
  Date first = Date::fromCalendar(2026, 4, 1);
  Date last = Date::fromCalendar(2026, 4, 30);
};

scripted::HostSession demoSession() {
  return {1, 1, 40001, 2026, DemoMonth().last, "Payroll"};
}

SharedConnection demoDatabase(const std::string& path, std::ostream& out) {
  if (!isUnmadeFile(path)) return openPayroll(path);
  SharedConnection connection = createPayroll(path, schema::createDemo);
  out << "The demo companies are created in " << path << ".\n";
  return connection;
}

/// Employees whose one live attendance sheet is the whole month's: nothing keeps the clerk from saving
/// theirs.
std::map<std::int64_t, bool> wholeMonthSheets(ado::Connection& connection) {
  const DemoMonth month;
  std::map<std::int64_t, bool> whole;
  ado::Recordset sheets = connection.Execute(
      "select eaEmpID, eaStartDate, eaEndDate from pEmployeeattendence where eacompanyid = 1 and eaCancelled "
      "= 0"
      " and eaEndDate >= '2026/04/01' and eaStartDate <= '2026/04/30'");
  for (; !sheets.Eof(); sheets.MoveNext()) {
    const std::int64_t employee = std::get<std::int64_t>(sheets.Fields("eaEmpID").Value());
    const bool covers = std::get<Date>(sheets.Fields("eaStartDate").Value()) <= month.first &&
                        std::get<Date>(sheets.Fields("eaEndDate").Value()) >= month.last;
    const bool first = !whole.contains(employee);
    whole[employee] = first && covers;
  }
  return whole;
}

struct Employee {
  std::int64_t id = 0;
  std::string name;
};

/// The first employee of the demo month who still has no entry. Who is paid in another currency than most may
/// owe more than the pay in one of them, which cannot be saved.
std::optional<Employee> nextEmployee(ado::Connection& connection) {
  const auto whole = wholeMonthSheets(connection);
  ado::Recordset employees = connection.Execute(
      "select eEmpID, eName from pemployee where eCompanyID = 1 and eActive = 1 and eCurrencyID = 1"
      " and eDateofJoin <= '2026/04/01' and eEmpID not in (select emhempID from pempmonthlyentryheader where month(emhDate) = 4"
      " and year(emhDate) = 2026 and emhCompanyID = 1 and emhCancelled = 0) order by eEmpID");
  for (; !employees.Eof(); employees.MoveNext()) {
    const auto id = std::get<std::int64_t>(employees.Fields("eEmpID").Value());
    const auto sheet = whole.find(id);
    if (sheet != whole.end() && sheet->second) return Employee{id, employees.Fields("eName").Text()};
  }
  return {};
}

std::string withValue(std::string text, const std::string& place, const std::string& value) {
  for (std::size_t at = text.find(place); at != std::string::npos; at = text.find(place, at + value.size()))
    text.replace(at, place.size(), value);
  return text;
}

struct Walk {
  const char* what;  ///< For the person who reads along.
  const char* name;
  std::string_view text;
};

/// A value of the entry made last; empty when there is none.
std::string ofLatestEntry(ado::Connection& connection, const std::string& column) {
  ado::Recordset latest =
      connection.Execute("select " + column +
                         " from pempmonthlyentryheader where emhCompanyID = 1 and emhID ="
                         " (select max(emhID) from pempmonthlyentryheader where emhCompanyID = 1)");
  return latest.Eof() ? std::string() : latest.Fields(0).Text();
}

void printLatestEntry(ado::Connection& connection, std::ostream& out) {
  const std::string id = ofLatestEntry(connection, "emhID");
  if (id.empty()) return;
  out << "\nWhat the database holds of it:\n";
  printRows(
      out, "Header", connection,
      "select emhID, emhNo, emhDate, eName, emhbasicpay, emhpaidcash, emhstartdate, emhenddate,"
      " emhOrginalBasic, emhCancelled, emhCancelledRemarks from pempmonthlyentryheader, pemployee where emhCompanyID = eCompanyid"
      " and emhempID = eEmpID and emhCompanyID = 1 and emhID = " +
          id);
  printRows(out, "Allowances", connection,
            "select eadallowanceid, aDescription, eadamount, eaddefault from pemployeeallowancedetail,"
            " pAllowances where eadcompanyid = aCompanyID and eadallowanceid = aAllowanceID"
            " and eadcompanyid = 1 and eadid = " +
                id + " order by eadallowanceid");
  printRows(out, "Deductions", connection,
            "select eddDetailID, eddType, edddeductionid, eddloanid, eddsavingsid, eddamount"
            " from pemployeeDeductiondetail where eddcompanyid = 1 and eddid = " +
                id + " order by eddDetailID");
  printRows(
      out, "Facility recoveries", connection,
      "select efddetailid, efdtrackingid, fthTrackingNo, fmFacilityName, efddedamount, efdfacilityamt"
      " from pempfacilitydeductiondetail, pFacilityTrackingHeader, pFacilityMaster"
      " where efdcompanyid = fthCompanyID and efdtrackingid = fthTrackingID and fthCompanyID = fmCompanyID"
      " and fthFacilityID = fmFacilityID and efdcompanyid = 1 and efdid = " +
          id + " order by efddetailid");
  printRows(out, "Salary carried forward", connection,
            "select ecdDetailID, ecdAmount, ecdMode from pEmployeeCurrentDetails"
            " where ecdCompanyID = 1 and ecdPaySlateID = " +
                id + " order by ecdDetailID");
}

bool perform(const Walk& walk, const Employee& employee, const SharedConnection& connection, Screen& screen,
             std::ostream& out) {
  out << "\nNobody is in front of the screen: the clerk " << walk.what << ' ' << employee.name << ".\n";
  std::string text = withValue(std::string(walk.text), "{employee}", employee.name);
  text = withValue(text, "{number}", ofLatestEntry(*connection, "emhNo"));
  if (!perform(scripted::Errand::parse(text, walk.name), connection, screen, out)) return false;
  printLatestEntry(*connection, out);
  return true;
}

ExitCode walk(const SharedConnection& connection, Screen& screen, std::ostream& out) {
  const auto employee = nextEmployee(*connection);
  if (!employee) {
    out << "Every employee of the month has an entry: there is nothing left to enter.\n";
    printLatestEntry(*connection, out);
    return ExitCode::Ok;
  }
  const bool everything = employee->id == employeeWithEverything;
  const Walk walks[] = {
      {"enters", everything ? "demo.errand" : "demo-next.errand",
       everything ? demoErrand() : demoNextErrand()},
      {"opens and changes the entry of", "demo-edit.errand", demoEditErrand()},
      {"cancels the entry of", "demo-cancel.errand", demoCancelErrand()},
  };
  for (const Walk& one : walks)
    if (!perform(one, *employee, connection, screen, out)) return ExitCode::Failed;
  return ExitCode::Ok;
}

void makeFolder(const std::string& folder) {
  std::error_code failed;
  std::filesystem::create_directories(folder, failed);
  if (failed) throw Refusal("The folder " + folder + " cannot be made: " + failed.message() + ".");
}

}  // namespace

ExitCode demo(const DemoWish& wish, const ScreenMaker& makeScreen, std::ostream& out) {
  if (!wish.connect.empty()) {
    createPayroll(wish.connect, schema::createDemo);
    out << "The demo companies are created. payroll-host show opens them: --company 1 --user 1"
           " --interface 40001 --year 2026 --date 2026/04/30.\n";
    return ExitCode::Ok;
  }
  if (!wish.screens.empty()) makeFolder(wish.screens);
  const SharedConnection connection = demoDatabase(wish.database, out);
  requireCompany(*connection, demoSession().company);
  const auto screen = makeScreen();
  if (!wish.screens.empty()) {
    screen->saveScreens(wish.screens);
  } else if (!screen->isSeen()) {
    makeFolder(usualScreens);
    screen->saveScreens(usualScreens);
  }
  if (!screen->isSeen()) return walk(connection, *screen, out);
  makeComponent(screen->desktop(), connection, demoSession()).Show();
  return ExitCode::Ok;
}

}  // namespace payslate::host
