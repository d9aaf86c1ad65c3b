// Pricing booked hours.
#include "paycomponents/HourlyItems.h"

#include <limits>

#include "component/Amounts.h"
#include "component/BasPaySlate.h"
#include "component/FormHelpers.h"
#include "component/ListPage.h"
#include "component/PayRows.h"
#include "component/RowOrigins.h"
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

std::string employeeStatement(const Session& session, const std::string& employee) {
  return "select eGradeID, eDesigID,eBasic,hrsofWork from " + session.TableLinks["pemployee"] +
         " where ecompanyid = " + session.companyText() + " and eempID = " + employee;
}

std::string ratesStatement(const Session& session, const std::string& employee) {
  return "Select AllowancePerHourRate,DeductionPerHourRate from " + session.TableLinks["pemployee"] +
         " where ecompanyid=" + session.companyText() + " and eEmpId=" + employee;
}

/// What differs between the statements of the two kinds, blanks included.
struct HourlyTexts {
  const PayComponentKind& component;
  const char* hours;
  const char* hoursFrom;
  const char* hoursUntil;
  const char* hoursGroup;
  const char* formulaTables;
  const char* formula;
  const char* formulaCompany;
  const char* active;
  const char* activeCompany;
  const char* activeComponent;
  const char* name;     ///< In errors, before the identifier.
  const char* rowKind;  ///< In the list.
};

const HourlyTexts& textsOf(HourlyKind kind) {
  static const HourlyTexts allowances{
      allowanceKind,
      "select d.eaadAllowanceID,sum(d.eaadHours) Hours from ",
      " h where h.eaid = d.eaadAttendanceID and  h.eacompanyid = d.eaadCompanyID and h.eaCancelled =0"
      " and d.eaadAllowanceID is not null and d.eaadDate >= '",
      "' and d.eaadDate <='",
      " group by d.eaadAllowanceID",
      " f,",
      " a  Where f.fCompanyID = a.aCompanyID and f.fFormulaid=a.aFormulaID  and aAllowanceID= ",
      " and a.aCompanyID=",
      "select aAllowanceID, aDescription  from ",
      " where aactive = 1 and aCompanyID = ",
      " and aallowanceid= ",
      "Hours of allowance ",
      AllowKind::Added};
  static const HourlyTexts deductions{
      deductionKind,
      "select d.eaadDeductionID,sum(d.eaadHours) Hours from ",
      " h  where h.eaid = d.eaadAttendanceID and  h.eacompanyid = d.eaadCompanyID and h.eaCancelled =0"
      " and d.eaadDeductionID is not null and d.eaadDate >=  '",
      "'  and d.eaadDate <='",
      " group by d.eaadDeductionID",
      " f ,",
      " d  Where f.fCompanyID = d.dCompanyID and f.fFormulaid=d.dFormulaID  and d.dDedID= ",
      " and d.dCompanyID=",
      "select dDedID, dDescription from ",
      " where dactive = 1 and dCompanyID = ",
      " and dDedID=",
      "Hours of deduction ",
      DeductKind::Hourly};
  return kind == HourlyKind::Allowances ? allowances : deductions;
}

std::string hoursStatement(const Session& session, const HourlyTexts& texts, std::int32_t employeeId) {
  return texts.hours + session.TableLinks["pEmpAttendanceAllowanceDeductions"] + " d," +
         session.TableLinks["pEmployeeattendence"] + texts.hoursFrom + compactDate(session.dtPeriodStart) +
         texts.hoursUntil + compactDate(session.dtPeriodEnd) +
         "' and eaadCompanyID=" + session.companyText() + " and eaEmpID=" + std::to_string(employeeId) +
         texts.hoursGroup;
}

std::string formulaStatement(const Session& session, const HourlyTexts& texts, const std::string& component) {
  return " select f.fFormulaID,f.fFormulaName  from " + session.TableLinks["pformula"] + texts.formulaTables +
         session.TableLinks[texts.component.table] + texts.formula + component + texts.formulaCompany +
         session.companyText();
}

std::string activeStatement(const Session& session, const HourlyTexts& texts, const std::string& component) {
  return texts.active + session.TableLinks[texts.component.table] + texts.activeCompany +
         session.companyText() + texts.activeComponent + component;
}

}  // namespace

void HourlyItems::rateOfBasicPay(HoursOrigin& rate, std::int32_t employeeId) const {
  if (rate.countedHours < 1) return;
  rate.days = basic::daysBetween(bas_.dtPeriodStart, bas_.dtPeriodEnd) + 1;
  const double hours = rate.countedHours * static_cast<double>(rate.days);
  if (hours > std::numeric_limits<std::int16_t>::max())
    throw basic::ValueError(
        basic::ErrorKind::Overflow,
        "The working hours of the pay period are too many to be counted: correct the hours "
        "of work (hrsofWork) of employee " +
            std::to_string(employeeId) + ".");
  rate.rate = rate.basicPay / hours;
}

