// The table of SQLite's codes, and what hides in its texts.
#include "platform/sqlite/Failures.h"

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "platform/tsql/Schema.h"
#include "platform/tsql/SqlError.h"

namespace payslate::sqlite {

namespace {

constexpr int primaryCodeMask = 0xff;

std::string afterColon(const std::string& message) {
  const std::size_t colon = message.find(": ");
  return colon == std::string::npos ? message : message.substr(colon + 2);
}

std::string constraintSentence(int code, const std::string& message) {
  std::string what = afterColon(message);
  // The companion of a unique index, for rows with a Null, is not told apart.
  if (const std::size_t companion = what.find(tsql::nullIndexSuffix + std::string("'"));
      companion != std::string::npos) {
    what.erase(companion, std::string_view(tsql::nullIndexSuffix).size());
  }
  switch (code) {
    case SQLITE_CONSTRAINT_NOTNULL:
      return "The column '" + what + "' must not be Null.";
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return "There is a row with the same values already (" + what + "): they must be unique.";
    case SQLITE_CONSTRAINT_CHECK:
      return "A value is refused by the table's check " + what + ".";
    default:
      return "A value is refused by the table: " + message + ".";
  }
}

std::string readOnlySentence(sqlite3* handle) {
  return "The database file '" + std::string(sqlite3_db_filename(handle, "main")) +
         "' is open for reading alone: to change it, make the file and its folder writable, or copy it to a folder "
         "that is, and open it again.";
}

}  // namespace

std::string damagedSentence(const std::string& path, const std::string& where) {
  return "The database file '" + path + "' is damaged" + (where.empty() ? "" : " in " + where) +
         ": restore a backup of it.";
}

ado::Error failure(sqlite3* handle, int code) {
  const std::string message = handle != nullptr ? sqlite3_errmsg(handle) : sqlite3_errstr(code);
  const auto made = [&](const std::string& description, const char* sqlState) {
    return ado::Error(description, sqlState, failureSource, 0, code);
  };
  const auto damaged = [&] {
    const char* path = handle == nullptr ? nullptr : sqlite3_db_filename(handle, "main");
    return made(damagedSentence(path == nullptr ? "" : path, ""), tsql::state::general);
  };
  switch (code & primaryCodeMask) {
    case SQLITE_CONSTRAINT:
      return made(constraintSentence(code, message), tsql::state::constraint);
    case SQLITE_BUSY:
      return made("The database is locked by another user. Try again in a moment.", "HYT00");
    case SQLITE_INTERRUPT:
      return made("The statement takes too long and was stopped.", "HYT00");
    case SQLITE_CORRUPT:
      return damaged();
    case SQLITE_TOOBIG:
      return made("A text is longer than the database can hold.", tsql::state::truncation);
    case SQLITE_NOTADB:
      return made("The file is not a database, or its beginning is damaged: restore a backup of it.",
                  tsql::state::general);
    case SQLITE_CANTOPEN:
      return made("The database file cannot be opened.", "08001");
    case SQLITE_READONLY:
      return made(readOnlySentence(handle), "25006");
    case SQLITE_NOMEM:
      return made("There is not enough memory.", tsql::state::general);
    case SQLITE_FULL:
      return made("The disk is full.", tsql::state::general);
    case SQLITE_IOERR:
      if (code == SQLITE_IOERR_SHMSIZE) return made("The disk is full.", tsql::state::general);
      return made("The disk cannot be read or written (" + message + ").", tsql::state::general);
    default:
      break;
  }
  if (message.starts_with("no such index"))
    return made("There is no index '" + afterColon(message) + "'.", "42S12");
  if (message.find("already exists") != std::string::npos)
    return made("There is an object of that name already: " + message + ".", "42S01");
  // What the catalog promised is not there, or reads otherwise: a statement of ours is never wrong by itself.
  for (const char* sign : {"no such ", "malformed", "unrecognized token", "unsupported file format"})
    if (message.starts_with(sign)) return damaged();
  // The database's own parser gives up on expressions that nest too deep.
  for (const char* limit : {"parser stack overflow", "maximum depth", "too many"}) {
    if (message.find(limit) != std::string::npos) {
      return made("The statement is nested too deeply, or is too large (" + message + ").",
                  tsql::state::syntax);
    }
  }
  return made("The database cannot do this (" + message + ").", tsql::state::general);
}

}  // namespace payslate::sqlite
