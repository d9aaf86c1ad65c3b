// Tries, and what became of one that failed.
#include "persistence/EntryStore.h"

#include <chrono>
#include <random>
#include <thread>

#include "component/Session.h"
#include "persistence/Clashes.h"
#include "persistence/EntryJournal.h"
#include "persistence/EntryNumbers.h"
#include "persistence/EntryWriter.h"
#include "persistence/JournalRow.h"
#include "platform/ado/Transaction.h"

namespace payslate {

namespace {

constexpr int mostRetries = 3;

/// Remembers what one try was given.
class TriedNumbers : public EntryNumbers {
 public:
  explicit TriedNumbers(EntryNumbers& source) : source_(source) {}

  std::int32_t nextId() override { return id_ = source_.nextId(); }
  std::string fnGetEntryNo() override { return number_ = source_.fnGetEntryNo(); }

  [[nodiscard]] const std::string& number() const { return number_; }
  /// Are they another entry's by now? Asked when the try is rolled back.
  [[nodiscard]] bool areTaken(Session& session) const { return id_ != 0 && isTaken(session, id_, number_); }

 private:
  EntryNumbers& source_;
  std::int32_t id_ = 0;
  std::string number_;
};

/// Stores by the writer, and writes down what that changes.
std::int32_t storeJournalled(Session& session, EntryWriter& writer, const EntryRecord& entry,
                             const LoadedMonth& loaded) {
  if (entry.id == 0) {
    const std::int32_t id = writer.store(entry);
    EntryJournal journal(session, id);
    journal.add(JournalAction::Store, {}, amountsOf(entry));
    journal.write();
    return id;
  }
  EntryJournal journal(session, entry.id);
  const EntryAmounts before = journal.amountsBefore(loaded);
  writer.store(entry);
  journal.add(JournalAction::Rewrite, before, amountsOf(entry));
  journal.write();
  return entry.id;
}

/// Stores inside the caller's transaction, and journals where a journal is kept.
std::int32_t storeHere(Session& session, common::CommonDB& database, EntryNumbers& numbers,
                       const EntryRecord& entry, const LoadedMonth& loaded) {
  EntryWriter writer(session, database, numbers);
  return session.keepsJournal() ? storeJournalled(session, writer, entry, loaded) : writer.store(entry);
}

/// One try, rolled back with this function.
std::int32_t storeOnce(Session& session, common::CommonDB& database, EntryNumbers& numbers,
                       const EntryRecord& entry, const LoadedMonth& loaded) {
  ado::Transaction transaction(*session.adocon());
  const std::int32_t id = storeHere(session, database, numbers, entry, loaded);
  transaction.commit();
  return id;
}

enum class Verdict { TryAgain, GiveUp };

/// What a failed try, which is rolled back, allows. Where the error is another clerk's doing its description
/// then says so.
Verdict verdictOn(ado::Error& error, Session& session, const EntryRecord& entry, const TriedNumbers& tried) {
  if (error.gaveWay()) return Verdict::TryAgain;
  if (!error.brokeARule()) return Verdict::GiveUp;
  try {
    if (tried.areTaken(session)) return Verdict::TryAgain;
    auto sentence = secondLiveEntry(session, entry);
    if (!sentence) sentence = takenRecovery(session, entry);
    if (sentence) error.Description = *std::move(sentence);
  } catch (const ado::Error&) {
    // Whatever keeps the cause from being told, the error itself is still the first thing to know.
  }
  return Verdict::GiveUp;
}

}  // namespace

void randomPause(int retry) {
  constexpr int shortest = 10;
  constexpr int longest = 40;
  static thread_local std::minstd_rand random{std::random_device{}()};
  std::uniform_int_distribution<int> milliseconds(shortest, longest);
  std::this_thread::sleep_for(std::chrono::milliseconds(retry * milliseconds(random)));
}

std::int32_t storeEntry(Session& session, common::CommonDB& database, const EntryRecord& entry,
                        const LoadedMonth& loaded, const RetryPause& pause) {
  for (int retry = 1;; ++retry) {
    StoredEntryNumbers next(session, database);
    TriedNumbers numbers(next);
    try {
      return storeOnce(session, database, numbers, entry, loaded);
    } catch (ado::Error& error) {
      if (verdictOn(error, session, entry, numbers) == Verdict::GiveUp || retry > mostRetries) throw;
    }
    pause(retry);
  }
}

std::vector<StoredEntry> storeTogether(Session& session, common::CommonDB& database,
                                       const std::vector<NewEntry>& entries) {
  ado::Transaction transaction(*session.adocon());
  StoredEntryNumbers next(session, database);
  CountedEntryNumbers counted(next);
  TriedNumbers numbers(counted);
  std::vector<StoredEntry> stored;
  stored.reserve(entries.size());
  for (const NewEntry& one : entries) {
    const std::int32_t id = storeHere(session, database, numbers, one.entry, one.loaded);
    stored.push_back({id, numbers.number()});
  }
  transaction.commit();
  return stored;
}

}  // namespace payslate
