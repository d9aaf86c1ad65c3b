// Recordsets on the embedded engine: what is read when, moving, adding and rewriting rows.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/ado/Recordset.h"
#include "platform/basic/Decimal.h"
#include "tests/ado/CountingProvider.h"

namespace payslate::ado {
namespace {

using basic::Null;
using basic::Value;

constexpr int rowCount = 20;

class RecordsetTest : public testing::Test {
 protected:
  void SetUp() override {
    openCounting(connection);
    connection.Execute(
        "create table pay (company int not null, emp int not null, name varchar(20), amount decimal(9,2), "
        "paid datetime, primary key (company, emp))");
    connection.Execute("create table loose (a int, b varchar(20))");
    for (int i = 1; i <= rowCount; ++i)
      connection.Execute("insert into pay (company, emp, name, amount) values (1, " + std::to_string(i) +
                         ", 'n" + std::to_string(i) + "', 1.50)");
    connection.Execute("insert into loose (a, b) values (1, 'x')");
    counts() = {};
  }

  Recordset open(const std::string& source, CursorType cursor = CursorType::Keyset,
                 LockType lock = LockType::Optimistic) {
    Recordset rows;
    rows.Open(source, connection, cursor, lock);
    return rows;
  }

  std::string one(const std::string& statement) { return connection.Execute(statement).Fields(0).Text(); }

