// Connecting, asking the driver, reporting.
#include "platform/odbc/Link.h"

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <limits>

#include "platform/odbc/DriverString.h"
#include "platform/odbc/WideText.h"

namespace payslate::odbc {
namespace {

constexpr SQLULEN loginSeconds = 15;
// Nobody is to wait without end for another user's lock.
constexpr SQLULEN querySeconds = 30;
// Nor for a server that went silent: as long as a statement, and as long again for the end of it.
constexpr SQLULEN silenceSeconds = 60;

SQLPOINTER attribute(SQLULEN value) {
  // How the interface passes numbers. NOLINTNEXTLINE(performance-no-int-to-ptr)
  return reinterpret_cast<SQLPOINTER>(value);
}

SQLWCHAR* units(std::u16string& text) {
  return reinterpret_cast<SQLWCHAR*>(text.data());
}

}  // namespace

Link::Link(const ado::ConnectionString& connection)
    : connection_(connection),
      environment_(Handle::Kind::Environment, nullptr),
      handle_(Handle::Kind::Connection, &environment_) {
  connect();
  askDriver();
}

Link::~Link() {
  if (connected_) handle_.disconnect();
}

void Link::connect() {
  SQLSetConnectAttr(handle_.get(), SQL_ATTR_LOGIN_TIMEOUT, attribute(loginSeconds), 0);
  SQLSetConnectAttr(handle_.get(), SQL_ATTR_CONNECTION_TIMEOUT, attribute(silenceSeconds), 0);
  std::u16string text = toWide(driverString(connection_));
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<SQLSMALLINT>::max()))
    throw ado::Error("The connection string is too long.", "HY090", "payslate.odbc");
  SQLSMALLINT length = 0;
  const SQLRETURN code =
      SQLDriverConnectW(handle_.get(), nullptr, units(text), static_cast<SQLSMALLINT>(text.size()), nullptr,
                        0, &length, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(code)) throw error(handle_, Doing::Connecting);
  connected_ = true;
}

void Link::askDriver() {
  SQLUSMALLINT most = 0;
  SQLGetInfo(handle_.get(), SQL_MAX_CONCURRENT_ACTIVITIES, &most, sizeof most, nullptr);
  oneStatementAtATime_ = most == 1;
  std::array<char, 8> quote{};
  SQLSMALLINT length = 0;
  if (SQL_SUCCEEDED(
          SQLGetInfo(handle_.get(), SQL_IDENTIFIER_QUOTE_CHAR, quote.data(), quote.size(), &length)) &&
      length > 0)
    quote_ = textIn(quote, length);
  wide_ = keepsWideText();
}

// A driver without wide functions gets what the driver manager makes of the text, which loses letters.
bool Link::keepsWideText() const {
  std::u16string sent = u"select '\u00e9\u4e2d'";
  std::u16string back(sent.size() * 4, u'\0');
  SQLINTEGER length = 0;
  const SQLRETURN code = SQLNativeSqlW(handle_.get(), units(sent), static_cast<SQLINTEGER>(sent.size()),
                                       units(back), static_cast<SQLINTEGER>(back.size()), &length);
  // What cannot be asked is taken for what the interface's standard says.
  return !SQL_SUCCEEDED(code) || back.compare(0, sent.size(), sent) == 0;
}

std::unique_ptr<Handle> Link::newStatement() const {
  auto statement = std::make_unique<Handle>(Handle::Kind::Statement, &handle_);
  // Not every driver can stop a statement; one that cannot waits as long as its server does.
  SQLSetStmtAttr(statement->get(), SQL_ATTR_QUERY_TIMEOUT, attribute(querySeconds), 0);
  return statement;
}

std::int16_t Link::setAutoCommit(bool on) const {
  return SQLSetConnectAttr(handle_.get(), SQL_ATTR_AUTOCOMMIT,
                           attribute(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER);
}

std::string Link::quoted(const std::string& name) const {
  if (quote_ == " ") return name;  // How a driver says that it knows no quotes.
  std::string result = quote_;
  for (const char c : name) result += quote_ == std::string(1, c) ? quote_ + quote_ : std::string(1, c);
  return result + quote_;
}

bool Link::isLost() const {
  SQLUINTEGER dead = SQL_CD_FALSE;
  const SQLRETURN code =
      SQLGetConnectAttr(handle_.get(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr);
  return SQL_SUCCEEDED(code) && dead == SQL_CD_TRUE;
}

ado::Error Link::error(const Handle& handle, Doing doing) const {
  constexpr const char* notConnected = "08001";
  constexpr const char* communicationFailure = "08S01";
  Handle::Diagnosis reason = handle.failure(wide_).value_or(Handle::Diagnosis{"HY000", 0, ""});
  // Drivers report a server that is not there, or went away, under many codes.
  const bool communication = reason.state.starts_with("08");
  if (!connected_ && communication) reason.state = notConnected;
  if (connected_ && !communication && isLost()) reason.state = communicationFailure;
  const std::string advice = adviceFor(reason.state, reason.native, doing);
  std::string description = connection_.withoutSecrets(reason.text);
  if (!advice.empty()) description += (description.empty() ? "" : "\r") + advice;
  if (description.empty()) description = "The driver gives no reason";
  return {description, reason.state, "payslate.odbc", 0, reason.native};
}

}  // namespace payslate::odbc
