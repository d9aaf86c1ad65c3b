// The statements that read the journal.
#include "persistence/JournalReader.h"

#include "component/DatabaseValues.h"
#include "component/Session.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

constexpr const char* columns =
    "ejEntryID, ejSequence, ejTime, ejUserID, ejAction, ejKind, ejItem, ejBefore, ejAfter, ejHash";

// One row at least, so that the time comes with a chain that has none.
std::string chainStatement(const Session& session, std::int32_t entryId) {
  return std::string("select convert(varchar(19), getdate(), 120) now, ") + columns +
         " from (select 1 moment) moments left outer join " + session.TableLinks["pEntryJournal"] +
         " on ejCompanyID = " + session.companyText() + " and ejEntryID = " + std::to_string(entryId) +
         " order by ejSequence";
}

std::string rangeStatement(const Session& session, EntryRange range) {
  return std::string("select ") + columns + " from " + session.TableLinks["pEntryJournal"] +
         " where ejCompanyID = " + session.companyText() + " and " + within("ejEntryID", range) +
         " order by ejEntryID, ejSequence";
}

std::string lastStatement(const Session& session) {
  return "select max(ejEntryID) from " + session.TableLinks["pEntryJournal"] +
         " where ejCompanyID = " + session.companyText();
}

std::optional<std::string> optionalText(const ado::Field& field) {
  if (basic::isNull(field.Value())) return {};
  return field.Text();
}

JournalRow rowOf(ado::Recordset& rows) {
  const auto text = [&rows](const char* column) { return rows.Fields(column).Text(); };
  return {basic::CLng(rows.Fields("ejEntryID").Value()),
          basic::CLng(rows.Fields("ejSequence").Value()),
          text("ejTime"),
          basic::CInt(rows.Fields("ejUserID").Value()),
          text("ejAction"),
          text("ejKind"),
          text("ejItem"),
          optionalText(rows.Fields("ejBefore")),
          optionalText(rows.Fields("ejAfter")),
          text("ejHash")};
}

void open(ado::Recordset& rows, const std::string& statement, Session& session) {
  rows.Open(statement, *session.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
}

}  // namespace

JournalState Chain::state() const {
  JournalState state;
  for (const JournalRow& row : rows) state.apply(row);
  return state;
}

Chain readChain(Session& session, std::int32_t entryId) {
  ado::Recordset rows;
  open(rows, chainStatement(session, entryId), session);
  Chain chain;
  chain.now = rows.Fields("now").Text();
  for (; !rows.Eof(); rows.MoveNext())
    if (!basic::isNull(rows.Fields("ejSequence").Value())) chain.rows.push_back(rowOf(rows));
  return chain;
}

void forEachChain(Session& session, EntryRange range,
                  const std::function<void(const std::vector<JournalRow>&)>& take) {
  ado::Recordset rows;
  open(rows, rangeStatement(session, range), session);
  std::vector<JournalRow> chain;
  for (; !rows.Eof(); rows.MoveNext()) {
    JournalRow row = rowOf(rows);
    if (!chain.empty() && chain.front().entryId != row.entryId) {
      take(chain);
      chain.clear();
    }
    chain.push_back(std::move(row));
  }
  if (!chain.empty()) take(chain);
}

std::int32_t lastChain(Session& session) {
  ado::Recordset last;
  open(last, lastStatement(session), session);
  return static_cast<std::int32_t>(numberOf(last.Fields(0).Value()));
}

}  // namespace payslate
