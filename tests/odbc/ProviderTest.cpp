// What the provider makes of real drivers: values, rows on demand, rows through parameters, transactions.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "platform/basic/Numbers.h"
#include "tests/odbc/Backends.h"

namespace payslate::odbc {
namespace {

using basic::Value;

class OdbcProvider : public testing::TestWithParam<Backend> {
 protected:
  void SetUp() override {
    provider_ = open(GetParam().connection);
    errorOf([&] { provider_->execute("drop table pay"); });  // of a test that was cut short
    provider_->execute(
        "create table pay (company smallint not null, id int not null, name varchar(20), amount "
        "decimal(18,2), paid " +
        GetParam().moment + ", rate float, primary key (id, company))");
  }
  void TearDown() override {
    if (provider_) provider_->execute("drop table pay");
  }

  void insert(int id, const std::string& column = {}, Value value = {}) {
    std::vector<ado::Assignment> row{{"company", std::int64_t{1}}, {"id", std::int64_t{id}}};
    if (!column.empty()) row.push_back({column, std::move(value)});
    provider_->insert("pay", row);
  }
  std::string value(const std::string& column, int id) {
    return first(*provider_, "select " + column + " from pay where id = " + std::to_string(id));
  }
  int count(ado::Cursor& cursor) {
    int rows = 0;
    while (cursor.next()) ++rows;
    return rows;
  }

