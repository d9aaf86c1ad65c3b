// Ranges beside conditions over year, month, left and substring, and lists of what is not in a table: no row
// is left out, and indexes serve them.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "platform/basic/Numbers.h"
#include "platform/sqlite/DatabaseFile.h"
#include "platform/sqlite/SqliteProvider.h"
#include "platform/sqlite/StoredCatalog.h"
#include "platform/tsql/Convert.h"
#include "platform/tsql/Translator.h"

namespace payslate::test {
namespace {

std::string identifiers(ado::Provider& provider, const std::string& table, const std::string& condition) {
  std::string found;
  const auto cursor = provider.execute("select id from " + table + " where " + condition + " order by id");
  while (cursor->next()) found += basic::textOf(cursor->value(0)) + " ";
  return found;
}

std::string replaced(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
    text.replace(at, what.size(), with);
  return text;
}

std::vector<std::string> parts(const std::string& text) {
  std::vector<std::string> found;
  std::istringstream all(text);
  for (std::string part; std::getline(all, part, ';');) found.push_back(part);
  return found;
}

/// The letter T of a condition is once the indexed column, and once something that has the same value.
void expectSame(ado::Provider& provider, const std::string& table, const std::string& condition,
                const std::string& column, const std::string& sameValue) {
  EXPECT_EQ(identifiers(provider, table, replaced(condition, "T", column)),
            identifiers(provider, table, replaced(condition, "T", sameValue)))
      << replaced(condition, "T", column);
}

TEST(Ranges, HoldEveryTextWithThePrefix) {
  const std::string last = "\xF4\x8F\xBF\xBF";
  const std::vector<std::string> pieces =
      parts("E;e;Z;z;0;9;@;[;/;`;{;''; ;\x1F;!;\x7F;Ü;ü;ÿ;\xED\x9F\xBF;\xEE\x80\x80;\xC3;\x80;\xFF;" + last);
  const auto provider = sqlite::providerEntry().open(":memory:");
  provider->execute("create table words (id int not null primary key, s varchar(9), c char(3))");
  provider->execute("create index ixS on words (s, id)");
  provider->execute("create index ixC on words (c, id)");
  provider->begin();
  provider->execute("insert into words values (0, null, null)");
  int id = 0;
  const auto add = [&](const std::string& word) {
    const std::string row = replaced("insert into words values (I, 'P', 'P')", "I", std::to_string(++id));
    provider->execute(replaced(row, "P", word));
  };
  add("");
  for (const std::string& first : pieces) {
    add(first);
    for (const std::string& second : pieces) add(first + second);
  }
  provider->commit();
  for (const std::string& piece : pieces) {
    for (const std::string& prefix : {piece, "E" + piece, piece + last}) {
      const auto condition = [&](const char* text) { return replaced(text, "P", prefix); };
      expectSame(*provider, "words", condition("left(T, len('P.') - 1) = 'P'"), "s", "s + ''");
      expectSame(*provider, "words", condition("'P' = substring(T, 1, len('P.'))"), "c", "c + ''");
    }
    expectSame(*provider, "words", replaced("not (left(T, 1) = 'P')", "P", piece), "s", "s + ''");
  }
  for (const std::string& condition :
       parts("left(T, 1) = '';left(T, 0) = ' ';left(T, 1) = 'E0';substring(T, 0, 3) = 'E';left(T, 2) = 'E  ';"
             "substring(T, 2, 1) = 'E';left(T, 1) = null;left(T, 1) = 'E' or id = 1;"
             "left(T, 1) = 'Z' and left(T, 2) = 'Z0'"))
    expectSame(*provider, "words", condition, "s", "s + ''");
  EXPECT_EQ(identifiers(*provider, "words", "left(s, 2) = 'EZ'"), "5 6 31 32 ");
}

TEST(Ranges, HoldEveryDayOfTheYearAndMonth) {
  const auto provider = sqlite::providerEntry().open(":memory:");
  provider->execute(
      "create table moments (id int not null primary key, t datetime, u smalldatetime, d date)");
  int id = 0;
  for (const std::string& moment : parts(
           "null;'1753/01/01';'1753/01/31 23:59:59.997';'1753/02/01';'1899/12/31 23:59:59.997';'1900/01/01';"
           "'2000/02/01';'2000/02/29 23:59:59.990';'2005/12/31 23:59:59.997';'2006/01/01';"
           "'2006/03/31 23:59:29';'2006/04/01';'2006/04/30 23:59:59.997';'2006/05/01';"
           "'2006/12/31 23:59:59.997';'2007/01/01';'9999/11/30 23:59';'9999/12/01';"
           "'9999/12/31 23:59:59.997'")) {
    const bool small = moment >= "'1900" && moment < "'2079";
    const std::string row = replaced("insert into moments values (I, M, S, M)", "M", moment);
    provider->execute(replaced(replaced(row, "I", std::to_string(++id)), "S", small ? moment : "null"));
  }
  for (const std::string& column : parts("t;u;d")) {
    provider->execute(replaced("create index ixT on moments (T)", "T", column));
    for (const std::string& condition : parts(
             "year(T) = 2006 and month(T) = 4;12 = month(T) and id > 0 and 2006 = year(T);year(T) = 2006;"
             "year(T) = 1753 and month(T) = 1;year(T) = 1753;year(T) = 1752;year(T) = 1752 and month(T) = 12;"
             "year(T) = 9999 and month(T) = 11;year(T) = 9999 and month(T) = 12;year(T) = 9999;"
             "year(T) = 10000;year(T) = 4294969302;year(T) = -1;year(T) = 1900 and month(T) = 1;"
             "year(T) = 2006 and month(T) = 13;year(T) = 2006 and month(T) = 0;month(T) = 4;"
             "year(T) = 2005 and year(T) = 2006;month(T) = 4 and month(T) = 5 and year(T) = 2006;"
             "year(T) = null;year(T) = '2006' and month(T) = 3.0;year(T) = 2006 or month(T) = 2;"
             "not (year(T) = 2006 and month(T) = 4);datepart(yy, T) = 2000 and datepart(mm, T) = 2;"
             "day(T) = 1 and year(T) = 2006 + 1"))
      expectSame(*provider, "moments", condition, column, "dateadd(d, 0, " + column + ")");
  }
  EXPECT_EQ(identifiers(*provider, "moments", "year(t) = 2006 and month(t) = 4"), "12 13 ");
}

class Plans : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::remove(path_);
    const auto provider = sqlite::providerEntry().open(path_ + ";Create=True");
    provider->execute(
        "create table header (id int not null primary key, company int, emp int not null, no varchar(30), d datetime)");
    provider->execute(
        "create table emp (id int not null primary key, company int, name varchar(30), joined datetime)");
    provider->execute("create index ixNo on header (company, no)");
    provider->execute("create index ixDate on header (company, d)");
    provider->execute("create index ixEmployee on header (emp, d)");
  }
  void TearDown() override { std::filesystem::remove(path_); }

