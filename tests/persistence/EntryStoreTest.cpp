// Entries written and read with a database alone: no form, no list.
#include <gtest/gtest.h>

#include "component/PayRows.h"
#include "component/Session.h"
#include "persistence/Cancellation.h"
#include "persistence/EntryNumbers.h"
#include "persistence/EntryReader.h"
#include "persistence/EntryWriter.h"
#include "platform/ado/Transaction.h"
#include "platform/common/CommonDB.h"
#include "schema/schema.h"

namespace payslate {
namespace {

constexpr std::int32_t employee = 101;

/// Numbers that nobody else gives.
struct CountedNumbers : EntryNumbers {
  std::int32_t id = 5000;
  std::int32_t nextId() override { return ++id; }
  std::string fnGetEntryNo() override { return "T" + std::to_string(id); }
};

class EntryStore : public ::testing::Test {
 protected:
  EntryStore() {
    session.adocon()->Open(":memory:");
    schema::createDemo(*session.adocon());
    session.intCompanyID = 1;
    session.intUserID = 1;
    session.TableLinks.load(*session.adocon());
    database->adocon(session.adocon());
  }

  std::int32_t store(const EntryRecord& entry) {
    ado::Transaction transaction(*session.adocon());
    const std::int32_t id = EntryWriter(session, *database, numbers).store(entry);
    transaction.commit();
    return id;
  }
  EntryRecord read(std::int32_t id) { return EntryReader(session, *database).whole(id); }

  Session session;
  std::unique_ptr<common::CommonDB> database =
      common::createObjectAs<common::CommonDB>(common::CommonDB::registeredName);
  CountedNumbers numbers;
};

/// One row of every kind, numbered as lists number theirs, in the order in which they are read again.
EntryRecord everyKind() {
  EntryRecord entry;
  entry.date = basic::Date::fromCalendar(2026, 4, 30);
  entry.employeeId = employee;
  entry.paidCash = PaidCash::OnHold;
  entry.basicPay = "28000.5";
  entry.periodStart = basic::Date::fromCalendar(2026, 4, 1);
  entry.periodEnd = basic::Date::fromCalendar(2026, 4, 30);
  entry.allowances = {{"1", "House rent", "3000.00", "1", AllowKind::Standing, "Rs"},
                      {"2", "Travel", "12.34", "4", AllowKind::Added, "$"},
                      {"3", balanceDescription, "500.00", "500.00", AllowKind::CarriedForward, "Rs"}};
  entry.deductions = {{"1", "Canteen", "300.25", "2", DeductKind::Standing, "Rs", ""},
                      {"2", "House loan", "3500.50", "2", DeductKind::Loan, "Rs", "2"},
                      {"3", "Thrift", "250.00", "1", DeductKind::Savings, "Rs", "1"},
                      {"4", "Vehicle recovery", "700.75", "3", DeductKind::Facility, "Rs", ""},
                      {"5", "Late hours", "125.00", "4", DeductKind::Hourly, "Rs", ""},
                      {"6", "Union fee", "0.05", "7", DeductKind::Added, "Rs", ""},
                      {"7", carryForwardDescription, "100.00", "100.00", DeductKind::CarriedForward, "Rs"}};
  entry.facilities = {{1, "1", "FT-1", "Motor cycle", "500", "450", "450", "3", "Rs"},
                      {2, "2", "FT-2", "Motor cycle", "250.75", "250.75", "250.75", "3", "Rs"}};
  return entry;
}

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

TEST_F(EntryStore, ACancelledEntryGivesItsRecoveriesUpAndIsNotRewritten) {
  EntryRecord entry = everyKind();
  entry.id = store(entry);
  cancelEntry(session, entry.id, "it's wrong");
  EXPECT_TRUE(readHeader(session, entry.id).cancelled);
  EXPECT_TRUE(read(entry.id).facilities.empty());
  EXPECT_FALSE(liveInMonth(session, employee, entry.date).has_value());
  EXPECT_FALSE(liveAmongAllInMonth(session, employee, entry.date).has_value());
  EXPECT_THROW(store(entry), ado::Error);
  EXPECT_THROW(readHeader(session, entry.id + 1), ado::Error);
}

}  // namespace
}  // namespace payslate
