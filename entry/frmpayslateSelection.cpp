// Choosing an employee on the entry form.
#include "entry/frmpayslate.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

using basic::Val;

namespace {

constexpr const char* basicPayPattern = "########0.00";

std::string headerStart(const Session& session, const char* employeeTest, std::int32_t employeeId) {
  return "select * from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID = " + session.companyText() + employeeTest + std::to_string(employeeId);
}

std::string inMonth(basic::Date date) {
  return " and month(emhDate)=" + std::to_string(date.month()) +
         " and year(emhDate)=" + std::to_string(date.year());
}

// The month of the form's date, which is the one that a save would store.
std::string newMonthStatement(const Session& session, std::int32_t employeeId, basic::Date entryDate) {
  return headerStart(session, " and emhempID  = ", employeeId) + " and emhCancelled=0" + inMonth(entryDate);
}

std::string storedMonthStatement(const Session& session, std::int32_t employeeId, basic::Date entryDate) {
  return headerStart(session, " and emhempID = ", employeeId) + inMonth(entryDate);
}

}  // namespace

bool frmpayslate::prepareNewMonth(std::int32_t employeeId) {
  GetDeptID(employeeId);
  if (slashDate(state_.dtDateOfJoin) > slashDate(bas_.dtPeriodEnd)) {
    bas_.message("Employee's Date of Join is greater than enddate");
    return false;
  }
  return !FnCheckCalendarSettingsNotEntered();
}

void frmpayslate::showEmployeeSymbol(std::int32_t employeeId) {
  helpers_.objCommonDB->strTableName(" " + bas_.TableLinks["pCurrencyMaster"] + " ," +
                                     bas_.TableLinks["pemployee"] + " ");
  lblcursymbol.Caption = basic::textOf(helpers_.objCommonDB->fnreturnfield(
      "Symbol", "CompanyID=" + bas_.companyText() + " and " +
                    " CompanyID=eCompanyID and CurrencyID=ecurrencyid and " +
                    " eEmpID=" + std::to_string(employeeId)));
}

void frmpayslate::cboEmpname_Click() {
  if (cboEmpname.ListIndex() < 0) return;
  const std::int32_t employeeId = cboEmpname.ItemData(cboEmpname.ListIndex());
  // Until the month is there whole, the lists are the previous employee's or only half filled.
  noSaveReason_ = "The month of this employee is not loaded. Choose the employee again.";
  std::string headerStatement;
  if (bas_.isNewEntry()) {
    headerStatement = newMonthStatement(bas_, employeeId, dtpattdate.Value());
    if (!prepareNewMonth(employeeId)) return;
  } else {
    showEmployeeSymbol(employeeId);
    headerStatement = storedMonthStatement(bas_, employeeId, dtpattdate.Value());
  }
  ado::Recordset header;
  header.Open(headerStatement, *bas_.adocon(), ado::CursorType::Keyset, ado::LockType::Optimistic);
  if (header.Eof()) {
    header.Close();
    // Behind somebody whose month is stored the date is the clerk's again, and no longer that entry's.
    if (!opensStored_) dtpattdate.Value = bas_.ProcessDate;
    // From an opened entry the clerk has come to somebody without one, whose month is checked like any other.
    if (bas_.isNewEntry() || prepareNewMonth(employeeId)) loadNewMonth(employeeId);
  } else {
    showStoredMonth(employeeId, header);
  }
}

void frmpayslate::loadNewMonth(std::int32_t employeeId) {
  bas_.strMode = EntryMode::New;
  for (ui::TextBox* box : {&txtAtteNo, &txtNoAbsent, &txtNoLeave, &txtNoPresent}) box->Text = "";
  if (!attendance_.fnLoadAttendance()) return;
  payLoader_.fnLoadEmployeePay(employeeId);
  payLoader_.fnLoadCarryForward(employeeId, dtpattdate.Value());
  payLoader_.fnLoadStandingDeductions(employeeId);
  facilities_.fnLoadFacilities(employeeId);
  bas_.fnLoadLeaveSummary(employeeId, lvwLeaves);
  enableNavigation();
  attendance_.setWorkingDays();
  const double basicPay = payLoader_.reducedBasicPay(Val(txtTotalDays.Text()), Val(txtNoAbsent.Text()),
                                                     attendance_.daysBeforeJoining());
  txtBasicPay.Text = basic::Format(basicPay, basicPayPattern);
  attendance_.setPresentDays();
  txtBasicPay.Tag = txtBasicPay.Text();
  DisplayCurrency();
  noSaveReason_.clear();
}

void frmpayslate::showStoredMonth(std::int32_t employeeId, ado::Recordset& header) {
  bas_.strMode = EntryMode::Existing;
  noSaveReason_ = "This employee has an entry for the month. Open it from the list to change it.";
  while (basic::CLng(header.Fields("emhempID").Value()) != employeeId) header.MoveNext();
  txtAtteNo.Text = header.Fields("emhNo").Text();
  dtpattdate.Value = dateOf(header.Fields("emhDate").Value());
  helpers_.objCommonGen->selectcomboitembyvalue(cboEmpname, basic::CLng(header.Fields("emhempID").Value()));
  enableNavigation();
  BasPaySlate::StoreControlValues(*this);
}

void frmpayslate::enableNavigation() {
  navigation().enableAt(cboEmpname.ListIndex(), cboEmpname.ListCount());
}

}  // namespace payslate
