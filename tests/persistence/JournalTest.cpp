// The journal of entries with a database alone: what is written, and what a proof finds.
#include <gtest/gtest.h>

#include "component/Session.h"
#include "persistence/Cancellation.h"
#include "persistence/EntryReader.h"
#include "persistence/EntryStore.h"
#include "persistence/JournalProof.h"
#include "persistence/JournalReader.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/Transaction.h"
#include "platform/common/CommonDB.h"
#include "schema/schema.h"
#include "tests/persistence/DemoEntry.h"

namespace payslate {
namespace {

using Lines = std::vector<std::string>;

class Journal : public ::testing::Test {
 protected:
  Journal() {
    session.adocon()->Open(":memory:");
    schema::createDemo(*session.adocon());
    session.intCompanyID = 1;
    session.intUserID = 1;
    session.intInterfaceID = 40001;
    session.TableLinks.load(*session.adocon());
    session.TableLinks.loadJournal(*session.adocon());
    database->adocon(session.adocon());
  }
  void run(const std::string& statement) { session.adocon()->Execute(statement); }

  /// An entry that was stored, rewritten by the second clerk, and cancelled by the third: 28 rows.
  std::int32_t storeRewriteCancel() {
    EntryRecord entry = everyKind();
    entry.id = storeEntry(session, *database, entry, {});
    LoadedMonth loaded{entry, true, 0, {}};
    entry.basicPay = "27000";
    entry.allowances[1][AllowColumn::Amount] = "20.00";
    entry.deductions.erase(entry.deductions.begin());
    session.intUserID = 2;
    storeEntry(session, *database, entry, loaded);
    session.intUserID = 3;
    EXPECT_EQ(cancelEntry(session, entry.id, "twice"), std::nullopt);
    return entry.id;
  }
  /// "action kind item before after"
  Lines chain(std::int32_t entryId, const std::string& action) {
    Lines lines;
    for (const JournalRow& row : readChain(session, entryId).rows)
      if (row.action == action)
        lines.push_back(std::to_string(row.userId) + " " + row.kind + " " + row.item + " " +
                        row.before.value_or("-") + " " + row.after.value_or("-"));
    return lines;
  }
  static Lines texts(const std::vector<JournalFault>& faults) {
    Lines lines;
    for (const JournalFault& fault : faults)
      lines.push_back(std::to_string(fault.entryId) + " " + fault.what);
    return lines;
  }
  /// What a change of the database makes the proof say, its rows of both kinds; then the change is undone.
  Lines faultsAfter(const Lines& statements, const std::string& seal = {}) {
    const ado::Transaction undone(*session.adocon());
    for (const std::string& statement : statements) run(statement);
    const JournalProof proof = proveJournal(session, seal);
    Lines lines = texts(proof.broken);
    for (const std::string& line : texts(proof.foreign)) lines.push_back("entry " + line);
    return lines;
  }

