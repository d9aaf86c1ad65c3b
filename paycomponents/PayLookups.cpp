// Formula and currency of a pay component.
#include "paycomponents/PayLookups.h"

#include "component/BasPaySlate.h"
#include "component/Session.h"
#include "platform/basic/Numbers.h"
#include "platform/common/CommonDB.h"

namespace payslate {

const PayComponentKind allowanceKind{
    PayKind::Allowance,     "pAllowances",
    "aformulaid",           " acompanyid = ",
    " and aallowanceid = ", "fCompanyID=  aCompanyID and aFormulaID=fFormulaID and   aAllowanceID="};

const PayComponentKind deductionKind{
    PayKind::Deduction, "pDeductions",    "dformulaid",
    " dcompanyid = ",   " and ddedid = ", "fCompanyID=  dCompanyID and dFormulaID=fFormulaID and   dDedID="};

std::int32_t PayLookups::formulaId(common::CommonDB& database, std::int32_t componentId) const {
  database.strTableName(session_.TableLinks[kind_.table]);
  return basic::CLng(numberOf(database.fnreturnfield(
      kind_.formulaField,
      kind_.formulaCompany + session_.companyText() + kind_.formulaComponent + std::to_string(componentId))));
}

std::string PayLookups::symbol(common::CommonDB& database, std::int32_t componentId) const {
  return CurrencySymbols(session_, database).ofComponent(kind_.kind, componentId);
}

std::string PayLookups::formulaCode(common::CommonDB& database, std::int32_t componentId) const {
  database.strTableName(session_.TableLinks[kind_.table] + "," + session_.TableLinks["pformula"]);
  return basic::Trim(basic::textOf(
      database.fnreturnfield("fFormulacode", kind_.codeComponent + std::to_string(componentId) + " and " +
                                                 " fCompanyID= " + session_.companyText())));
}

}  // namespace payslate
