// Appending to a chain.
#include "persistence/EntryJournal.h"

#include "component/LoadedMonth.h"
#include "component/Session.h"
#include "platform/ado/Literal.h"
#include "platform/ado/Recordset.h"

namespace payslate {

namespace {

std::string literalOrNull(const std::optional<std::string>& text) {
  return text ? ado::literal(*text) : "null";
}

std::string valuesOf(const Session& session, const JournalRow& row) {
  return "(" + session.companyText() + ", " + std::to_string(row.entryId) + ", " +
         std::to_string(row.sequence) + ", " + ado::literal(row.time) + ", " + std::to_string(row.userId) +
         ", " + ado::literal(row.action) + ", " + ado::literal(row.kind) + ", " + ado::literal(row.item) +
         ", " + literalOrNull(row.before) + ", " + literalOrNull(row.after) + ", " + ado::literal(row.hash) +
         ")";
}

void insert(Session& session, const std::string& values) {
  session.adocon()->Execute("insert into " + session.TableLinks["pEntryJournal"] +
                            " (ejCompanyID, ejEntryID, ejSequence, ejTime, ejUserID, ejAction, ejKind, "
                            "ejItem, ejBefore, ejAfter, ejHash) values " +
                            values);
}

}  // namespace

EntryJournal::EntryJournal(Session& session, std::int32_t entryId)
    : session_(session), entryId_(entryId), chain_(readChain(session, entryId)) {}

EntryAmounts EntryJournal::amountsBefore(const LoadedMonth& loaded) {
  if (loaded.stored && loaded.hiddenRows == 0) {
    EntryAmounts shown = amountsOf(loaded.entry);
    if (chain_.state().changesTo(shown).empty()) return shown;
  }
  EntryAmounts stored = readAmounts(session_, {entryId_, entryId_})[entryId_].amounts;
  notice(stored);
  return stored;
}

void EntryJournal::notice(const EntryAmounts& stored) {
  append(JournalAction::Noticed, chain_.state().changesTo(stored));
}

void EntryJournal::add(const char* action, const EntryAmounts& before, const EntryAmounts& after) {
  append(action, changesOf(before, after));
}

void EntryJournal::append(const char* action, const std::vector<AmountChange>& changes) {
  std::int32_t sequence = chain_.rows.empty() ? 0 : chain_.rows.back().sequence;
  for (const AmountChange& change : changes) {
    const std::string hashBefore = chain_.rows.empty() ? std::string() : chain_.rows.back().hash;
    JournalRow row{entryId_,        ++sequence,      chain_.now,    session_.intUserID, action,
                   change.key.kind, change.key.item, change.before, change.after,       {}};
    row.hash = hashOf(row, session_.intCompanyID, hashBefore);
    chain_.rows.push_back(row);
    added_.push_back(std::move(row));
  }
}

void EntryJournal::write() {
  constexpr std::size_t rowsOfAnInsert = 500;  // A server takes a thousand.
  std::string values;
  for (std::size_t row = 0; row < added_.size(); ++row) {
    values += (values.empty() ? "" : ", ") + valuesOf(session_, added_[row]);
    if ((row + 1) % rowsOfAnInsert != 0 && row + 1 != added_.size()) continue;
    try {
      insert(session_, values);
    } catch (const ado::Error& error) {
      if (!error.brokeARule()) throw;
      throw ado::Error(
          "Another clerk has changed this entry at the same moment. Nothing is stored: store it again.",
          "40001");
    }
    values.clear();
  }
  added_.clear();
}

}  // namespace payslate
