// The embedded provider: files, catalogs shared by connections, lazy rows, transactions, rows by their key.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "platform/ado/Error.h"
#include "platform/basic/Numbers.h"
#include "platform/sqlite/DatabaseFile.h"
#include "platform/sqlite/SqliteProvider.h"

namespace payslate::test {

namespace {

using basic::Value;

std::unique_ptr<ado::Provider> open(const std::string& connection) {
  return sqlite::providerEntry().open(connection);
}

std::string stateOf(const std::function<void()>& action) {
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

int count(ado::Cursor& cursor) {
  int rows = 0;
  while (cursor.next()) ++rows;
  return rows;
}

class Files : public testing::Test {
 protected:
  void SetUp() override {
    const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
    folder_ = std::filesystem::temp_directory_path() / ("payslate-sqlite-" + name);
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  [[nodiscard]] std::string path(const std::string& name = "pay.db") const {
    return (folder_ / name).string();
  }

  std::filesystem::path folder_;
};

TEST_F(Files, AreOpenedMadeOrRefused) {
  EXPECT_EQ(stateOf([&] { open(path()); }), "08001 There is no database file '" + path() + "'.");
  EXPECT_FALSE(std::filesystem::exists(path()));
  open(path() + ";Create=True")->execute("create table t (a int)");
  EXPECT_EQ(first(*open(path()), "select count(*) from t"), "0");
  EXPECT_EQ(first(*open(path() + "; create = true"), "select count(*) from t"), "0");
  EXPECT_EQ(stateOf([&] { open(path() + ";Mode=7"); }).substr(0, 5), "08001");

  const std::string letter = "Dear Sir or Madam, this is not a database but a letter of some length.\n";
  std::ofstream(path("letter.txt")) << letter;
  for (const char* option : {"", ";Create=True"}) {
    EXPECT_EQ(stateOf([&] { open(path("letter.txt") + option); }).substr(0, 5), "08001");
  }
  std::ifstream in(path("letter.txt"));
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), letter);
  EXPECT_EQ(stateOf([&] { open(folder_.string()); }).substr(0, 5), "08001");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 2);  // No journals left behind.
}

TEST_F(Files, ConnectionStringsWithANameAreForOthers) {
  const ado::ProviderEntry entry = sqlite::providerEntry();
  for (const char* own : {":memory:", "pay.db", "/a/b c.db;Create=True"})
    EXPECT_TRUE(entry.accepts(own)) << own;
  for (const char* other : {"DSN=pay", "Driver={x};Server=y", "Server=y"})
    EXPECT_FALSE(entry.accepts(other)) << other;
}

// This program links the engine without its registration.
TEST_F(Files, WithoutARegisteredProviderNothingIsOpened) {
  EXPECT_EQ(stateOf([] { ado::openProvider(":memory:"); }),
            "08001 This program was built without a database to connect to");
}

TEST_F(Files, TwoConnectionsSeeOneCatalog) {
  const auto one = open(path() + ";Create=True");
  const auto two = open(path());
  one->execute("create table t (a int not null primary key, b varchar(5), c decimal(9,2))");
  two->execute("insert into t values (1, 'x', 1.5)");
  EXPECT_EQ(stateOf([&] { two->execute("insert into t values (2, 'too long', 1)"); }).substr(0, 5), "22001");
  two->execute("create view v as select a, c from t");
  one->execute("create procedure p @a int as select c from v where a = @a");
  EXPECT_EQ(first(*two, "p 1"), "1.5");
  one->execute("alter table t add d datetime");
  EXPECT_EQ(two->execute("select * from t")->columns().size(), 4U);
  one->execute("drop procedure p");
  EXPECT_EQ(stateOf([&] { two->execute("p 1"); }).substr(0, 5), "42000");
}

// What was translated and prepared before serves again, by the catalog as it is then.
TEST_F(Files, WhatOthersChangeIsNoticedByStatementsThatAreKept) {
  const auto one = open(path() + ";Create=True");
  const auto two = open(path());
  one->execute("create table t (a int not null primary key, b varchar(5))");
  one->execute("create view v as select a from t");
  const auto use = [&](const std::string& value) {
    two->insert("t", {{"a", std::int64_t{7}}, {"b", value}});
    two->update("t", {{"a", std::int64_t{7}}}, {{"b", value}});
    const std::string read = first(*two, "select max(b) from t where a = 7") + first(*two, "select a from v");
    two->execute("update t set b = b + '!' where a = 7");
    two->execute("delete from t where a = 7");
    return read;
  };
  EXPECT_EQ(use("four"), "four7");
  EXPECT_EQ(stateOf([&] { use("too long"); }).substr(0, 5), "22001");
  const auto waiting = two->execute("select b from t");
  const auto outdated = two->execute("select * from t");
  one->execute("drop view v");
  one->execute("drop table t");
  one->execute("create table t (b varchar(20), a int not null primary key, c int)");
  one->execute("create view v as select a + 1 a from t");
  one->execute("insert into t values ('x', 1, 2)");
  ASSERT_TRUE(waiting->next());
  EXPECT_EQ(basic::textOf(waiting->value(0)), "x");
  EXPECT_FALSE(waiting->next());  // Until then this connection looks at the past.
  EXPECT_EQ(stateOf([&] { outdated->next(); }).substr(0, 5), "40001");
  EXPECT_EQ(use("now longer"), "now longer2");
  one->execute("drop view v");
  EXPECT_EQ(stateOf([&] { first(*two, "select a from v"); }).substr(0, 5), "42S02");
  one->execute("create view v as select 9 a");
  EXPECT_EQ(first(*two, "select a from v"), "9");
}

TEST_F(Files, ADamagedCatalogIsTold) {
  const std::pair<const char*, const char*> damages[] = {
      {"UPDATE catalog_columns SET type = 'zork' WHERE name = 'a'", "its catalog at 't'"},
      {"UPDATE catalog_objects SET kind = 'zork' WHERE key = 'v'", "its catalog at 'v'"},
      {"UPDATE catalog_objects SET text = NULL WHERE key = 'v'", "its catalog at 'v'"},
      {"DELETE FROM catalog_columns", "its catalog at 't'"},
      {"DELETE FROM catalog_objects WHERE key = 't'", "its catalog at 't'"},
      {"UPDATE catalog_objects SET text = 'select 1' WHERE key = 'v'",
       "In the view 'v': The stored text is damaged"},
      {"UPDATE catalog_objects SET text = 'zork' WHERE key = 'v'", "In the view 'v': "},
      {"UPDATE catalog_objects SET text = 'select 1' WHERE key = 'p'",
       "In the procedure 'p': The stored text"},
      {"UPDATE catalog_columns SET type = 'decimal(9,2)' WHERE name = 'a'", "damaged in a stored value"},
      {"UPDATE catalog_columns SET type = 'datetime' WHERE name = 'a'", "damaged in a stored value"},
  };
  for (const auto& [damage, sentence] : damages) {
    std::filesystem::remove(path());
    {
      const auto whole = open(path() + ";Create=True");
      whole->execute("create table t (a varchar(9))");
      whole->execute("create view v as select a + 'x' b from t");
      whole->execute("create procedure p as select 1 c");
      whole->execute("insert into t values ('x')");
    }
    const auto told = [&] {
      return stateOf([&] {
        const auto provider = open(path());
        for (const char* statement : {"select a from t", "select * from v", "p"}) first(*provider, statement);
      });
    };
    EXPECT_EQ(told(), "no error");
    sqlite::DatabaseFile({.path = path()}).run(damage);
    EXPECT_EQ(told(),
              "08001 The database file '" + path() + "' is damaged in its catalog: restore a backup of it.")
        << damage;
    sqlite::DatabaseFile({.path = path()}).run("DELETE FROM catalog_seal");  // As earlier files have none.
    EXPECT_NE(told().find(sentence), std::string::npos) << damage << "\n  gave " << told();
  }
}

TEST_F(Files, TheFormatHasANumberOfItsOwn) {
  open(path() + ";Create=True")->execute("create table t (a int)");
  const auto mark = [&](const std::string& number) {
    sqlite::DatabaseFile({.path = path()}).run("PRAGMA application_id = " + number);
  };
  const auto marked = [&] { return sqlite::DatabaseFile({.path = path()}).number("PRAGMA application_id"); };
  const std::int64_t known = marked();
  EXPECT_NE(known, 0);
  mark("0");  // As files were before.
  const auto old = open(path());
  EXPECT_EQ(first(*old, "select count(*) from t"), "0");
  old->execute("insert into t values (1)");
  EXPECT_EQ(marked(), 0);
  old->execute("create index i on t (a)");
  EXPECT_EQ(marked(), known);

  const std::pair<std::int64_t, const char*> others[] = {
      {known + 1, "format 2 of a newer program; this one knows"}, {known + 256, "another program"}};
  for (const auto& [number, sentence] : others) {
    mark(std::to_string(number));
    const std::string told = stateOf([&] { open(path()); });
    EXPECT_NE(told.find(sentence), std::string::npos) << told;
  }
}

TEST_F(Files, OneWriterAtATime) {
  const auto one = open(path() + ";Create=True;BusyTimeout=50");
  const auto two = open(path() + ";BusyTimeout=50");
  one->execute("create table t (a int)");
  one->begin();
  EXPECT_EQ(stateOf([&] { two->begin(); }).substr(0, 5), "HYT00");
  EXPECT_EQ(stateOf([&] { two->execute("insert into t values (1)"); }).substr(0, 5), "HYT00");
  EXPECT_EQ(first(*two, "select count(*) from t"), "0");
  one->execute("insert into t values (2)");
  EXPECT_EQ(first(*two, "select count(*) from t"), "0");
  one->commit();
  two->begin();
  two->execute("insert into t values (3)");
  two->commit();
  EXPECT_EQ(first(*one, "select sum(a) from t"), "5");
}

// A cursor between two rows looks at the past; a write on the same connection must still go through.
TEST_F(Files, AnOpenCursorDoesNotStandInTheWayOfAWrite) {
  const auto one = open(path() + ";Create=True;BusyTimeout=50");
  const auto two = open(path() + ";BusyTimeout=50");
  one->execute("create table t (a int)");
  one->execute("insert into t values (1), (2), (3)");
  const auto cursor = one->execute("select a from t");
  ASSERT_TRUE(cursor->next());
  two->execute("insert into t values (4)");
  one->begin();
  EXPECT_EQ(basic::CLng(cursor->value(0)), 1);
  one->execute("insert into t values (5)");
  one->commit();
  EXPECT_EQ(count(*cursor), 2);
  EXPECT_EQ(first(*one, "select count(*) from t"), "5");
  const auto again = one->execute("select a from t");
  ASSERT_TRUE(again->next());
  two->execute("insert into t values (6)");
  one->execute("insert into t values (7)");
  EXPECT_EQ(count(*again), 4);
}

TEST(Provider, ReadsNothingBeforeItIsAsked) {
  const auto provider = open(":memory:");
  provider->execute("create table t (a int)");
  provider->execute("insert into t values (1), (0)");
  const auto cursor = provider->execute("select 1 / a from t");
  EXPECT_EQ(cursor->columns().front().type, ado::ColumnType::Integer);
  ASSERT_TRUE(cursor->next());
  EXPECT_EQ(stateOf([&] { cursor->next(); }).substr(0, 5), "22012");
  EXPECT_FALSE(cursor->next());
  EXPECT_EQ(stateOf([&] { static_cast<void>(cursor->value(0)); }).substr(0, 5), "HY000");
  EXPECT_EQ(stateOf([&] { provider->execute("select nope from t"); }).substr(0, 5), "42S22");
  EXPECT_EQ(first(*provider, "select count(*) from t"), "2");
  const auto abandoned = provider->execute("select 1 / 0");  // Nobody asks, nobody hears.
}

TEST(Provider, RollbackLeavesEverythingUsable) {
  auto provider = open(":memory:");
  provider->execute("create table t (a int not null primary key)");
  provider->execute("insert into t values (1), (2)");
  provider->begin();
  EXPECT_EQ(stateOf([&] { provider->begin(); }).substr(0, 5), "25001");
  provider->execute("insert into t values (3)");
  provider->execute("create table u (b int)");
  EXPECT_EQ(stateOf([&] { provider->execute("insert into t values (4), (1)"); }).substr(0, 5), "23000");
  EXPECT_EQ(first(*provider, "select count(*) from t"), "3");
  auto cursor = provider->execute("select a from t");
  ASSERT_TRUE(cursor->next());
  provider->rollback();
  EXPECT_EQ(stateOf([&] { provider->execute("select * from u"); }).substr(0, 5), "42S02");
  EXPECT_EQ(first(*provider, "select count(*) from t"), "2");
  EXPECT_EQ(stateOf([&] { provider->commit(); }).substr(0, 5), "25000");
  const auto outliving = provider->execute("select a from t");
  provider.reset();
  EXPECT_EQ(stateOf([&] { outliving->next(); }).substr(0, 5), "08003");
  cursor.reset();
}

TEST(Provider, StopsWhatTakesTooLong) {
  const auto provider = open(":memory:;StatementTimeout=50");
  provider->execute("create table t (a int not null primary key)");
  for (int i = 0; i < 40; ++i) provider->execute("insert into t values (" + std::to_string(i) + ")");
  const std::string endless = "(select count(*) from t b, t c, t d, t e, t f, t g, t h)";
  EXPECT_EQ(stateOf([&] { first(*provider, "select " + endless); }).substr(0, 5), "HYT00");
  EXPECT_EQ(first(*provider, "select count(*) from t"), "40");
  provider->begin();
  provider->execute("delete from t where a = 1");
  EXPECT_EQ(stateOf([&] { provider->execute("update t set a = a + " + endless); }).substr(0, 5), "HYT00");
  EXPECT_EQ(stateOf([&] { provider->commit(); }).substr(0, 5), "HYT00");
  provider->rollback();
  EXPECT_EQ(first(*provider, "select count(*) from t"), "40");
  for (const char* const time : {"99999999999", "-1", "1e3", ""})
    EXPECT_EQ(stateOf([&] { open(std::string(":memory:;BusyTimeout=") + time); }).substr(0, 5), "08001")
        << time;
}

TEST(Provider, ValuesComeInTheKindOfTheirColumn) {
  const auto provider = open(":memory:");
  provider->execute(
      "create table t (b bit, i smallint, d decimal(9,2), m money, f float, t datetime, s char(4))");
  provider->execute("insert into t values (1, 2, 3, 4, 5, '1899/12/29 06:00', 'ab')");
  const auto cursor = provider->execute("select * from t where b = 'true'");
  ASSERT_TRUE(cursor->next());
  EXPECT_EQ(std::get<bool>(cursor->value(0)), true);
  EXPECT_EQ(std::get<std::int64_t>(cursor->value(1)), 2);
  EXPECT_EQ(std::get<basic::Decimal>(cursor->value(2)).text(), "3.00");
  EXPECT_EQ(std::get<basic::Decimal>(cursor->value(3)).text(), "4.0000");
  EXPECT_EQ(std::get<double>(cursor->value(4)), 5);
  EXPECT_EQ(std::get<basic::Date>(cursor->value(5)).serial(), -1.25);
  EXPECT_EQ(std::get<std::string>(cursor->value(6)), "ab  ");
}

TEST(Provider, KnowsTheTableBehindAStatement) {
  const auto provider = open(":memory:");
  provider->execute(
      "create table Pay (company smallint not null, id int not null, b bit, primary key (id, company))");
  provider->execute("create view v as select * from pay");
  const auto table = provider->baseTable("Select  *\n from pay  Where 1=2");
  ASSERT_TRUE(table);
  EXPECT_EQ(*table, "Pay");
  EXPECT_EQ(provider->key(*table), (std::vector<std::string>{"id", "company"}));
  for (const char* other :
       {"select id from pay", "select * from pay, pay p", "select distinct * from pay",
        "select top 1 * from pay", "select * from v", "select * from pay union select * from pay"}) {
    EXPECT_FALSE(provider->baseTable(other)) << other;
  }
}

TEST(Provider, RowsAreInsertedAndRewrittenWithTheColumnsTypes) {
  const auto provider = open(":memory:");
  provider->execute(
      "create table t (k int not null primary key, n int default 7, d decimal(9,2), t datetime, s "
      "varchar(5), f bit, l varchar(max))");
  const std::string table = *provider->baseTable("select * from t");
  const auto insert = [&](const char* column, Value value, std::int64_t key) {
    return stateOf([&] { provider->insert(table, {{"K", key}, {column, std::move(value)}}); }).substr(0, 5);
  };
  const std::string longText(9000, 'x');
  struct Row {
    const char* column;
    Value value;
    const char* outcome;  // Stored text, or SQLSTATE.
  };
  const Row rows[] = {
      {"n", std::string(" 12 "), "12"},
      {"n", 2.9, "2"},
      {"n", std::string("abc"), "22018"},
      {"n", std::int64_t{3'000'000'000}, "22003"},
      {"d", std::string("1500.005"), "1500.01"},
      {"d", 1.005, "1.01"},
      {"d", basic::Decimal::parse("2.5"), "2.5"},
      {"d", 1e8, "22003"},
      {"t", basic::Date::fromCalendar(2006, 4, 30), "2006/04/30"},
      {"t", std::string("20060430"), "2006/04/30"},
      {"t", std::string("soon"), "22007"},
      {"s", std::string("abcdef"), "22001"},
      {"s", std::string("abcd   "), "abcd "},
      {"s", 12.25, "12.25"},
      {"f", true, "True"},
      {"f", std::string("false"), "False"},
      {"l", longText, longText.c_str()},
      {"nope", true, "42S22"},
      {"s", basic::Null{}, ""},
  };
  std::int64_t key = 0;
  for (const Row& row : rows) {
    const std::string error = insert(row.column, row.value, ++key);
    const std::string outcome = error == "no er"
                                    ? first(*provider, "select " + std::string(row.column) +
                                                           " from t where k = " + std::to_string(key))
                                    : error;
    EXPECT_EQ(outcome, row.outcome) << row.column << " of row " << key;
  }
  EXPECT_EQ(first(*provider, "select n from t where k = 5"), "7");
  EXPECT_EQ(insert("n", std::int64_t{1}, 1), "23000");
  EXPECT_EQ(stateOf([&] { provider->insert(table, {{"n", std::int64_t{1}}}); }).substr(0, 5), "23000");

  provider->update(table, {{"k", std::string("1")}}, {{"s", std::string("new")}, {"n", basic::Null{}}});
  EXPECT_EQ(first(*provider, "select s from t where n is null"), "new");
  EXPECT_EQ(stateOf([&] {
              provider->update(table, {{"k", std::int64_t{999}}}, {{"n", std::int64_t{1}}});
            }).substr(0, 5),
            "HY000");
  EXPECT_EQ(stateOf([&] { provider->update(table, {}, {{"n", std::int64_t{1}}}); }).substr(0, 5), "HY000");
}

TEST(Provider, UniqueIndexesCompareAsTheServerDoes) {
  const auto provider = open(":memory:");
  provider->execute("create table t (a varchar(9), b int, live smallint)");
  provider->execute("create unique index ut on t (a, b) where live = 0");
  provider->execute("insert into t values ('EN1', 1, 0), ('EN1', 1, 1), ('EN1', 2, 0), (null, 1, 0)");
  for (const char* duplicate : {"('en1 ', 1, 0)", "('EN1', 2, 0)", "(null, 1, 0)"}) {
    EXPECT_EQ(
        stateOf([&] { provider->execute(std::string("insert into t values ") + duplicate); }).substr(0, 5),
        "23000")
        << duplicate;
  }
  provider->execute("insert into t values ('en1', 1, 1), (null, 2, 0), (null, 1, 1)");
  EXPECT_EQ(stateOf([&] { provider->execute("update t set live = 0"); }).substr(0, 5), "23000");
  provider->execute("create index it on t (b)");
  EXPECT_EQ(
      first(*provider,
            "select convert(varchar(9), count(*)) + max(i.name) from sys.tables t, sys.indexes i"
            " where i.object_id = t.object_id and t.name = 'T' and i.name like 'U%' and i.is_unique = 1"),
      "1ut");
  EXPECT_EQ(first(*provider, "select count(*) from sys.indexes"), "2");
  EXPECT_EQ(stateOf([&] { provider->execute("drop index nope on t"); }).substr(0, 5), "42S12");
  provider->execute("drop index ut on t");
  provider->execute("update t set live = 0");
  EXPECT_EQ(stateOf([&] { provider->execute("create unique index ut on t (a, b)"); }).substr(0, 5), "23000");
}

TEST(Provider, TablesGuardTheirColumns) {
  const auto provider = open(":memory:");
  provider->execute(
      "create table t (a int not null check (a > 0), b varchar(3) default 'x', c decimal(5,1), unique (b))");
  const std::pair<const char*, const char*> writes[] = {
      {"insert into t (a) values (1)", "no er"},
      {"insert into t (a, b) values (2, 'X ')", "23000"},
      {"insert into t (a, b) values (0, 'y')", "23000"},
      {"insert into t (a, b) values (null, 'y')", "23000"},
      {"insert into t (b) values ('z')", "23000"},
      {"insert into t (a, c, b) values (3, '12.26', null)", "no er"},
      {"update t set c = c * 1000", "22003"},
      {"update t set b = b + 'long' where a = 1", "22001"},
      {"insert into t select a + 10, 'q', c from t where a = 3", "no er"},
      {"alter table t add d int not null", "42000"},
      {"alter table t add d int not null default 4", "no er"},
  };
  for (const auto& [statement, state] : writes) {
    const std::string text = statement;
    EXPECT_EQ(stateOf([&] { provider->execute(text); }).substr(0, 5), state) << text;
  }
  EXPECT_EQ(first(*provider, "select sum(a * d + c) from t"), "88.6");
}

// Definitions and rows, before and behind; words of definitions stand in names, defaults and checks too.
TEST_F(Files, AKeyIsChangedAroundEverythingElse) {
  const auto provider = open(path() + ";Create=True");
  provider->execute(
      "create table [k')] (a int not null, b varchar(40) not null default ', PRIMARY KEY (\"b\"))',"
      " c decimal(9,2), \", CHECK (\" datetime, primary key (a, b), unique (c), check (b <> ', CHECK (' and a > 0))");
  for (const char* statement :
       {"alter table [k')] add e float default 2.5", "create index i on [k')] (c desc, a)",
        "create unique index u on [k')] (e) where a > 6", "create view v as select a, c from [k')]",
        "insert into [k')] (a, c) values (7, '12.30'), (2, null), (1, 4)"})
    provider->execute(statement);
  const auto contents = [this] {
    sqlite::DatabaseFile file({.path = path()});
    std::string all;
    for (
        const char* query :
        {"SELECT sql FROM sqlite_schema WHERE sql NOT NULL AND name NOT LIKE 'catalog%' ORDER BY name",
         "SELECT quote(a) || quote(b) || quote(c) || quote(e) FROM \"k')\" ORDER BY a",
         "SELECT object || ordinal || name || type || not_null || key_position FROM catalog_columns ORDER BY 1",
         "SELECT key || kind || name FROM catalog_objects ORDER BY 1"})
      for (const auto rows = file.prepare(query); rows->step();)
        all += std::get<std::string>(rows->column(0)) + '\n';
    return all;
  };
  const std::string before = contents();
  const std::string table = "alter table dbo.[k')] ";
  const struct {
    std::string change;
    const char* said;  // or begins with
    std::vector<std::string> key;
  } steps[] = {
      {"drop constraint pk_zork",
       "42000 Line 1, column 1: The table 'k')' has no primary key 'pk_zork'",
       {"a", "b"}},
      {"drop constraint unique1", "42000", {"a", "b"}},
      {"drop column c", "42000", {"a", "b"}},
      {"add constraint x primary key (a)", "42000", {"a", "b"}},
      {"add primary key (b)",
       "42000 Line 1, column 1: The table 'k')' has a primary key already",
       {"a", "b"}},
      {"drop constraint [pk_k')]", "no error", {}},
      {"drop constraint [PK_k')]", "42000", {}},
      {"add primary key (b)", "23000 There is a row with the same values already (k').b)", {}},
      {"add primary key (c)", "42000 Line 1, column 1: The column 'c' allows Null", {}},
      {"add primary key (a, A)", "42000 Line 1, column 1: The key names the column 'a' twice", {}},
      {"add primary key (z)", "42S22", {}},
      {"add primary key clustered (B, a)", "no error", {"b", "a"}},
      {"drop constraint [PK_k')]", "no error", {}},
      {"add primary key (a, b)", "no error", {"a", "b"}},
  };
  for (const bool inside : {false, true}) {
    for (const auto& step : steps) {
      if (inside) provider->begin();
      const std::string was = contents();
      const std::string said = stateOf([&] { provider->execute(table + step.change); });
      EXPECT_EQ(said.substr(0, std::string(step.said).size()), step.said) << step.change;
      EXPECT_EQ(provider->key("k')"), step.key) << step.change;
      EXPECT_EQ(first(*provider, "select count(*) from sys.key_constraints where type = 'PK'"),
                step.key.empty() ? "0" : "1");
      EXPECT_EQ(first(*provider, "select sum(c) from v"), "16.3");
      if (inside) provider->commit();
      if (said != "no error") {
        EXPECT_EQ(contents(), was) << step.change;
      }
      EXPECT_EQ(first(*open(path()), "select max(e) from [k')]"), "2.5");
    }
    EXPECT_EQ(contents(), before);
  }
  provider->begin();
  provider->execute(table + "drop constraint [PK_k')]");
  provider->rollback();
  EXPECT_EQ(contents(), before);
  const auto inserted = [&](const std::string& row) {
    return stateOf([&] { provider->execute("insert into [k')] (a, b, c) values " + row); }).substr(0, 5);
  };
  for (const char* row :
       {"(0, 'y', 9)", "(5, ', CHECK (', 9)", "(5, 'y', null)", "(5, 'y', 4.0)", "(8, 'y', 9)"})
    EXPECT_EQ(inserted(row), "23000") << row;
  EXPECT_EQ(inserted("(5, 'y', 9)"), "no er");
}

TEST(Provider, ProceduresTakeTheirArgumentsInEveryForm) {
  const auto provider = open(":memory:");
  provider->execute(
      "create procedure sp @a int, @b varchar(3) = 'x', @d datetime = null as "
      "select @b + convert(varchar(9), @a + 1) + isnull(convert(varchar(8), @d, 112), '')");
  const std::pair<const char*, const char*> calls[] = {{"sp 1", "x2"},
                                                       {"SP  -1, 'abcdef'", "abc0"},
                                                       {"exec sp @b = 'q', @a = '6'", "q7"},
                                                       {"sp 1, 'y', '2006/04/30';", "y220060430"},
                                                       {"execute dbo.sp 1, null", ""}};
  for (const auto& [call, expected] : calls) EXPECT_EQ(first(*provider, call), expected) << call;
  for (const char* wrong :
       {"sp", "sp 'z'", "sp 1, 2, 3, 4", "sp @c = 1", "sp @a = 1, 2", "sp 1 2", "sp 1, 'a', 'soon'"}) {
    EXPECT_NE(stateOf([&] { provider->execute(wrong); }), "no error") << wrong;
  }
}

TEST(Texts, AreStoredAsTheyAreOrRefused) {
  using namespace std::string_literals;
  const std::pair<std::string, std::string> cases[] = {
      // and the refusal
      {"o'h; -- /* \" ]", ""},
      {"\u2019\u02BC\uFF07\U0001F600 \u202E", ""},
      {"\t\r\n\x01\x7F\x1B", ""},
      {"a\0b"s, "zero character"},
      {"\xFF\xC3(\xED\xA0\x80", ""},
      {std::string(20, 'x'), ""},
      {std::string(21, 'x'), "too long"},
      {std::string(1U << 20U, '\''), "long"},
  };
  const auto provider = open(":memory:");
  provider->execute("create table t (id int not null primary key, v varchar(20))");
  for (const auto& one : cases) {
    const std::string& text = one.first;
    const std::string& refusal = one.second;
    std::string literal = "'";
    for (const char c : text) literal.append(c == '\'' ? 2 : 1, c);
    const std::function<void()> ways[] = {
        [&] { provider->execute("insert into t values (1, " + literal + "')"); },
        [&] {
          provider->insert("t", {{"id", std::int64_t{1}}, {"v", text}});
        },
        [&] {
          provider->execute("insert into t values (1, '')");
          provider->update("t", {{"id", std::int64_t{1}}}, {{"v", text}});
        },
    };
    for (const auto& store : ways) {
      const std::string said = stateOf(store);
      if (said == "no error") {
        EXPECT_EQ(refusal, "") << text.substr(0, 30);
        EXPECT_EQ(first(*provider, "select v from t"), text);
        EXPECT_EQ(first(*provider, "select count(*) from t where v = " + literal + "'"), "1");
      } else {
        EXPECT_TRUE(!refusal.empty() && said.find(refusal) != std::string::npos) << said << text;
      }
      provider->execute("delete from t");
    }
  }
}

}  // namespace

}  // namespace payslate::test
