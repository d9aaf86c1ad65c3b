// Files that are only read: alone, beside somebody who writes, and after one who was killed.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "platform/ado/Error.h"
#include "platform/basic/Numbers.h"
#include "platform/sqlite/DatabaseFile.h"
#include "platform/sqlite/SqliteProvider.h"

namespace payslate::test {

namespace {

namespace fs = std::filesystem;

std::unique_ptr<ado::Provider> open(const std::string& connection) {
  return sqlite::providerEntry().open(connection);
}

std::string errorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const ado::Error& error) {
    return error.SQLState + " " + error.Description;
  }
  return "no error";
}

std::string first(ado::Provider& provider, const std::string& statement) {
  const auto cursor = provider.execute(statement);
  return cursor->next() ? basic::textOf(cursor->value(0), "yyyy/mm/dd") : "none";
}

constexpr const char* count = "select count(*) from t";

/// A database with a table t of three rows, closed.
class ReadOnly : public testing::Test {
 protected:
  void SetUp() override {
    const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
    folder_ = fs::temp_directory_path() / ("payslate-readonly " + name + " 100%?#");
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    const auto made = open(path() + ";Create=True");
    made->execute("create table t (a int)");
    made->execute("insert into t values (1), (2), (3)");
  }
  void TearDown() override { fs::remove_all(folder_); }

  [[nodiscard]] std::string path(const std::string& name = "pay.db") const {
    return (folder_ / name).string();
  }
  [[nodiscard]] std::unique_ptr<ado::Provider> reader() const { return open(path() + ";ReadOnly=True"); }
  [[nodiscard]] std::set<std::string> files() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_)) names.insert(entry.path().filename().string());
    return names;
  }

  fs::path folder_;
};

TEST_F(ReadOnly, NothingIsWrittenAndNothingLeftBeside) {
  const auto before = fs::last_write_time(path());
  {
    const auto one = reader();
    EXPECT_EQ(first(*one, count), "3");
    for (const char* statement : {"insert into t values (4)", "create table u (a int)", "drop table t"}) {
      const std::string told = errorOf([&] { one->execute(statement); });
      EXPECT_EQ(told.substr(0, 5), "25006") << told;
      EXPECT_NE(told.find("'" + path() + "' is open for reading alone: to change it, make"),
                std::string::npos)
          << told;
    }
    one->begin();
    EXPECT_EQ(errorOf([&] { one->insert("t", {{"a", std::int64_t{4}}}); }).substr(0, 5), "25006");
    one->rollback();
    EXPECT_EQ(first(*one, count), "3");
    EXPECT_EQ(files(), std::set<std::string>{"pay.db"});
  }
  EXPECT_EQ(files(), std::set<std::string>{"pay.db"});
  EXPECT_EQ(fs::last_write_time(path()), before);
}

TEST_F(ReadOnly, WhatOthersWriteMeanwhileIsSeen) {
  const auto one = reader();
  const auto rows = one->execute("select a from t");
  ASSERT_TRUE(rows->next());
  {
    const auto writer = open(path());
    writer->execute("alter table t add b varchar(9)");
    writer->execute("insert into t values (4, 'x')");
    EXPECT_EQ(first(*one, "select b from t where a = 4"), "x");
    EXPECT_TRUE(rows->next()) << "the file itself is as it was";
    EXPECT_EQ(first(*reader(), count), "4");
    writer->execute("insert into t values (5, 'y')");
    EXPECT_EQ(first(*one, count), "5");
  }
  EXPECT_EQ(first(*one, count), "5");
}

// Without locks the rows of an older cursor could come from two states of the file.
TEST_F(ReadOnly, RowsFromAChangedFileAreRefused) {
  const auto one = reader();
  const auto rows = one->execute("select a from t");
  ASSERT_TRUE(rows->next());
  open(path())->execute("create table u (a int)");
  EXPECT_EQ(errorOf([&] { rows->next(); }).substr(0, 5), "40001");
  EXPECT_EQ(first(*one, "select count(*) from u"), "0");
}

// The copies are what one who was killed leaves behind.
TEST_F(ReadOnly, ChangesBesideAFileAreReadWithIt) {
  const auto writer = open(path());
  writer->execute("insert into t values (4)");
  for (const bool shared : {true, false}) {
    const std::string copy = path(shared ? "copy.db" : "bare.db");
    for (const char* ending : {"", "-wal", "-shm"})
      if (shared || std::string(ending) != "-shm") fs::copy_file(path() + ending, copy + ending);
    EXPECT_EQ(first(*open(copy + ";ReadOnly=True"), count), "4") << shared;
  }
}

}  // namespace

}  // namespace payslate::test
