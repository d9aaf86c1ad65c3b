// Handles and diagnostic records.
#include "platform/odbc/Handle.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>

#include "platform/ado/Error.h"
#include "platform/odbc/WideText.h"

namespace payslate::odbc {
namespace {

constexpr std::size_t longestMessage = 4096;
constexpr std::size_t stateLength = 5;

static_assert(static_cast<int>(Handle::Kind::Environment) == SQL_HANDLE_ENV &&
              static_cast<int>(Handle::Kind::Connection) == SQL_HANDLE_DBC &&
              static_cast<int>(Handle::Kind::Statement) == SQL_HANDLE_STMT);
static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

std::string utf8(const SQLWCHAR* text, std::size_t length) {
  return fromWide(std::u16string(text, text + length));
}

// Every program on the way back puts its name in brackets before the text.
std::string withoutOrigin(std::string text) {
  while (text.starts_with('[') && text.find(']') != std::string::npos) text.erase(0, text.find(']') + 1);
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
  throw ado::Error(reason ? reason->text : "The driver manager gives no handle",
                   reason ? reason->state : "HY000", "payslate.odbc", 0, reason ? reason->native : 0);
}

Handle::~Handle() {
  SQLFreeHandle(static_cast<SQLSMALLINT>(kind_), handle_);
}

void Handle::disconnect() {
  SQLDisconnect(handle_);
}

std::optional<Handle::Diagnosis> Handle::record(int number) const {
  std::array<SQLWCHAR, stateLength + 1> state{};
  std::array<SQLWCHAR, longestMessage> text{};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  const SQLRETURN code =
      SQLGetDiagRecW(static_cast<SQLSMALLINT>(kind_), handle_, static_cast<SQLSMALLINT>(number), state.data(),
                     &native, text.data(), static_cast<SQLSMALLINT>(text.size()), &length);
  if (!SQL_SUCCEEDED(code)) return std::nullopt;
  const auto given = static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0));
  const std::size_t characters = std::min(given, text.size() - 1);
  return Diagnosis{utf8(state.data(), stateLength), native, withoutOrigin(utf8(text.data(), characters))};
}

std::optional<Handle::Diagnosis> Handle::failure() const {
  constexpr const char* remarks = "01";
  for (int number = 1;; ++number) {
    std::optional<Diagnosis> found = record(number);
    if (!found) return record(1);
    if (!found->state.starts_with(remarks)) return found;
  }
}

}  // namespace payslate::odbc
