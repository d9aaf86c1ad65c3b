// Connections on the embedded engine: states, transactions, what is told of statements.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/ado/Connection.h"
#include "platform/ado/Recordset.h"
#include "tests/ado/CountingProvider.h"

namespace payslate::ado {
namespace {

std::string one(Connection& connection, const std::string& statement) {
  Recordset rows = connection.Execute(statement);
  return rows.Fields(0).Text();
}

TEST(Connection, ClosedRefusesEverythingButOpening) {
  Connection connection;
  EXPECT_EQ(connection.State(), ObjectState::Closed);
  Recordset rows;
  EXPECT_EQ(stateOf([&] { connection.Execute("select 1"); }), "08003");
  EXPECT_EQ(stateOf([&] { rows.Open("select 1", connection, CursorType::Keyset, LockType::ReadOnly); }),
            "08003");
  EXPECT_EQ(stateOf([&] { connection.BeginTrans(); }), "08003");
  EXPECT_EQ(stateOf([&] { connection.CommitTrans(); }), "08003");
  EXPECT_EQ(stateOf([&] { connection.RollbackTrans(); }), "08003");
  EXPECT_EQ(stateOf([&] { connection.Open("Nobody=here;Password=secret"); }), "08001");
  const std::string refused = messageOf([&] { connection.Open("Nobody=here;Password=secret"); });
  EXPECT_EQ(refused.find("secret"), std::string::npos);
  const std::string builtIn = "embedded, ODBC (Driver=, DSN= or Server=)";
  EXPECT_TRUE(refused.ends_with(builtIn)) << refused;
  EXPECT_EQ(refused.find("embedded"), refused.size() - builtIn.size()) << refused;
  connection.Close();
  connection.Open(":memory:");
  EXPECT_EQ(connection.State(), ObjectState::Open);
  EXPECT_EQ(stateOf([&] { connection.Open(":memory:"); }), "08002");
  connection.Close();
  connection.Close();
  EXPECT_EQ(connection.State(), ObjectState::Closed);
}

TEST(Connection, StaysUsableAfterAFailedStatement) {
  Connection connection;
  connection.Open(":memory:");
  EXPECT_NE(stateOf([&] { connection.Execute("select from nowhere"); }), "");
  EXPECT_NE(stateOf([&] { connection.Execute("select * from nowhere"); }), "");
  EXPECT_EQ(connection.Execute("create table t (a int not null primary key)").State(), ObjectState::Closed);
  EXPECT_EQ(connection.Execute("insert into t (a) values (1)").State(), ObjectState::Closed);
  EXPECT_NE(stateOf([&] { connection.Execute("insert into t (a) values (1)"); }), "");
  EXPECT_EQ(one(connection, "select count(*) from t"), "1");
  Recordset rows;
  EXPECT_EQ(
      stateOf([&] { rows.Open("update t set a = 2", connection, CursorType::Keyset, LockType::Optimistic); }),
      "24000");
  rows.Open("select a from t", connection, CursorType::Keyset, LockType::Optimistic);
  EXPECT_EQ(
      stateOf([&] { rows.Open("select a from t", connection, CursorType::Keyset, LockType::Optimistic); }),
      "24000");
}

TEST(Connection, Transactions) {
  Connection connection;
  connection.Open(":memory:");
  connection.Execute("create table t (a int not null primary key)");
  EXPECT_EQ(stateOf([&] { connection.CommitTrans(); }), "25000");
  EXPECT_EQ(stateOf([&] { connection.RollbackTrans(); }), "25000");
  connection.BeginTrans();
  EXPECT_TRUE(connection.InTransaction());
  EXPECT_EQ(stateOf([&] { connection.BeginTrans(); }), "25001");
  connection.Execute("insert into t (a) values (1)");
  EXPECT_NE(stateOf([&] { connection.Execute("insert into t (a) values (1)"); }), "");
  connection.CommitTrans();
  EXPECT_FALSE(connection.InTransaction());
  connection.BeginTrans();
  connection.Execute("insert into t (a) values (2)");
  connection.RollbackTrans();
  EXPECT_EQ(one(connection, "select count(*) from t"), "1");
}

TEST(Connection, ClosingRollsBack) {
  const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "payslate-closing";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directory(folder);
  const std::string file = (folder / "t.db").string();
  {
    Connection connection;
    connection.Open(file + ";Create=True");
    connection.Execute("create table t (a int not null primary key)");
    connection.BeginTrans();
    connection.Execute("insert into t (a) values (1)");
    connection.Close();
    connection.Open(file);
    EXPECT_FALSE(connection.InTransaction());
    EXPECT_EQ(one(connection, "select count(*) from t"), "0");
    connection.BeginTrans();
    connection.Execute("insert into t (a) values (2)");
  }
  Connection again;
  again.Open(file);
  EXPECT_EQ(one(again, "select count(*) from t"), "0");
  again.Close();
  std::filesystem::remove_all(folder);
}

// In a disk's place: the database takes no more pages than this.
int limitPages(sqlite3* handle, char**, const sqlite3_api_routines*) {
  return sqlite3_exec(handle, "PRAGMA max_page_count = 30", nullptr, nullptr, nullptr);
}

// SQLite rolls back by itself there; whoever does not look would store what comes next piece by piece.
TEST(Connection, AFullDiskLeavesATransactionToBeRolledBackAsAWhole) {
  const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "payslate-full";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directory(folder);
  auto* limit = reinterpret_cast<void (*)()>(limitPages);
  sqlite3_auto_extension(limit);
  Connection connection;
  connection.Open((folder / "t.db").string() + ";Create=True");
  sqlite3_cancel_auto_extension(limit);
  connection.Execute("create table t (a int not null primary key, b varchar(8000))");
  for (int attempt = 0; attempt < 2; ++attempt) {
    connection.BeginTrans();
    std::string refused;
    for (int row = 1; refused.empty() && row < 100; ++row) {
      refused = messageOf([&] {
        connection.Execute("insert into t values (" + std::to_string(row) + ", replicate('x', 3000))");
      });
    }
    EXPECT_EQ(refused, "The disk is full.");
    EXPECT_TRUE(connection.InTransaction());
    EXPECT_EQ(messageOf([&] { connection.Execute("insert into t values (1000, 'small')"); }), refused);
    EXPECT_EQ(messageOf([&] { connection.Execute("select a from t"); }), refused);
    EXPECT_EQ(messageOf([&] { connection.Execute("create table u (a int)"); }), refused);
    EXPECT_EQ(messageOf([&] { connection.CommitTrans(); }), refused);
    connection.RollbackTrans();
    EXPECT_FALSE(connection.InTransaction());
    EXPECT_EQ(one(connection, "select count(*) from t"), "0");
  }
  connection.BeginTrans();
  connection.Execute("insert into t values (1, 'small')");
  connection.CommitTrans();
  EXPECT_EQ(one(connection, "select count(*) from t"), "1");
  connection.Close();
  std::filesystem::remove_all(folder);
}

// What is stored in a file that is no longer at its path is gone when the program ends.
TEST(Connection, AFileThatIsNoLongerInItsPlaceIsNotWritten) {
  namespace fs = std::filesystem;
  const fs::path folder = fs::path(testing::TempDir()) / "payslate-lost";
  const fs::path file = folder / "t.db";
  const fs::path other = folder / "other.db";
  const auto make = [](const fs::path& path) {
    Connection connection;
    connection.Open(path.string() + ";Create=True");
    connection.Execute("create table t (a int)");
  };
  const std::function<void()> losses[] = {[&] { fs::remove(file); }, [&] { fs::rename(file, other); },
                                          [&] { make(other), fs::rename(other, file); }};
  for (const auto& lose : losses) {
    fs::remove_all(folder);
    fs::create_directory(folder);
    make(file);
    Connection connection;
    connection.Open(file.string());
    connection.BeginTrans();
    connection.Execute("insert into t values (1)");
    try {
      lose();
    } catch (const fs::filesystem_error&) {
      GTEST_SKIP() << "this system keeps open files in their place";
    }
    const std::string refused = messageOf([&] { connection.CommitTrans(); });
    EXPECT_EQ(refused, "The database file '" + file.string() +
                           "' was deleted, moved or replaced while it was open: nothing is stored until it is"
                           " back or opened again.");
    connection.RollbackTrans();
    EXPECT_EQ(messageOf([&] { connection.BeginTrans(); }), refused);
    EXPECT_EQ(messageOf([&] { connection.Execute("insert into t values (1)"); }), refused);
    EXPECT_FALSE(connection.InTransaction());
    if (!fs::exists(other)) continue;
    fs::rename(other, file);
    connection.BeginTrans();
    connection.Execute("insert into t values (2)");
    connection.CommitTrans();
    EXPECT_EQ(one(connection, "select sum(a) from t"), "2");
  }
  fs::remove_all(folder);
}

TEST(Connection, TellsStatementsBeforeTheyAreSent) {
  Connection connection;
  connection.Open(":memory:");
  connection.Execute("create table Things (a int not null primary key, b varchar(9))");
  std::vector<std::string> told;
  connection.StatementSent = [&](std::string_view statement) { told.emplace_back(statement); };
  connection.BeginTrans();
  Recordset rows;
  rows.Open("select * from things", connection, CursorType::Keyset, LockType::Optimistic);
  rows.AddNew();
  rows.Fields("a") = 1;
  EXPECT_EQ(told.size(), 1U);
  rows.Update();
  rows.Fields("b") = "x";
  rows.Update();
  rows.Update();
  connection.CommitTrans();
  EXPECT_NE(stateOf([&] { connection.Execute("select c from Things"); }), "");
  ASSERT_EQ(told.size(), 4U);
  EXPECT_EQ(told[0], "select * from things");
  EXPECT_EQ(told[1].substr(0, 7), "insert ");
  EXPECT_EQ(told[2].substr(0, 7), "update ");
  EXPECT_EQ(told[3], "select c from Things");
}

}  // namespace
}  // namespace payslate::ado
