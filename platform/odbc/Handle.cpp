// Handles and diagnostic records.
#include "platform/odbc/Handle.h"

#include <sql.h>
#include <sqlext.h>

#include <array>

#include "platform/ado/Error.h"
#include "platform/odbc/WideText.h"

namespace payslate::odbc {
namespace {

constexpr SQLSMALLINT longestMessage = 4096;
constexpr SQLSMALLINT stateLength = 5;
constexpr int mostRecords = 100;  // Some drivers find no end of them.

static_assert(static_cast<int>(Handle::Kind::Environment) == SQL_HANDLE_ENV &&
              static_cast<int>(Handle::Kind::Connection) == SQL_HANDLE_DBC &&
              static_cast<int>(Handle::Kind::Statement) == SQL_HANDLE_STMT);
static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

// Every program on the way back puts its name in brackets before the text, and no blank behind it: a word in
// brackets that the server's sentence begins with stays.
std::string withoutOrigin(std::string text) {
  for (std::size_t end = 0; text.starts_with('[') && (end = text.find(']')) != std::string::npos;) {
    if (end + 1 < text.size() && text[end + 1] == ' ') break;
    text.erase(0, end + 1);
  }
  text.erase(0, text.find_first_not_of(" \r\n"));
  text.erase(text.find_last_not_of(" \r\n") + 1);
  return text;
}

}  // namespace

Handle::Handle(Kind kind, const Handle* parent) : kind_(kind) {
  const SQLRETURN code = SQLAllocHandle(static_cast<SQLSMALLINT>(kind),
                                        parent == nullptr ? SQL_NULL_HANDLE : parent->get(), &handle_);
  if (SQL_SUCCEEDED(code)) {
    // The driver manager wants to hear of the version before anything else.
    if (kind == Kind::Environment)
      SQLSetEnvAttr(handle_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    return;
  }
  const auto reason = parent == nullptr ? std::nullopt : parent->failure();
  throw ado::Error(reason && !reason->text.empty() ? reason->text : "The driver manager gives no handle",
                   reason ? reason->state : "HY000", "payslate.odbc", 0, reason ? reason->native : 0);
}

Handle::~Handle() {
  SQLFreeHandle(static_cast<SQLSMALLINT>(kind_), handle_);
}

void Handle::disconnect() {
  SQLDisconnect(handle_);
}

std::optional<Handle::Diagnosis> Handle::record(int number, bool wide) const {
  const auto kind = static_cast<SQLSMALLINT>(kind_);
  const auto which = static_cast<SQLSMALLINT>(number);
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  if (wide) {
    std::array<SQLWCHAR, stateLength + 1> state{};
    std::array<SQLWCHAR, longestMessage> text{};
    if (!SQL_SUCCEEDED(SQLGetDiagRecW(kind, handle_, which, state.data(), &native, text.data(),
                                      longestMessage, &length)))
      return std::nullopt;
    return Diagnosis{textIn(state, stateLength), native, withoutOrigin(textIn(text, length))};
  }
  std::array<SQLCHAR, stateLength + 1> state{};
  std::array<SQLCHAR, longestMessage> text{};
  if (!SQL_SUCCEEDED(
          SQLGetDiagRec(kind, handle_, which, state.data(), &native, text.data(), longestMessage, &length)))
    return std::nullopt;
  return Diagnosis{textIn(state, stateLength), native, withoutOrigin(textIn(text, length))};
}

std::optional<Handle::Diagnosis> Handle::failure(bool wide) const {
  constexpr const char* remarks = "01";
  for (int number = 1; number <= mostRecords; ++number) {
    std::optional<Diagnosis> found = record(number, wide);
    if (!found) break;
    if (!found->state.starts_with(remarks)) return found;
  }
  return record(1, wide);
}

}  // namespace payslate::odbc
