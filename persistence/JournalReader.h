// Reading the journal: one chain, or all of a company's.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "persistence/JournalRow.h"
#include "persistence/JournalState.h"

namespace payslate {

struct Session;

struct Chain {
  std::vector<JournalRow> rows;  ///< By their sequence.
  std::string now;               ///< The database's time when it was read.

  [[nodiscard]] JournalState state() const;
};

/// By one statement. The session must keep a journal; ado::Error.
Chain readChain(Session& session, std::int32_t entryId);

/// The company's chains of the entries in the range, one at a time, by their entries.
void forEachChain(Session& session, EntryRange range,
                  const std::function<void(const std::vector<JournalRow>&)>& take);

/// The largest identifier of a chain; 0 when there is none.
std::int32_t lastChain(Session& session);

}  // namespace payslate
