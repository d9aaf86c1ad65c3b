// Reading an employee's standing pay into the lists.
#include "entry/PayLoader.h"

#include "component/BasPaySlate.h"
#include "entry/EntryState.h"
#include "paycomponents/Formulas.h"
#include "paycomponents/ListColumns.h"
#include "persistence/CarriedForward.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/common/CommonDB.h"
#include "platform/ui/Label.h"

namespace payslate {

using ado::CursorType;
using ado::LockType;

namespace {

constexpr const char* amountPattern = "0.00";

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

}  // namespace

void PayLoader::lookUpSymbol(common::CommonDB& database, const basic::Value& currencyId) {
  state_.strCurSymbol.clear();
  if (basic::isNull(currencyId)) return;
  database.strTableName(bas_.TableLinks["pCurrencyMaster"]);
  state_.strCurSymbol = basic::textOf(database.fnreturnfield(
      "Symbol",
      "CompanyID=" + bas_.companyText() + " and CurrencyID=" + std::to_string(basic::CLng(currencyId))));
}

void PayLoader::loadBasicPay(common::CommonDB& database, std::int32_t employeeId) {
  ado::Recordset employee;
  employee.Open(basicPayStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
                LockType::Optimistic);
  if (employee.Eof()) return;
  state_.dblBasic = numberOf(employee.Fields("eBasic").Value());
  lookUpSymbol(database, employee.Fields("ecurrencyid").Value());
  controls_.lblBasicPay.Caption = "BasicPay (" + state_.strCurSymbol + "):";
  controls_.lblcursymbol.Caption = state_.strCurSymbol;
}

std::string PayLoader::standingAmount(const basic::Value& formula, const basic::Value& amount) const {
  const std::int32_t formulaId = basic::isNull(formula) ? 0 : basic::CLng(formula);
  return basic::Format(formulaId > 0 ? formulas_.fnformulaamt(formulaId) : numberOf(amount), amountPattern);
}

void PayLoader::fnLoadEmployeePay(common::CommonDB& database, std::int32_t employeeId) {
  loadBasicPay(database, employeeId);
  controls_.lvwAllow.clear();
  ado::Recordset rows;
  rows.Open(allowanceStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
            LockType::ReadOnly);
  for (; !rows.Eof(); rows.MoveNext()) {
    lookUpSymbol(database, rows.Fields("acurrencyid").Value());
    controls_.lvwAllow.addRow(
        {nextSerialNumber(controls_.lvwAllow), rows.Fields("aDescription").Text(),
         standingAmount(rows.Fields("aformulaid").Value(), rows.Fields("eaamount").Value()),
         rows.Fields("eaallowanceid").Text(), AllowKind::Standing, state_.strCurSymbol});
  }
}

void PayLoader::addDeduction(std::string description, std::string amount, std::string id, const char* type,
                             std::string transactionId) {
  controls_.lvwDeduct.addRow({nextSerialNumber(controls_.lvwDeduct), std::move(description),
                              std::move(amount), std::move(id), type, state_.strCurSymbol,
                              std::move(transactionId)});
}

void PayLoader::loadStandingRows(common::CommonDB& database, std::int32_t employeeId) {
  ado::Recordset rows;
  rows.Open(deductionStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
            LockType::ReadOnly);
  for (; !rows.Eof(); rows.MoveNext()) {
    lookUpSymbol(database, rows.Fields("dcurrencyid").Value());
    addDeduction(rows.Fields("ddescription").Text(),
                 standingAmount(rows.Fields("dformulaid").Value(), rows.Fields("edamount").Value()),
                 rows.Fields("eddeductionid").Text(), DeductKind::Standing, {});
  }
}

void PayLoader::loadLoans(common::CommonDB& database, std::int32_t employeeId) {
  ado::Recordset rows;
  rows.Open(loanStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
            LockType::ReadOnly);
  for (; !rows.Eof(); rows.MoveNext()) {
    lookUpSymbol(database, rows.Fields("lcurrencyid").Value());
    addDeduction(rows.Fields("lDescription").Text(),
                 basic::Format(numberOf(rows.Fields("liInstallmentAmount").Value()), amountPattern),
                 rows.Fields("liLoanID").Text(), DeductKind::Loan, rows.Fields("liID").Text());
  }
}

void PayLoader::loadSavings(common::CommonDB& database, std::int32_t employeeId) {
  ado::Recordset rows;
  rows.Open(savingsStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
            LockType::ReadOnly);
  for (; !rows.Eof(); rows.MoveNext()) {
    lookUpSymbol(database, rows.Fields("scurrencyid").Value());
    addDeduction(rows.Fields("sDescription").Text(),
                 basic::Format(numberOf(rows.Fields("osInstallmentAmount").Value()), amountPattern),
                 rows.Fields("ssavingsid").Text(), DeductKind::Savings, rows.Fields("osID").Text());
  }
}

void PayLoader::fnLoadStandingDeductions(common::CommonDB& database, std::int32_t employeeId) {
  controls_.lvwDeduct.clear();
  loadStandingRows(database, employeeId);
  loadLoans(database, employeeId);
  loadSavings(database, employeeId);
}

double PayLoader::reducedBasicPay(double totalDays, double absentDays, long daysBeforeJoining) const {
  bool throughDeductions = false;
  fnLOPThroughDeductions(bas_, throughDeductions);
  if (throughDeductions) return state_.dblBasic;
  const double perDay = state_.dblBasic / totalDays;
  const double lost = static_cast<double>(daysBeforeJoining) + (absentDays > 0 ? absentDays : 0);
  return state_.dblBasic - perDay * lost;
}

}  // namespace payslate
