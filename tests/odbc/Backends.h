// The databases that stand behind ODBC in these tests, and in what they differ.
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/ado/Error.h"
#include "platform/ado/Provider.h"

namespace payslate::odbc {

struct Backend {
  friend void PrintTo(const Backend& backend, std::ostream* out) { *out << backend.name; }

  std::string name;
  std::string connection;
  int rows = 0;
  std::string numbers;  ///< A query for 1 to `rows`, each with a text of 100 letters; the last cannot be had.

  std::string moment = "timestamp";  ///< Its type of a date with a time of day.

  /// Its driver reads decimals as doubles.
  [[nodiscard]] bool roundsDecimals() const { return name == "sqlite"; }
  /// Rows come before a later one of a few fails.
  [[nodiscard]] bool failsRowByRow() const { return name == "tsql"; }
  /// It stores any text in a column of any type.
  [[nodiscard]] bool takesAnyText() const { return name == "sqlite"; }
};

/// SQLite always; PostgreSQL and a server that speaks Transact-SQL where PAYSLATE_ODBC_POSTGRES and
/// PAYSLATE_ODBC_TSQL hold connection strings.
const std::vector<Backend>& backends();

std::unique_ptr<ado::Provider> open(const std::string& connection);

/// First value of the first row as text; "none" without rows.
std::string first(ado::Provider& provider, const std::string& statement);

/// SQLSTATE, a blank and the description of the ado::Error that `action` raises; "no error".
std::string errorOf(const std::function<void()>& action);

}  // namespace payslate::odbc
