// Entries written and read with a database alone: no form, no list.
#include <gtest/gtest.h>

#include "component/PayRows.h"
#include "component/Session.h"
#include "persistence/Cancellation.h"
#include "persistence/EntryNumbers.h"
#include "persistence/EntryReader.h"
#include "persistence/EntryStore.h"
#include "persistence/EntryWriter.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/Transaction.h"
#include "platform/basic/Numbers.h"
#include "platform/common/CommonDB.h"
#include "schema/schema.h"
#include "tests/ado/ForwardingProvider.h"
#include "tests/persistence/DemoEntry.h"

namespace payslate {
namespace {

/// Others at work in the database: headers are refused so many times, and what they store meanwhile is there
/// once the transaction is rolled back.
struct Others {
  int refusals = 0;
  ado::Error error{"", ""};
  std::string stores;
};

Others others;

class SharedDatabase : public ado::ForwardingProvider {
 public:
  using ForwardingProvider::ForwardingProvider;

  void insert(const std::string& table, const std::vector<ado::Assignment>& row) override {
    if (table == "pempmonthlyentryheader" && others.refusals > 0) {
      --others.refusals;
      throw others.error;
    }
    ForwardingProvider::insert(table, row);
  }
  void rollback() override {
    ForwardingProvider::rollback();
    if (const std::string statement = std::exchange(others.stores, ""); !statement.empty())
      execute(statement);
  }
};

/// Numbers that nobody else gives.
struct CountedNumbers : EntryNumbers {
  std::int32_t id = 5000;
  std::int32_t nextId() override { return ++id; }
  std::string fnGetEntryNo() override { return "T" + std::to_string(id); }
};

class EntryStore : public ::testing::Test {
 protected:
  EntryStore() {
    ado::registerProvider(
        {"shared", [](std::string_view name) { return name == "shared"; },
         [](const std::string&) { return std::make_unique<SharedDatabase>(ado::openProvider(":memory:")); }});
    session.adocon()->Open("shared");
    schema::createDemo(*session.adocon());
    session.intCompanyID = 1;
    session.intUserID = 1;
    session.intInterfaceID = 40001;
    session.TableLinks.load(*session.adocon());
    database->adocon(session.adocon());
  }

  std::int32_t store(const EntryRecord& entry) {
    ado::Transaction transaction(*session.adocon());
    const std::int32_t id = EntryWriter(session, *database, numbers).store(entry);
    transaction.commit();
    return id;
  }
  /// What another one stores: an entry of the employee, live.
  static std::string header(int company, std::int32_t id, const std::string& number, const char* start) {
    return "insert into pempmonthlyentryheader (emhCompanyID, emhID, emhNo, emhDate, emhempID, emhstartdate, "
           "emhCancelled) values (" +
           std::to_string(company) + ", " + std::to_string(id) + ", '" + number + "', '2030/01/31', " +
           std::to_string(employee) + ", '" + start + "', 0)";
  }
  EntryRecord read(std::int32_t id) { return EntryReader(session, *database).whole(id); }