HourlyItems::Rates HourlyItems::masterRates(std::int32_t employeeId) {
  ado::Recordset rates;
  rates.Open(ratesStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
             LockType::Optimistic);
  if (rates.Eof() || basic::isNull(rates.Fields("DeductionPerHourRate").Value())) return {};
  const auto master = [](const basic::Value& rate) {
    HoursOrigin origin;
    origin.rate = numberOf(rate);
    origin.source = RateSource::EmployeeMaster;
    return origin;
  };
  return {master(rates.Fields("AllowancePerHourRate").Value()),
          master(rates.Fields("DeductionPerHourRate").Value())};
}

HourlyItems::Rates HourlyItems::ratesOf(std::int32_t employeeId) {
  HoursOrigin rate;
  rate.source = RateSource::BasicPay;
  ado::Recordset employee;
  employee.Open(employeeStatement(bas_, std::to_string(employeeId)), *bas_.adocon(), CursorType::Keyset,
                LockType::Optimistic);
  if (!employee.Eof()) {
    rate.basicPay = numberOf(employee.Fields("eBasic").Value());
    rate.dailyHours = numberOf(employee.Fields("hrsofWork").Value());
    rate.countedHours = basic::CLng(amountText(rate.dailyHours));
  }
  common::CommonDB& database = *helpers_.objCommonDB;
  database.strTableName("pSettings");
  if (flagOf(database.fnreturnfield("PerHourRateFromEmployeeMaster", "companyid=" + bas_.companyText())))
    return masterRates(employeeId);
  rateOfBasicPay(rate, employeeId);
  return {rate, rate};
}

HoursOrigin HourlyItems::rateOf(HourlyKind kind, std::int32_t employeeId) {
  const Rates rates = ratesOf(employeeId);
  return kind == HourlyKind::Allowances ? rates.allowance : rates.deduction;
}

double HourlyItems::amountOf(HourlyKind kind, std::int32_t componentId, Origin& origin) {
  const HourlyTexts& texts = textsOf(kind);
  const std::string id = std::to_string(componentId);
  ado::Recordset formula;
  formula.Open(formulaStatement(bas_, texts, id), *bas_.adocon(), CursorType::Keyset, LockType::Optimistic);
  if (formula.Eof()) return origin.hours.hours * origin.hours.rate;
  origin.formula = formulas_.amountOf(texts.name + id, basic::CLng(formula.Fields("fFormulaID").Value()));
  ado::Recordset result = bas_.adocon()->Execute("select " + basic::numberText(origin.formula.answer));
  return basic::CDbl(result.Fields(0).Value());
}

void HourlyItems::addRow(HourlyKind kind, std::int32_t componentId, double amount, Origin origin) {
  const HourlyTexts& texts = textsOf(kind);
  const std::string id = std::to_string(componentId);
  ado::Recordset active;
  active.Open(activeStatement(bas_, texts, id), *bas_.adocon(), CursorType::Keyset, LockType::Optimistic);
  if (active.Eof()) return;
  ui::ListView& list = kind == HourlyKind::Allowances ? controls_.lvwAllow : controls_.lvwDeduct;
  list.addRow({nextSerialNumber(list), active.Fields(1).Text(), amountText(amount), id, texts.rowKind,
               PayLookups(bas_, texts.component).symbol(*helpers_.objCommonDB, componentId)});
  origin.amount = amountText(amount);
  origins_.added(list, std::move(origin));
}

void HourlyItems::fnLoadHourlyItems(HourlyKind kind, std::int32_t employeeId) {
  const Rates rates = ratesOf(employeeId);
  const bool allowance = kind == HourlyKind::Allowances;
  if (rates.deduction.rate == 0 && (!allowance || rates.allowance.rate == 0)) return;
  ado::Recordset hours;
  hours.Open(hoursStatement(bas_, textsOf(kind), employeeId), *bas_.adocon(), CursorType::Keyset,
             LockType::Optimistic);
  for (; !hours.Eof(); hours.MoveNext()) {
    const std::int32_t componentId = basic::CLng(hours.Fields(0).Value());
    Origin origin;
    origin.known = true;
    origin.hours = allowance ? rates.allowance : rates.deduction;
    origin.hours.hours = numberOf(hours.Fields("Hours").Value());
    const double amount = amountOf(kind, componentId, origin);
    addRow(kind, componentId, amount, std::move(origin));
  }
}

}  // namespace payslate
