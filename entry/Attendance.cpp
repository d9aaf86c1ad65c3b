// Pay period, department and calendar, and the day counts from the attendance sheets.
#include "entry/Attendance.h"

#include <algorithm>
#include <cstdlib>

#include "component/BasPaySlate.h"
#include "component/EntryState.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/common/CommonDB.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/DatePicker.h"
#include "platform/ui/TextBox.h"

namespace payslate {

using ado::CursorType;
using ado::LockType;
using basic::numberText;
using basic::Val;

/// One count of distinct dates: what is counted, which day types, and the blanks between them.
struct Attendance::DayCount {
  const char* select;
  const char* detail;
  const char* header;
  const char* types;
  const char* upperBound;
};

namespace {

constexpr const char* noSheets = "Attendance not entered for the above period, can't proceed";
constexpr const char* sheetsDoNotAddUp = "Attendance not entered, monthlyentry can't proceed";

std::string departmentModeStatement(const Session& session) {
  return "select calendardepwise from " + session.TableLinks["psettings"] +
         " where companyid=" + session.companyText();
}

std::string departmentStatement(const Session& session, std::int32_t employeeId) {
  return "select eDateofJoin,DepartmentID,DepartmentName from " + session.TableLinks["pemployee"] + " a," +
         session.TableLinks["pDepartment"] +
         " b where a.eDeptID = b.DepartmentID and a.eCompanyID=b.CompanyID and a.eCompanyID=" +
         session.companyText() + " and eEmpID=" + std::to_string(employeeId);
}

std::string dateOfJoinStatement(const Session& session, std::int32_t employeeId) {
  return "select eDateofJoin from " + session.TableLinks["pemployee"] +
         " where eCompanyID=" + session.companyText() + " and eEmpID=" + std::to_string(employeeId);
}

std::string calendarStatement(const Session& session, const std::string& departmentCondition, int year) {
  return "Select count(*) from " + session.TableLinks["pcalenderheader"] +
         " where companyID = " + session.companyText() + departmentCondition +
         " and financialid =" + std::to_string(year);
}

// The live sheets that overlap the days from S to E, with the number of their days inside.
std::string coverageStatement(const Session& session, std::int32_t employeeId, basic::Date first) {
  const std::string S = slashDate(first);
  const std::string E = slashDate(session.dtPeriodEnd);
  return " select case when eastartdate < '" + S + "' then '" + S + "'" +
         " else eastartdate end startdate,case when  eaenddate > '" + E + "' then " + "'" + E +
         "' else eaenddate end enddate,datediff(d,case when eastartdate < '" + S + "'" + " then '" + S +
         "' else eastartdate end ,case when  eaenddate > '" + E + "'" + " then '" + E +
         "' else eaenddate end )+1 noofdays from  " + session.TableLinks["pEmployeeattendence"] + " where (" +
         " ( '" + S + "' between eaStartDate and eaEndDate) or " + " ( '" + E +
         "' between eaStartDate and eaEndDate) or " + " ( '" + S + "' < eaStartDate and '" + E +
         "' >eaEndDate)) " + " And eacancelled = 0 And eacompanyid = " + session.companyText() +
         " and eaEmpID=" + std::to_string(employeeId);
}

}  // namespace

basic::Date nearestYear(basic::Date start, basic::Date entryDate) {
  const auto distance = [&](int years) {
    return std::abs(basic::daysBetween(start.plusYears(years), entryDate));
  };
  const int years = entryDate.year() - start.year();
  return start.plusYears(std::min({years - 1, years, years + 1},
                                  [&](int left, int right) { return distance(left) < distance(right); }));
}

void Attendance::computePeriod(common::CommonDB& database) {
  bas_.dtPeriodStart = bas_.dtPeriodEnd = basic::Date();  // Should it fail, no other month's period stays.
  const basic::Date entryDate = controls_.dtpattdate.Value();
  database.strTableName("vwPaymonthvsdate");
  const std::string month = std::to_string(entryDate.month());
  const basic::Value start =
      database.fnreturnfield("startdate ", "companyid=" + bas_.companyText() + " and paymonth=" + month);
  // The form stays open, so that another date can be picked; nobody can be entered in the zero date's period.
  if (basic::isNull(start) && bas_.isNewEntry())
    bas_.message("Pay month " + month +
                 " of this company has no start date. Pick another date, or have the pay "
                 "months (vwPaymonthvsdate) completed.");
  bas_.dtPeriodStart = basic::isNull(start) ? basic::Date() : nearestYear(dateOf(start), entryDate);
  bas_.dtPeriodEnd = bas_.dtPeriodStart.plusMonths(1).plusDays(-1);
  controls_.txtTotalDays.Text = std::to_string(basic::daysBetween(bas_.dtPeriodStart, bas_.dtPeriodEnd) + 1);
}

bool Attendance::hasPeriod() const {
  return bas_.dtPeriodStart != basic::Date();
}

// The date of join is needed with a company-wide calendar too.
void Attendance::readDateOfJoin(std::int32_t employeeId) {
  ado::Recordset row;
  row.Open(dateOfJoinStatement(bas_, employeeId), *bas_.adocon(), CursorType::ForwardOnly,
           LockType::ReadOnly);
  state_.dtDateOfJoin = row.Eof() ? basic::Date() : dateOf(row.Fields("eDateofJoin").Value());
}

void Attendance::GetDeptID(std::int32_t employeeId) {
  bas_.intDeptID = 0;
  state_.strDeptCondition.clear();
  state_.strDeptName.clear();
  {
    ado::Recordset setting;
    setting.Open(departmentModeStatement(bas_), *bas_.adocon(), CursorType::ForwardOnly, LockType::ReadOnly);
    if (setting.Eof() || basic::isNull(setting.Fields("calendardepwise").Value()))
      return readDateOfJoin(employeeId);
  }
  ado::Recordset department;
  department.Open(departmentStatement(bas_, employeeId), *bas_.adocon(), CursorType::ForwardOnly,
                  LockType::ReadOnly);
  if (department.Eof()) {
    bas_.message("There is no department for this employee.", ui::MessageStyle::Exclamation);
    return readDateOfJoin(employeeId);
  }
  bas_.intDeptID = basic::CInt(department.Fields("DepartmentID").Value());
  state_.strDeptName = department.Fields("DepartmentName").Text();
  state_.dtDateOfJoin = dateOf(department.Fields("eDateofJoin").Value());
  state_.strDeptCondition = " and departmentid=" + std::to_string(bas_.intDeptID);
}

bool Attendance::calendarExists(int year) {
  ado::Recordset row;
  row.Open(calendarStatement(bas_, state_.strDeptCondition, year), *bas_.adocon(), CursorType::Keyset,
           LockType::Optimistic);
  const bool exists = basic::CLng(row.Fields(0).Value()) != 0;
  controls_.cmdOk.Enabled = exists;
  if (!exists)
    refuse("Calender Settings not Found for " + basic::Trim(state_.strDeptName) + " for the year - " +
           std::to_string(year));
  return exists;
}

bool Attendance::FnCheckCalendarSettingsNotEntered() {
  return !calendarExists(bas_.dtPeriodStart.year()) || !calendarExists(bas_.dtPeriodEnd.year());
}

bool Attendance::joinedInside() const {
  return slashDate(state_.dtDateOfJoin) > slashDate(bas_.dtPeriodStart);
}

long Attendance::daysBeforeJoining() const {
  return joinedInside() ? basic::daysBetween(bas_.dtPeriodStart, state_.dtDateOfJoin) : 0;
}

double Attendance::covered(std::int32_t employeeId, basic::Date first, bool& anySheet) {
  ado::Recordset sheets;
  sheets.Open(coverageStatement(bas_, employeeId, first), *bas_.adocon(), CursorType::Keyset,
              LockType::Optimistic);
  anySheet = !sheets.Eof();
  double days = 0;
  for (; !sheets.Eof(); sheets.MoveNext()) days += numberOf(sheets.Fields("noofdays").Value());
  return days;
}

void Attendance::refuse(const std::string& reason) {
  state_.whyNotWhole = reason;
  bas_.message(reason);
}

bool Attendance::fnLoadAttendance(std::int32_t employeeId) {
  const basic::Date first = joinedInside() ? state_.dtDateOfJoin : bas_.dtPeriodStart;
  state_.dblPeriodDays = static_cast<double>(basic::daysBetween(first, bas_.dtPeriodEnd) + 1);
  bool anySheet = false;
  const double days = covered(employeeId, first, anySheet);
  if (!anySheet) {
    refuse(noSheets);
    return false;
  }
  if (days != state_.dblPeriodDays) {
    refuse(sheetsDoNotAddUp);
    return false;
  }
  countDays(employeeId);
  return true;
}

std::optional<double> Attendance::count(const DayCount& what, std::int32_t employeeId) {
  const std::string statement =
      what.select + bas_.TableLinks["pempattendancedetail"] + what.detail +
      bas_.TableLinks["pEmployeeattendence"] + what.header +
      " where h.eaid = d.eadAttendanceID and  h.eacompanyid = d.eadcompanyid and h.eaCancelled =0"
      " and d.eadtype " +
      what.types + " and eaddate >= '" + slashDate(bas_.dtPeriodStart) + what.upperBound +
      slashDate(bas_.dtPeriodEnd) + "' and eadCompanyId=" + bas_.companyText() +
      " and eaEmpID=" + std::to_string(employeeId);
  ado::Recordset row;
  row.Open(statement, *bas_.adocon(), CursorType::Keyset, LockType::Optimistic);
  if (row.Eof()) return {};
  return numberOf(row.Fields(0).Value());
}

// A half day counts half where its type has it: "HL" and "HA" half present, "HA" and "AL" half absent.
// Whatever of the employed days is neither present nor absent is leave.
void Attendance::countDays(std::int32_t employeeId) {
  const DayCount present{"select count(distinct(eaddate)) present from ", " d,", " h", "in ('p','h')",
                         "' and eaddate <='"};
  const DayCount halfPresent{"select count(distinct(eaddate))*0.5 present from ", " d,", " h",
                             "in ('HL','HA')", "' and eaddate <='"};
  const DayCount absent{"select count(distinct(eaddate)) absent from ", " d,", " h", "='a'",
                        "' and eaddate <= '"};
  const DayCount halfAbsent{"select count(distinct(eaddate))*0.5 absent from ", " d,", " h", "in ('AL','HA')",
                            "' and eaddate <= '"};
  const DayCount holidays{"select count(distinct(eaddate)) Holidays from ", " d,", " h", "='h'",
                          "' and eaddate <='"};
  const auto days = [&](const DayCount& what) { return count(what, employeeId).value_or(0); };
  DaysOrigin& origin = state_.daysOrigin;
  origin = {true, true, Val(controls_.txtTotalDays.Text()), state_.dblPeriodDays};
  origin.present = days(present);
  controls_.txtNoPresent.Text = numberText(origin.present);
  origin.halvesPresent = days(halfPresent);
  controls_.txtNoPresent.Text = numberText(origin.halvesPresent + Val(controls_.txtNoPresent.Text()));
  state_.dblAbsentDays = origin.absent = days(absent);
  origin.halvesAbsent = days(halfAbsent);
  controls_.txtNoAbsent.Text = numberText(origin.halvesAbsent + state_.dblAbsentDays);
  state_.dblAbsentDays = Val(controls_.txtNoAbsent.Text());
  state_.dblHolidays = days(holidays);
  controls_.txtNoLeave.Text =
      numberText(state_.dblPeriodDays - (Val(controls_.txtNoPresent.Text()) + state_.dblAbsentDays));
  origin.leave = Val(controls_.txtNoLeave.Text());
}

void Attendance::fnLoadAttendanceCounts(std::int32_t employeeId) {
  const DayCount present{"select count(distinct(eaddate)) present from ", " d,", " h ", "in ('p','h')",
                         "' and  eaddate <='"};
  const DayCount absent{"select count(distinct(eaddate)) absent from ", " d ,", " h ", "='a'",
                        "' and  eaddate <= '"};
  const DayCount holidays{"select count(distinct(eaddate)) Holidays from ", " d ,", " h ", "='h'",
                          "' and  eaddate <= '"};
  DaysOrigin& origin = state_.daysOrigin;
  if (const auto days = count(present, employeeId)) {
    controls_.txtNoPresent.Text = numberText(*days);
    origin.present = *days;
  }
  if (const auto days = count(absent, employeeId)) {
    controls_.txtNoAbsent.Text = numberText(*days);
    origin.absent = *days;
  }
  if (const auto days = count(holidays, employeeId)) state_.dblHolidays = *days;
  const double days = basic::CInt(basic::daysBetween(bas_.dtPeriodStart, bas_.dtPeriodEnd) + 1);
  controls_.txtNoLeave.Text =
      numberText(days - (Val(controls_.txtNoAbsent.Text()) + Val(controls_.txtNoPresent.Text())));
  controls_.txtworkingdays.Text = numberText(days - Val(controls_.txtNoLeave.Text()));
  origin.known = true;
  origin.totalDays = origin.employedDays = days;
  origin.leave = Val(controls_.txtNoLeave.Text());
  origin.working = Val(controls_.txtworkingdays.Text());
}

void Attendance::setWorkingDays() {
  controls_.txtworkingdays.Text =
      numberText(Val(controls_.txtTotalDays.Text()) - Val(controls_.txtNoLeave.Text()) -
                 static_cast<double>(daysBeforeJoining()));
  state_.daysOrigin.working = Val(controls_.txtworkingdays.Text());
}

void Attendance::setPresentDays() {
  controls_.txtNoPresent.Text =
      numberText(Val(controls_.txtworkingdays.Text()) - Val(controls_.txtNoAbsent.Text()));
}

}  // namespace payslate
