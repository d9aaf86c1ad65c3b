// Translating ahead, and stepping by hand.
#include "bench/Floor.h"

#include <sqlite3.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "platform/sqlite/DatabaseFile.h"
#include "platform/sqlite/Functions.h"
#include "platform/sqlite/Opening.h"
#include "platform/sqlite/StoredCatalog.h"
#include "platform/sqlite/Values.h"
#include "platform/tsql/Convert.h"
#include "platform/tsql/Generator.h"
#include "platform/tsql/Shape.h"
#include "platform/tsql/Translator.h"

namespace payslate::bench {

struct Floor::Database {
  explicit Database(const std::string& path)
      : catalogFile({.path = path}), translator(catalog), file(sqlite::openFile({.path = path})) {
    catalog.load(catalogFile);
    sqlite::registerFunctions(handle(), catalogFile);
    sqlite3_exec(handle(), "PRAGMA synchronous = FULL; PRAGMA cache_size = -65536", nullptr, nullptr,
                 nullptr);
  }
  [[nodiscard]] sqlite3* handle() const { return file.handle.get(); }

  sqlite::DatabaseFile catalogFile;
  sqlite::StoredCatalog catalog;
  tsql::Translator translator;
  sqlite::OpenedFile file;
};

struct Floor::Step {
  sqlite3_stmt* statement = nullptr;
  std::vector<tsql::Cell> values;
  bool isCommit = false;
  bool returnsRows = false;
  std::size_t rows = 0;  // Where it returns rows: how many are fetched, and whether one more is asked for.
  bool readToEnd = false;
};

namespace {

void bind(sqlite3_stmt* statement, const std::vector<tsql::Cell>& values) {
  int at = 0;
  for (const tsql::Cell& value : values) {
    ++at;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
      sqlite3_bind_int64(statement, at, *whole);
    } else if (const auto* number = std::get_if<double>(&value)) {
      sqlite3_bind_double(statement, at, *number);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
      sqlite3_bind_text64(statement, at, text->data(), text->size(), SQLITE_STATIC, SQLITE_UTF8);
    } else {
      sqlite3_bind_null(statement, at);
    }
  }
}

void readColumns(sqlite3_stmt* statement) {
  const int columns = sqlite3_column_count(statement);
  for (int at = 0; at < columns; ++at) {
    switch (sqlite3_column_type(statement, at)) {
      case SQLITE_INTEGER:
        static_cast<void>(sqlite3_column_int64(statement, at));
        break;
      case SQLITE_FLOAT:
        static_cast<void>(sqlite3_column_double(statement, at));
        break;
      case SQLITE_TEXT:
        static_cast<void>(sqlite3_column_text(statement, at));
        static_cast<void>(sqlite3_column_bytes(statement, at));
        break;
      default:
        break;
    }
  }
}

/// The columns' names, places for their values from `number` on, and the values as they are stored.
struct StoredRow {
  std::vector<std::string> columns;
  std::vector<tsql::Cell> values;

  void add(const tsql::TableInfo& table, const std::vector<ado::Assignment>& row) {
    for (const ado::Assignment& assignment : row) {
      const tsql::ColumnInfo* column = table.column(assignment.column);
      if (column == nullptr) throw std::runtime_error("There is no column " + assignment.column);
      columns.push_back(tsql::quotedName(column->name));
      values.push_back(sqlite::toStored(assignment.value, *column, table.name));
    }
  }
  [[nodiscard]] std::string assigned(std::size_t from, std::size_t to, const char* between) const {
    std::string list;
    for (std::size_t i = from; i < to; ++i)
      list += (i == from ? "" : between) + columns[i] + " = ?" + std::to_string(i + 1);
    return list;
  }
};

std::string insertOf(const std::string& table, const StoredRow& row) {
  std::string names;
  std::string places;
  for (std::size_t i = 0; i < row.columns.size(); ++i) {
    names += (i == 0 ? "" : ", ") + row.columns[i];
    places += (i == 0 ? "?" : ", ?") + std::to_string(i + 1);
  }
  return "INSERT INTO " + table + " (" + names + ") VALUES (" + places + ")";
}

/// What is bound to ?1, ?2, …: a procedure's parameters, or the text's literals that are not in the
/// statement.
std::vector<tsql::Cell> valuesOf(const tsql::Translation& translation,
                                 const std::vector<tsql::Literal>& literals) {
  std::vector<tsql::Cell> values = translation.bindings;
  values.resize(std::max(values.size(), literals.size()));
  for (const std::size_t slot : translation.slots) values[slot] = literals.at(slot).value;
  for (const tsql::AssignedLiteral& to : translation.assigned)
    values[to.slot] = tsql::assignCell(literals.at(to.slot).value, literals[to.slot].type, to.type, to.name);
  return values;
}

}  // namespace

