// Looking up currency symbols.
#include "component/CurrencySymbols.h"

#include "component/Session.h"
#include "platform/basic/Numbers.h"
#include "platform/common/CommonDB.h"

namespace payslate {

namespace {

/// How one kind of pay component is joined with its currency.
struct ComponentTexts {
  const char* table;
  const char* alias;
  const char* company;
  const char* component;
};

ComponentTexts textsOf(PayKind kind) {
  if (kind == PayKind::Allowance)
    return {"pAllowances", " a, ",
            " a.acompanyid =  c.companyid and a.acurrencyid = c.currencyid And  c.companyid = ",
            " And a.aallowanceid = "};
  return {"pDeductions", " d, ",
          " d.dcompanyid =  c.companyid and d.dcurrencyid = c.currencyid And  c.companyid = ",
          " And d.ddedid = "};
}

}  // namespace

std::string CurrencySymbols::look(const std::string& table, const char* field, const std::string& condition) {
  database_.strTableName(table);
  return basic::textOf(database_.fnreturnfield(field, condition));
}

std::string CurrencySymbols::ofCurrency(const basic::Value& currencyId) {
  if (basic::isNull(currencyId)) return {};
  return look(
      session_.TableLinks["pCurrencyMaster"], "Symbol",
      "CompanyID=" + session_.companyText() + " and CurrencyID=" + std::to_string(basic::CLng(currencyId)));
}

std::string CurrencySymbols::ofStoredDeduction(const std::string& currencyId) {
  if (currencyId.empty()) return {};
  return look(session_.TableLinks["pCurrencyMaster"], "Symbol",
              " CompanyID=" + session_.companyText() + " and CurrencyID=" + currencyId);
}

std::string CurrencySymbols::ofStoredRecovery(const std::string& currencyId) {
  if (currencyId.empty()) return {};
  return look(session_.TableLinks["pCurrencyMaster"], "symbol",
              "CurrencyID=" + currencyId + " and companyid=" + session_.companyText());
}

std::string CurrencySymbols::ofStoredAllowance(const std::string& allowanceId) {
  return look(session_.TableLinks["pAllowances"] + " a," + session_.TableLinks["pCurrencyMaster"] +
                  " c where a.aCompanyID=c.CompanyID and a.acurrencyid=c.CurrencyID and "
                  " a.aAllowanceID=" +
                  allowanceId + " and a.aCompanyID=" + session_.companyText(),
              "Symbol");
}

std::string CurrencySymbols::ofComponent(PayKind kind, std::int32_t componentId) {
  const ComponentTexts texts = textsOf(kind);
  return look(session_.TableLinks[texts.table] + texts.alias + session_.TableLinks["pCurrencyMaster"] + " c",
              "symbol",
              texts.company + session_.companyText() + texts.component + std::to_string(componentId));
}

std::string CurrencySymbols::ofEmployee(std::int32_t employeeId) {
  return look("pemployee a," + session_.TableLinks["pCurrencyMaster"] + " b", "Symbol",
              "a.eCompanyID=b.CompanyID and a.eCurrencyID=b.currencyID and a.eCompanyID=" +
                  session_.companyText() + " and eEmpID=" + std::to_string(employeeId));
}

std::string CurrencySymbols::ofStoredBasicPay(std::int32_t employeeId) {
  return look(
      " " + session_.TableLinks["pCurrencyMaster"] + " ," + session_.TableLinks["pemployee"] + " ", "Symbol",
      "CompanyID=" + session_.companyText() +
          " and  CompanyID=eCompanyID and CurrencyID=ecurrencyid and  eEmpID=" + std::to_string(employeeId));
}

}  // namespace payslate
