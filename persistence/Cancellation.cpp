// Looking the user up, and the two writes of a cancellation.
#include "persistence/Cancellation.h"

#include "component/Session.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/Transaction.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

constexpr char quote = '\'';

std::string userStatement(const Session& session) {
  return "select username from " + session.TableLinks["pusers"] +
         " where companyid=" + session.companyText() + " and userid=" + std::to_string(session.intUserID);
}

std::string dropRecoveries(const Session& session, std::int32_t entryId) {
  return "delete from " + session.TableLinks["pempfacilitydeductiondetail"] +
         " where efdcompanyid = " + session.companyText() + " and efdid = " + std::to_string(entryId);
}

std::string markCancelled(const Session& session, std::int32_t entryId, const std::string& remark) {
  std::string quoted;
  for (const char character : remark) quoted.append(character == quote ? 2 : 1, character);
  return "update " + session.TableLinks["pempmonthlyentryheader"] +
         " set emhCancelled=1,emhCancelledRemarks='" + quoted + "' where emhID='" + std::to_string(entryId) +
         "' and emhCompanyID=" + session.companyText();
}

std::string remarkOf(Session& session, const std::string& reason) {
  ado::Recordset user;
  user.Open(userStatement(session), *session.adocon(), ado::CursorType::Keyset, ado::LockType::Optimistic);
  if (user.Eof()) return {};
  return basic::Trim(user.Fields("username").Text()) + ":" + basic::Trim(reason);
}

}  // namespace

void cancelEntry(Session& session, std::int32_t entryId, const std::string& reason) {
  const std::string remark = remarkOf(session, reason);
  ado::Transaction transaction(*session.adocon());
  session.adocon()->Execute(dropRecoveries(session, entryId));
  session.adocon()->Execute(markCancelled(session, entryId, remark));
  transaction.commit();
}

}  // namespace payslate
