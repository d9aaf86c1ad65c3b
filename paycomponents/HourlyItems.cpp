// Pricing booked hours.
#include "paycomponents/HourlyItems.h"

#include <limits>

#include "component/BasPaySlate.h"
#include "component/FormHelpers.h"
#include "component/ListPage.h"
#include "component/PayRows.h"
#include "paycomponents/Formulas.h"
#include "paycomponents/PayLookups.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Error.h"
#include "platform/basic/Numbers.h"
#include "platform/ui/ListView.h"

namespace payslate {

using ado::CursorType;
using ado::LockType;

namespace {

constexpr const char* amountPattern = "0.00";

std::string employeeStatement(const Session& session, const std::string& employee) {
  return "select eGradeID, eDesigID,eBasic,hrsofWork from " + session.TableLinks["pemployee"] +
         " where ecompanyid = " + session.companyText() + " and eempID = " + employee;
}

std::string ratesStatement(const Session& session, const std::string& employee) {
  return "Select AllowancePerHourRate,DeductionPerHourRate from " + session.TableLinks["pemployee"] +
         " where ecompanyid=" + session.companyText() + " and eEmpId=" + employee;
}

std::string allowanceHours(const Session& session, const std::string& employee) {
  return "select d.eaadAllowanceID,sum(d.eaadHours) Hours from " +
         session.TableLinks["pEmpAttendanceAllowanceDeductions"] + " d," +
         session.TableLinks["pEmployeeattendence"] +
         " h where h.eaid = d.eaadAttendanceID and  h.eacompanyid = d.eaadCompanyID and h.eaCancelled =0"
         " and d.eaadAllowanceID is not null and d.eaadDate >= '" +
         compactDate(session.dtPeriodStart) + "' and d.eaadDate <='" + compactDate(session.dtPeriodEnd) +
         "' and eaadCompanyID=" + session.companyText() + " and eaEmpID=" + employee +
         " group by d.eaadAllowanceID";
}

std::string deductionHours(const Session& session, const std::string& employee) {
  return "select d.eaadDeductionID,sum(d.eaadHours) Hours from " +
         session.TableLinks["pEmpAttendanceAllowanceDeductions"] + " d," +
         session.TableLinks["pEmployeeattendence"] +
         " h  where h.eaid = d.eaadAttendanceID and  h.eacompanyid = d.eaadCompanyID and h.eaCancelled =0"
         " and d.eaadDeductionID is not null and d.eaadDate >=  '" +
         compactDate(session.dtPeriodStart) + "'  and d.eaadDate <='" + compactDate(session.dtPeriodEnd) +
         "' and eaadCompanyID=" + session.companyText() + " and eaEmpID=" + employee +
         " group by d.eaadDeductionID";
}

std::string allowanceFormula(const Session& session, const std::string& allowance) {
  return " select f.fFormulaID,f.fFormulaName  from " + session.TableLinks["pformula"] + " f," +
         session.TableLinks["pAllowances"] +
         " a  Where f.fCompanyID = a.aCompanyID and f.fFormulaid=a.aFormulaID  and aAllowanceID= " +
         allowance + " and a.aCompanyID=" + session.companyText();
}

std::string deductionFormula(const Session& session, const std::string& deduction) {
  return " select f.fFormulaID,f.fFormulaName  from " + session.TableLinks["pformula"] + " f ," +
         session.TableLinks["pDeductions"] +
         " d  Where f.fCompanyID = d.dCompanyID and f.fFormulaid=d.dFormulaID  and d.dDedID= " + deduction +
         " and d.dCompanyID=" + session.companyText();
}

std::string activeAllowance(const Session& session, const std::string& allowance) {
  return "select aAllowanceID, aDescription  from " + session.TableLinks["pAllowances"] +
         " where aactive = 1 and aCompanyID = " + session.companyText() + " and aallowanceid= " + allowance;
}

std::string activeDeduction(const Session& session, const std::string& deduction) {
  return "select dDedID, dDescription from " + session.TableLinks["pDeductions"] +
         " where dactive = 1 and dCompanyID = " + session.companyText() + " and dDedID=" + deduction;
}

}  // namespace

double HourlyItems::rateOfBasicPay(double basicPay, std::int32_t dailyHours, std::int32_t employeeId) const {
  if (dailyHours < 1) return 0;
  const auto days = static_cast<double>(basic::daysBetween(bas_.dtPeriodStart, bas_.dtPeriodEnd) + 1);
  const double hours = dailyHours * days;
  if (hours > std::numeric_limits<std::int16_t>::max())
    throw basic::ValueError(
        basic::ErrorKind::Overflow,
        "The working hours of the pay period are too many to be counted: correct the hours "
        "of work (hrsofWork) of employee " +
            std::to_string(employeeId) + ".");
  return basicPay / hours;
}

HourlyItems::Rates HourlyItems::masterRates(std::int32_t employeeId) {
  ado::Recordset rates;
  rates.Open(ratesStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
             LockType::Optimistic);
  if (rates.Eof() || basic::isNull(rates.Fields("DeductionPerHourRate").Value())) return {};
  return {numberOf(rates.Fields("AllowancePerHourRate").Value()),
          numberOf(rates.Fields("DeductionPerHourRate").Value())};
}

HourlyItems::Rates HourlyItems::ratesOf(std::int32_t employeeId) {
  double basicPay = 0;
  std::int32_t dailyHours = 0;
  ado::Recordset employee;
  employee.Open(employeeStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
                LockType::Optimistic);
  if (!employee.Eof()) {
    basicPay = numberOf(employee.Fields("eBasic").Value());
    dailyHours = basic::CLng(basic::Format(numberOf(employee.Fields("hrsofWork").Value()), amountPattern));
  }
  common::CommonDB& database = *helpers_.objCommonDB;
  database.strTableName("pSettings");
  if (flagOf(database.fnreturnfield("PerHourRateFromEmployeeMaster", "companyid=" + bas_.companyText())))
    return masterRates(employeeId);
  const double rate = rateOfBasicPay(basicPay, dailyHours, employeeId);
  return {rate, rate};
}

double HourlyItems::amountOf(HourlyKind kind, std::int32_t componentId, double amountByHours) {
  const bool allowance = kind == HourlyKind::Allowances;
  const std::string id = std::to_string(componentId);
  ado::Recordset formula;
  formula.Open(allowance ? allowanceFormula(bas_, id) : deductionFormula(bas_, id), *bas_.adocon(),
               CursorType::Keyset, LockType::Optimistic);
  if (formula.Eof()) return amountByHours;
  const double amount = formulas_.amountOf((allowance ? "Hours of allowance " : "Hours of deduction ") + id,
                                           basic::CLng(formula.Fields("fFormulaID").Value()));
  ado::Recordset result = bas_.adocon()->Execute("select " + basic::numberText(amount));
  return basic::CDbl(result.Fields(0).Value());
}

void HourlyItems::addRow(HourlyKind kind, std::int32_t componentId, double amount) {
  const bool allowance = kind == HourlyKind::Allowances;
  const std::string id = std::to_string(componentId);
  ado::Recordset active;
  active.Open(allowance ? activeAllowance(bas_, id) : activeDeduction(bas_, id), *bas_.adocon(),
              CursorType::Keyset, LockType::Optimistic);
  if (active.Eof()) return;
  ui::ListView& list = allowance ? controls_.lvwAllow : controls_.lvwDeduct;
  const PayLookups lookups(bas_, allowance ? allowanceKind : deductionKind);
  list.addRow({nextSerialNumber(list), active.Fields(1).Text(), basic::Format(amount, amountPattern), id,
               allowance ? AllowKind::Added : DeductKind::Hourly,
               lookups.symbol(*helpers_.objCommonDB, componentId)});
}

void HourlyItems::fnLoadHourlyItems(HourlyKind kind, std::int32_t employeeId) {
  const Rates rates = ratesOf(employeeId);
  const bool allowance = kind == HourlyKind::Allowances;
  if (rates.deduction == 0 && (!allowance || rates.allowance == 0)) return;
  const std::string employee = std::to_string(employeeId);
  ado::Recordset hours;
  hours.Open(allowance ? allowanceHours(bas_, employee) : deductionHours(bas_, employee), *bas_.adocon(),
             CursorType::Keyset, LockType::Optimistic);
  for (; !hours.Eof(); hours.MoveNext()) {
    const std::int32_t componentId = basic::CLng(hours.Fields(0).Value());
    const double rate = allowance ? rates.allowance : rates.deduction;
    addRow(kind, componentId, amountOf(kind, componentId, numberOf(hours.Fields("Hours").Value()) * rate));
  }
}

}  // namespace payslate
