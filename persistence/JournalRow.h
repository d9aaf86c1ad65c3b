// One row of the journal of entries, and what chains it to the row before.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace payslate {

/// What was done when a row was written.
namespace JournalAction {
constexpr const char* Store = "store";
constexpr const char* Rewrite = "rewrite";
constexpr const char* Cancel = "cancel";
constexpr const char* Noticed = "noticed";  ///< Another program had changed the amount before the next row.
constexpr const char* Seal = "seal";
constexpr const char* Accept = "accept";  ///< A month was looked over and closed.
}  // namespace JournalAction

/// Rows that concern the whole company stand in the chain of entry 0.
constexpr std::int32_t companyChain = 0;

/// Columns of pEntryJournal. Everything in it is text or a whole number, so that it reads back as it was
/// written from every database.
struct JournalRow {
  std::int32_t entryId = 0;
  std::int32_t sequence = 0;  ///< Within the entry's chain, from 1 and without gaps.
  std::string time;           ///< The database's, yyyy-mm-dd hh:mm:ss.
  std::int16_t userId = 0;
  std::string action;  ///< JournalAction
  std::string kind;    ///< AmountKind and its item
  std::string item;
  std::optional<std::string> before;
  std::optional<std::string> after;
  std::string hash;
};

/// SHA-256 in 64 small hexadecimal digits.
std::string sha256(std::string_view text);

/// The row's hash: of all its columns, its company and the hash of the row before it in its chain (empty for
/// the first), each with its length, so that no two rows give one text.
std::string hashOf(const JournalRow& row, std::int16_t company, std::string_view hashBefore);

}  // namespace payslate
