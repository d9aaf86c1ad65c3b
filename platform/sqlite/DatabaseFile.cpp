// The database handle and its statements.
#include "platform/sqlite/DatabaseFile.h"

#include <sqlite3.h>

#include <utility>

#include "platform/sqlite/Failures.h"
#include "platform/sqlite/Functions.h"
#include "platform/sqlite/RowCursor.h"

namespace payslate::sqlite {

namespace {

constexpr std::size_t mostIdleStatements = 256;
constexpr int stepsBetweenLooks = 10'000;  // At the clock, while a statement runs.

}  // namespace

ado::Error toAdoError(const tsql::SqlError& error) {
  return {error.what(), error.sqlState(), "payslate.tsql"};
}

Statement::Statement(DatabaseFile& file, std::shared_ptr<StatementPool> pool, sqlite3_stmt* handle)
    : file_(file), pool_(std::move(pool)), handle_(handle), quiet_(file.quiet_) {}

Statement::~Statement() {
  file_.giveBack(*pool_, handle_, outdated_);
}

void Statement::bind(std::size_t index, const tsql::Cell& value) {
  const int at = static_cast<int>(index);
  int code = SQLITE_OK;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    code = sqlite3_bind_int64(handle_, at, *whole);
  } else if (const auto* number = std::get_if<double>(&value)) {
    code = sqlite3_bind_double(handle_, at, *number);
  } else if (const auto* text = std::get_if<std::string>(&value)) {
    code = sqlite3_bind_text64(handle_, at, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  } else {
    code = sqlite3_bind_null(handle_, at);
  }
  // A parameter that the statement does not use is no error.
  if (code != SQLITE_OK && code != SQLITE_RANGE) throw file_.error(code);
}

void Statement::bind(const std::vector<tsql::Cell>& values) {
  for (std::size_t i = 0; i < values.size(); ++i) bind(i + 1, values[i]);
}

bool Statement::step() {
  file_.functionError.reset();
  int code = file_.step(handle_);
  // What was wrong is told only then, about a statement that does not compile itself anew.
  if (code != SQLITE_ROW && code != SQLITE_DONE && pool_->schema == Schema::Known) {
    if (const int reason = sqlite3_reset(handle_); reason != SQLITE_OK) code = reason;
  }
  // Without locks a row, or an error, may come from a file that is just being written.
  if (quiet_ && !quiet_->isUnchanged()) {
    reset();
    throw ado::Error("The database file was changed by another program while it was read: ask again.",
                     "40001", failureSource);
  }
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) {
    reset();
    return false;
  }
  if (code == SQLITE_SCHEMA && pool_->schema == Schema::Known) {
    outdated_ = true;
    throw CatalogChanged();
  }
  const ado::Error error = file_.error(code);
  reset();
  throw error;
}

void Statement::reset() {
  sqlite3_reset(handle_);
}

tsql::Cell Statement::column(std::size_t index) const {
  const int at = static_cast<int>(index);
  switch (sqlite3_column_type(handle_, at)) {
    case SQLITE_INTEGER:
      return static_cast<std::int64_t>(sqlite3_column_int64(handle_, at));
    case SQLITE_FLOAT:
      return sqlite3_column_double(handle_, at);
    case SQLITE_TEXT: {
      const auto* bytes =
          static_cast<const char*>(static_cast<const void*>(sqlite3_column_text(handle_, at)));
      return std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(handle_, at)));
    }
    default:
      return {};
  }
}

DatabaseFile::DatabaseFile(FileWish wish) : wish_(std::move(wish)) {
  open();
}

void DatabaseFile::open() {
  OpenedFile file = openFile(wish_);
  // 64 MB of pages at most, so that a large company's year stays in memory. It reads the file's head; what
  // cannot be read is told by who needs it.
  sqlite3_exec(file.handle.get(), "PRAGMA cache_size = -65536", nullptr, nullptr, nullptr);
  registerFunctions(file.handle.get(), *this);
  sqlite3_progress_handler(
      file.handle.get(), stepsBetweenLooks,
      [](void* self) {
        return std::chrono::steady_clock::now() > static_cast<DatabaseFile*>(self)->deadline_ ? 1 : 0;
      },
      this);
  dropIdleStatements();
  handle_ = std::move(file.handle);
  quiet_ = std::move(file.quiet);
}

bool DatabaseFile::followOthers() {
  if (!quiet_ || inTransaction() || (quiet_->isUnchanged() && QuietFile::isQuiet(wish_.path))) return false;
  open();
  return true;
}

DatabaseFile::~DatabaseFile() {
  // Cursors that are still about give their statements back here, before the handle goes.
  for (RowCursor* cursor : std::set<RowCursor*>(cursors_)) cursor->detach();
  dropIdleStatements();
}

std::shared_ptr<StatementPool> DatabaseFile::pool(const std::string& sql, Schema schema) {
  std::shared_ptr<StatementPool>& pool = pools_[static_cast<std::size_t>(schema)][sql];
  if (!pool) pool = std::make_shared<StatementPool>(StatementPool{sql, schema, {}});
  return pool;
}

std::unique_ptr<Statement> DatabaseFile::prepare(const std::string& sql, Schema schema) {
  return prepare(pool(sql, schema));
}

