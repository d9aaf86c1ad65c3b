// Chains against their hashes, and entries against their chains.
#include "persistence/JournalProof.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "component/Session.h"
#include "persistence/JournalReader.h"

namespace payslate {

namespace {

std::string rowsText(std::int32_t first, std::int32_t last) {
  if (first == last) return "row " + std::to_string(first) + " is missing";
  return "rows " + std::to_string(first) + " to " + std::to_string(last) + " are missing";
}

/// One chain, from its first row to its last.
class ChainProof {
 public:
  ChainProof(std::vector<JournalRow> rows, std::int16_t company)
      : rows_(std::move(rows)), company_(company) {}

  std::vector<JournalFault> faults() {
    std::int32_t expected = 1;
    std::string hashBefore;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      const std::int32_t sequence = rows_[i].sequence;
      if (sequence != expected) {
        tell(rowsText(expected, sequence - 1));  // What the next one's hash began with is gone with it.
      } else if (!fits(rows_[i], hashBefore)) {
        tellWhatBecameOf(i, hashBefore);
      }
      hashBefore = rows_[i].hash;
      expected = sequence + 1;
    }
    return std::move(faults_);
  }

 private:
  void tell(std::string what) { faults_.push_back({rows_.front().entryId, std::move(what)}); }

  [[nodiscard]] bool fits(const JournalRow& row, const std::string& hashBefore) const {
    return hashOf(row, company_, hashBefore) == row.hash;
  }

  void tellWhatBecameOf(std::size_t index, const std::string& hashBefore) {
    for (std::size_t other = index + 1; other < rows_.size(); ++other) {
      JournalRow moved = rows_[other];
      moved.sequence = rows_[index].sequence;
      if (!fits(moved, hashBefore)) continue;
      tell("rows " + std::to_string(rows_[index].sequence) + " and " + std::to_string(rows_[other].sequence) +
           " have changed places");
      std::swap(rows_[index], rows_[other]);
      std::swap(rows_[index].sequence, rows_[other].sequence);
      return;
    }
    const std::string sequence = std::to_string(rows_[index].sequence);
    tell(index == 0 ? "row " + sequence + " was changed"
                    : "row " + sequence + " was changed, or the hash of the row before it");
  }

  std::vector<JournalRow> rows_;
  std::int16_t company_;
  std::vector<JournalFault> faults_;
};

std::string shown(const std::optional<std::string>& amount) {
  return amount ? *amount : "nothing";
}

std::vector<JournalFault> foreignChanges(std::int32_t entryId, const JournalState& journal,
                                         const std::map<std::int32_t, StoredAmounts>& stored) {
  const auto entry = stored.find(entryId);
  if (entry == stored.end()) return {{entryId, "is not in the database any more"}};
  std::vector<JournalFault> changes;
  for (const AmountChange& change : journal.changesTo(entry->second.amounts))
    changes.push_back({entryId, change.key.kind + " " + change.key.item + " is " + shown(change.after) +
                                    ", and in the journal " + shown(change.before)});
  return changes;
}

/// The same once more, for an entry that a clerk may have stored between the reading of its chain and its
/// own.
std::vector<JournalFault> confirmedChanges(Session& session, std::int32_t entryId) {
  for (;;) {
    const Chain chain = readChain(session, entryId);
    const auto stored = readAmounts(session, {entryId, entryId});
    if (readChain(session, entryId).rows.size() == chain.rows.size())
      return foreignChanges(entryId, chain.state(), stored);
  }
}

void append(std::vector<JournalFault>& faults, std::vector<JournalFault> more) {
  std::move(more.begin(), more.end(), std::back_inserter(faults));
}

class Prover {
 public:
  explicit Prover(Session& session)
      : session_(session), company_(readChain(session, companyChain).rows), seals_(company_) {}

  JournalProof prove(const std::string& seal) {
    constexpr std::int32_t entriesAtOnce = 10000;
    proveCompany(seal);
    const std::int32_t last = std::max(lastChain(session_), lastEntry(session_));
    for (std::int32_t first = companyChain + 1; first <= last;) {
      const std::int32_t end = last - first < entriesAtOnce ? last : first + entriesAtOnce - 1;
      proveEntries({first, end});
      if (end == last) break;
      first = end + 1;
    }
    append(proof_.broken, seals_.finish());
    proof_.seals = seals_.count();
    return std::move(proof_);
  }

 private:
  void proveCompany(const std::string& seal) {
    if (!company_.empty()) append(proof_.broken, ChainProof(company_, session_.intCompanyID).faults());
    proof_.rows += company_.size();
    const auto isIt = [&](const JournalRow& row) { return sealText(row, session_.intCompanyID) == seal; };
    if (!seal.empty() && std::none_of(company_.begin(), company_.end(), isIt))
      proof_.broken.push_back({companyChain, "the journal is not the one of the seal " + seal});
  }

  void proveEntries(EntryRange range) {
    const auto stored = readAmounts(session_, range);
    std::set<std::int32_t> chained;
    std::vector<std::int32_t> differing;
    forEachChain(session_, range, [&](const std::vector<JournalRow>& chain) {
      const std::int32_t entryId = chain.front().entryId;
      proof_.rows += chain.size();
      ++proof_.entries;
      chained.insert(entryId);
      if (chain.front().action == JournalAction::Store && firstJournalled_ == 0) firstJournalled_ = entryId;
      append(proof_.broken, ChainProof(chain, session_.intCompanyID).faults());
      append(proof_.broken, seals_.take(chain));
      JournalState state;
      for (const JournalRow& row : chain) state.apply(row);
      if (!foreignChanges(entryId, state, stored).empty()) differing.push_back(entryId);
    });
    for (const std::int32_t entryId : differing) append(proof_.foreign, confirmedChanges(session_, entryId));
    for (const auto& [entryId, entry] : stored)
      if (!chained.contains(entryId)) takeUnchained(entryId);
  }

  // Identifiers grow: what comes behind the first journalled entry was stored when there was a journal.
  void takeUnchained(std::int32_t entryId) {
    if (firstJournalled_ == 0 || entryId < firstJournalled_) {
      ++proof_.older;
    } else if (readChain(session_, entryId).rows.empty()) {
      proof_.foreign.push_back({entryId, "is younger than the journal and has no rows in it"});
    }
  }

  Session& session_;
  std::vector<JournalRow> company_;
  JournalSeals seals_;
  std::int32_t firstJournalled_ = 0;  ///< Among the entries that begin with their chain.
  JournalProof proof_;
};

}  // namespace

JournalProof proveJournal(Session& session, const std::string& seal) {
  return Prover(session).prove(seal);
}

}  // namespace payslate