Floor::Floor(const std::string& path) : database_(std::make_unique<Database>(path)) {}

Floor::~Floor() {
  for (const auto& [sql, statement] : statements_) sqlite3_finalize(statement);
}

sqlite3_stmt* Floor::statement(const std::string& sql) {
  sqlite3_stmt*& statement = statements_[sql];
  if (statement != nullptr) return statement;
  if (sqlite3_prepare_v3(database_->handle(), sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement,
                         nullptr) != SQLITE_OK)
    throw std::runtime_error(std::string(sqlite3_errmsg(database_->handle())) + " in " + sql);
  return statement;
}

Floor::Step Floor::prepared(const Operation& operation) {
  using Kind = Operation::Kind;
  Step step;
  if (operation.kind == Kind::Text) {
    const std::vector<tsql::Literal> literals = tsql::shapeOf(operation.text).literals;
    const tsql::Translation translation = database_->translator.translate(
        operation.text, literals.empty() ? tsql::Literals::Settled : tsql::Literals::Bound);
    step.statement = statement(translation.sql.at(0));
    step.values = valuesOf(translation, literals);
    step.returnsRows = translation.returnsRows;
    step.rows = operation.rows;
    step.readToEnd = operation.readToEnd;
  } else if (operation.kind == Kind::Insert || operation.kind == Kind::Update) {
    const tsql::TableInfo* table = database_->catalog.table(operation.text);
    if (table == nullptr) throw std::runtime_error("There is no table " + operation.text);
    StoredRow row;
    row.add(*table, operation.row);
    const std::size_t assigned = row.columns.size();
    row.add(*table, operation.key);
    const std::string name = tsql::quotedName(table->name);
    step.statement = statement(operation.kind == Kind::Insert
                                   ? insertOf(name, row)
                                   : "UPDATE " + name + " SET " + row.assigned(0, assigned, ", ") +
                                         " WHERE " + row.assigned(assigned, row.columns.size(), " AND "));
    step.values = std::move(row.values);
  } else {
    step.isCommit = operation.kind == Kind::Commit;
    step.statement = statement(step.isCommit                   ? "COMMIT"
                               : operation.kind == Kind::Begin ? "BEGIN IMMEDIATE"
                                                               : "ROLLBACK");
  }
  return step;
}

void Floor::perform(const Step& step) {
  bind(step.statement, step.values);
  const std::size_t steps = step.rows + (step.readToEnd ? 1 : 0);
  std::size_t rows = 0;
  int code = SQLITE_ROW;
  for (std::size_t i = 0; code == SQLITE_ROW && (!step.returnsRows || i < steps); ++i) {
    code = sqlite3_step(step.statement);
    if (code != SQLITE_ROW) break;
    ++rows;
    readColumns(step.statement);
  }
  sqlite3_reset(step.statement);
  if (code != SQLITE_ROW && code != SQLITE_DONE)
    throw std::runtime_error(std::string(sqlite3_errmsg(database_->handle())) + " in " +
                             sqlite3_sql(step.statement));
  if (step.returnsRows && (rows != step.rows || (step.readToEnd && code != SQLITE_DONE)))
    throw std::runtime_error(std::string("Other rows than the component had from ") +
                             sqlite3_sql(step.statement));
}

Duration Floor::replay(const Recording& recording) {
  constexpr std::size_t mostStatements = 2000;
  if (statements_.size() > mostStatements) {
    for (const auto& [sql, statement] : statements_) sqlite3_finalize(statement);
    statements_.clear();
  }
  std::vector<Step> steps;
  steps.reserve(recording.size());
  for (const auto& operation : recording) steps.push_back(prepared(*operation));
  Duration taken;
  const auto start = Clock::now();
  for (const Step& step : steps) {
    if (!step.isCommit) {
      perform(step);
      continue;
    }
    const auto commit = Clock::now();
    perform(step);
    taken.commits += Clock::now() - commit;
  }
  taken.work = Clock::now() - start - taken.commits;
  return taken;
}

}  // namespace payslate::bench
