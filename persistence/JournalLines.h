// Rows of the journal in a reader's words.
#pragma once

#include <string>
#include <vector>

#include "persistence/JournalRow.h"

namespace payslate {

struct Session;

struct JournalLine {
  JournalRow row;
  std::string user;  ///< The user's name; the number where there is none.
  std::string done;  ///< "Entered", "Changed", …
  std::string what;  ///< "Basic pay", "Allowance House rent", …
  std::string before;
  std::string after;
};

/// Looks the names of people, pay components and recoveries up. ado::Error.
std::vector<JournalLine> journalLines(Session& session, const std::vector<JournalRow>& rows);

}  // namespace payslate