  Session session;
  std::unique_ptr<common::CommonDB> database =
      common::createObjectAs<common::CommonDB>(common::CommonDB::registeredName);
};

TEST_F(Journal, HoldsEveryAmountThatChangedWithItsUser) {
  const std::int32_t id = storeRewriteCancel();
  EXPECT_EQ(chain(id, "store"),
            (Lines{"1 entry employee - 101", "1 entry period - 2026/04/01-2026/04/30",
                   "1 entry basic pay - 28000.50", "1 entry paid - hold", "1 allowance Y 1 - 3000.00",
                   "1 allowance N 4 - 12.34", "1 movement paid out - 500.00", "1 deduction D 2 - 300.25",
                   "1 deduction L 2/2 - 3500.50", "1 deduction S 1/1 - 250.00", "1 deduction F 3 - 700.75",
                   "1 deduction O 4 - 125.00", "1 deduction N 7 - 0.05", "1 movement kept back - 100.00",
                   "1 recovery 1 - 450.00", "1 recovery 2 - 250.75"}));
  EXPECT_EQ(chain(id, "rewrite"), (Lines{"2 entry basic pay 28000.50 27000.00", "2 allowance N 4 12.34 20.00",
                                         "2 deduction D 2 300.25 -"}));
  EXPECT_EQ(chain(id, "cancel"),
            (Lines{"3 entry cancelled - yes", "3 recovery 1 450.00 -", "3 recovery 2 250.75 -"}));
  EXPECT_EQ(faultsAfter({}), Lines());
  EXPECT_EQ(proveJournal(session, "").older, 64U);
}

// The amounts before are those that were loaded, unless somebody else stored the entry since, a list could
// not show them, or the form held something else than the stored entry.
TEST_F(Journal, TellsTheAmountsBeforeAsTheyWere) {
  EntryRecord entry = everyKind();
  entry.id = storeEntry(session, *database, entry, {});
  const LoadedMonth loaded{entry, true, 0, {}};
  EntryRecord others = entry;
  others.basicPay = "30000";
  storeEntry(session, *database, others, loaded);
  storeEntry(session, *database, entry, loaded);
  const std::string here = "eadid = " + std::to_string(entry.id);
  run("update pemployeeallowancedetail set eadamount = 9 where eadallowanceid = 4 and " + here);
  run("insert into pemployeeallowancedetail (eadcompanyid, eadid, eadallowanceid, eadamount, eaddefault) values (1, " +
      std::to_string(entry.id) + ", 77, 1, 0)");
  EXPECT_EQ(faultsAfter({}).size(), 2U) << "other programs changed the entry";
  storeEntry(session, *database, entry, LoadedMonth{entry, true, 1, {}});
  EXPECT_EQ(chain(entry.id, "noticed"), (Lines{"1 allowance N 4 12.34 9.00", "1 allowance N 77 - 1.00"}));
  EXPECT_EQ(chain(entry.id, "rewrite"),
            (Lines{"1 entry basic pay 28000.50 30000.00", "1 entry basic pay 30000.00 28000.50",
                   "1 allowance N 4 9.00 12.34", "1 allowance N 77 1.00 -"}));
  EXPECT_EQ(faultsAfter({}), Lines()) << "now they are told";

  // An entry that is older than the journal: only what changed is known of it.
  run("update pempmonthlyentryheader set emhprocessed = 0 where emhID = 1");
  EntryRecord old = EntryReader(session, *database).whole(1);
  const LoadedMonth asRead{old, true, 0, {}};
  old.basicPay = "1";
  storeEntry(session, *database, old, asRead);
  EXPECT_EQ(faultsAfter({"update pemployeeallowancedetail set eadamount = 9 where eadid = 1"}), Lines());
  EXPECT_EQ(faultsAfter({"update pempmonthlyentryheader set emhbasicpay = 2 where emhID = 1"}),
            Lines{"entry 1 entry basic pay is 2.00, and in the journal 1.00"});
}

TEST_F(Journal, NamesEveryRowThatIsNotAsItWasWritten) {
  const std::int32_t id = storeRewriteCancel();
  const std::string entry = std::to_string(id);
  const std::string row = "update pEntryJournal set ";
  const std::string at = " where ejEntryID = " + entry + " and ejSequence = ";
  const std::string gone = "delete from pEntryJournal where ejEntryID = " + entry;
  const std::string seal = sealJournal(session);
  const std::string day = readChain(session, companyChain).rows.back().time;
  const auto swap = [&](int one, int other) {
    const auto move = [&](int from, int to) {
      return row + "ejSequence = " + std::to_string(to) + at + std::to_string(from);
    };
    return Lines{move(one, 99), move(other, one), move(99, other)};
  };
  const std::string unsealed =
      "0 the rows that were sealed on " + day + " (row 1) are not those rows any more";
  EXPECT_EQ(faultsAfter({}, seal), Lines());
  EXPECT_EQ(faultsAfter({row + "ejAfter = '1.00'" + at + "9"}).front(),
            entry + " row 9 was changed, or the hash of the row before it");
  EXPECT_EQ(faultsAfter({row + "ejUserID = 2" + at + "1"}), Lines{entry + " row 1 was changed"});
  EXPECT_EQ(faultsAfter({row + "ejBefore = ''" + at + "3"}).size(), 1U) << "nothing is not an empty text";
  EXPECT_EQ(faultsAfter({gone + " and ejSequence between 5 and 6"}).front(),
            entry + " rows 5 to 6 are missing");
  EXPECT_EQ(faultsAfter(swap(3, 9)), Lines{entry + " rows 3 and 9 have changed places"});
  // The last row leaves no gap: what the entry is tells of it, or the seal.
  const Lines last = faultsAfter({gone + " and ejSequence = 22"});
  EXPECT_EQ(last, (Lines{entry + " row 22, sealed on " + day + ", is missing", unsealed,
                         "entry " + entry + " recovery 2 is nothing, and in the journal 250.75"}));
  EXPECT_EQ(faultsAfter({gone}),
            (Lines{entry + " all its rows, sealed on " + day + ", are missing", unsealed}));
  // A keeper who writes the whole journal anew has no seal from before.
  EXPECT_EQ(faultsAfter({"delete from pEntryJournal"}), Lines());
  EXPECT_EQ(faultsAfter({"delete from pEntryJournal"}, seal),
            Lines{"0 the journal is not the one of the seal " + seal});
  // Entries without rows: one that came by another program, and one that is no more.
  EXPECT_EQ(
      faultsAfter({"insert into pempmonthlyentryheader (emhCompanyID, emhID, emhempID, emhCancelled) values "
                   "(1, 900, 101, 1)"}),
      Lines{"entry 900 is younger than the journal and has no rows in it"});
  EXPECT_EQ(faultsAfter({"delete from pempmonthlyentryheader where emhID = " + entry}),
            Lines{"entry " + entry + " is not in the database any more"});
}

TEST_F(Journal, ASealHoldsWhatWasWrittenUpToItAndLetsTheRestGoOn) {
  EntryRecord entry = everyKind();
  EXPECT_EQ(sealJournal(session).find("1-1-"), 0U) << "nothing is sealed, and that is proved too";
  entry.id = storeEntry(session, *database, entry, {});
  const std::string second = sealJournal(session);
  const LoadedMonth loaded{entry, true, 0, {}};
  entry.basicPay = "1";
  storeEntry(session, *database, entry, loaded);
  sealJournal(session);
  const JournalProof proof = proveJournal(session, second);
  EXPECT_EQ(texts(proof.broken), Lines());
  EXPECT_EQ(proof.seals, 3U);
  // Rows that a seal holds, with a chain computed anew behind the change.
  std::string hash;
  Lines forged;
  for (JournalRow row : readChain(session, entry.id).rows) {
    if (row.sequence == 3) row.after = "99999.00";
    hash = hashOf(row, 1, hash);
    forged.push_back("update pEntryJournal set ejHash = '" + hash + "', ejAfter = '" +
                     row.after.value_or("") + "' where ejEntryID = " + std::to_string(entry.id) +
                     " and ejSequence = " + std::to_string(row.sequence));
  }
  const Lines faults = faultsAfter(forged);
  ASSERT_GE(faults.size(), 3U);
  EXPECT_EQ(faults[0].find(std::to_string(entry.id) + " row 16, sealed on "), 0U) << faults[0];
}

}  // namespace
}  // namespace payslate
