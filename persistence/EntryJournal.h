// Writing the journal: who changed which amounts of which entry.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "persistence/JournalReader.h"
#include "persistence/JournalState.h"

namespace payslate {

struct LoadedMonth;
struct Session;

/// The chain of one entry, made longer inside the caller's transaction. The session must keep a journal.
class EntryJournal {
 public:
  /// Reads the chain, by one statement. ado::Error.
  EntryJournal(Session& session, std::int32_t entryId);

  /// What is stored of the entry, asked before it is rewritten: the amounts as the clerk's form loaded them,
  /// or, where the form could not show them all or the journal knows of others, as they are read again.
  /// What other programs had changed becomes rows of its own.
  [[nodiscard]] EntryAmounts amountsBefore(const LoadedMonth& loaded);
  /// Adds a row for each amount that the journal knows otherwise.
  void notice(const EntryAmounts& stored);

  /// Adds a row for each amount that differs, to be written by `write`.
  void add(const char* action, const EntryAmounts& before, const EntryAmounts& after);
  /// The same of changes that are known.
  void append(const char* action, const std::vector<AmountChange>& changes);
  /// Sends what was added, by one statement, or by none when nothing was. ado::Error; where another clerk
  /// has made the chain longer meanwhile it is one that gave way.
  void write();

  [[nodiscard]] const Chain& chain() const { return chain_; }

 private:
  Session& session_;
  std::int32_t entryId_;
  Chain chain_;
  std::vector<JournalRow> added_;
};

}  // namespace payslate
