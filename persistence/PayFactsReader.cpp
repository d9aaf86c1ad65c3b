// The statements that explanations send.
#include "persistence/PayFactsReader.h"

#include "component/DatabaseValues.h"
#include "component/Session.h"
#include "persistence/StoredStateReader.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

std::string equals(const char* column, std::int32_t value) {
  return std::string(" and ") + column + " = " + std::to_string(value);
}

ado::Recordset opened(Session& session, const std::string& statement) {
  ado::Recordset rows;
  rows.Open(statement, *session.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
  return rows;
}

std::string standingStatement(const Session& session, PayKind kind, std::int32_t employee,
                              std::int32_t component) {
  if (kind == PayKind::Allowance)
    return "select eaamount amount from pempallowances where eacompanyid = " + session.companyText() +
           equals("eaempid", employee) + equals("eaallowanceid", component);
  return "select edamount amount from pempdeductions where edcompanyid = " + session.companyText() +
         equals("edempid", employee) + equals("eddeductionid", component);
}

std::string loanStatement(const Session& session, std::int32_t issue) {
  return "select liCurrentBalance balance, liInstallmentAmount instalment from " +
         session.TableLinks["pLoansIssue"] + " where liCompanyID = " + session.companyText() +
         equals("liID", issue);
}

std::string savingsStatement(const Session& session, std::int32_t account) {
  return "select osCurrentBalance balance, osInstallmentAmount instalment from " +
         session.TableLinks["popeningsavings"] + " where osCompanyID = " + session.companyText() +
         equals("osID", account);
}

std::string hoursStatement(const Session& session, std::int32_t employee, const char* componentColumn,
                           std::int32_t component) {
  return "select d.eaadAttendanceID, d.eaadDate, d.eaadHours from " +
         session.TableLinks["pEmpAttendanceAllowanceDeductions"] + " d, " +
         session.TableLinks["pEmployeeattendence"] +
         " h where h.eaid = d.eaadAttendanceID and h.eacompanyid = d.eaadCompanyID and h.eaCancelled = 0"
         " and h.eacompanyid = " +
         session.companyText() + equals("h.eaEmpID", employee) + equals(componentColumn, component) +
         " and d.eaadDate >= '" + compactDate(session.dtPeriodStart) + "' and d.eaadDate <= '" +
         compactDate(session.dtPeriodEnd) + "' order by d.eaadDate, d.eaadAttendanceID";
}

std::string sheetStatement(const Session& session, std::int32_t employee) {
  return "select eaid, eaStartDate, eaEndDate from " + session.TableLinks["pEmployeeattendence"] +
         " where eacompanyid = " + session.companyText() + equals("eaEmpID", employee) +
         " and eaCancelled = 0 and eaStartDate <= '" + compactDate(session.dtPeriodEnd) +
         "' and eaEndDate >= '" + compactDate(session.dtPeriodStart) + "' order by eaStartDate, eaid";
}

std::string dayStatement(const Session& session, std::int32_t employee) {
  return "select d.eadAttendanceID, d.eaddate, d.eadtype from " + session.TableLinks["pempattendancedetail"] +
         " d, " + session.TableLinks["pEmployeeattendence"] +
         " h where h.eaid = d.eadAttendanceID and h.eacompanyid = d.eadcompanyid and h.eaCancelled = 0"
         " and h.eacompanyid = " +
         session.companyText() + equals("h.eaEmpID", employee) + " and d.eaddate >= '" +
         compactDate(session.dtPeriodStart) + "' and d.eaddate <= '" + compactDate(session.dtPeriodEnd) +
         "' order by d.eaddate, d.eadAttendanceID";
}

std::optional<AccountFact> accountOf(Session& session, const std::string& statement) {
  ado::Recordset row = opened(session, statement);
  if (row.Eof()) return {};
  return AccountFact{numberOf(row.Fields("balance").Value()), numberOf(row.Fields("instalment").Value())};
}

}  // namespace

std::string PayFactsReader::formulaCode(std::int32_t formulaId) {
  ado::Recordset row =
      opened(session_, "select fFormulacode from " + session_.TableLinks["pformula"] +
                           " where fCompanyID = " + session_.companyText() + equals("fFormulaID", formulaId));
  return row.Eof() ? std::string() : basic::Trim(row.Fields("fFormulacode").Text());
}

std::optional<double> PayFactsReader::standing(PayKind kind, std::int32_t componentId) {
  ado::Recordset row = opened(session_, standingStatement(session_, kind, employeeId_, componentId));
  if (row.Eof()) return {};
  return numberOf(row.Fields("amount").Value());
}

std::optional<AccountFact> PayFactsReader::loan(std::int32_t issue) {
  return accountOf(session_, loanStatement(session_, issue));
}

std::optional<AccountFact> PayFactsReader::savings(std::int32_t account) {
  return accountOf(session_, savingsStatement(session_, account));
}

std::vector<BookedHours> PayFactsReader::bookedHours(PayKind kind, std::int32_t componentId) {
  const char* column = kind == PayKind::Allowance ? "d.eaadAllowanceID" : "d.eaadDeductionID";
  ado::Recordset rows = opened(session_, hoursStatement(session_, employeeId_, column, componentId));
  std::vector<BookedHours> booked;
  for (; !rows.Eof(); rows.MoveNext())
    booked.push_back({basic::CLng(rows.Fields("eaadAttendanceID").Value()),
                      dateOf(rows.Fields("eaadDate").Value()), numberOf(rows.Fields("eaadHours").Value())});
  return booked;
}

std::vector<EntryMovements> PayFactsReader::movements() {
  return StoredStateReader(session_).otherMovements(employeeId_, entryId_);
}

EmployeeFact PayFactsReader::employee() {
  EmployeeFact fact;
  ado::Recordset employee =
      opened(session_, "select eBasic, eDateofJoin from " + session_.TableLinks["pemployee"] +
                           " where eCompanyID = " + session_.companyText() + equals("eEmpID", employeeId_));
  if (!employee.Eof()) {
    fact.basicPay = numberOf(employee.Fields("eBasic").Value());
    fact.joined = dateOf(employee.Fields("eDateofJoin").Value());
  }
  ado::Recordset setting =
      opened(session_, "select LOPThroughDeductions from " + session_.TableLinks["psettings"] +
                           " where companyID = " + session_.companyText());
  fact.lossThroughDeductions = !setting.Eof() && flagOf(setting.Fields("LOPThroughDeductions").Value());
  ado::Recordset entry =
      opened(session_, "select emhOrginalBasic from " + session_.TableLinks["pempmonthlyentryheader"] +
                           " where emhCompanyID = " + session_.companyText() + equals("emhID", entryId_));
  if (!entry.Eof()) fact.whenStored = numberOf(entry.Fields("emhOrginalBasic").Value());
  return fact;
}

AttendanceFact PayFactsReader::attendance() {
  AttendanceFact fact;
  ado::Recordset sheets = opened(session_, sheetStatement(session_, employeeId_));
  for (; !sheets.Eof(); sheets.MoveNext())
    fact.sheets.push_back({basic::CLng(sheets.Fields("eaid").Value()),
                           dateOf(sheets.Fields("eaStartDate").Value()),
                           dateOf(sheets.Fields("eaEndDate").Value())});
  ado::Recordset days = opened(session_, dayStatement(session_, employeeId_));
  for (; !days.Eof(); days.MoveNext())
    fact.days.push_back({basic::CLng(days.Fields("eadAttendanceID").Value()),
                         dateOf(days.Fields("eaddate").Value()), days.Fields("eadtype").Text()});
  return fact;
}

}  // namespace payslate
