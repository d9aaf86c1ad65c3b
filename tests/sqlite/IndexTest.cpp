// An answer must depend neither on the indexes that there are nor on the file's statistics about them.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "platform/ado/Error.h"
#include "platform/basic/Numbers.h"
#include "platform/sqlite/DatabaseFile.h"
#include "platform/sqlite/SqliteProvider.h"

namespace payslate::test {

namespace {

using Texts = std::vector<std::string>;

/// Columns that compare with each other, and values for them, of which many are equal and few the same bytes.
struct Family {
  Texts columns;
  Texts values;
};
const Family families[] = {
    {{"d2", "d4", "m", "n"}, {"0", "5", "5.00", "3", "-1", "120", "null"}},
    {{"v", "c", "w"}, {"'s'", "'S '", "'s  '", "'ha'", "'HA'", "''", "' '", "'Été'", "'éTÉ '", "null"}},
    {{"k", "f"}, {"1", "2", "3", "5", "null"}},
    {{"t", "u"}, {"'2006/04/01'", "'20060402'", "'2006-04-30 10:00'", "null"}},
};
constexpr const char* declarations =
    " (id int not null, d2 decimal(9,2), d4 decimal(12,4), m money, n int, v varchar(8), c char(4), w varchar(3),"
    " k smallint, f float, t datetime, u smalldatetime";
// The database filters before few rows that many look for.
const std::pair<std::string, int> tables[] = {{"ta", 40}, {"tb", 12}, {"tc", 7}};

class Chance {
 public:
  explicit Chance(unsigned seed) : numbers_(seed) {}
  std::size_t below(std::size_t end) { return numbers_() % end; }
  const std::string& of(const Texts& list) { return list[below(list.size())]; }
  const Family& family() { return families[below(std::size(families))]; }

 private:
  std::mt19937 numbers_;
};

Texts filling(Chance& chance) {
  Texts statements;
  for (const auto& [table, rows] : tables) {
    for (int row = 1; row <= rows; ++row) {
      std::string values = std::to_string(row);
      for (const Family& family : families)
        for (std::size_t i = 0; i < family.columns.size(); ++i) values += ", " + chance.of(family.values);
      statements.push_back("insert into " + table + " values (" + values + ")");
    }
  }
  return statements;
}

std::string equal(Chance& chance, const std::string& left, const std::string& right) {
  const Family& family = chance.family();
  return left + "." + chance.of(family.columns) + " = " + right + "." + chance.of(family.columns);
}

// Of the tables a and `other`; empty half of the time.
std::string more(Chance& chance, const std::string& other) {
  const Family& family = chance.family();
  const std::string column = other + "." + chance.of(family.columns);
  const std::string value = chance.of(family.values);
  const std::string conditions[] = {
      " and " + equal(chance, "a", other), " and " + column + " <= " + value,
      " and (" + column + " <> " + value + " or " + equal(chance, "a", other) + ")",
      " and " + column + " in (" + value + ", " + chance.of(family.values) + ")"};
  const std::size_t choice = chance.below(2 * std::size(conditions));
  return choice < std::size(conditions) ? conditions[choice] : "";
}

std::string query(Chance& chance) {
  const Family& family = chance.family();
  const std::string column = chance.of(family.columns);
  const std::string other = chance.of(family.columns);
  const std::string match = equal(chance, "a", "b") + more(chance, "b");
  const std::string negated = chance.below(2) == 0 ? "not " : "";
  const std::string kinds[] = {
      "select count(*), sum(a.id * b.id) from ta a, tb b where " + match,
      "select a.id, b.id, c.id from ta a, tb b, tc c where " + match + " and " + equal(chance, "a", "c"),
      "select a.id, c.id from ta a, tb b, tc c where " + match + " and " + equal(chance, "b", "c") +
          more(chance, "c"),
      "select a.id, b.id from ta a left join tb b on " + match,
      "select a.id from ta a left join tb b on " + match + " where b.id is null",
      "select a.id from ta a where " + negated + "exists (select 1 from tb b where " + match + ")",
      "select a.id from ta a where a." + column + " " + negated + "in (select b." + other +
          " from tb b where b." + other + " is not null" + more(chance, "b") + ")",
      "select count(*), sum(b.id) from ta a, tb b where " + match + " group by a." + column,
      "select count(*) from (select distinct a." + column + " x, b." + other + " y from ta a, tb b where " +
          match + ") q",
      "select count(*) from (select " + column + " x from ta union select " + other + " from tb) q",
      "select a.id, q.n from ta a, (select " + other + " x, count(*) n from tb group by " + other +
          ") q where a." + column + " = q.x"};
  return kinds[chance.below(std::size(kinds))];
}

Texts answer(ado::Provider& provider, const std::string& statement) {
  Texts rows;
  const auto cursor = provider.execute(statement);
  while (cursor->next()) {
    std::string row;
    for (std::size_t i = 0; i < cursor->columns().size(); ++i) row += basic::textOf(cursor->value(i)) + "|";
    rows.push_back(row);
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

TEST(Answers, DoNotDependOnIndexes) {
  constexpr unsigned seeds = 5;
  constexpr int queries = 400;
  const auto file = std::filesystem::path(testing::TempDir()) / "payslate-indexes.db";
  int withRows = 0;
  for (unsigned seed = 1; seed <= seeds; ++seed) {
    Chance chance(seed);
    std::filesystem::remove(file);
    const auto bare = sqlite::providerEntry().open(":memory:");
    auto indexed = sqlite::providerEntry().open(file.string() + ";Create=True");
    indexed->begin();
    for (const auto& [table, rows] : tables) {
      bare->execute("create table " + table + declarations + ")");
      indexed->execute("create table " + table + declarations + ", primary key (id))");
      for (const Family& family : families)
        for (const std::string& column : family.columns)
          indexed->execute("create index ix" + column + " on " + table + " (" + column + ", id)");
    }
    for (const std::string& row : filling(chance))
      for (const auto& provider : {bare.get(), indexed.get()}) provider->execute(row);
    indexed->commit();
    indexed.reset();
    sqlite::DatabaseFile(file.string(), false, {}).run("ANALYZE");
    indexed = sqlite::providerEntry().open(file.string());
    for (int i = 0; i < queries; ++i) {
      const std::string statement = query(chance);
      const Texts expected = answer(*bare, statement);
      ASSERT_EQ(answer(*indexed, statement), expected) << statement;
      withRows += expected.empty() ? 0 : 1;
    }
  }
  EXPECT_GT(withRows, static_cast<int>(seeds) * queries / 2);
  std::filesystem::remove(file);
}

}  // namespace

}  // namespace payslate::test