  std::string plan(const std::string& statement) {
    sqlite::DatabaseFile file({.path = path_});
    sqlite::StoredCatalog catalog;
    catalog.load(file);
    const auto explained =
        file.prepare("EXPLAIN QUERY PLAN " + tsql::Translator(catalog).translate(statement).sql.front());
    std::string text;
    while (explained->step()) text += tsql::textOf(explained->column(3)) + "; ";
    return text;
  }

  const std::string path_ = (std::filesystem::path(testing::TempDir()) / "payslate-ranges.db").string();
};

TEST_F(Plans, LookOnlyAtTheRange) {
  const std::string byNumber = "(company=? AND no>? AND no<?)";
  const std::string byDate = "(company=? AND d>? AND d<?)";
  const std::string april = "year(d) = 2006 and month(d) = 4";
  const std::pair<std::string, std::string> statements[] = {
      {"select isnull(max(convert(int, right(no, len(no) - 2))), 0) from header where company = 1 and len(no) > "
       "len('EN') and isnumeric(isnull(right(no, len(no) - 2), 0)) = 1 and substring(no, 1, len('EN')) = 'EN'",
       byNumber},
      {"select name from emp where company = 1 and id not in (select emp from header where month(d)=4 and "
       "year(d)=2006 and company=1)",
       byDate},
      {"select id from header where emp = 5 and company = 1 and " + april, "(emp=? AND d>? AND d<?)"},
      {"select id from header where company = 1 and 'EN' = left(no, 2)", byNumber},
      {"select id from header where company = 1 and left(no, 1) = '\xF4\x8F\xBF\xBF'",
       "(company=? AND no>?)"},
      {"update header set no = '' where company = 1 and left(no, 2) = 'EN'", byNumber},
      {"delete from header where company = 1 and " + april, byDate},
      {"select h.id from emp join header h on h.company = emp.company and year(h.d) = 2006", byDate},
  };
  for (const auto& [statement, range] : statements)
    EXPECT_NE(plan(statement).find(range), std::string::npos) << statement << "\n" << plan(statement);
  const std::string notIn = "select name from emp where id not in (select emp from header where company = 1)";
  EXPECT_NE(plan(notIn).find("(emp=?)"), std::string::npos) << plan(notIn);
  for (
      const std::string& condition : parts(
          "left(no, 2) = '';left(no, 0) = 'EN';substring(no, 2, 2) = 'EN';left(no + '', 2) = 'EN';month(d) = 4;"
          "year(d) = 1752;year(d) = null;(year(d) = 2006 or month(d) = 4);not (year(d) = 2006)")) {
    const std::string text = plan("select id from header where company = 1 and " + condition);
    EXPECT_EQ(text.find('>'), std::string::npos) << condition << "\n" << text;
  }
}

