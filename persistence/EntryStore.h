// Storing an entry where several clerks store theirs at the same moment.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "component/LoadedMonth.h"

namespace payslate {

struct Session;

namespace common {
class CommonDB;
}

/// Lets some time pass before a retry; the first is 1.
using RetryPause = std::function<void(int retry)>;

/// Some tens of milliseconds, at random, and more before each further retry: those who met do not meet again.
void randomPause(int retry);

/// Adds or rewrites the entry (EntryWriter::store) in a transaction of its own, and returns its identifier.
/// Where another clerk took its identifier or number at the same moment, or the database gave this
/// transaction up for another's, it is tried again, whole, up to 3 times. An error (ado::Error,
/// basic::ValueError) comes when the transaction is rolled back; where another clerk's entry stands in the
/// way it says which and what to do. Where a journal is kept it gets a row for each amount that changes, in
/// the same transaction; `loaded` says what a rewritten entry was before. The helper must have its
/// connection.
std::int32_t storeEntry(Session& session, common::CommonDB& database, const EntryRecord& entry,
                        const LoadedMonth& loaded, const RetryPause& pause = randomPause);

/// A new entry that is to be stored with others.
struct NewEntry {
  EntryRecord entry;
  LoadedMonth loaded;
};

struct StoredEntry {
  std::int32_t id = 0;
  std::string number;
};

/// Adds new entries in one transaction, their numbers and identifiers counted on from the largest ones, which
/// are read once, before the first of them is written. An error (ado::Error, basic::ValueError) comes when
/// the transaction is rolled back, and none of them is stored: each can still be, alone.
std::vector<StoredEntry> storeTogether(Session& session, common::CommonDB& database,
                                       const std::vector<NewEntry>& entries);

}  // namespace payslate