std::unique_ptr<Statement> DatabaseFile::prepare(const std::shared_ptr<StatementPool>& pool) {
  transaction_.refuseAfterFailure();
  sqlite3_stmt* handle = nullptr;
  if (!pool->idle.empty()) {
    handle = pool->idle.back();
    pool->idle.pop_back();
    --idleStatements_;
    return std::make_unique<Statement>(*this, pool, handle);
  }
  functionError.reset();
  const std::string& sql = pool->sql;
  const int size = static_cast<int>(sql.size());
  // The older of the two calls makes statements that say when the tables have changed, and do not compile
  // themselves anew.
  const int code =
      pool->schema == Schema::Known
          ? sqlite3_prepare(handle_.get(), sql.c_str(), size, &handle, nullptr)
          : sqlite3_prepare_v3(handle_.get(), sql.c_str(), size, SQLITE_PREPARE_PERSISTENT, &handle, nullptr);
  if (code != SQLITE_OK) throw error(code);
  ++compiled_;
  return std::make_unique<Statement>(*this, pool, handle);
}

int DatabaseFile::step(sqlite3_stmt* handle) {
  deadline_ = std::chrono::steady_clock::now() + wish_.statement;
  const int code = sqlite3_step(handle);
  deadline_ = std::chrono::steady_clock::time_point::max();
  return code;
}

void DatabaseFile::giveBack(StatementPool& pool, sqlite3_stmt* handle, bool outdated) {
  sqlite3_reset(handle);
  sqlite3_clear_bindings(handle);
  if (outdated || sqlite3_db_handle(handle) != handle_.get()) {  // The file was opened anew meanwhile.
    sqlite3_finalize(handle);
    return;
  }
  if (idleStatements_ >= mostIdleStatements) dropIdleStatements();
  pool.idle.push_back(handle);
  ++idleStatements_;
}

void DatabaseFile::dropIdleStatements() {
  for (Pools& pools : pools_) {
    for (const auto& [sql, pool] : pools) {
      for (sqlite3_stmt* handle : pool->idle) sqlite3_finalize(handle);
      pool->idle.clear();
    }
    std::erase_if(pools, [](const auto& entry) { return entry.second.use_count() == 1; });
  }
  idleStatements_ = 0;
}

void DatabaseFile::refuseLostFile() const {
  int lost = 0;  // Stays so where a system does not let go of open files, and for a database in memory.
  sqlite3_file_control(handle_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &lost);
  if (lost == 0) return;
  throw ado::Error(
      "The database file '" + std::string(sqlite3_db_filename(handle_.get(), "main")) +
          "' was deleted, moved or replaced while it was open: nothing is stored until it is back "
          "or opened again.",
      "08S01", failureSource);
}

void DatabaseFile::run(const std::string& sql, const std::vector<tsql::Cell>& values) {
  const std::unique_ptr<Statement> statement = prepare(sql);
  statement->bind(values);
  run(*statement);
}

void DatabaseFile::run(Statement& statement) {
  refuseLostFile();
  try {
    while (statement.step()) {
    }
  } catch (const ado::Error& error) {
    if (error.NativeError != SQLITE_BUSY_SNAPSHOT || cursors_.empty()) throw;
    settleCursors();
    while (statement.step()) {
    }
  }
}

std::int64_t DatabaseFile::number(const std::string& sql) {
  const std::unique_ptr<Statement> statement = prepare(sql);
  if (!statement->step()) return 0;
  const tsql::Cell value = statement->column(0);
  const auto* whole = std::get_if<std::int64_t>(&value);
  return whole == nullptr ? 0 : *whole;
}

std::int64_t DatabaseFile::changedRows() const {
  return sqlite3_changes64(handle_.get());
}

bool DatabaseFile::isReadOnly() const {
  return sqlite3_db_readonly(handle_.get(), "main") == 1;
}

void DatabaseFile::begin() {
  transaction_.requireNone();
  run("BEGIN IMMEDIATE");
  transaction_.begin();
}

void DatabaseFile::commit() {
  transaction_.requireOpen("commit");
  run("COMMIT");
  transaction_.end();
}

void DatabaseFile::rollback() {
  transaction_.requireOpen("roll back");
  settleCursors();
  try {
    if (holdsTransaction()) prepare("ROLLBACK")->step();
  } catch (const ado::Error&) {
    if (holdsTransaction()) throw;
  }
  transaction_.end();
}

bool DatabaseFile::holdsTransaction() const {
  return sqlite3_get_autocommit(handle_.get()) == 0;
}

void DatabaseFile::settleCursors() {
  for (RowCursor* cursor : cursors_) cursor->settle();
}

ado::Error DatabaseFile::error(int code) {
  ado::Error failure = described(code);
  if (inTransaction() && !holdsTransaction()) transaction_.endedBy(failure);
  return failure;
}

void DatabaseFile::requireSound() {
  constexpr std::int64_t mostBytesLookedAt = 256LL << 20;  // More than a second.
  if (number("PRAGMA page_count") * number("PRAGMA page_size") > mostBytesLookedAt) return;
  const std::unique_ptr<Statement> check = prepare("PRAGMA main.quick_check(1)");
  if (check->step() && check->column(0) != tsql::Cell(std::string("ok"))) throw damage("");
}

ado::Error DatabaseFile::damage(const std::string& where) const {
  return {damagedSentence(wish_.path, where), tsql::state::general, failureSource};
}

ado::Error DatabaseFile::described(int code) {
  if (functionError) {
    ado::Error thrown = toAdoError(*functionError);
    functionError.reset();
    return thrown;
  }
  return failure(handle_.get(), code);
}

}  // namespace payslate::sqlite
