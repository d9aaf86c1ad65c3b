// The entry points that the provider calls, and a check of what it passes.
#include "fuzz/HostileDriver.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <vector>

#include "fuzz/Bytes.h"
#include "fuzz/Target.h"

namespace {

using payslate::fuzz::require;

/// A handle that the provider holds, and what it has bound to it.
struct Lent {
  SQLSMALLINT kind;
  SQLHANDLE parent;
  struct Parameter {
    const void* data;
    const SQLLEN* length;
  };
  std::map<SQLUSMALLINT, Parameter> parameters;
};

payslate::fuzz::Bytes feed;
std::map<SQLHANDLE, Lent> lent;

// How a driver is, from its first answer to its last.
struct Habits {
  bool endlessRecords = false;
  bool narrow = false;
  int morePieces = 0;  ///< Of a text, beyond what any reader wants.
};
Habits habits;

Lent& known(SQLHANDLE handle, SQLSMALLINT kind) {
  const auto found = lent.find(handle);
  require(found != lent.end() && found->second.kind == kind,
          "a handle is used while it lives, as what it is");
  return found->second;
}

/// Mostly success, and now and then any other answer, also of a kind that the call does not have.
SQLRETURN answer(SQLRETURN behindTheBytes = SQL_SUCCESS) {
  constexpr SQLRETURN others[] = {SQL_SUCCESS_WITH_INFO, SQL_NO_DATA,        SQL_ERROR, SQL_NEED_DATA,
                                  SQL_STILL_EXECUTING,   SQL_INVALID_HANDLE, 77,        -77};
  constexpr std::uint8_t firstOther = 0xD0;
  if (feed.atEnd()) return behindTheBytes;
  const std::uint8_t given = feed.byte();
  return given < firstOther ? SQLRETURN{SQL_SUCCESS} : others[given % std::size(others)];
}

/// A length or indicator: what it should be, or one of those that hurt.
template <typename Length>
Length lengthOf(std::size_t right) {
  constexpr long others[] = {SQL_NULL_DATA, SQL_NO_TOTAL, -77, 0, 1, 32767, 4096, 1L << 30};
  constexpr std::uint8_t firstOther = 0xC0;
  const std::uint8_t given = feed.byte();
  return static_cast<Length>(given < firstOther ? static_cast<long>(right)
                                                : others[given % std::size(others)]);
}

/// Fills a part of a buffer of `room` units, and ends it with a zero or does not. How many units it filled.
template <typename Unit>
std::size_t fill(Unit* buffer, std::size_t room) {
  if (buffer == nullptr || room == 0) return 0;
  const std::string_view given = feed.text();
  const std::size_t units = std::min(given.size() / sizeof(Unit), room);
  std::memcpy(buffer, given.data(), units * sizeof(Unit));
  if (units < room && feed.byte() % 8 != 0) buffer[units] = 0;
  return units;
}

template <typename Unit>
void readText(const Unit* text, long length) {
  if (text == nullptr) return require(length == 0, "a text that is none has no length");
  require(length >= 0 || length == SQL_NTS, "a text's length is one");
  std::size_t sum = 0;  // The sanitizers look whether all of it is there.
  for (long i = 0; length == SQL_NTS ? text[i] != 0 : i < length; ++i)
    sum += static_cast<std::size_t>(text[i]);
  require(sum <= static_cast<std::size_t>(-1), "a text can be read");
}

void readParameters(const Lent& statement) {
  for (const auto& [number, parameter] : statement.parameters)
    if (parameter.length != nullptr && *parameter.length >= 0)
      readText(static_cast<const unsigned char*>(parameter.data), static_cast<long>(*parameter.length));
}

template <typename Unit>
SQLRETURN describe(Unit* name, SQLSMALLINT room, SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* size,
                   SQLSMALLINT* digits) {
  constexpr SQLSMALLINT types[] = {
      SQL_VARCHAR,     SQL_WVARCHAR,      SQL_INTEGER, SQL_BIGINT,    SQL_DECIMAL,
      SQL_NUMERIC,     SQL_DOUBLE,        SQL_BIT,     SQL_TYPE_DATE, SQL_TYPE_TIMESTAMP,
      SQL_LONGVARCHAR, SQL_LONGVARBINARY, SQL_GUID,    12345,         -12345};
  const SQLRETURN code = answer();
  *length = lengthOf<SQLSMALLINT>(fill(name, static_cast<std::size_t>(room)));
  *type = types[feed.byte() % std::size(types)];
  *size = feed.byte() % 4 == 0 ? static_cast<SQLULEN>(-1) : 10;
  *digits = feed.number<SQLSMALLINT>();
  return code;
}

template <typename Unit>
SQLRETURN diagnose(SQLSMALLINT kind, SQLHANDLE handle, Unit* state, SQLINTEGER* native, Unit* text,
                   SQLSMALLINT room, SQLSMALLINT* length) {
  constexpr const char* states[] = {"01000", "42000", "08S01", "40001", "23000", "HYT00", "00000", "42S02"};
  constexpr SQLINTEGER natives[] = {0, 1205, 3903, 2627, 18456, -1, 4002, 1222};
  known(handle, kind);
  if (feed.atEnd() && !habits.endlessRecords) return SQL_NO_DATA;
  if (!habits.endlessRecords && feed.byte() % 2 == 0) return SQL_NO_DATA;
  const std::uint8_t which = feed.byte();
  if (which >= 0xF0)
    fill(state, 6);
  else
    std::copy_n(states[which % std::size(states)], 6, state);
  *native = natives[feed.byte() % std::size(natives)];
  *length = lengthOf<SQLSMALLINT>(fill(text, static_cast<std::size_t>(room)));
  return SQL_SUCCESS;
}

}  // namespace

