// Finding the databases of this run.
#include "tests/odbc/Backends.h"

#include <cstdlib>
#include <filesystem>

#include "platform/odbc/OdbcProvider.h"

namespace payslate::odbc {

namespace {

// Five digits, each from a table of ten, in the order of the numbers.
std::string numbersByDigits() {
  std::string number = "1";
  std::string tables;
  int weight = 10'000;
  for (const char digit : {'a', 'b', 'c', 'd', 'e'}) {
    number += std::string(" + ") + digit + ".n * " + std::to_string(weight);
    weight /= 10;
    tables += std::string(tables.empty() ? "" : ", ") + "(select 0 n";
    for (int n = 1; n < 10; ++n) tables += " union all select " + std::to_string(n);
    tables += std::string(") ") + digit;
  }
  return "select " + number + ", '" + std::string(100, 'x') + "', 1 / (100000 - (" + number + ")) from " +
         tables;
}

}  // namespace

const std::vector<Backend>& backends() {
  static const std::vector<Backend> all = [] {
    std::vector<Backend> found;
    const auto file = std::filesystem::temp_directory_path() / "payslate-odbc-test.db";
    std::filesystem::remove(file);
    found.push_back(
        {"sqlite", "Driver={SQLite3};StepAPI=1;Database=" + file.string(), 100'000,
         "with recursive g (n) as (select 1 union all select n + 1 from g where n < 100000) select n, "
         "printf('%0100d', n), case when n = 100000 then json('[') end from g"});
    if (const char* postgres = std::getenv("PAYSLATE_ODBC_POSTGRES"))
      found.push_back({"postgres", std::string(postgres) + ";UseDeclareFetch=1;Fetch=500", 1'000'000,
                       "select n, repeat('x', 100), 1 / (1000000 - n) from generate_series(1, 1000000) n"});
    if (const char* server = std::getenv("PAYSLATE_ODBC_TSQL"))
      found.push_back({"tsql", server, 100'000, numbersByDigits(), "datetime"});
    return found;
  }();
  return all;
}

std::unique_ptr<ado::Provider> open(const std::string& connection) {
  return providerEntry().open(connection);
}

std::string first(ado::Provider& provider, const std::string& statement) {
  const auto cursor = provider.execute(statement);
  return cursor->next() ? basic::textOf(cursor->value(0), "yyyy/mm/dd") : "none";
}

std::string errorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const ado::Error& error) {
    return error.SQLState + " " + error.Description;
  }
  return "no error";
}

}  // namespace payslate::odbc
