// Who can write opens as SQLite does; who cannot, with care for those who can.
#include "platform/sqlite/Opening.h"

#include <sqlite3.h>

#include "platform/sqlite/Failures.h"

namespace payslate::sqlite {

namespace {

constexpr int mostBytesOfText = 1 << 24;

// For a join the library may put a filter before an index, one that it makes by itself or, where the file has
// statistics, one of the table's. The filter hashes the stored bytes, and loses rows whose values our
// collations call equal. The pragma keeps it away from its own indexes; the switch, which has no public name,
// from all.
void neverFilterByHash(sqlite3* handle) {
  constexpr unsigned bloomFilter = 0x00080000;
  sqlite3_exec(handle, "PRAGMA automatic_index = OFF", nullptr, nullptr, nullptr);
  sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, handle, bloomFilter);
}

Handle opened(const FileWish& wish, const std::string& name, int flags) {
  sqlite3* raw = nullptr;
  // A connection is used by one thread at a time, so SQLite need not lock it for every call.
  constexpr int always = SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX;
  const int code = sqlite3_open_v2(name.c_str(), &raw, flags | always, nullptr);
  Handle handle(raw);
  if (code != SQLITE_OK) {
    const ado::Error reason = failure(raw, code);
    throw ado::Error("'" + wish.path + "' cannot be opened: " + reason.Description, "08001", reason.Source,
                     reason.Number, reason.NativeError);
  }
  sqlite3_busy_timeout(raw, static_cast<int>(wish.busy.count()));
  // A quoted name that does not exist is an error, and never a text.
  sqlite3_db_config(raw, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(raw, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  // A plan is the same whatever values are bound: none is made anew because a value changed.
  sqlite3_db_config(raw, SQLITE_DBCONFIG_ENABLE_QPSG, 1, nullptr);
  sqlite3_limit(raw, SQLITE_LIMIT_LENGTH, mostBytesOfText);
  neverFilterByHash(raw);
  return handle;
}

bool isReadOnly(const Handle& handle) {
  return sqlite3_db_readonly(handle.get(), "main") == 1;
}

// In a folder that cannot be written a file may not even be read: SQLite wants to make the files beside it
// first.
bool wantsToWriteBeside(const Handle& handle) {
  constexpr int primaryCode = 0xff;
  const int code =
      sqlite3_exec(handle.get(), "PRAGMA schema_version", nullptr, nullptr, nullptr) & primaryCode;
  return code == SQLITE_CANTOPEN || code == SQLITE_READONLY;
}

}  // namespace

void Closing::operator()(sqlite3* handle) const {
  sqlite3_close_v2(handle);
}

OpenedFile openFile(const FileWish& wish) {
  const int flags =
      wish.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | (wish.create ? SQLITE_OPEN_CREATE : 0);
  OpenedFile file{opened(wish, wish.path, flags), nullptr};
  // Nothing is read yet from a file that cannot be written: that would make the files beside it.
  if (!isReadOnly(file.handle) && !wantsToWriteBeside(file.handle)) return file;
  if (QuietFile::isQuiet(wish.path)) {
    file.quiet = std::make_shared<const QuietFile>(wish.path);
    file.handle = opened(wish, file.quiet->uri(), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
  } else if (QuietFile::hasChangesBeside(wish.path) && wantsToWriteBeside(file.handle)) {
    throw ado::Error("'" + wish.path + "' cannot be opened: the last changes of it lie beside it, in '" +
                         wish.path +
                         "-wal', and cannot be read from here. Copy both files to a folder that can be "
                         "written, and open the copy.",
                     "08001", failureSource);
  }
  return file;
}

}  // namespace payslate::sqlite
