// The one statement, and the symbols behind the currencies' numbers.
#include "persistence/PayItems.h"

#include <utility>
#include <vector>

#include "component/DatabaseValues.h"
#include "persistence/EachRow.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

std::string itemStatement(const Session& session) {
  const auto part = [&](const char* kind, const char* columns, const char* table, const char* company) {
    return std::string("select '") + kind + "' kind, " + columns + " from " + session.TableLinks[table] +
           " where " + company + " = " + session.companyText();
  };
  return part("A", "aAllowanceID id, aDescription description, acurrencyid currency", "pAllowances",
              "aCompanyID") +
         " union all " + part("D", "dDedID, dDescription, dcurrencyid", "pDeductions", "dCompanyID") +
         " union all " + part("L", "lloanid, lDescription, lcurrencyid", "ploans", "lcompanyid") +
         " union all " + part("S", "sSavingsID, sDescription, scurrencyid", "psavings", "scompanyid") +
         " union all " + part("C", "CurrencyID, Symbol, CurrencyID", "pCurrencyMaster", "CompanyID");
}

}  // namespace

PayItems::PayItems(Session& session) {
  std::vector<std::pair<PayItem*, std::int32_t>> currencies;
  forEachRow(session, itemStatement(session), [&](ado::Recordset& row) {
    const std::string kind = row.Fields(0).Text();
    const std::int32_t id = basic::CLng(row.Fields(1).Value());
    PayItem& item = items_[kind.at(0)][id];
    item.description = basic::Trim(row.Fields(2).Text());
    currencies.emplace_back(&item, static_cast<std::int32_t>(numberOf(row.Fields(3).Value())));
  });
  for (const auto& [item, currencyId] : currencies) item->symbol = symbolOf(currencyId);
}

std::string PayItems::symbolOf(std::int32_t currencyId) const {
  const PayItem* item = currency(currencyId);
  return item == nullptr ? std::string() : item->description;
}

const PayItem* PayItems::find(char kind, std::int32_t id) const {
  const auto ofKind = items_.find(kind);
  if (ofKind == items_.end()) return nullptr;
  const auto found = ofKind->second.find(id);
  return found == ofKind->second.end() ? nullptr : &found->second;
}

}  // namespace payslate