  Session session;
  std::unique_ptr<common::CommonDB> database =
      common::createObjectAs<common::CommonDB>(common::CommonDB::registeredName);
  CountedNumbers numbers;
};

void expectEqual(const EntryRecord& stored, const EntryRecord& written) {
  EXPECT_EQ(stored.number, written.number);
  EXPECT_EQ(stored.date, written.date);
  EXPECT_EQ(stored.employeeId, written.employeeId);
  EXPECT_EQ(stored.paidCash, written.paidCash);
  EXPECT_EQ(stored.basicPay, written.basicPay);
  EXPECT_EQ(stored.periodStart, written.periodStart);
  EXPECT_EQ(stored.periodEnd, written.periodEnd);
  EXPECT_FALSE(stored.cancelled || stored.processed);
  EXPECT_EQ(stored.allowances, written.allowances);
  EXPECT_EQ(stored.deductions, written.deductions);
  ASSERT_EQ(stored.facilities.size(), written.facilities.size());
  for (std::size_t row = 0; row < stored.facilities.size(); ++row) {
    EXPECT_EQ(stored.facilities[row].trackingId, written.facilities[row].trackingId);
    EXPECT_EQ(stored.facilities[row].settlement, written.facilities[row].settlement);
    EXPECT_EQ(stored.facilities[row].actual, written.facilities[row].actual);
    EXPECT_EQ(stored.facilities[row].deductionId, written.facilities[row].deductionId);
  }
}

TEST_F(EntryStore, ReadsWhatItWroteOfEveryKindOfRow) {
  EXPECT_EQ(EntryReader(session, *database).openRecoveries(employee).size(), 3U);
  EntryRecord written = everyKind();
  const std::int32_t id = store(written);
  written.number = "T5001";
  expectEqual(read(id), written);
  EXPECT_EQ(EntryReader(session, *database).openRecoveries(employee).size(), 1U);
  ASSERT_TRUE(liveInMonth(session, employee, written.date).has_value());

  // Rewritten, every row is another; number and date stay.
  EntryRecord changed = written;
  changed.id = id;
  changed.number = "other";
  changed.date = basic::Date::fromCalendar(2026, 5, 31);
  changed.basicPay = "1";
  changed.paidCash = PaidCash::Normal;
  changed.allowances = {{"1", "Travel", "1.00", "4", AllowKind::Added, "$"}};
  changed.deductions.clear();
  changed.facilities = {{1, "3", "FT-3", "Company quarters", "1200", "1200", "1200", "5", "Rs"}};
  EXPECT_EQ(store(changed), id);
  changed.number = written.number;
  changed.date = written.date;
  expectEqual(read(id), changed);
}

TEST_F(EntryStore, StoresNothingOfAnEntryThatIsRefused) {
  EntryRecord entry = everyKind();
  entry.deductions[1][DeductColumn::Amount] = "much";
  EXPECT_ANY_THROW(store(entry));
  EXPECT_FALSE(liveInMonth(session, employee, entry.date).has_value());
  EXPECT_EQ(EntryReader(session, *database).openRecoveries(employee).size(), 3U);
  entry = everyKind();
  entry.employeeId = 99999;
  EXPECT_THROW(store(entry), ado::Error);
}

TEST_F(EntryStore, TriesAgainWhereOthersWereFasterAndOnlyThere) {
  ado::Recordset last = session.adocon()->Execute("select max(emhID) from pempmonthlyentryheader");
  const std::int32_t id = basic::CLng(last.Fields(0).Value()) + 1;
  const ado::Error rule("There is one already.", "23000");
  const ado::Error victim("Chosen.", "40001");
  const std::string recovery =
      "insert into pempfacilitydeductiondetail (efdcompanyid, efdid, efddetailid, efdtrackingid) values (1, 1, 99, 2)";
  const struct {
    std::string what;
    Others others;
    int retries;
    std::string says;  // "" where the entry is stored.
    std::string number = "EN65";
  } cases[] = {
      {"a deadlock", {3, victim, ""}, 3, ""},
      {"a driver that calls it otherwise", {1, {"Chosen.", "HY000", "", 0, 1205}, ""}, 1, ""},
      {"no end of it", {4, victim, ""}, 3, "Chosen."},
      {"the number is taken", {1, rule, header(1, id + 9, "EN65", "2030/01/01")}, 1, "", "EN66"},
      {"the identifier is taken", {1, rule, header(2, id, "X", "2030/01/01")}, 1, ""},
      {"the employee is entered",
       {1, rule, header(1, id + 9, "X1", "2026/04/01")},
       0,
       "The employee has an entry for this period already: X1. "},
      {"both", {1, rule, header(1, id, "EN65", "2026/04/01")}, 1, "for this period already: EN65. "},
      {"a recovery is taken",
       {1, rule, recovery},
       0,
       "The recovery FT-2 (Motor cycle) is taken by the entry "},
      {"another rule", {1, rule, ""}, 0, "There is one already."},
      {"another failure", {1, {"The disk is full.", "HY000"}, ""}, 0, "The disk is full."},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.what);
    others = one.others;
    int retries = 0;
    std::string said;
    try {
      const std::int32_t stored =
          storeEntry(session, *database, everyKind(), {}, [&](int retry) { EXPECT_EQ(retry, ++retries); });
      EXPECT_EQ(read(stored).number, one.number);
      EXPECT_EQ(read(stored).deductions, everyKind().deductions);
    } catch (const ado::Error& error) {
      said = error.Description;
    }
    EXPECT_EQ(retries, one.retries);
    EXPECT_EQ(said.empty(), one.says.empty()) << said;
    EXPECT_NE(said.find(one.says), std::string::npos) << said;
    EXPECT_FALSE(session.adocon()->InTransaction());
    for (const char* rows :
         {"pempmonthlyentryheader where emhID >= ", "pemployeeallowancedetail where eadid >= ",
          "pemployeeDeductiondetail where eddid >= ", "pEmployeeCurrentDetails where ecdPaySlateID >= ",
          "pempfacilitydeductiondetail where efddetailid = 99 or efdid >= "})
      session.adocon()->Execute("delete from " + std::string(rows) + std::to_string(id));
  }
}

TEST_F(EntryStore, MovesNoEntryToAPeriodThatHasOne) {
  EntryRecord entry = everyKind();
  entry.id = storeEntry(session, *database, entry, {});
  session.adocon()->Execute(header(1, 900, "X1", "2026/05/01"));
  session.adocon()->Execute("drop index uxMonthlyEntryLive on pempmonthlyentryheader");
  EXPECT_EQ(storeEntry(session, *database, entry, {}), entry.id) << "its own period is its own";
  entry.periodStart = basic::Date::fromCalendar(2026, 5, 1);
  EXPECT_THROW(storeEntry(session, *database, entry, {}), ado::Error);
}

TEST_F(EntryStore, ACancelledEntryGivesItsRecoveriesUpAndIsNotRewritten) {
  EntryRecord entry = everyKind();
  entry.id = store(entry);
  EXPECT_EQ(cancelEntry(session, entry.id, "it's wrong"), std::nullopt);
  EXPECT_TRUE(readHeader(session, entry.id).cancelled);
  EXPECT_TRUE(read(entry.id).facilities.empty());
  EXPECT_FALSE(liveInMonth(session, employee, entry.date).has_value());
  EXPECT_FALSE(liveAmongAllInMonth(session, employee, entry.date).has_value());
  EXPECT_THROW(store(entry), ado::Error);
  EXPECT_THROW(readHeader(session, entry.id + 1), ado::Error);
}

}  // namespace
}  // namespace payslate
