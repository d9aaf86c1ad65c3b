// Looking the user up, and the two writes of a cancellation.
#include "persistence/Cancellation.h"

#include "component/DatabaseValues.h"
#include "component/Session.h"
#include "persistence/EntryAmounts.h"
#include "persistence/EntryJournal.h"
#include "persistence/EntryReader.h"
#include "platform/ado/Literal.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/Transaction.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

std::string userStatement(const Session& session) {
  return "select username from " + session.TableLinks["pusers"] +
         " where companyid=" + session.companyText() + " and userid=" + std::to_string(session.intUserID);
}

std::string cancelledStatement(const Session& session, std::int32_t entryId) {
  return "select emhCancelled from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID=" + session.companyText() + " and emhID=" + std::to_string(entryId);
}

std::string dropRecoveries(const Session& session, std::int32_t entryId) {
  return "delete from " + session.TableLinks["pempfacilitydeductiondetail"] +
         " where efdcompanyid = " + session.companyText() + " and efdid = " + std::to_string(entryId);
}

std::string markCancelled(const Session& session, std::int32_t entryId, const std::string& remark) {
  return "update " + session.TableLinks["pempmonthlyentryheader"] +
         " set emhCancelled=1,emhCancelledRemarks=" + ado::literal(remark) + " where emhID='" +
         std::to_string(entryId) + "' and emhCompanyID=" + session.companyText();
}

std::string remarkOf(Session& session, const std::string& reason) {
  ado::Recordset user;
  user.Open(userStatement(session), *session.adocon(), ado::CursorType::Keyset, ado::LockType::Optimistic);
  if (user.Eof()) return {};
  return basic::Trim(user.Fields("username").Text()) + ":" + basic::Trim(reason);
}

std::optional<std::string> goneOrCancelled(Session& session, std::int32_t entryId) {
  ado::Recordset entry;
  entry.Open(cancelledStatement(session, entryId), *session.adocon(), ado::CursorType::ForwardOnly,
             ado::LockType::ReadOnly);
  if (entry.Eof()) return "This entry is not in the database any more. Close the list and open it again.";
  if (numberOf(entry.Fields("emhCancelled").Value()) != 1) return {};
  return "Another clerk has cancelled this entry meanwhile. Nothing is changed.";
}

void journalCancellation(Session& session, std::int32_t entryId, const EntryAmounts& before) {
  EntryAmounts after = before;
  std::erase_if(after, [](const EntryAmount& amount) { return amount.key.kind == AmountKind::Recovery; });
  after.push_back({{AmountKind::Entry, EntryItem::Cancelled}, "yes"});
  EntryJournal journal(session, entryId);
  journal.notice(before);
  journal.add(JournalAction::Cancel, before, after);
  journal.write();
}

}  // namespace

std::optional<std::string> cancelEntry(Session& session, std::int32_t entryId, const std::string& reason) {
  const std::string remark = remarkOf(session, reason);
  ado::Transaction transaction(*session.adocon());
  if (auto sentence = goneOrCancelled(session, entryId)) return sentence;
  EntryAmounts before;
  if (session.keepsJournal()) before = readAmounts(session, {entryId, entryId})[entryId].amounts;
  session.adocon()->Execute(dropRecoveries(session, entryId));
  session.adocon()->Execute(markCancelled(session, entryId, remark));
  // Asked once the row is ours: now the payroll run has taken it already, or finds it cancelled.
  if (isProcessedEntry(session, entryId))
    return "The payroll run has taken this entry meanwhile. It is not cancelled.";
  if (session.keepsJournal()) journalCancellation(session, entryId, before);
  transaction.commit();
  return {};
}

}  // namespace payslate
