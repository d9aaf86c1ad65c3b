// The database handle and its errors.
#include "platform/sqlite/DatabaseFile.h"

#include <sqlite3.h>

#include <array>

#include "platform/sqlite/Functions.h"
#include "platform/sqlite/RowCursor.h"
#include "platform/tsql/Schema.h"

namespace payslate::sqlite {

namespace {

constexpr std::size_t mostIdleStatements = 256;
constexpr const char* source = "payslate.sqlite";
constexpr int mostBytesOfText = 1 << 24;
constexpr int primaryCodeMask = 0xff;
constexpr int stepsBetweenLooks = 10'000;  // At the clock, while a statement runs.

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

// For a join the library may put a filter before an index, one that it makes by itself or, where the file has
// statistics, one of the table's. The filter hashes the stored bytes, and loses rows whose values our
// collations call equal. The pragma keeps it away from its own indexes; the switch, which has no public name,
// from all.
void neverFilterByHash(sqlite3* handle) {
  constexpr unsigned bloomFilter = 0x00080000;
  sqlite3_exec(handle, "PRAGMA automatic_index = OFF", nullptr, nullptr, nullptr);
  sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, handle, bloomFilter);
}

}  // namespace

ado::Error toAdoError(const tsql::SqlError& error) {
  return {error.what(), error.sqlState(), "payslate.tsql"};
}

Statement::Statement(DatabaseFile& file, std::string sql, sqlite3_stmt* handle)
    : file_(file), sql_(std::move(sql)), handle_(handle) {}

Statement::~Statement() {
  file_.giveBack(sql_, handle_);
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
  const int code = file_.step(handle_);
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) {
    reset();
    return false;
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

DatabaseFile::DatabaseFile(const std::string& path, bool create, Patience patience) : patience_(patience) {
  const int flags = SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0) | SQLITE_OPEN_EXRESCODE;
  const int code = sqlite3_open_v2(path.c_str(), &handle_, flags, nullptr);
  try {
    if (code != SQLITE_OK) {
      const ado::Error reason = error(code);
      throw ado::Error("'" + path + "' cannot be opened: " + reason.Description, "08001", reason.Source,
                       reason.Number, reason.NativeError);
    }
    sqlite3_busy_timeout(handle_, static_cast<int>(patience_.busy.count()));
    sqlite3_progress_handler(
        handle_, stepsBetweenLooks,
        [](void* file) {
          return std::chrono::steady_clock::now() > static_cast<DatabaseFile*>(file)->deadline_ ? 1 : 0;
        },
        this);
    // A quoted name that does not exist is an error, and never a text.
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_limit(handle_, SQLITE_LIMIT_LENGTH, mostBytesOfText);
    neverFilterByHash(handle_);
    registerFunctions(handle_, *this);
  } catch (...) {
    sqlite3_close(handle_);
    throw;
  }
}

DatabaseFile::~DatabaseFile() {
  // Cursors that are still about give their statements back here, before the handle goes.
  for (RowCursor* cursor : std::set<RowCursor*>(cursors_)) cursor->detach();
  dropIdleStatements();
  sqlite3_close_v2(handle_);
}

std::unique_ptr<Statement> DatabaseFile::prepare(const std::string& sql) {
  transaction_.refuseAfterFailure();
  if (const auto found = idle_.find(sql); found != idle_.end()) {
    sqlite3_stmt* handle = found->second;
    idle_.erase(found);
    return std::make_unique<Statement>(*this, sql, handle);
  }
  sqlite3_stmt* handle = nullptr;
  functionError.reset();
  const int code = sqlite3_prepare_v3(handle_, sql.c_str(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &handle, nullptr);
  if (code != SQLITE_OK) throw error(code);
  return std::make_unique<Statement>(*this, sql, handle);
}

int DatabaseFile::step(sqlite3_stmt* handle) {
  deadline_ = std::chrono::steady_clock::now() + patience_.statement;
  const int code = sqlite3_step(handle);
  deadline_ = std::chrono::steady_clock::time_point::max();
  return code;
}

void DatabaseFile::giveBack(const std::string& sql, sqlite3_stmt* handle) {
  sqlite3_reset(handle);
  sqlite3_clear_bindings(handle);
  if (idle_.size() >= mostIdleStatements) dropIdleStatements();
  idle_.emplace(sql, handle);
}

void DatabaseFile::dropIdleStatements() {
  for (const auto& [sql, handle] : idle_) sqlite3_finalize(handle);
  idle_.clear();
}

void DatabaseFile::refuseLostFile() const {
  int lost = 0;  // Stays so where a system does not let go of open files, and for a database in memory.
  sqlite3_file_control(handle_, "main", SQLITE_FCNTL_HAS_MOVED, &lost);
  if (lost == 0) return;
  throw ado::Error(
      "The database file '" + std::string(sqlite3_db_filename(handle_, "main")) +
          "' was deleted, moved or replaced while it was open: nothing is stored until it is back "
          "or opened again.",
      "08S01", source);
}

void DatabaseFile::run(const std::string& sql, const std::vector<tsql::Cell>& values) {
  refuseLostFile();
  const std::unique_ptr<Statement> statement = prepare(sql);
  statement->bind(values);
  try {
    while (statement->step()) {
    }
  } catch (const ado::Error& error) {
    if (error.NativeError != SQLITE_BUSY_SNAPSHOT || cursors_.empty()) throw;
    settleCursors();
    while (statement->step()) {
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
  return sqlite3_changes64(handle_);
}

bool DatabaseFile::isReadOnly() const {
  return sqlite3_db_readonly(handle_, "main") == 1;
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
  return sqlite3_get_autocommit(handle_) == 0;
}

void DatabaseFile::settleCursors() {
  for (RowCursor* cursor : cursors_) cursor->settle();
}

ado::Error DatabaseFile::error(int code) {
  ado::Error failure = described(code);
  if (inTransaction() && !holdsTransaction()) transaction_.endedBy(failure);
  return failure;
}

ado::Error DatabaseFile::described(int code) {
  if (functionError) {
    ado::Error thrown = toAdoError(*functionError);
    functionError.reset();
    return thrown;
  }
  const std::string message = handle_ != nullptr ? sqlite3_errmsg(handle_) : sqlite3_errstr(code);
  const auto made = [&](const std::string& description, const char* sqlState) {
    return ado::Error(description, sqlState, source, 0, code);
  };
  switch (code & primaryCodeMask) {
    case SQLITE_CONSTRAINT:
      return made(constraintSentence(code, message), tsql::state::constraint);
    case SQLITE_BUSY:
      return made("The database is locked by another user. Try again in a moment.", "HYT00");
    case SQLITE_INTERRUPT:
      return made("The statement takes too long and was stopped.", "HYT00");
    case SQLITE_CORRUPT:
      return made("The database file is damaged.", tsql::state::general);
    case SQLITE_TOOBIG:
      return made("A text is longer than the database can hold.", tsql::state::truncation);
    case SQLITE_NOTADB:
      return made("The file is not a database.", tsql::state::general);
    case SQLITE_CANTOPEN:
      return made("The database file cannot be opened.", "08001");
    case SQLITE_READONLY:
      return made("The database file cannot be written.", "25006");
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
  // The database's own parser gives up on expressions that nest too deep.
  for (const char* limit : {"parser stack overflow", "maximum depth", "too many"}) {
    if (message.find(limit) != std::string::npos) {
      return made("The statement is nested too deeply, or is too large (" + message + ").",
                  tsql::state::syntax);
    }
  }
  return made(message, tsql::state::general);
}

}  // namespace payslate::sqlite
