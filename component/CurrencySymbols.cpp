// Looking up currency symbols.
#include "component/CurrencySymbols.h"

#include "component/Session.h"
#include "platform/basic/Numbers.h"
#include "platform/common/CommonDB.h"

namespace payslate {

std::string currencySymbol(const Session& session, common::CommonDB& database,
                           const basic::Value& currencyId) {
  if (basic::isNull(currencyId)) return {};
  database.strTableName(session.TableLinks["pCurrencyMaster"]);
  return basic::textOf(database.fnreturnfield(
      "Symbol",
      "CompanyID=" + session.companyText() + " and CurrencyID=" + std::to_string(basic::CLng(currencyId))));
}

std::string employeeCurrencySymbol(const Session& session, common::CommonDB& database,
                                   std::int32_t employeeId) {
  database.strTableName("pemployee a," + session.TableLinks["pCurrencyMaster"] + " b");
  return basic::textOf(database.fnreturnfield(
      "Symbol", "a.eCompanyID=b.CompanyID and a.eCurrencyID=b.currencyID and a.eCompanyID=" +
                    session.companyText() + " and eEmpID=" + std::to_string(employeeId)));
}

}  // namespace payslate
