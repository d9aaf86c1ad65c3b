// From a host's connection to the journal's rows.
#include "payslate/EntryJournals.h"

#include <utility>

#include "persistence/EntryReader.h"
#include "persistence/JournalReader.h"

namespace payslate {

EntryJournals::EntryJournals(std::shared_ptr<ado::Connection> connection, std::int16_t company,
                             std::int16_t user) {
  session_.adocon(std::move(connection));
  session_.intCompanyID = company;
  session_.intUserID = user;
  session_.TableLinks.load(*session_.adocon());
  session_.TableLinks.loadJournal(*session_.adocon());
  if (!session_.keepsJournal())
    throw ado::Error("No journal of entries is kept in this database: linkTable has no pEntryJournal.",
                     "42S02");
}

std::vector<JournalLine> EntryJournals::ofEntry(const std::string& number) {
  const auto entryId = entryOfNumber(session_, number);
  if (!entryId) throw ado::Error("The company has no entry with the number " + number + ".", "02000");
  return journalLines(session_, readChain(session_, *entryId).rows);
}

std::string EntryJournals::seal() {
  return sealJournal(session_);
}

JournalProof EntryJournals::prove(const std::string& seal) {
  return proveJournal(session_, seal);
}

std::string EntryJournals::numberOf(std::int32_t entryId) {
  return numberOfEntry(session_, entryId);
}

}  // namespace payslate
