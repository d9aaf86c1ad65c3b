// Movements of salary carried forward.
#include "persistence/CarriedForward.h"

#include "component/Amounts.h"
#include "component/DatabaseValues.h"
#include "component/Session.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

std::string movementStatement(const Session& session, std::int32_t entryId) {
  return "Select b.ecdCompanyID,b.ecdPaySlateID,b.ecdDetailID,b.ecdAmount,b.ecdMode,d.Symbol"
         " from pEmpMonthlyEntryHeader a,pEmployeeCurrentDetails b,pEmployee c, " +
         session.TableLinks["pCurrencyMaster"] +
         " d Where a.emhCompanyID = b.ecdCompanyID and a.emhId=b.ecdPaySlateID and "
         "a.emhCompanyID=c.eCompanyID and a.emhEmpID=c.eEmpID and "
         "c.eCompanyID=d.CompanyID and c.eCurrencyID=d.CurrencyID and "
         "a.emhCancelled=0 and a.emhID=" +
         std::to_string(entryId) + " and a.emhCompanyID=" + session.companyText();
}

std::string balanceStatement(const Session& session, std::int32_t employeeId, basic::Date before) {
  return "Select coalesce(sum(b.ecdAmount*b.ecdmode),0) from pEmpMonthlyEntryHeader a,"
         " pEmployeeCurrentDetails b Where a.emhCompanyID = b.ecdCompanyID and a.emhId = "
         " b.ecdPaySlateID and a.emhCancelled=0 and a.emhEmpID=" +
         std::to_string(employeeId) + " and a.emhCompanyID=" + session.companyText() + " and a.emhdate < '" +
         compactDate(before) + "'";
}

}  // namespace

void fnGetCarryForwardBalance(Session& session, std::int32_t employeeId, basic::Date before,
                              double& balance) {
  ado::Recordset sum;
  sum.Open(balanceStatement(session, employeeId, before), *session.adocon(), ado::CursorType::ForwardOnly,
           ado::LockType::ReadOnly);
  balance = 0;
  if (sum.Eof()) return;
  // Movements are whole cents, but a sum of doubles need not be.
  balance = basic::Val(amountText(basic::CDbl(sum.Fields(0).Value())));
}

std::vector<Movement> readMovements(Session& session, std::int32_t entryId) {
  ado::Recordset rows;
  rows.Open(movementStatement(session, entryId), *session.adocon(), ado::CursorType::ForwardOnly,
            ado::LockType::ReadOnly);
  std::vector<Movement> movements;
  for (; !rows.Eof(); rows.MoveNext()) {
    const bool paidOut =
        numberOf(rows.Fields("ecdMode").Value()) == static_cast<double>(MovementMode::PaidOut);
    movements.push_back({paidOut ? MovementMode::PaidOut : MovementMode::KeptBack,
                         amountText(rows.Fields("ecdAmount").Value()), rows.Fields("symbol").Text()});
  }
  return movements;
}

void fnAddCarryForwardRow(Session& session, std::int32_t entryId, std::int16_t detailId, double amount,
                          MovementMode mode) {
  ado::Recordset movements;
  movements.Open("Select * from pEmployeeCurrentDetails Where 1=2", *session.adocon(),
                 ado::CursorType::Keyset, ado::LockType::Optimistic);
  movements.AddNew();
  movements.Fields("ecdCompanyID") = session.intCompanyID;
  movements.Fields("ecdPaySlateID") = entryId;
  movements.Fields("ecdDetailID") = detailId;
  movements.Fields("ecdAmount") = amount;
  movements.Fields("ecdMode") = static_cast<std::int16_t>(mode);
  movements.Update();
}

void fnDeleteCarryForward(Session& session, std::int32_t entryId) {
  session.adocon()->Execute("delete from pEmployeeCurrentDetails where ecdcompanyid = " +
                            session.companyText() + " and ecdPaySlateID = " + std::to_string(entryId));
}

}  // namespace payslate
