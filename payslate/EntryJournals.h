// The journal of a company's entries, for the program around the component.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "component/Session.h"
#include "persistence/JournalLines.h"
#include "persistence/JournalProof.h"

namespace payslate {

/// Reads, seals and proves what the component wrote down of every entry that was stored, changed or
/// cancelled.
class EntryJournals {
 public:
  /// On the host's open connection, which it shares. ado::Error when the database cannot be read, or keeps no
  /// journal. The user is the one who seals; 0 for nobody in particular.
  EntryJournals(std::shared_ptr<ado::Connection> connection, std::int16_t company, std::int16_t user = 0);

  /// The rows of one entry, by its number, in the order in which they were written. ado::Error when the
  /// company has no such entry.
  [[nodiscard]] std::vector<JournalLine> ofEntry(const std::string& number);

  /// Adds a row that holds the ends of all chains, and returns its text, to be kept where nobody who can
  /// write to the database can change it.
  std::string seal();
  /// Proves the journal, and that it is the one which was sealed, if a seal is given. Entries can be stored
  /// meanwhile.
  [[nodiscard]] JournalProof prove(const std::string& seal = {});

  /// The number of an entry, as its list shows it; empty for one that is gone.
  [[nodiscard]] std::string numberOf(std::int32_t entryId);

 private:
  Session session_;
};

}  // namespace payslate
