// One open database file: its handle, its prepared statements, and who is reading from it.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/ado/Error.h"
#include "platform/ado/TransactionState.h"
#include "platform/sqlite/Opening.h"
#include "platform/tsql/Cell.h"
#include "platform/tsql/SqlError.h"

struct sqlite3_stmt;

namespace payslate::sqlite {

class DatabaseFile;
class RowCursor;

/// The catalog is no longer the one that a statement was translated by. The statement has done nothing yet.
struct CatalogChanged {};

/// Who compiles a statement anew when the tables it stands on have changed.
enum class Schema {
  Any,    ///< The database, without a word.
  Known,  ///< Its user: the first step throws CatalogChanged.
};

/// The prepared statements of one text that nobody uses at the moment.
struct StatementPool {
  std::string sql;
  Schema schema = Schema::Any;
  std::vector<sqlite3_stmt*> idle;
};

/// A prepared statement, lent by a database file; goes back there, reset, when it is destroyed.
class Statement {
 public:
  Statement(DatabaseFile& file, std::shared_ptr<StatementPool> pool, sqlite3_stmt* handle);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void bind(std::size_t index, const tsql::Cell& value);  ///< index from 1
  void bind(const std::vector<tsql::Cell>& values);
  bool step();   ///< True when there is a row; ado::Error when it fails, after which it is reset.
  void reset();  ///< Gives up the row and the read lock.
  [[nodiscard]] tsql::Cell column(std::size_t index) const;  ///< index from 0

 private:
  DatabaseFile& file_;
  std::shared_ptr<StatementPool> pool_;
  sqlite3_stmt* handle_;
  std::shared_ptr<const QuietFile> quiet_;
  bool outdated_ = false;
};

/// Everything that one connection shares with its cursors. Not for several threads at once.
class DatabaseFile {
 public:
  explicit DatabaseFile(FileWish wish);
  ~DatabaseFile();
  DatabaseFile(const DatabaseFile&) = delete;
  DatabaseFile& operator=(const DatabaseFile&) = delete;

  /// Statements are prepared once by text and used again. ado::Error when the database refuses it.
  std::unique_ptr<Statement> prepare(const std::string& sql, Schema schema = Schema::Any);
  std::unique_ptr<Statement> prepare(const std::shared_ptr<StatementPool>& pool);
  /// Where the statements of a text lie; a holder of it saves looking for them by their text.
  std::shared_ptr<StatementPool> pool(const std::string& sql, Schema schema);
  /// Runs a statement that returns no rows. ado::Error where the file is no longer the one at its path: what
  /// is written to it then is lost with it.
  void run(const std::string& sql, const std::vector<tsql::Cell>& values = {});
  void run(Statement& statement);
  std::int64_t number(const std::string& sql);  ///< The one number that it gives.
  [[nodiscard]] std::int64_t changedRows() const;
  /// How many statements were compiled so far.
  [[nodiscard]] std::uint64_t compiled() const { return compiled_; }
  /// May the file be read alone?
  [[nodiscard]] bool isReadOnly() const;
  /// Opens a file that is read without locks anew when others have changed it, or are about to. True when it
  /// did: what the connection had made for itself is gone.
  bool followOthers();

  void begin();  ///< Takes the write lock.
  void commit();
  void rollback();
  [[nodiscard]] bool inTransaction() const { return transaction_.isOpen(); }
  /// Does the database itself stand in a transaction? It ends one by itself, where a disk is full for
  /// instance.
  [[nodiscard]] bool holdsTransaction() const;

  /// Cursors that are between two rows hold a view of the past, which must not stand in the way of a write:
  /// their remaining rows are read into memory.
  void settleCursors();
  void enter(RowCursor& cursor) { cursors_.insert(&cursor); }
  void leave(RowCursor& cursor) { cursors_.erase(&cursor); }
  void dropIdleStatements();

  /// The error behind a failed call of the database. Where the failure ended the open transaction, all that
  /// is asked for until `rollback` repeats it.
  [[nodiscard]] ado::Error error(int code);
  /// ado::Error where pages or rows are not what their tables say: with one page in the place of another
  /// entries would be missing without a word. Reads the whole file, unless it is larger than 256 MB.
  void requireSound();
  /// For what is stored and cannot be; `where` as in "a stored value".
  [[nodiscard]] ado::Error damage(const std::string& where) const;
  std::optional<tsql::SqlError> functionError;  ///< What a run-time function threw, until it is reported.

 private:
  friend class Statement;
  void open();
  void giveBack(StatementPool& pool, sqlite3_stmt* handle, bool outdated);
  int step(sqlite3_stmt* handle);
  [[nodiscard]] ado::Error described(int code);
  void refuseLostFile() const;

  FileWish wish_;
  std::chrono::steady_clock::time_point deadline_ = std::chrono::steady_clock::time_point::max();
  Handle handle_;
  std::shared_ptr<const QuietFile> quiet_;
  ado::TransactionState transaction_;
  using Pools = std::unordered_map<std::string, std::shared_ptr<StatementPool>>;
  std::array<Pools, 2> pools_;  ///< By Schema.
  std::size_t idleStatements_ = 0;
  std::set<RowCursor*> cursors_;
  std::uint64_t compiled_ = 0;
};

ado::Error toAdoError(const tsql::SqlError& error);

}  // namespace payslate::sqlite
