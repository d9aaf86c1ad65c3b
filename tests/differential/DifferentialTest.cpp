// The same question to two databases that have to give the same answer: the embedded engine and another one.
// PAYSLATE_DIFFERENTIAL holds how many questions each pair is asked, and the first seed: "200000 1".
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <sstream>

#include "platform/ado/Error.h"
#include "platform/basic/Numbers.h"
#include "platform/odbc/OdbcProvider.h"
#include "platform/sqlite/DatabaseFile.h"
#include "platform/sqlite/SqliteProvider.h"
#include "tests/ado/ForwardingProvider.h"
#include "tests/differential/Statements.h"

namespace payslate::test {
namespace {

using Texts = std::vector<std::string>;
using ProviderPtr = std::unique_ptr<ado::Provider>;

constexpr int statementsPerSeed = 400;

struct Pair {
  Language language;
  ProviderPtr engine;
  ProviderPtr other;
  /// Which of several equal texts stands for them in a group is anybody's choice.
  bool equalTextsAreOne = false;
  /// Called behind the filling of `other`.
  std::function<void()> prepare = [] {};

  void fill(const Texts& rows) const {
    std::string columns;
    for (const std::string& one : declarations(language)) columns += (columns.empty() ? "" : ", ") + one;
    for (ado::Provider* provider : {engine.get(), other.get()}) {
      for (const Table& table : tables) {
        try {
          provider->execute(std::string("drop table ") + table.name);
        } catch (const ado::Error&) {  // the first time there is none
        }
      }
      provider->begin();
      for (const Table& table : tables)
        provider->execute(std::string("create table ") + table.name + " (" + columns + ")");
      for (const std::string& row : rows) provider->execute(row);
      provider->commit();
    }
    prepare();
  }

