// Sealing, and holding chains against seals.
#include "persistence/JournalSeals.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <sstream>

#include "component/Session.h"
#include "persistence/EntryJournal.h"
#include "platform/ado/Transaction.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

constexpr std::size_t namingDigits = 12;
constexpr const char* journalKind = "journal";
constexpr const char* endsItem = "ends";

std::string endText(std::int32_t entryId, std::int32_t sequence, const std::string& hash) {
  return std::to_string(entryId) + ":" + std::to_string(sequence) + ":" + hash;
}

/// The digest of one end more.
std::string digestWith(const std::string& digest, const JournalRow& end) {
  return sha256(digest + endText(end.entryId, end.sequence, end.hash));
}

/// "12:3:0123456789ab"
struct ListedEnd {
  std::int32_t entryId = 0;
  std::int32_t sequence = 0;
  std::string hash;
};

ListedEnd listedEnd(const std::string& text) {
  const std::size_t first = text.find(':');
  const std::size_t second = text.find(':', first == std::string::npos ? first : first + 1);
  if (second == std::string::npos) return {};
  return {basic::numberOrZero(text.substr(0, first)),
          basic::numberOrZero(text.substr(first + 1, second - first - 1)), text.substr(second + 1)};
}

bool isSeal(const JournalRow& row) {
  return row.action == JournalAction::Seal && row.after;
}

/// The chains whose ends the last seal does not hold.
std::string digestAndNewEnds(Session& session, const std::vector<JournalRow>& chainOfCompany) {
  std::map<std::int32_t, std::int32_t> sealed;
  for (const JournalRow& row : chainOfCompany) {
    if (!isSeal(row)) continue;
    std::istringstream words(*row.after);
    std::string word;
    for (words >> word; words >> word;) {
      const ListedEnd end = listedEnd(word);
      sealed[end.entryId] = end.sequence;
    }
  }
  std::string digest;
  std::string ends;
  forEachChain(session, {companyChain + 1, std::numeric_limits<std::int32_t>::max()},
               [&](const std::vector<JournalRow>& chain) {
                 const JournalRow& end = chain.back();
                 digest = digestWith(digest, end);
                 if (sealed[end.entryId] == end.sequence) return;
                 ends += " " + endText(end.entryId, end.sequence, end.hash.substr(0, namingDigits));
               });
  return (digest.empty() ? sha256({}) : digest) + ends;
}

}  // namespace

std::string sealText(const JournalRow& row, std::int16_t company) {
  return std::to_string(company) + "-" + std::to_string(row.sequence) + "-" + row.hash;
}

std::string sealJournal(Session& session) {
  const std::string ends = digestAndNewEnds(session, readChain(session, companyChain).rows);
  ado::Transaction transaction(*session.adocon());
  EntryJournal journal(session, companyChain);
  journal.append(JournalAction::Seal, {{{journalKind, endsItem}, {}, ends}});
  journal.write();
  transaction.commit();
  return sealText(journal.chain().rows.back(), session.intCompanyID);
}

JournalSeals::JournalSeals(const std::vector<JournalRow>& chainOfCompany) {
  for (const JournalRow& row : chainOfCompany) {
    if (!isSeal(row)) continue;
    std::istringstream words(*row.after);
    Seal seal{row.sequence, row.time, {}, {}};
    words >> seal.digest;
    for (std::string word; words >> word;) {
      const ListedEnd end = listedEnd(word);
      ends_[end.entryId][seals_.size()] = {end.sequence, end.hash};
    }
    seals_.push_back(std::move(seal));
  }
}

std::vector<JournalFault> JournalSeals::take(const std::vector<JournalRow>& chain) {
  const std::int32_t entryId = chain.front().entryId;
  const auto sealed = ends_.find(entryId);
  if (sealed == ends_.end()) return {};
  std::vector<JournalFault> faults;
  auto next = sealed->second.begin();
  for (std::size_t i = next->first; i < seals_.size(); ++i) {
    if (next != sealed->second.end() && next->first == i) ++next;
    const End& end = std::prev(next)->second;
    const auto row = std::lower_bound(
        chain.begin(), chain.end(), end.sequence,
        [](const JournalRow& one, std::int32_t sequence) { return one.sequence < sequence; });
    const bool found = row != chain.end() && row->sequence == end.sequence;
    if (found) seals_[i].found = digestWith(seals_[i].found, *row);
    if (!faults.empty() || (found && row->hash.starts_with(end.hash))) continue;
    faults.push_back({entryId, "row " + std::to_string(end.sequence) + ", sealed on " + seals_[i].time +
                                   (found ? ", is another now" : ", is missing")});
  }
  ends_.erase(sealed);
  return faults;
}

std::vector<JournalFault> JournalSeals::finish() {
  std::vector<JournalFault> faults;
  for (const auto& [entryId, ends] : ends_)
    faults.push_back(
        {entryId, "all its rows, sealed on " + seals_[ends.begin()->first].time + ", are missing"});
  for (const Seal& seal : seals_) {
    if ((seal.found.empty() ? sha256({}) : seal.found) == seal.digest) continue;
    faults.push_back({companyChain, "the rows that were sealed on " + seal.time + " (row " +
                                        std::to_string(seal.number) + ") are not those rows any more"});
  }
  return faults;
}

}  // namespace payslate