namespace payslate::fuzz {

void feedDriver(std::string_view answers) {
  feed = Bytes(answers);
  const std::uint8_t given = feed.byte();
  // Such texts take their time: a few inputs with them will do.
  habits = {given % 4 == 1, given % 8 >= 4, answers.starts_with("endless") ? 5000 : 0};
}

void requireDriverAtRest() {
  require(lent.empty(), "all handles are given back");
}

}  // namespace payslate::fuzz

// What these look like is the interface's. NOLINTBEGIN(readability-non-const-parameter)
extern "C" {

SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT kind, SQLHANDLE parent, SQLHANDLE* made) {
  if (kind == SQL_HANDLE_DBC) known(parent, SQL_HANDLE_ENV);
  if (kind == SQL_HANDLE_STMT) known(parent, SQL_HANDLE_DBC);
  const SQLRETURN code = answer();
  if (!SQL_SUCCEEDED(code)) return code;
  *made = new char;
  lent[*made] = {kind, parent, {}};
  return code;
}

SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT kind, SQLHANDLE handle) {
  known(handle, kind);
  for (const auto& [other, one] : lent)
    require(one.parent != handle, "what a handle gave is freed before it");
  lent.erase(handle);
  delete static_cast<char*>(handle);
  return answer();
}

SQLRETURN SQL_API SQLDisconnect(SQLHDBC connection) {
  known(connection, SQL_HANDLE_DBC);
  for (const auto& [other, one] : lent)
    require(one.parent != connection, "statements end before their connection");
  return answer();
}

SQLRETURN SQL_API SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) {
  return answer();
}

SQLRETURN SQL_API SQLSetConnectAttr(SQLHDBC connection, SQLINTEGER, SQLPOINTER, SQLINTEGER) {
  known(connection, SQL_HANDLE_DBC);
  return answer();
}

SQLRETURN SQL_API SQLGetConnectAttr(SQLHDBC connection, SQLINTEGER, SQLPOINTER value, SQLINTEGER,
                                    SQLINTEGER*) {
  known(connection, SQL_HANDLE_DBC);
  *static_cast<SQLUINTEGER*>(value) = feed.byte() % 8 == 7 ? SQL_CD_TRUE : SQL_CD_FALSE;
  return answer();
}

SQLRETURN SQL_API SQLSetStmtAttr(SQLHSTMT statement, SQLINTEGER, SQLPOINTER, SQLINTEGER) {
  known(statement, SQL_HANDLE_STMT);
  return answer();
}

SQLRETURN SQL_API SQLDriverConnectW(SQLHDBC connection, SQLHWND, SQLWCHAR* text, SQLSMALLINT length,
                                    SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*, SQLUSMALLINT) {
  known(connection, SQL_HANDLE_DBC);
  readText(text, length);
  return answer();
}

SQLRETURN SQL_API SQLGetInfo(SQLHDBC connection, SQLUSMALLINT, SQLPOINTER value, SQLSMALLINT room,
                             SQLSMALLINT* length) {
  known(connection, SQL_HANDLE_DBC);
  const std::size_t units = fill(static_cast<char*>(value), static_cast<std::size_t>(room));
  if (length != nullptr) *length = lengthOf<SQLSMALLINT>(units);
  return answer();
}

SQLRETURN SQL_API SQLNativeSqlW(SQLHDBC connection, SQLWCHAR* text, SQLINTEGER length, SQLWCHAR* back,
                                SQLINTEGER room, SQLINTEGER* needed) {
  known(connection, SQL_HANDLE_DBC);
  readText(text, length);
  if (!habits.narrow) std::copy_n(text, std::min(length, room), back);
  *needed = lengthOf<SQLINTEGER>(static_cast<std::size_t>(length));
  return answer();
}

