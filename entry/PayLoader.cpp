// Reading an employee's standing pay into the lists.
#include "entry/PayLoader.h"

#include "component/Amounts.h"
#include "component/BasPaySlate.h"
#include "component/CurrencySymbols.h"
#include "component/EntryState.h"
#include "component/FormHelpers.h"
#include "component/ListPage.h"
#include "paycomponents/Formulas.h"
#include "paycomponents/HourlyItems.h"
#include "paycomponents/ListColumns.h"
#include "persistence/CarriedForward.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/ui/Label.h"

namespace payslate {

using ado::CursorType;
using ado::LockType;

namespace {

std::string basicPayStatement(const Session& session, const std::string& employee) {
  return "select ecurrencyid,eGradeID, eDesigID, eBasic from " + session.TableLinks["pemployee"] +
         " where ecompanyid = " + session.companyText() + " and eempID = " + employee;
}

std::string allowanceStatement(const Session& session, const std::string& employee) {
  return "select aDescription,aformulaid,acurrencyid,eaamount,eaallowanceid from pempallowances ,pallowances"
         " where eaempid= " +
         employee + " and  aCompanyID =eacompanyid   and eaallowanceid  =aAllowanceID" +
         " and aActive=1 and eacompanyid=" + session.companyText();
}

std::string deductionStatement(const Session& session, const std::string& employee) {
  return " select ddescription,dformulaid,dcurrencyid,edamount,eddeductionid "
         " from pempdeductions ,pdeductions where edempid= " +
         employee +
         " and  dCompanyID= edcompanyid and dactive=1 and eddeductionid =dDedID and "
         " edcompanyid= " +
         session.companyText();
}

std::string loanStatement(const Session& session, const std::string& employee) {
  return "select liID,liLoanID, lDescription, case when liCurrentBalance < liInstallmentAmount then "
         " liCurrentBalance else liInstallmentAmount end liInstallmentAmount,lcurrencyid From " +
         session.TableLinks["pLoansIssue"] + ", " + session.TableLinks["ploans"] +
         " Where liActive =1 and licompanyid = lcompanyid And lloanid = liloanid and liDeductionMode = 1 and "
         " liCompanyID = " +
         session.companyText() + " and liEmpID = " + employee + " and liActive = 1 and licancelled=0 ";
}

std::string savingsStatement(const Session& session, const std::string& employee) {
  return "select osID,sSavingsID, sDescription, case when osCurrentBalance < osInstallmentAmount then "
         " osCurrentBalance else osInstallmentAmount end osInstallmentAmount, scurrencyid From " +
         session.TableLinks["psavingsdetails"] + "," + session.TableLinks["popeningsavings"] + ", " +
         session.TableLinks["psavings"] +
         " Where oscompanyid = scompanyid And osSavingsID = sSavingsID and osDeductionMode = 1 and "
         " osCompanyID = " +
         session.companyText() +
         " and sdCompanyID=osCompanyID and  osSavingsID=sdSavingsID and sdOpenSavingID=osID"
         " and osDeductionMode=1 and  sdDate>='" +
         slashDate(session.dtPeriodStart) + " ' and sdDate<='" + slashDate(session.dtPeriodEnd) +
         "' and  osCurrentBalance>0 and  osEmpID = " + employee + " and osActive = 1 and osCancelled=0";
}

Origin loadedAmount(std::string amount) {
  Origin origin;
  origin.known = true;
  origin.amount = std::move(amount);
  return origin;
}

}  // namespace

void PayLoader::lookUpSymbol(const basic::Value& currencyId) {
  state_.strCurSymbol = CurrencySymbols(bas_, *helpers_.objCommonDB).ofCurrency(currencyId);
}

void PayLoader::loadBasicPay(std::int32_t employeeId) {
  ado::Recordset employee;
  employee.Open(basicPayStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
                LockType::Optimistic);
  if (employee.Eof()) return;
  state_.dblBasic = numberOf(employee.Fields("eBasic").Value());
  lookUpSymbol(employee.Fields("ecurrencyid").Value());
  controls_.lblBasicPay.Caption = "BasicPay (" + state_.strCurSymbol + "):";
  controls_.lblcursymbol.Caption = state_.strCurSymbol;
}

Origin PayLoader::standingOrigin(const std::string& component, const basic::Value& formula,
                                 const basic::Value& amount) const {
  const std::int32_t formulaId = basic::isNull(formula) ? 0 : basic::CLng(formula);
  if (formulaId <= 0) return loadedAmount(amountText(amount));
  FormulaOrigin computed = formulas_.amountOf(component, formulaId);
  Origin origin = loadedAmount(amountText(computed.answer));
  origin.formula = std::move(computed);
  return origin;
}

void PayLoader::fnLoadEmployeePay(std::int32_t employeeId) {
  loadBasicPay(employeeId);
  controls_.lvwAllow.clear();
  ado::Recordset rows;
  rows.Open(allowanceStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
            LockType::ReadOnly);
  for (; !rows.Eof(); rows.MoveNext()) {
    lookUpSymbol(rows.Fields("acurrencyid").Value());
    Origin origin = standingOrigin(rows.Fields("aDescription").Text(), rows.Fields("aformulaid").Value(),
                                   rows.Fields("eaamount").Value());
    controls_.lvwAllow.addRow({nextSerialNumber(controls_.lvwAllow), rows.Fields("aDescription").Text(),
                               origin.amount, rows.Fields("eaallowanceid").Text(), AllowKind::Standing,
                               state_.strCurSymbol});
    state_.rowOrigins.added(controls_.lvwAllow, std::move(origin));
  }
  hourlyItems_.fnLoadHourlyItems(HourlyKind::Allowances, employeeId);
}

void PayLoader::fnLoadCarryForward(std::int32_t employeeId, basic::Date entryDate) {
  state_.strCurSymbol = CurrencySymbols(bas_, *helpers_.objCommonDB).ofEmployee(employeeId);
  double balance = 0;
  fnGetCarryForwardBalance(bas_, employeeId, entryDate, balance);
  if (balance <= 0) return;
  const std::string text = basic::numberText(balance);
  controls_.lvwAllow.addRow({nextSerialNumber(controls_.lvwAllow), balanceDescription, text, text,
                             AllowKind::CarriedForward, state_.strCurSymbol});
  state_.rowOrigins.added(controls_.lvwAllow, loadedAmount(text));
}

void PayLoader::addDeduction(std::string description, Origin origin, std::string id, const char* type,
                             std::string transactionId) {
  controls_.lvwDeduct.addRow({nextSerialNumber(controls_.lvwDeduct), std::move(description), origin.amount,
                              std::move(id), type, state_.strCurSymbol, std::move(transactionId)});
  state_.rowOrigins.added(controls_.lvwDeduct, std::move(origin));
}

void PayLoader::loadStandingRows(std::int32_t employeeId) {
  ado::Recordset rows;
  rows.Open(deductionStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
            LockType::ReadOnly);
  for (; !rows.Eof(); rows.MoveNext()) {
    lookUpSymbol(rows.Fields("dcurrencyid").Value());
    addDeduction(rows.Fields("ddescription").Text(),
                 standingOrigin(rows.Fields("ddescription").Text(), rows.Fields("dformulaid").Value(),
                                rows.Fields("edamount").Value()),
                 rows.Fields("eddeductionid").Text(), DeductKind::Standing, {});
  }
}

void PayLoader::loadLoans(std::int32_t employeeId) {
  ado::Recordset rows;
  rows.Open(loanStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
            LockType::ReadOnly);
  for (; !rows.Eof(); rows.MoveNext()) {
    lookUpSymbol(rows.Fields("lcurrencyid").Value());
    addDeduction(rows.Fields("lDescription").Text(),
                 loadedAmount(amountText(rows.Fields("liInstallmentAmount").Value())),
                 rows.Fields("liLoanID").Text(), DeductKind::Loan, rows.Fields("liID").Text());
  }
}

void PayLoader::loadSavings(std::int32_t employeeId) {
  ado::Recordset rows;
  rows.Open(savingsStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
            LockType::ReadOnly);
  for (; !rows.Eof(); rows.MoveNext()) {
    lookUpSymbol(rows.Fields("scurrencyid").Value());
    addDeduction(rows.Fields("sDescription").Text(),
                 loadedAmount(amountText(rows.Fields("osInstallmentAmount").Value())),
                 rows.Fields("ssavingsid").Text(), DeductKind::Savings, rows.Fields("osID").Text());
  }
}

void PayLoader::fnLoadStandingDeductions(std::int32_t employeeId) {
  controls_.lvwDeduct.clear();
  loadStandingRows(employeeId);
  loadLoans(employeeId);
  loadSavings(employeeId);
  hourlyItems_.fnLoadHourlyItems(HourlyKind::Deductions, employeeId);
}

bool PayLoader::fnLOPThroughDeductions() const {
  ado::Recordset row;
  row.Open("select LOPThroughDeductions from pSettings where companyID=" + bas_.companyText(), *bas_.adocon(),
           CursorType::ForwardOnly, LockType::ReadOnly);
  return !row.Eof() && flagOf(row.Fields("LOPThroughDeductions").Value());
}

BasicPayOrigin PayLoader::basicPayOrigin(double totalDays, double absentDays, long daysBeforeJoining) const {
  return {true, state_.dblBasic, totalDays, absentDays, daysBeforeJoining, fnLOPThroughDeductions()};
}

}  // namespace payslate
