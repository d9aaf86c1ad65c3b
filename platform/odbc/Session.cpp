// Connecting, running statements, transactions.
#include "platform/odbc/Session.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <map>

#include "platform/odbc/Advice.h"
#include "platform/odbc/Parameters.h"
#include "platform/odbc/ResultCursor.h"
#include "platform/odbc/SelectedTable.h"
#include "platform/odbc/WideText.h"

namespace payslate::odbc {
namespace {

constexpr const char* source = "payslate.odbc";
constexpr SQLULEN loginSeconds = 15;
// Nobody is to wait without end for another user's lock.
constexpr SQLULEN querySeconds = 30;

SQLPOINTER attribute(SQLULEN value) {
  // How the interface passes numbers. NOLINTNEXTLINE(performance-no-int-to-ptr)
  return reinterpret_cast<SQLPOINTER>(value);
}

SQLWCHAR* units(std::u16string& text) {
  return reinterpret_cast<SQLWCHAR*>(text.data());
}

SQLCHAR* bytes(std::string& text) {
  return reinterpret_cast<SQLCHAR*>(text.data());
}

}  // namespace

Session::Session(const ConnectionString& connection)
    : connection_(connection),
      environment_(Handle::Kind::Environment, nullptr),
      handle_(Handle::Kind::Connection, &environment_) {
  connect(connection);
  askDriver();
}

Session::~Session() {
  // Cursors that are still about give their statements back here, before the connection goes.
  for (ResultCursor* cursor : std::set<ResultCursor*>(cursors_)) cursor->detach();
  if (connected_) handle_.disconnect();
}

void Session::connect(const ConnectionString& connection) {
  SQLSetConnectAttr(handle_.get(), SQL_ATTR_LOGIN_TIMEOUT, attribute(loginSeconds), 0);
  std::u16string text = toWide(connection.forDriver());
  SQLSMALLINT length = 0;
  check(SQLDriverConnectW(handle_.get(), nullptr, units(text), static_cast<SQLSMALLINT>(text.size()), nullptr,
                          0, &length, SQL_DRIVER_NOPROMPT),
        handle_);
  connected_ = true;
}

void Session::askDriver() {
  SQLUSMALLINT most = 0;
  SQLGetInfo(handle_.get(), SQL_MAX_CONCURRENT_ACTIVITIES, &most, sizeof most, nullptr);
  oneStatementAtATime_ = most == 1;
  std::array<SQLCHAR, 8> quote{};
  SQLSMALLINT length = 0;
  if (SQL_SUCCEEDED(
          SQLGetInfo(handle_.get(), SQL_IDENTIFIER_QUOTE_CHAR, quote.data(), quote.size(), &length)) &&
      length > 0)
    quote_ = reinterpret_cast<const char*>(quote.data());
  wide_ = keepsWideText();
}

// A driver without wide functions gets what the driver manager makes of the text, which loses letters.
bool Session::keepsWideText() const {
  std::u16string sent = u"select '\u00e9\u4e2d'";
  std::u16string back(sent.size() * 4, u'\0');
  SQLINTEGER length = 0;
  const SQLRETURN code = SQLNativeSqlW(handle_.get(), units(sent), static_cast<SQLINTEGER>(sent.size()),
                                       units(back), static_cast<SQLINTEGER>(back.size()), &length);
  // What cannot be asked is taken for what the interface's standard says.
  return !SQL_SUCCEEDED(code) || back.compare(0, sent.size(), sent) == 0;
}

bool Session::isLost() const {
  SQLUINTEGER dead = SQL_CD_FALSE;
  const SQLRETURN code =
      SQLGetConnectAttr(handle_.get(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr);
  return SQL_SUCCEEDED(code) && dead == SQL_CD_TRUE;
}

ado::Error Session::error(const Handle& handle) const {
  constexpr const char* notConnected = "08001";
  constexpr const char* communicationFailure = "08S01";
  Handle::Diagnosis reason =
      handle.failure().value_or(Handle::Diagnosis{"HY000", 0, "The driver gives no reason"});
  // Drivers report a server that is not there, or went away, under many codes.
  const bool communication = reason.state.starts_with("08");
  if (!connected_ && communication) reason.state = notConnected;
  if (connected_ && !communication && isLost()) reason.state = communicationFailure;
  const std::string advice = adviceFor(reason.state, reason.native);
  std::string description = connection_.withoutSecrets(reason.text);
  if (!advice.empty()) description += (description.empty() ? "" : "\r") + advice;
  return {description, reason.state, source, 0, reason.native};
}

void Session::check(std::int16_t code, const Handle& handle) const {
  if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA) return;
  throw error(handle);
}

std::unique_ptr<Handle> Session::newStatement() {
  if (oneStatementAtATime_) settleCursors();
  auto statement = std::make_unique<Handle>(Handle::Kind::Statement, &handle_);
  // Not every driver can stop a statement; one that cannot waits as long as its server does.
  SQLSetStmtAttr(statement->get(), SQL_ATTR_QUERY_TIMEOUT, attribute(querySeconds), 0);
  return statement;
}

bool Session::nextResult(const Handle& statement) const {
  const SQLRETURN code = SQLMoreResults(statement.get());
  check(code, statement);
  return code != SQL_NO_DATA;
}

Session::Result Session::run(std::string_view text, const std::vector<basic::Value>& parameters) {
  Result result;
  result.statement = newStatement();
  const Handle& statement = *result.statement;
  const Parameters bound(parameters, wide_);
  check(bound.bindTo(statement), statement);
  SQLRETURN code = SQL_SUCCESS;
  if (wide_) {
    std::u16string sent = toWide(text);
    code = SQLExecDirectW(statement.get(), units(sent), static_cast<SQLINTEGER>(sent.size()));
  } else {
    std::string sent(text);
    code = SQLExecDirect(statement.get(), bytes(sent), static_cast<SQLINTEGER>(sent.size()));
  }
  check(code, statement);
  do {
    check(SQLNumResultCols(statement.get(), &result.columns), statement);
    if (result.columns > 0) return result;
    SQLLEN rows = -1;
    if (result.changedRows < 0 && SQL_SUCCEEDED(SQLRowCount(statement.get(), &rows)))
      result.changedRows = rows;
  } while (nextResult(statement));
  return result;
}

std::vector<std::string> Session::keyColumns(const std::string& table) {
  constexpr SQLUSMALLINT nameColumn = 4;
  constexpr SQLUSMALLINT positionColumn = 5;
  const std::vector<std::string> parts = nameParts(table);
  std::u16string name = toWide(parts.empty() ? table : parts.back());
  std::u16string owner = toWide(parts.size() > 1 ? parts[parts.size() - 2] : std::string());
  const std::unique_ptr<Handle> statement = newStatement();
  check(SQLPrimaryKeysW(statement->get(), nullptr, 0, owner.empty() ? nullptr : units(owner),
                        static_cast<SQLSMALLINT>(owner.size()), units(name),
                        static_cast<SQLSMALLINT>(name.size())),
        *statement);
  std::map<SQLSMALLINT, std::string> columns;
  for (;;) {
    const SQLRETURN code = SQLFetch(statement->get());
    check(code, *statement);
    if (code == SQL_NO_DATA) break;
    std::array<SQLWCHAR, 256> column{};
    SQLSMALLINT position = 0;
    SQLLEN length = 0;
    check(SQLGetData(statement->get(), nameColumn, SQL_C_WCHAR, column.data(), sizeof column, &length),
          *statement);
    check(SQLGetData(statement->get(), positionColumn, SQL_C_SSHORT, &position, sizeof position, nullptr),
          *statement);
    const auto end = std::find(column.begin(), column.end(), SQLWCHAR{0});
    columns[position] = fromWide(std::u16string(column.begin(), end));
  }
  std::vector<std::string> names;
  names.reserve(columns.size());
  for (const auto& [position, column] : columns) names.push_back(column);
  return names;
}

void Session::setAutoCommit(bool on) {
  check(SQLSetConnectAttr(handle_.get(), SQL_ATTR_AUTOCOMMIT,
                          attribute(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER),
        handle_);
}

void Session::endTransaction(bool commit) {
  check(SQLEndTran(SQL_HANDLE_DBC, handle_.get(), commit ? SQL_COMMIT : SQL_ROLLBACK), handle_);
}

std::string Session::quoted(const std::string& name) const {
  if (quote_ == " ") return name;  // How a driver says that it knows no quotes.
  std::string result = quote_;
  for (const char c : name) result += quote_ == std::string(1, c) ? quote_ + quote_ : std::string(1, c);
  return result + quote_;
}

void Session::settleCursors() {
  for (ResultCursor* cursor : std::set<ResultCursor*>(cursors_)) cursor->settle();
}

}  // namespace payslate::odbc