  /// The rows in the order of their texts, or the error.
  Texts answer(ado::Provider& provider, const std::string& statement) const {
    Texts rows;
    try {
      const auto cursor = provider.execute(statement);
      while (cursor->next()) {
        std::string row;
        for (std::size_t i = 0; i < cursor->columns().size(); ++i) {
          const basic::Value value = cursor->value(i);
          std::string text = basic::textOf(value);
          if (equalTextsAreOne) text = basic::lower(text.erase(text.find_last_not_of(' ') + 1));
          row += basic::isNull(value) ? "null " : "'" + text + "' ";
        }
        rows.push_back(row);
      }
    } catch (const ado::Error& error) {
      return {"error " + error.SQLState + " " + error.Description};
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  // A statement that fails is none that was meant.
  bool differ(const std::string& statement, bool* hasRows = nullptr) const {
    const Texts one = answer(*engine, statement);
    if (hasRows != nullptr) *hasRows = !one.empty();
    return one != answer(*other, statement) || (!one.empty() && one.front().starts_with("error"));
  }

  /// The smallest statement found on which they still differ.
  std::string shrunk(std::vector<std::uint32_t> choices) const {
    const auto smaller = [&](std::vector<std::uint32_t> tried) {
      Choices replay(tried);
      if (!differ(query(language, replay)) || replay.taken().size() > choices.size()) return false;
      choices = std::move(tried);
      return true;
    };
    for (std::size_t step = choices.size(); step > 0; step /= 2) {
      for (std::size_t at = 0; at + step <= choices.size();) {
        std::vector<std::uint32_t> fewer = choices;
        const auto begin = fewer.begin() + static_cast<std::ptrdiff_t>(at);
        std::vector<std::uint32_t> simpler = choices;
        std::fill_n(simpler.begin() + static_cast<std::ptrdiff_t>(at), step, 0U);
        fewer.erase(begin, begin + static_cast<std::ptrdiff_t>(step));
        if (smaller(fewer)) continue;
        if (simpler != choices) smaller(simpler);
        ++at;
      }
    }
    Choices least(choices);
    return query(language, least);
  }
};

void ask(const Pair& pair, int statements) {
  unsigned firstSeed = 1;
  if (const char* wanted = std::getenv("PAYSLATE_DIFFERENTIAL"))
    std::istringstream(wanted) >> statements >> firstSeed;
  int withRows = 0;
  for (int asked = 0; asked < statements; ++asked) {
    const unsigned seed = firstSeed + static_cast<unsigned>(asked / statementsPerSeed);
    const int number = asked % statementsPerSeed;
    if (number == 0) {
      Choices rows(seed);
      pair.fill(fillings(pair.language, rows));
    }
    Choices choices(seed * statementsPerSeed + static_cast<unsigned>(number));
    const std::string statement = query(pair.language, choices);
    bool hasRows = false;
    if (pair.differ(statement, &hasRows)) {
      const std::string least = pair.shrunk(choices.taken());
      FAIL() << "seed " << seed << ", after " << asked << " statements:\n"
             << statement << "\nThe least found:\n"
             << least << "\n"
             << testing::PrintToString(pair.answer(*pair.engine, least)) << "\n"
             << testing::PrintToString(pair.answer(*pair.other, least));
    }
    withRows += hasRows ? 1 : 0;
  }
  EXPECT_GT(withRows, statements / 2);
}

ProviderPtr server(const char* variable) {
  const char* connection = std::getenv(variable);
  return connection == nullptr ? nullptr : odbc::providerEntry().open(connection);
}

TEST(Answers, DoNotDependOnIndexesAndStatistics) {
  const std::string file = (std::filesystem::path(testing::TempDir()) / "payslate-differential.db").string();
  std::filesystem::remove(file);
  const auto open = sqlite::providerEntry().open;
  Pair pair{Language::Own, open(":memory:"), open(file + ";Create=True"), true};
  pair.prepare = [&] {
    for (const Table& table : tables)
      for (const std::string& one : declarations(Language::Own)) {
        const std::string column = one.substr(0, one.find(' '));
        std::string statement = "create index ix" + column;
        statement.append(" on ").append(table.name).append(" (").append(column);
        pair.other->execute(statement += ", id)");
      }
    pair.other.reset();
    sqlite::DatabaseFile({.path = file}).run("ANALYZE");
    pair.other = open(file);
  };
  ask(pair, 2000);
  pair.other.reset();
  std::filesystem::remove(file);
}

/// Other numbers, whole ones longer by a digit, and other letters in texts.
std::string ofTheSameShape(std::string_view statement) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const auto isNamed = [&](char c) {
    return isDigit(c) || c == '_' || std::isalpha(static_cast<unsigned char>(c));
  };
  std::string other;
  for (std::size_t at = 0; at < statement.size();) {
    const bool quoted = statement[at] == '\'';
    const bool number = isDigit(statement[at]);
    std::size_t end = at + 1;
    while (end < statement.size() && (quoted ? statement[end] != '\''
                                             : isNamed(statement[at]) && (isNamed(statement[end]) ||
                                                                          (number && statement[end] == '.'))))
      ++end;
    if (quoted && end < statement.size()) ++end;
    std::string part(statement.substr(at, end - at));
    for (char& c : part)
      if ((quoted || number) && ((c >= '2' && c < '9') || (quoted && c >= 'a' && c < 'z')))
        c = static_cast<char>(c + 1);
    if (number && part.size() < 4 && part > "1" && std::all_of(part.begin(), part.end(), isDigit))
      part += '7';
    other += part;
    at = end;
  }
  return other;
}

/// Asks something else of the same shape first.
class WarmedProvider : public ado::ForwardingProvider {
 public:
  using ForwardingProvider::ForwardingProvider;
  std::unique_ptr<ado::Cursor> execute(std::string_view statement) override {
    if (!statement.starts_with("select")) return ForwardingProvider::execute(statement);
    const std::string other = ofTheSameShape(statement);
    try {
      const auto cursor = ForwardingProvider::execute(other);
      while (cursor && cursor->next()) {
      }
    } catch (const ado::Error&) {  // Whatever comes of that one.
    }
    return ForwardingProvider::execute(statement);
  }
};

/// A text with a zero character is not split into a shape and its literals.
class UnsplitProvider : public ado::ForwardingProvider {
 public:
  using ForwardingProvider::ForwardingProvider;
  std::unique_ptr<ado::Cursor> execute(std::string_view statement) override {
    return ForwardingProvider::execute(std::string(statement) + " --" + '\0');
  }
};

TEST(Answers, AreThoseOfTheTextAlone) {
  const auto open = sqlite::providerEntry().open;
  ask({Language::Own, std::make_unique<WarmedProvider>(open(":memory:")),
       std::make_unique<UnsplitProvider>(open(":memory:"))},
      2000);
}

TEST(Answers, AreTheSameBehindAServer) {
  Pair pair{Language::Own, sqlite::providerEntry().open(":memory:"), server("PAYSLATE_ODBC_TSQL")};
  if (!pair.other) GTEST_SKIP() << "there is no server";
  ask(pair, 1000);
}

TEST(Answers, AreThoseOfAnotherMaker) {
  Pair pair{Language::Shared, sqlite::providerEntry().open(":memory:"), server("PAYSLATE_ODBC_POSTGRES")};
  if (!pair.other) GTEST_SKIP() << "there is no server";
  // What it calls otherwise.
  for (
      const char* statement : {
          "set jit = off",
          "create domain datetime as timestamp",
          "create operator + (function = textcat, leftarg = text, rightarg = text)",
          "create function len(text) returns int language sql immutable as 'select length($1)'",
          "create function year(timestamp) returns int language sql immutable as 'select extract(year from $1)::int'",
          "create function month(timestamp) returns int language sql immutable as 'select extract(month from $1)::int'",
          "create function day(timestamp) returns int language sql immutable as 'select extract(day from $1)::int'",
      })
    pair.other->execute(statement);
  ask(pair, 1000);
}

}  // namespace
}  // namespace payslate::test
