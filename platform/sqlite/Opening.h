// Opening a database file: to write it, or to read it alone where it cannot be written.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/sqlite/QuietFile.h"

struct sqlite3;

namespace payslate::sqlite {

struct FileWish {
  std::string path;
  bool create = false;    ///< Makes the file where there is none.
  bool readOnly = false;  ///< Never writes, whatever the file's rights are.
  // How long the database may keep its user waiting:
  std::chrono::milliseconds busy{5000};        ///< For another's lock.
  std::chrono::milliseconds statement{30000};  ///< For the end of a statement, or its next row.
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