  std::unique_ptr<ado::Provider> provider_;
};

INSTANTIATE_TEST_SUITE_P(Drivers, OdbcProvider, testing::ValuesIn(backends()),
                         [](const auto& one) { return one.param.name; });

TEST_P(OdbcProvider, ValuesComeInTheKindOfTheirColumn) {
  const std::string letters = "Zo\u00eb \u4e2d \U0001F600 'q'";
  const auto moment = basic::Date(basic::Date::fromCalendar(2006, 4, 30).serial() + 0.5);
  provider_->insert("pay", {{"company", std::int64_t{-3}},
                            {"id", std::int64_t{2'000'000'000}},
                            {"name", letters},
                            {"amount", basic::Decimal::parse("1234567890.05")},
                            {"paid", moment},
                            {"rate", -0.125}});
  insert(2);
  const auto cursor = provider_->execute("select * from pay order by id desc");
  ASSERT_EQ(cursor->columns().size(), 6U);
  EXPECT_EQ(cursor->columns()[3].name, "amount");
  ASSERT_TRUE(cursor->next());
  EXPECT_EQ(std::get<std::int64_t>(cursor->value(0)), -3);
  EXPECT_EQ(std::get<std::int64_t>(cursor->value(1)), 2'000'000'000);
  EXPECT_EQ(std::get<std::string>(cursor->value(2)), letters);
  EXPECT_EQ(basic::textOf(cursor->value(3)), "1234567890.05");
  EXPECT_EQ(std::get<basic::Date>(cursor->value(4)).serial(), moment.serial());
  EXPECT_EQ(std::get<double>(cursor->value(5)), -0.125);
  ASSERT_TRUE(cursor->next());
  for (std::size_t column = 2; column < 6; ++column)
    EXPECT_TRUE(basic::isNull(cursor->value(column))) << column;
  EXPECT_FALSE(cursor->next());
  EXPECT_FALSE(cursor->next());
  EXPECT_EQ(errorOf([&] { (void)cursor->value(0); }).substr(0, 5), "HY000");
  if (!GetParam().roundsDecimals()) {
    insert(3, "amount", basic::Decimal::parse("-1234567890123456.78"));
    EXPECT_EQ(value("amount", 3), "-1234567890123456.78");
  }
}

TEST_P(OdbcProvider, LongTextsComeWhole) {
  std::string text;
  // Pieces end between the halves of a character, too.
  for (int i = 0; i < 20'000; ++i) text += i % 7 == 0 ? "\u00e9\U0001F600\U0001F600" : "\U0001F600";
  errorOf([&] { provider_->execute("drop table letters"); });
  provider_->execute("create table letters (body text)");
  provider_->insert("letters", {{"body", text}});
  EXPECT_EQ(first(*provider_, "select body from letters"), text);
  provider_->execute("drop table letters");
}

TEST_P(OdbcProvider, TextIsConvertedOrRefusedByTheServer) {
  insert(1, "amount", std::string("1500.25"));
  EXPECT_EQ(value("amount", 1), "1500.25");
  insert(2, "paid", std::string("2006-04-30"));
  EXPECT_EQ(value("paid", 2), "2006/04/30");
  insert(3, "name", 12.25);
  EXPECT_EQ(value("name", 3), "12.25");
  insert(4, "name", std::string());
  EXPECT_EQ(value("name", 4), "");
  if (GetParam().takesAnyText()) return;
  const std::pair<const char*, Value> wrong[] = {{"amount", std::string("much")},
                                                 {"paid", std::string("soon")},
                                                 {"name", std::string(21, 'x')},
                                                 {"amount", 1e17}};
  for (const auto& one : wrong)
    EXPECT_NE(errorOf([&] { insert(5, one.first, one.second); }), "no error") << one.first;
  EXPECT_EQ(first(*provider_, "select count(*) from pay"), "4");
}

TEST_P(OdbcProvider, RowsAreRewrittenByTheirKey) {
  EXPECT_EQ(provider_->baseTable("Select * \n From pay Where 1=2"), "pay");
  std::vector<std::string> key = provider_->key("pay");
  std::sort(key.begin(), key.end());  // SQLite's driver gives the table's order
  EXPECT_EQ(key, (std::vector<std::string>{"company", "id"}));
  for (int id = 1; id <= 3; ++id) insert(id, "amount", std::int64_t{id});
  const std::vector<ado::Assignment> second{{"id", std::int64_t{2}}, {"company", std::int64_t{1}}};
  provider_->update("pay", second, {{"amount", 7.5}, {"name", std::string("new")}});
  EXPECT_EQ(first(*provider_, "select sum(amount) from pay"), "11.5");
  EXPECT_EQ(value("name", 2), "new");
  provider_->update("pay", second, {{"name", basic::Null{}}});
  EXPECT_EQ(first(*provider_, "select count(*) from pay where name is null"), "3");
  EXPECT_NE(
      errorOf([&] {
        provider_->update("pay", {{"id", std::int64_t{9}}, {"company", std::int64_t{1}}}, {{"amount", 1.0}});
      }).find("not there any more"),
      std::string::npos);
  EXPECT_NE(errorOf([&] { insert(2); }), "no error");
  EXPECT_EQ(first(*provider_, "select count(*) from pay"), "3");
}

// Resident memory in megabytes; 0 where it cannot be told.
long residentMegabytes() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    long kilobytes = 0;
    if (word == "VmRSS:" && status >> kilobytes) return kilobytes / 1024;
  }
  return 0;
}

TEST_P(OdbcProvider, RowsAreFetchedAsTheyAreRead) {
  constexpr int mostReadAhead = 500;
  const int rows = GetParam().rows;
  constexpr long allowedMegabytes = 60;  // a server's million rows together are above 100
  const auto cursor = provider_->execute(GetParam().numbers);
  for (int i = 1; i <= 3; ++i) {
    ASSERT_TRUE(cursor->next());
    EXPECT_EQ(basic::CLng(cursor->value(0)), i);
  }
  const long before = residentMegabytes();
  int read = 3;
  const std::string error = errorOf([&] {
    while (cursor->next()) ++read;
  });
  EXPECT_GE(read, rows - mostReadAhead);
  EXPECT_NE(error, "no error") << "the last row cannot be had, and nobody knew before";
  EXPECT_FALSE(cursor->next());
  EXPECT_LT(residentMegabytes() - before, allowedMegabytes);
  EXPECT_EQ(first(*provider_, "select 1"), "1");
}

TEST_P(OdbcProvider, CursorsStandBesideEachOtherAndBesideWrites) {
  for (int id = 1; id <= 4; ++id) insert(id);
  const auto unread = provider_->execute("select id from pay order by id");
  const auto outer = provider_->execute("select id from pay order by id");
  ASSERT_TRUE(outer->next());
  const auto inner = provider_->execute("select id from pay order by id desc");
  ASSERT_TRUE(inner->next());
  EXPECT_EQ(basic::CLng(inner->value(0)), 4);
  EXPECT_EQ(basic::CLng(outer->value(0)), 1);
  provider_->begin();
  insert(5);
  ASSERT_TRUE(outer->next());
  EXPECT_EQ(basic::CLng(outer->value(0)), 2);
  provider_->commit();
  EXPECT_EQ(count(*outer), 2);
  EXPECT_EQ(count(*inner), 3);
  EXPECT_EQ(count(*unread), 5) << "asked for when it is read";
}

TEST_P(OdbcProvider, TransactionsEndAsTheyAreTold) {
  const auto other = open(GetParam().connection);
  provider_->begin();
  EXPECT_EQ(errorOf([&] { provider_->begin(); }).substr(0, 5), "25001");
  insert(1);
  EXPECT_EQ(first(*other, "select count(*) from pay"), "0");
  provider_->rollback();
  EXPECT_EQ(errorOf([&] { provider_->commit(); }).substr(0, 5), "25000");
  EXPECT_EQ(first(*other, "select count(*) from pay"), "0");
  provider_->begin();
  insert(2);
  provider_->commit();
  EXPECT_EQ(first(*other, "select count(*) from pay"), "1");
  insert(3);  // outside of a transaction each statement is one
  EXPECT_EQ(first(*other, "select count(*) from pay"), "2");
  provider_->begin();
  insert(4);
  provider_ = open(GetParam().connection);
  EXPECT_EQ(first(*other, "select count(*) from pay"), "2") << "what is left open is undone";
}

// A server may have ended the transaction: what came next would be stored on its own.
TEST_P(OdbcProvider, AfterAFailureATransactionCanOnlyBeRolledBack) {
  provider_->begin();
  insert(1);
  const std::string failure = errorOf([&] { provider_->execute("selec 1"); });
  EXPECT_NE(failure, "no error");
  for (const std::function<void()>& next :
       {std::function<void()>([&] { insert(2); }), std::function<void()>([&] { value("id", 1); }),
        std::function<void()>([&] { provider_->commit(); })})
    EXPECT_EQ(errorOf(next), failure);
  provider_->rollback();
  EXPECT_EQ(first(*provider_, "select count(*) from pay"), "0");
}

TEST_P(OdbcProvider, AFailureAmongUnreadRowsFailsTheTransaction) {
  if (!GetParam().failsRowByRow()) GTEST_SKIP() << "the query fails as a whole";
  provider_->begin();
  const auto rows = provider_->execute("select 1 / (2 - n) from (select 1 n union all select 2) t");
  ASSERT_TRUE(rows->next());
  EXPECT_NE(errorOf([&] { insert(1); }), "no error") << "it makes the rows be read ahead";
  EXPECT_NE(errorOf([&] { provider_->commit(); }), "no error");
  provider_->rollback();
  EXPECT_EQ(first(*provider_, "select count(*) from pay"), "0");
}

TEST_P(OdbcProvider, OneStatementAText) {
  insert(1);
  for (const char* two : {"select 1; delete from pay", "update pay set id = 1; delete from pay"})
    EXPECT_EQ(errorOf([&] { provider_->execute(two); }).substr(0, 5), "42000");
  EXPECT_EQ(first(*provider_, "select count(*) from pay"), "1");
  EXPECT_EQ(first(*provider_, "select ';' ;"), ";");
  EXPECT_EQ(provider_->execute("delete from pay where id = 99"), nullptr);
}

}  // namespace
}  // namespace payslate::odbc
