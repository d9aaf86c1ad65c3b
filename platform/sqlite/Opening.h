// Opening a database file: to write it, or to read it alone where it cannot be written.
#pragma once

#include <memory>
#include <string>

#include "platform/sqlite/QuietFile.h"

struct sqlite3;

namespace payslate::sqlite {

struct FileWish {
  std::string path;
  bool create = false;       ///< Makes the file where there is none.
  bool readOnly = false;     ///< Never writes, whatever the file's rights are.
  int busyMilliseconds = 0;  ///< How long a lock is waited for.
};

struct Closing {
  void operator()(sqlite3* handle) const;  ///< Statements that are still about keep it alive.
};
using Handle = std::unique_ptr<sqlite3, Closing>;

struct OpenedFile {
  Handle handle;
  /// Where the file is read without locks: what is read counts only while this is unchanged.
  std::shared_ptr<const QuietFile> quiet;
};

/// ado::Error when it cannot be opened. A file that cannot be written is opened to be read: without locks
/// where it is quiet, and in the company of those who have it open otherwise.
OpenedFile openFile(const FileWish& wish);

}  // namespace payslate::sqlite
