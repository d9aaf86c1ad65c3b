// Movements of salary carried from one month to a later one, and the setting for loss of pay.
#include "persistence/CarriedForward.h"

#include "component/Session.h"
#include "persistence/EntryWriter.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

void EntryWriter::fnAddCarryForwardRow(std::int32_t entryId, double amount, std::int16_t mode) {
  ado::Recordset movements;
  movements.Open("Select * from pEmployeeCurrentDetails Where 1=2", *session_.adocon(),
                 ado::CursorType::Keyset, ado::LockType::Optimistic);
  movements.AddNew();
  movements.Fields("ecdCompanyID") = session_.intCompanyID;
  movements.Fields("ecdPaySlateID") = entryId;
  movements.Fields("ecdDetailID") = intCurDetailID_;
  movements.Fields("ecdAmount") = amount;
  movements.Fields("ecdMode") = mode;
  movements.Update();
}

void EntryWriter::fnDeleteCarryForward(std::int32_t entryId) {
  if (session_.isNewEntry()) return;
  session_.adocon()->Execute("delete from pEmployeeCurrentDetails where ecdcompanyid = " +
                             session_.companyText() + " and ecdPaySlateID = " + std::to_string(entryId));
}

void fnGetCarryForwardBalance(Session& session, std::int32_t employeeId, basic::Date before,
                              double& balance) {
  ado::Recordset sum;
  sum.Open(
      "Select coalesce(sum(b.ecdAmount*b.ecdmode),0) from pEmpMonthlyEntryHeader a,"
      " pEmployeeCurrentDetails b Where a.emhCompanyID = b.ecdCompanyID and a.emhId = "
      " b.ecdPaySlateID and a.emhCancelled=0 and a.emhEmpID=" +
          std::to_string(employeeId) + " and a.emhCompanyID=" + session.companyText() + " and a.emhdate < '" +
          basic::formatDate(before, "yyyymmdd") + "'",
      *session.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
  balance = 0;
  if (sum.Eof()) return;
  // Movements are whole cents, but a sum of doubles need not be.
  balance = basic::Val(basic::Format(basic::CDbl(sum.Fields(0).Value()), "0.00"));
}

void fnLOPThroughDeductions(Session& session, bool& result) {
  ado::Recordset row;
  row.Open("select LOPThroughDeductions from pSettings where companyID=" + session.companyText(),
           *session.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
  result = false;
  if (row.Eof()) return;
  const basic::Value setting = row.Fields("LOPThroughDeductions").Value();
  result = !basic::isNull(setting) && basic::CBool(setting);
}

}  // namespace payslate
