// Running statements, transactions.
#include "platform/odbc/ServerSession.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <map>
#include <utility>

#include "platform/basic/Error.h"
#include "platform/odbc/Parameters.h"
#include "platform/odbc/ResultCursor.h"
#include "platform/odbc/SelectedTable.h"
#include "platform/odbc/WideText.h"

namespace payslate::odbc {
namespace {

constexpr const char* source = "payslate.odbc";
constexpr std::int32_t noTransactionToRollBack = 3903;

SQLWCHAR* units(std::u16string& text) {
  return reinterpret_cast<SQLWCHAR*>(text.data());
}

/// Keys and names are refused without touching the transaction. Of anything else it cannot be told from here.
bool leavesTransaction(const ado::Error& error) {
  constexpr const char* states[] = {"23", "42S", "S00"};
  return std::any_of(std::begin(states), std::end(states),
                     [&error](const char* state) { return error.SQLState.starts_with(state); });
}

}  // namespace

ServerSession::ServerSession(const ado::ConnectionString& connection) : link_(connection) {}

ServerSession::~ServerSession() {
  // Cursors that are still about give their statements back here, before the connection goes.
  for (ResultCursor* cursor : std::exchange(cursors_, {})) cursor->detach();
  try {
    if (inTransaction()) rollback();
  } catch (const ado::Error&) {
    // The server rolls back what a connection leaves open.
  }
}

void ServerSession::check(std::int16_t code, const Handle& handle) {
  if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA) return;
  const ado::Error error = link_.error(handle);
  if (!leavesTransaction(error)) transaction_.endedBy(error);
  throw error;
}

std::unique_ptr<Handle> ServerSession::newStatement() {
  returnToAutoCommit();
  if (link_.servesOneStatementAtATime()) settleCursors();
  transaction_.refuseAfterFailure();
  return link_.newStatement();
}

std::int16_t ServerSession::send(const Handle& statement, std::string_view text) const {
  if (link_.isWide()) {
    std::u16string sent = toWide(text);
    return SQLExecDirectW(statement.get(), units(sent), static_cast<SQLINTEGER>(sent.size()));
  }
  std::string sent(text);
  return SQLExecDirect(statement.get(), reinterpret_cast<SQLCHAR*>(sent.data()),
                       static_cast<SQLINTEGER>(sent.size()));
}

ServerSession::Result ServerSession::run(std::string_view text) {
  Result result;
  result.statement = newStatement();
  check(send(*result.statement, text), *result.statement);
  do {
    result.columns = columnCount(*result.statement);
  } while (result.columns == 0 && nextResult(*result.statement));
  return result;
}

// Triggers come first: the last count is the statement's own.
std::int64_t ServerSession::change(std::string_view text, const std::vector<basic::Value>& parameters) {
  const std::unique_ptr<Handle> statement = newStatement();
  const std::unique_ptr<Parameters> bound = parametersOf(parameters);
  check(bound->bindTo(*statement), *statement);
  check(send(*statement, text), *statement);
  std::int64_t changed = -1;
  do {
    SQLLEN rows = -1;
    if (columnCount(*statement) == 0 && SQL_SUCCEEDED(SQLRowCount(statement->get(), &rows)) && rows >= 0)
      changed = rows;
  } while (nextResult(*statement));
  return changed;
}

std::unique_ptr<Parameters> ServerSession::parametersOf(const std::vector<basic::Value>& values) const {
  try {
    return std::make_unique<Parameters>(values, isWide());
  } catch (const basic::ValueError& error) {
    throw ado::Error(error.what(), "22008", source);
  }
}

std::int16_t ServerSession::columnCount(const Handle& statement) {
  SQLSMALLINT columns = 0;
  check(SQLNumResultCols(statement.get(), &columns), statement);
  if (columns < 0) throw ado::Error("The driver tells less than no columns.", "HY000", source);
  return columns;
}

bool ServerSession::nextResult(const Handle& statement) {
  const SQLRETURN code = SQLMoreResults(statement.get());
  check(code, statement);
  return code != SQL_NO_DATA;
}