SQLRETURN SQL_API SQLExecDirectW(SQLHSTMT statement, SQLWCHAR* text, SQLINTEGER length) {
  readText(text, length);
  readParameters(known(statement, SQL_HANDLE_STMT));
  return answer();
}

SQLRETURN SQL_API SQLExecDirect(SQLHSTMT statement, SQLCHAR* text, SQLINTEGER length) {
  readText(text, length);
  readParameters(known(statement, SQL_HANDLE_STMT));
  return answer();
}

SQLRETURN SQL_API SQLPrimaryKeysW(SQLHSTMT statement, SQLWCHAR* catalog, SQLSMALLINT catalogLength,
                                  SQLWCHAR* schema, SQLSMALLINT schemaLength, SQLWCHAR* table,
                                  SQLSMALLINT tableLength) {
  known(statement, SQL_HANDLE_STMT);
  readText(catalog, catalogLength);
  readText(schema, schemaLength);
  readText(table, tableLength);
  return answer();
}

SQLRETURN SQL_API SQLBindParameter(SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT, SQLSMALLINT,
                                   SQLSMALLINT, SQLULEN, SQLSMALLINT, SQLPOINTER value, SQLLEN,
                                   SQLLEN* length) {
  known(statement, SQL_HANDLE_STMT).parameters[number] = {value, length};
  return answer();
}

SQLRETURN SQL_API SQLNumResultCols(SQLHSTMT statement, SQLSMALLINT* count) {
  constexpr SQLSMALLINT others[] = {-1, -32768, 300, 2000};
  known(statement, SQL_HANDLE_STMT);
  const std::uint8_t given = feed.byte();
  *count = given < 0xF0 ? static_cast<SQLSMALLINT>(given % 6) : others[given % std::size(others)];
  return answer();
}

SQLRETURN SQL_API SQLRowCount(SQLHSTMT statement, SQLLEN* count) {
  known(statement, SQL_HANDLE_STMT);
  *count = lengthOf<SQLLEN>(1);
  return answer();
}

SQLRETURN SQL_API SQLMoreResults(SQLHSTMT statement) {
  known(statement, SQL_HANDLE_STMT);
  return answer(SQL_NO_DATA);
}

SQLRETURN SQL_API SQLDescribeColW(SQLHSTMT statement, SQLUSMALLINT, SQLWCHAR* name, SQLSMALLINT room,
                                  SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* size, SQLSMALLINT* digits,
                                  SQLSMALLINT*) {
  known(statement, SQL_HANDLE_STMT);
  return describe(name, room, length, type, size, digits);
}

SQLRETURN SQL_API SQLDescribeCol(SQLHSTMT statement, SQLUSMALLINT, SQLCHAR* name, SQLSMALLINT room,
                                 SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* size, SQLSMALLINT* digits,
                                 SQLSMALLINT*) {
  known(statement, SQL_HANDLE_STMT);
  return describe(name, room, length, type, size, digits);
}

SQLRETURN SQL_API SQLFetch(SQLHSTMT statement) {
  known(statement, SQL_HANDLE_STMT);
  return answer(SQL_NO_DATA);
}

SQLRETURN SQL_API SQLGetData(SQLHSTMT statement, SQLUSMALLINT, SQLSMALLINT as, SQLPOINTER value, SQLLEN room,
                             SQLLEN* length) {
  known(statement, SQL_HANDLE_STMT);
  const bool wide = as == SQL_C_WCHAR;
  const auto bytes = static_cast<std::size_t>(room);
  const std::size_t units = wide ? fill(static_cast<SQLWCHAR*>(value), bytes / sizeof(SQLWCHAR))
                                 : fill(static_cast<char*>(value), bytes);
  const auto right = lengthOf<SQLLEN>(wide ? units * sizeof(SQLWCHAR) : units);
  if (length != nullptr) *length = feed.atEnd() && habits.morePieces-- > 0 ? SQL_NO_TOTAL : right;
  return answer();
}

SQLRETURN SQL_API SQLEndTran(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT) {
  known(handle, kind);
  return answer();
}

SQLRETURN SQL_API SQLGetDiagRecW(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT, SQLWCHAR* state,
                                 SQLINTEGER* native, SQLWCHAR* text, SQLSMALLINT room, SQLSMALLINT* length) {
  return diagnose(kind, handle, state, native, text, room, length);
}

SQLRETURN SQL_API SQLGetDiagRec(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT, SQLCHAR* state,
                                SQLINTEGER* native, SQLCHAR* text, SQLSMALLINT room, SQLSMALLINT* length) {
  return diagnose(kind, handle, state, native, text, room, length);
}

}  // extern "C"
// NOLINTEND(readability-non-const-parameter)