  Connection connection;
};

TEST_F(RecordsetTest, FetchesOnlyWhatIsAskedFor) {
  Recordset rows = open("select * from pay order by emp");
  EXPECT_EQ(rows.FieldCount(), 5U);
  EXPECT_EQ(rows.Fields("EMP").Name(), "emp");
  rows.AddNew();
  rows.Fields("company") = 2;
  rows.Fields("emp") = 100;
  rows.Update();
  EXPECT_EQ(counts().rows, 0) << "appending reads no row";
  EXPECT_FALSE(rows.Eof());
  EXPECT_FALSE(rows.Bof());
  EXPECT_EQ(rows.Fields("name").Text(), "n1");
  EXPECT_EQ(counts().rows, 1);
  rows.MoveNext();
  EXPECT_EQ(counts().rows, 1) << "moving alone reads nothing";
  EXPECT_EQ(rows.Fields(2).Text(), "n2");
  EXPECT_EQ(counts().rows, 2);
  rows.MoveFirst();
  EXPECT_EQ(rows.Fields("name").Text(), "n1");
  EXPECT_EQ(counts().rows, 2);
  EXPECT_GE(rows.RecordCount(), rowCount);
  EXPECT_EQ(rows.Fields("name").Text(), "n1") << "counting does not move";
}

TEST_F(RecordsetTest, AsksForTheTableOnlyToWriteAndOnce) {
  Recordset rows = open("select * from pay");
  for (; !rows.Eof(); rows.MoveNext()) EXPECT_FALSE(rows.Fields("name").Text().empty());
  EXPECT_EQ(counts().baseTables, 0);
  rows.MoveFirst();
  rows.Fields("amount") = 2.5;
  rows.Update();
  rows.Fields("amount") = 3.5;
  rows.Update();
  EXPECT_EQ(counts().baseTables, 1);
}

TEST_F(RecordsetTest, KeepsRowsUnlessForwardOnly) {
  for (const CursorType cursor : {CursorType::ForwardOnly, CursorType::Keyset, CursorType::Static}) {
    const bool keeps = cursor != CursorType::ForwardOnly;
    Recordset rows = open("select emp from pay order by emp", cursor, LockType::ReadOnly);
    EXPECT_EQ(rows.RecordCount(), keeps ? rowCount : -1);
    rows.MoveFirst();
    int sum = 0;
    for (; !rows.Eof(); rows.MoveNext()) sum += std::stoi(rows.Fields("emp").Text());
    EXPECT_EQ(sum, rowCount * (rowCount + 1) / 2);
    EXPECT_FALSE(rows.Bof());
    EXPECT_EQ(stateOf([&] { rows.MoveNext(); }), "24000");
    EXPECT_EQ(stateOf([&] { (void)rows.Fields("emp").Value(); }), "24000");
    EXPECT_EQ(stateOf([&] { rows.MoveFirst(); }), keeps ? "" : "24000");
    EXPECT_EQ(rows.Eof(), !keeps);
  }
  Recordset none = open("select emp from pay where emp < 0");
  EXPECT_TRUE(none.Bof());
  EXPECT_TRUE(none.Eof());
  EXPECT_EQ(none.RecordCount(), 0);
  EXPECT_EQ(stateOf([&] { none.MoveFirst(); }), "24000");
}

TEST_F(RecordsetTest, NamesAFieldThatIsNotThere) {
  Recordset rows = open("select emp, name as Worker from pay");
  EXPECT_EQ(stateOf([&] { rows.Fields("worker "); }), "42S22");
  const std::string message = messageOf([&] { rows.Fields("salary"); });
  for (const char* part : {"salary", "emp", "Worker"})
    EXPECT_NE(message.find(part), std::string::npos) << message;
  EXPECT_EQ(stateOf([&] { rows.Fields(2); }), "42S22");
  rows.Close();
  rows.Close();
  EXPECT_EQ(stateOf([&] { rows.Fields("emp"); }), "24000");
  EXPECT_EQ(stateOf([&] { (void)rows.Eof(); }), "24000");
}

TEST_F(RecordsetTest, InsertsTheAssignedColumnsAlone) {
  Recordset rows = open("select * from pay where 1=2");
  rows.AddNew();
  EXPECT_EQ(rows.Fields("name").Value(), Value(Null{}));
  rows.Fields("company") = 3;
  rows.Fields("EMP") = "7";
  rows.Fields("amount") = "12.345";
  EXPECT_EQ(rows.Fields("emp").Text(), "7");
  EXPECT_EQ(stateOf([&] { rows.AddNew(); }), "24000") << "the row before was not sent";
  rows.Update();
  EXPECT_TRUE(rows.Eof());
  Recordset stored = open("select * from pay where company = 3");
  EXPECT_EQ(stored.Fields("emp").Value(), Value(std::int64_t{7}));
  EXPECT_EQ(stored.Fields("amount").Text(), "12.35");
  EXPECT_EQ(stored.Fields("name").Value(), Value(Null{}));
  rows.AddNew();
  EXPECT_EQ(stateOf([&] { rows.Update(); }), "42000") << "nothing assigned";
}

TEST_F(RecordsetTest, RewritesTheCurrentRowByItsKey) {
  Recordset rows = open("select * from pay where emp > 3 order by emp");
  rows.MoveNext();
  rows.Fields("name") = "new";
  rows.Fields("amount") = Null{};
  EXPECT_EQ(rows.Fields("name").Text(), "new");
  EXPECT_EQ(one("select name from pay where emp = 5"), "n5") << "not sent yet";
  rows.Update();
  EXPECT_EQ(rows.Fields("name").Text(), "new");
  EXPECT_EQ(one("select name from pay where emp = 5 and amount is null"), "new");
  EXPECT_EQ(one("select count(*) from pay where name = 'new'"), "1");
  rows.Fields("emp") = 500;
  rows.Update();
  rows.Fields("name") = rows.Fields("emp");
  rows.Update();
  EXPECT_EQ(one("select name from pay where emp = 500"), "500") << "found by the key it has now";
}

TEST_F(RecordsetTest, AFailedUpdateCanBeMendedOrDropped) {
  Recordset rows = open("select * from pay order by emp");
  rows.Fields("emp") = 2;
  EXPECT_NE(stateOf([&] { rows.Update(); }), "") << "the key is taken";
  EXPECT_EQ(stateOf([&] { rows.MoveNext(); }), "24000");
  EXPECT_EQ(stateOf([&] { rows.MoveFirst(); }), "24000");
  rows.Fields("emp") = 200;
  rows.Update();
  EXPECT_EQ(one("select name from pay where emp = 200"), "n1");
  rows.Fields("paid") = "2006/13/45";
  EXPECT_NE(stateOf([&] { rows.Update(); }), "") << "no date";
  rows.CancelUpdate();
  EXPECT_EQ(rows.Fields("paid").Value(), Value(Null{}));
  for (const char* text : {"twelve", "", "1,5"})
    EXPECT_EQ(stateOf([&] { rows.Fields("amount") = text; }), "22018") << "no number: " << text;
  EXPECT_EQ(rows.Fields("amount").Text(), "1.5");
  rows.MoveNext();
  rows.AddNew();
  rows.Fields("company") = 1;
  EXPECT_NE(stateOf([&] { rows.Update(); }), "") << "half a key";
  rows.Fields("emp") = 300;
  rows.Update();
  EXPECT_EQ(rows.Fields("emp").Text(), "2") << "the current row is the one before AddNew";
  EXPECT_EQ(one("select count(*) from pay where emp = 300"), "1");
}

TEST_F(RecordsetTest, RefusesToWriteWhatItCannot) {
  struct Case {
    const char* source;
    LockType lock;
    std::string adding, assigning;
    const char* says;
  };
  for (const Case& c :
       {Case{"select * from pay", LockType::ReadOnly, "42000", "42000", "read-only"},
        Case{"select * from pay where emp < 0", LockType::Optimistic, "", "24000", "no current row"},
        Case{"select * from pay, loose", LockType::Optimistic, "0A000", "0A000",
             "does not stand on one table"},
        Case{"select count(*) n from pay", LockType::Optimistic, "0A000", "0A000",
             "does not stand on one table"},
        Case{"select * from loose", LockType::Optimistic, "", "0A000", "no key"}}) {
    Recordset rows = open(c.source, CursorType::Keyset, c.lock);
    EXPECT_EQ(stateOf([&] { rows.AddNew(); }), c.adding) << c.source;
    rows.CancelUpdate();
    EXPECT_EQ(stateOf([&] { rows.Fields(0) = 1; }), c.assigning) << c.source;
    EXPECT_NE(messageOf([&] { rows.Fields(0) = 1; }).find(c.says), std::string::npos) << c.source;
    EXPECT_NO_THROW((void)rows.Eof());
  }
}

TEST_F(RecordsetTest, ARollbackTakesTheUnreadRows) {
  connection.BeginTrans();
  connection.Execute("update pay set name = 'gone'");
  Recordset rows = open("select * from pay order by emp");
  EXPECT_EQ(rows.Fields("name").Text(), "gone");
  Recordset whole = open("select * from pay");
  EXPECT_EQ(whole.RecordCount(), rowCount);
  connection.RollbackTrans();
  EXPECT_EQ(rows.Fields("name").Text(), "gone");
  rows.MoveNext();
  EXPECT_NE(messageOf([&] { (void)rows.Eof(); }).find("rolled back"), std::string::npos);
  EXPECT_EQ(whole.RecordCount(), rowCount) << "was read before";
  EXPECT_EQ(one("select name from pay where emp = 1"), "n1");
}

TEST_F(RecordsetTest, OutlivesItsConnection) {
  Recordset rows = open("select * from pay order by emp");
  EXPECT_EQ(rows.Fields("name").Text(), "n1");
  connection.Close();
  EXPECT_EQ(rows.Fields("name").Text(), "n1");
  rows.Fields("name");
  EXPECT_EQ(stateOf([&] { rows.AddNew(); }), "08003");
  rows.MoveNext();
  EXPECT_NE(messageOf([&] { (void)rows.Eof(); }).find("closed"), std::string::npos);
  openCounting(connection);
  EXPECT_EQ(stateOf([&] { rows.AddNew(); }), "08003") << "another session is not its own";
}

TEST_F(RecordsetTest, AnErrorWhileReadingEndsTheReading) {
  // In the key's order, so that a row is computed when it is read and not to be sorted first.
  Recordset rows;
  const std::string told =
      stateOf([&] { rows = open("select emp, 12 / (3 - emp) q from pay order by company, emp"); });
  const bool computesAllRowsFirst = !told.empty();  // As a server may.
  if (computesAllRowsFirst) {
    EXPECT_EQ(told, "22012");
    return;
  }
  EXPECT_EQ(rows.Fields("q").Text(), "6");
  rows.MoveNext();
  EXPECT_EQ(rows.Fields("q").Text(), "12");
  rows.MoveNext();
  EXPECT_EQ(stateOf([&] { (void)rows.Eof(); }), "22012");
  EXPECT_EQ(stateOf([&] { (void)rows.Eof(); }), "24000");
  rows.MoveFirst();
  EXPECT_EQ(rows.Fields("q").Text(), "6");
  EXPECT_EQ(one("select count(*) from pay"), std::to_string(rowCount));
}

}  // namespace
}  // namespace payslate::ado
