// The tables are the schema's; the rows are written as the embedded engine stores them, set by set.
#include "bench/PayrollData.h"

#include <sqlite3.h>

#include <array>
#include <filesystem>
#include <utility>

#include "bench/PayrollRows.h"
#include "platform/ado/Connection.h"
#include "platform/sqlite/DatabaseFile.h"
#include "platform/sqlite/Functions.h"
#include "platform/sqlite/Opening.h"
#include "schema/schema.h"
#include "schema/upgrade.h"

namespace payslate::bench {

namespace {

std::int32_t stepOf(const PayrollSize& size) {
  return size.employees / chosenEmployees;
}

void run(sqlite3* handle, const std::string& sql, const PayrollSize& size) {
  sqlite3_stmt* statement = nullptr;
  int code = sqlite3_prepare_v2(handle, sql.c_str(), -1, &statement, nullptr);
  const std::array<std::pair<const char*, int>, 4> parameters{{{":headers", size.headers},
                                                               {":employees", size.employees},
                                                               {":step", stepOf(size)},
                                                               {":chosen", chosenEmployees}}};
  for (const auto& [name, value] : parameters)
    sqlite3_bind_int(statement, sqlite3_bind_parameter_index(statement, name), value);
  while (code == SQLITE_OK || code == SQLITE_ROW) code = sqlite3_step(statement);
  sqlite3_finalize(statement);
  if (code != SQLITE_DONE) throw ado::Error(std::string(sqlite3_errmsg(handle)) + " in " + sql, "HY000");
}

void fill(const std::string& path, const PayrollSize& size) {
  const sqlite::OpenedFile file = sqlite::openFile({.path = path});
  sqlite3* handle = file.handle.get();
  sqlite::DatabaseFile forErrors({.path = ":memory:", .create = true});
  sqlite::registerFunctions(handle, forErrors);  // The indexes need the collations.
  for (const char* statement :
       {"PRAGMA journal_mode = DELETE", "PRAGMA synchronous = OFF", "PRAGMA cache_size = -400000", "BEGIN"})
    run(handle, statement, size);
  for (const std::string& statement : rowStatements()) run(handle, statement, size);
  for (const char* statement : {"COMMIT", "PRAGMA journal_mode = WAL"}) run(handle, statement, size);
}

/// Is it there, with the tables that this program makes?
bool isPresent(const std::string& path) {
  if (!std::filesystem::exists(path)) return false;
  ado::Connection connection;
  connection.Open(path);
  return schema::version(connection) == schema::presentVersion();
}

}  // namespace

basic::Date processDate() {
  return basic::Date::fromCalendar(financialYear, 4, 30);
}

std::vector<std::int32_t> chosen(const PayrollSize& size) {
  std::vector<std::int32_t> employees;
  for (std::int32_t i = 1; i <= chosenEmployees; ++i) employees.push_back(i * stepOf(size));
  return employees;
}

// The company's headers have the odd numbers, those of the chosen employees' the last of them.
std::int32_t lastEntry(const PayrollSize& size, std::size_t position) {
  return size.headers - 1 - 2 * (chosenEmployees - 1 - static_cast<std::int32_t>(position));
}

bool hasFullPrefix(const PayrollSize& size) {
  return size.headers / 2 - chosenEmployees * ownEntries >= numbersOfFullPrefix;
}

void makePayroll(const std::string& path, const PayrollSize& size) {
  if (isPresent(path)) return;
  const std::string unfinished = path + ".part";
  std::filesystem::remove(unfinished);
  {
    ado::Connection connection;
    connection.Open(unfinished + ";Create=True");
    schema::create(connection);
  }
  fill(unfinished, size);
  std::filesystem::rename(unfinished, path);
}

}  // namespace payslate::bench