std::vector<std::string> ServerSession::keyColumns(const std::string& table) {
  constexpr SQLUSMALLINT nameColumn = 4;
  constexpr SQLUSMALLINT positionColumn = 5;
  std::vector<std::string> parts = nameParts(table);
  parts.insert(parts.begin(), 2, std::string());
  std::array<std::u16string, 3> place;  // Database, owner, table; what is not named is left to the server.
  std::transform(parts.end() - 3, parts.end(), place.begin(),
                 [](const std::string& part) { return toWide(part); });
  for (const std::u16string& part : place)
    if (part.size() > static_cast<std::size_t>(std::numeric_limits<SQLSMALLINT>::max()))
      throw ado::Error("The name of the table is too long.", "HY090", source);
  const auto name = [&place](std::size_t part) { return place[part].empty() ? nullptr : units(place[part]); };
  const auto length = [&place](std::size_t part) { return static_cast<SQLSMALLINT>(place[part].size()); };
  const std::unique_ptr<Handle> statement = newStatement();
  check(SQLPrimaryKeysW(statement->get(), name(0), length(0), name(1), length(1), name(2), length(2)),
        *statement);
  std::map<SQLSMALLINT, std::string> columns;
  for (;;) {
    const SQLRETURN code = SQLFetch(statement->get());
    check(code, *statement);
    if (code == SQL_NO_DATA) break;
    std::array<SQLWCHAR, 256> column{};
    SQLSMALLINT position = 0;
    SQLLEN size = 0;
    check(SQLGetData(statement->get(), nameColumn, SQL_C_WCHAR, column.data(), sizeof column, &size),
          *statement);
    check(SQLGetData(statement->get(), positionColumn, SQL_C_SSHORT, &position, sizeof position, nullptr),
          *statement);
    columns[position] =
        fromWide(std::u16string(column.begin(), std::find(column.begin(), column.end(), SQLWCHAR{0})));
  }
  std::vector<std::string> names;
  names.reserve(columns.size());
  for (const auto& [position, column] : columns) names.push_back(column);
  return names;
}

void ServerSession::begin() {
  transaction_.requireNone();
  returnToAutoCommit();
  settleCursors();
  check(link_.setAutoCommit(false), link_.handle());
  autoCommit_ = false;
  transaction_.begin();
}

void ServerSession::commit() {
  transaction_.requireOpen("commit");
  settleCursors();
  transaction_.refuseAfterFailure();
  if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, link_.handle().get(), SQL_COMMIT))) {
    transaction_.endedBy(link_.error(link_.handle(), Doing::Committing));
    transaction_.refuseAfterFailure();
  }
  leaveTransaction();
}

void ServerSession::rollback() {
  transaction_.requireOpen("roll back");
  if (!link_.isLost()) {
    settleCursors();
    if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, link_.handle().get(), SQL_ROLLBACK))) {
      const ado::Error error = link_.error(link_.handle());
      // A server that chose this transaction as its victim has rolled it back already.
      if (error.NativeError != noTransactionToRollBack && !error.SQLState.starts_with("08")) throw error;
    }
  }
  leaveTransaction();
}

void ServerSession::settleCursors() {
  for (ResultCursor* cursor : std::set<ResultCursor*>(cursors_)) cursor->settle();
}

// The transaction has ended, whatever becomes of this: the next request tries again, and reports.
void ServerSession::leaveTransaction() {
  transaction_.end();
  try {
    returnToAutoCommit();
  } catch (const ado::Error&) {
    autoCommit_ = false;
  }
}

// On the way back drivers roll back what they take for open. Where the server has done it already they fail
// and stay: they are given something to roll back.
void ServerSession::returnToAutoCommit() {
  if (autoCommit_ || inTransaction()) return;
  try {
    check(link_.setAutoCommit(true), link_.handle());
  } catch (const ado::Error& error) {
    if (error.NativeError != noTransactionToRollBack) throw;
    const std::unique_ptr<Handle> statement = link_.newStatement();
    check(send(*statement, "begin transaction"), *statement);
    check(link_.setAutoCommit(true), link_.handle());
  }
  autoCommit_ = true;
}

}  // namespace payslate::odbc
