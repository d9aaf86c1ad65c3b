// The questions, and the sentences that say what to do.
#include "persistence/Clashes.h"

#include <algorithm>

#include "component/DatabaseValues.h"
#include "component/Session.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

std::string secondLiveStatement(const Session& session, const EntryRecord& entry) {
  std::string statement = "select emhNo from " + session.TableLinks["pempmonthlyentryheader"] +
                          " where emhCompanyID = " + session.companyText() +
                          " and emhempID = " + std::to_string(entry.employeeId) +
                          " and emhCancelled = 0 and emhstartdate = '" + compactDate(entry.periodStart) + "'";
  if (entry.id != 0) statement += " and emhID <> " + std::to_string(entry.id);
  return statement;
}

std::string takenRecoveryStatement(const Session& session, const EntryRecord& entry) {
  std::string recoveries;
  for (const FacilityRow& row : entry.facilities)
    recoveries += (recoveries.empty() ? "" : ", ") + std::to_string(basic::numberOrZero(row.trackingId));
  return "select efdtrackingid, emhNo from " + session.TableLinks["pempfacilitydeductiondetail"] + ", " +
         session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID = efdcompanyid and emhID = efdid and efdcompanyid = " + session.companyText() +
         " and efdid <> " + std::to_string(entry.id) + " and efdtrackingid in (" + recoveries + ")";
}

std::string takenStatement(const Session& session, std::int32_t entryId, const std::string& number) {
  return "select count(*) from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhID = " + std::to_string(entryId) + " or emhCompanyID = " + session.companyText() +
         " and emhNo = '" + number + "'";
}

void open(ado::Recordset& rows, const std::string& statement, Session& session) {
  rows.Open(statement, *session.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
}

}  // namespace

std::optional<std::string> secondLiveEntry(Session& session, const EntryRecord& entry) {
  ado::Recordset live;
  open(live, secondLiveStatement(session, entry), session);
  if (live.Eof()) return {};
  return "The employee has an entry for this period already: " + live.Fields("emhNo").Text() +
         ". Nothing is stored. The list shows it when it is opened again.";
}

std::optional<std::string> takenRecovery(Session& session, const EntryRecord& entry) {
  if (entry.facilities.empty()) return {};
  ado::Recordset taken;
  open(taken, takenRecoveryStatement(session, entry), session);
  if (taken.Eof()) return {};
  const std::int32_t id = basic::CLng(taken.Fields("efdtrackingid").Value());
  const auto row = std::find_if(entry.facilities.begin(), entry.facilities.end(),
                                [id](const auto& one) { return basic::numberOrZero(one.trackingId) == id; });
  return "The recovery " + row->number + " (" + row->name + ") is taken by the entry " +
         taken.Fields("emhNo").Text() + " already. Nothing is stored: take its tick away, and store again.";
}

bool isTaken(Session& session, std::int32_t entryId, const std::string& number) {
  ado::Recordset count;
  open(count, takenStatement(session, entryId, number), session);
  return basic::CLng(count.Fields(0).Value()) != 0;
}

}  // namespace payslate