// Whoever is sought in a list is looked for in its index; what could be Null on either side changes the
// answer.
TEST(Lists, AreNarrowedOnlyWhereTheAnswerStays) {
  const auto provider = sqlite::providerEntry().open(":memory:");
  provider->execute("create table people (id int not null primary key, boss int, chief int not null)");
  provider->execute("create table taken (no int not null, part int, company int, primary key (no))");
  provider->execute("create index ixPart on taken (part)");
  provider->execute("insert into people values (1, null, 2), (2, 1, 3), (3, 9, 4), (4, 2, 1)");
  provider->execute("insert into taken values (1, 1, 1), (3, null, 1), (4, 4, 2), (7, 3, 3)");
  const std::vector<std::string> lists = parts(
      "select no from taken where company = 1;select distinct no from taken where 1 = company and no = 3;"
      "select no from taken where company = 5;select part from taken where company = 1;"
      "select part from taken where company = 2;select no from taken where company = chief;"
      "select no from taken t where t.company = 1 and t.part = t.no");
  const auto joined = [&](const std::string& list, const std::string& wanted) {
    std::string found;
    const auto rows =
        provider->execute("select p.id from people p left join people b on b.id = p.boss where " + wanted +
                          " not in (" + replaced(list, "= chief", "= p.chief") + ")");
    while (rows->next()) found += basic::textOf(rows->value(0)) + " ";
    return found;
  };
  for (const std::string& list : lists) {
    for (const std::string& column : parts("id;boss;chief")) {
      expectSame(*provider, "people", "T not in (" + list + ")", column, column + " + 0");
      expectSame(*provider, "people", "not (T not in (" + list + "))", column, column + " + 0");
      for (const std::string& side : parts("p.;b."))
        EXPECT_EQ(joined(list, side + column), joined(list, side + column + " + 0"))
            << side << column << list;
    }
  }
}

// The database nests only a thousand conditions: not every column of a long one can have a range.
TEST(Ranges, LeaveRoomForLongConditions) {
  const auto provider = sqlite::providerEntry().open(":memory:");
  std::string columns = "id int";
  std::string condition = "id > 0";
  for (int i = 0; i < 390; ++i) {
    const std::string name = "c" + std::to_string(i);
    columns += ", " + name + " varchar(9)";
    condition += " and left(" + name + ", 1) = 'E'";
  }
  provider->execute("create table wide (" + columns + ")");
  EXPECT_EQ(identifiers(*provider, "wide", condition), "");
}

}  // namespace
}  // namespace payslate::test
