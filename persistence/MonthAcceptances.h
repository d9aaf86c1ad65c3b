// Months that somebody has looked at and closed: rows of the company's chain in the journal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "persistence/MonthScope.h"

namespace payslate {

struct Session;

/// What a department is paid in one currency; texts of money with two decimals.
struct AcceptedTotal {
  std::size_t employees = 0;  ///< With an entry.
  std::string basicPay;
  std::string allowances;
  std::string deductions;
  std::string net;

  bool operator==(const AcceptedTotal&) const = default;
};
/// By department (0: none) and currency symbol.
using AcceptedTotals = std::map<std::pair<std::int32_t, std::string>, AcceptedTotal>;

/// By the identifiers of the month's entries, how far their chains were written; 0 for one without a chain.
using ChainEnds = std::map<std::int32_t, std::int32_t>;

struct MonthAcceptance {
  std::string name;
  std::string hash;  ///< Of the totals.
  std::string time;  ///< The database's, yyyy/mm/dd hh:mm:ss.
  std::int16_t userId = 0;
  AcceptedTotals totals;
  ChainEnds ends;
};

/// SHA-256 of the totals as the journal holds them.
std::string hashOf(const AcceptedTotals& totals);

/// The last one of the month, by one statement. The session must keep a journal; ado::Error.
std::optional<MonthAcceptance> lastAcceptance(Session& session, const MonthScope& scope);

/// Adds one, in a transaction of its own, and returns it with its hash and time.
MonthAcceptance acceptMonth(Session& session, const MonthScope& scope, MonthAcceptance acceptance);

/// What was done last to an entry of the month, cancelled ones among them.
struct LastChange {
  std::int32_t entryId = 0;
  std::string number;
  std::int32_t employeeId = 0;
  std::int32_t sequence = 0;
  std::string action;  ///< JournalAction
  std::string time;    ///< As that of an acceptance.
  std::int16_t userId = 0;
};
/// Of every entry that has a chain, by one statement.
std::vector<LastChange> lastChanges(Session& session, const MonthScope& scope);

/// Names by their numbers, by one statement.
std::map<std::int16_t, std::string> userNames(Session& session);

}  // namespace payslate
