// Proving the journal: is it whole, and are the entries what it says?
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "persistence/JournalSeals.h"

namespace payslate {

struct Session;

struct JournalProof {
  std::size_t rows = 0;
  std::size_t entries = 0;  ///< That have a chain.
  std::size_t older = 0;    ///< Entries without one: they were stored before there was a journal.
  std::size_t seals = 0;
  std::vector<JournalFault> broken;   ///< Rows of the journal that are not as they were written.
  std::vector<JournalFault> foreign;  ///< Entries that something else than this component changed.
};

/// Proves every chain of the session's company, by its own hashes, by the seals in the journal, and by the
/// one whose text is given, unless that is empty. Entries may be stored meanwhile. ado::Error.
JournalProof proveJournal(Session& session, const std::string& seal);

}  // namespace payslate
