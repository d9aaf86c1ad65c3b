// The provider: statements by way of the translator, rows of a table by way of its columns.
#include "platform/sqlite/SqliteProvider.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "platform/ado/ConnectionString.h"
#include "platform/basic/Numbers.h"
#include "platform/sqlite/CatalogSeal.h"
#include "platform/sqlite/DatabaseFile.h"
#include "platform/sqlite/Plans.h"
#include "platform/sqlite/Rebuilding.h"
#include "platform/sqlite/RowCursor.h"
#include "platform/sqlite/StoredCatalog.h"
#include "platform/sqlite/Values.h"
#include "platform/tsql/Generator.h"
#include "platform/tsql/Translator.h"

namespace payslate::sqlite {

namespace {

constexpr const char* source = "payslate.sqlite";
constexpr int mostTries = 10;  // Of a statement whose tables others change.

/// PATH;Create=True;ReadOnly=True;BusyTimeout=milliseconds;StatementTimeout=milliseconds
struct Options {
  FileWish file;
  bool inMemory = false;
};

[[noreturn]] void refuse(const std::string& sentence, const char* sqlState = "08001") {
  throw ado::Error(sentence, sqlState, source);
}

std::optional<std::chrono::milliseconds> millisecondsOf(const std::string& value) {
  int number = 0;
  const auto read = std::from_chars(value.data(), value.data() + value.size(), number);
  if (read.ec != std::errc() || read.ptr != value.data() + value.size() || number < 0) return std::nullopt;
  return std::chrono::milliseconds(number);
}

Options optionsOf(const ado::ConnectionString& connection) {
  Options options{{.path = connection.path()}, connection.isInMemory()};
  options.file.create = options.inMemory;
  for (const auto& [key, given] : connection.parts()) {
    const std::string name = basic::lower(key);
    const std::string value = basic::lower(given.value_or(""));
    const bool truth = value == "true" || value == "false";
    if (name == "create" && truth) {
      options.file.create = value == "true";
    } else if (name == "readonly" && truth) {
      options.file.readOnly = value == "true";
    } else if (const auto time = millisecondsOf(value); time && name == "busytimeout") {
      options.file.busy = *time;
    } else if (time && name == "statementtimeout") {
      options.file.statement = *time;
    } else {
      // What follows the name may be a password, of a string for another database.
      refuse("The option '" + key + "' of the connection string is not known.");
    }
  }
  return options;
}

void checkFile(const Options& options) {
  if (options.inMemory) return;
  std::error_code ignored;  // A path that cannot be looked at counts as missing.
  if (options.file.path.empty() || !std::filesystem::exists(options.file.path, ignored)) {
    if (!options.file.create || options.file.path.empty())
      refuse("There is no database file '" + options.file.path + "'.");
    return;
  }
  const bool file = std::filesystem::is_regular_file(options.file.path, ignored);
  if (!file || (!options.file.create && std::filesystem::file_size(options.file.path, ignored) == 0)) {
    refuse("'" + options.file.path + "' is not a database file.");
  }
}

class SqliteProvider : public ado::Provider, public QueryPreparer {
 public:
  explicit SqliteProvider(const Options& options)
      : file_(options.file), translator_(catalog_), plans_(translator_, file_) {
    try {
      file_.number("PRAGMA schema_version");  // Reads the file's head before anything is written.
      StoredCatalog::prepare(file_);
      if (!file_.isReadOnly()) {
        file_.run("PRAGMA journal_mode = WAL");
        file_.run("PRAGMA synchronous = FULL");
      }
      refresh();
      file_.requireSound();
    } catch (const ado::Error& error) {
      const std::string quoted = "'" + options.file.path + "'";
      const bool names = error.Description.find(quoted) != std::string::npos;
      throw ado::Error((names ? "" : quoted + " cannot be opened: ") + error.Description, "08001", source,
                       error.Number, error.NativeError);
    }
  }

  std::unique_ptr<ado::Cursor> execute(std::string_view text) override {
    std::unique_ptr<ado::Cursor> rows;
    byTheCatalog([&] {
      PlannedStatement planned = this->planned(text);
      const tsql::Translation& translation = planned.plan->translation;
      if (translation.change) return changeSchema(translation);
      std::unique_ptr<Statement> statement = prepared(planned);
      if (!translation.returnsRows) return file_.run(*statement);
      rows = std::make_unique<RowCursor>(file_, *this, text,
                                         PreparedQuery{std::move(planned.plan), std::move(statement)});
    });
    return rows;
  }

  [[nodiscard]] std::optional<std::uint64_t> changedRows() const override {
    return static_cast<std::uint64_t>(file_.changedRows());
  }

  void begin() override { file_.begin(); }

  void commit() override {
    file_.commit();
    schemaTouched_ = false;
  }

  void rollback() override {
    file_.rollback();
    if (std::exchange(schemaTouched_, false)) reload();
  }

  [[nodiscard]] bool inTransaction() const override { return file_.inTransaction(); }

  std::optional<std::string> baseTable(std::string_view statement) override {
    std::optional<std::string> name;
    byTheCatalog([&] {
      const PlannedStatement planned = this->planned(statement);
      const std::optional<std::string>& table = planned.plan->translation.baseTable;
      if (table) name = catalog_.table(*table)->name;
    });
    return name;
  }

  std::vector<std::string> key(const std::string& table) override {
    std::vector<const tsql::ColumnInfo*> columns;
    refresh();
    for (const tsql::ColumnInfo& column : current(table).columns)
      if (column.keyPosition > 0) columns.push_back(&column);
    std::sort(columns.begin(), columns.end(),
              [](const auto* a, const auto* b) { return a->keyPosition < b->keyPosition; });
    std::vector<std::string> names;
    names.reserve(columns.size());
    for (const tsql::ColumnInfo* column : columns) names.push_back(column->name);
    return names;
  }

  void insert(const std::string& table, const std::vector<ado::Assignment>& row) override {
    byTheCatalog([&] {
      const tsql::TableInfo& info = current(table);
      std::string names;
      std::string places;
      std::vector<tsql::Cell> values;
      for (const ado::Assignment& assignment : row) {
        const tsql::ColumnInfo& column = required(info, assignment.column);
        values.push_back(stored(info, column, assignment.value));
        names += (names.empty() ? "" : ", ") + tsql::quotedName(column.name);
        places += (places.empty() ? "?" : ", ?") + std::to_string(values.size());
      }
      const std::string into = "INSERT INTO " + tsql::quotedName(info.name);
      write(into + (row.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + places + ")"), values);
    });
  }

  void update(const std::string& table, const std::vector<ado::Assignment>& key,
              const std::vector<ado::Assignment>& row) override {
    byTheCatalog([&] {
      const tsql::TableInfo& info = current(table);
      if (key.empty())
        refuse("The table '" + info.name + "' has no primary key to find the row by.", tsql::state::general);
      if (row.empty()) return;
      std::vector<tsql::Cell> values;
      const auto listed = [&](const std::vector<ado::Assignment>& assignments, const std::string& between) {
        std::string list;
        for (const ado::Assignment& assignment : assignments) {
          const tsql::ColumnInfo& column = required(info, assignment.column);
          values.push_back(stored(info, column, assignment.value));
          list += (list.empty() ? "" : between) + tsql::quotedName(column.name) + " = ?" +
                  std::to_string(values.size());
        }
        return list;
      };
      const std::string assignments = listed(row, ", ");
      const std::string condition = listed(key, " AND ");
      write("UPDATE " + tsql::quotedName(info.name) + " SET " + assignments + " WHERE " + condition, values);
      if (file_.changedRows() == 0) {
        refuse("The row of '" + info.name + "' is not there any more: another user has deleted it.", "HY000");
      }
    });
  }

 private:
  // Nobody asks before each statement whether the catalog is still the one that is known: a statement that
  // was compiled for other tables says so before it does anything, and is tried again by the new catalog.
  template <typename Work>
  void byTheCatalog(const Work& work) {
    if (file_.followOthers()) {
      version_.reset();
      refresh();
    }
    for (int tries = 1;; ++tries) {
      try {
        return work();
      } catch (const CatalogChanged&) {
        if (tries == mostTries)
          refuse("The tables are changed by another program all the time: try again later.", "40001");
      } catch (const ado::Error&) {  // Perhaps there is now what was missing.
        if (tries == mostTries || isCurrent()) throw;
      }
      loadCatalog();
    }
  }

  PreparedQuery prepareAgain(const std::string& text) override {
    PreparedQuery query;
    loadCatalog();
    byTheCatalog([&] {
      PlannedStatement planned = this->planned(text);
      if (!planned.plan->translation.returnsRows) return;
      query.statement = prepared(planned);
      query.plan = std::move(planned.plan);
    });
    return query;
  }

  PlannedStatement planned(std::string_view text) {
    if (PlannedStatement known = plans_.find(text); known.plan) return known;
    try {
      return plans_.make(text);
    } catch (const tsql::SqlError& error) {
      throw toAdoError(error);
    }
  }

  std::unique_ptr<Statement> prepared(const PlannedStatement& planned) {
    std::unique_ptr<Statement> statement = prepared(planned.plan->pool);
    planned.bind(*statement);
    return statement;
  }

  // The database may have compiled a statement for tables that the catalog here does not know yet.
  std::unique_ptr<Statement> prepared(const std::shared_ptr<StatementPool>& pool) {
    const std::uint64_t before = file_.compiled();
    std::unique_ptr<Statement> statement = file_.prepare(pool);
    if (file_.compiled() != before && !isCurrent()) throw CatalogChanged();
    return statement;
  }

  void write(const std::string& sql, const std::vector<tsql::Cell>& values) {
    const std::unique_ptr<Statement> statement = prepared(file_.pool(sql, Schema::Known));
    statement->bind(values);
    file_.run(*statement);
  }

  [[nodiscard]] bool isCurrent() { return version_ && StoredCatalog::version(file_) == *version_; }

  void refresh() {
    if (file_.followOthers()) version_.reset();
    if (!isCurrent()) loadCatalog();
  }

  void loadCatalog() {
    requireSeal(file_);
    if (!version_) StoredCatalog::describe(file_);
    reload();
  }

  void reload() {
    plans_.clear();
    translator_.schemaChanged();
    file_.dropIdleStatements();
    const std::int64_t version = StoredCatalog::version(file_);
    catalog_.load(file_);
    version_ = version;  // A catalog that could not be loaded is tried again.
  }

  // All of it or nothing, inside a transaction or outside of one.
  void changeSchema(const tsql::Translation& translation) {
    file_.settleCursors();
    const bool inside = file_.inTransaction();
    file_.run(inside ? "SAVEPOINT schema_change" : "BEGIN IMMEDIATE");
    try {
      for (const std::string& sql : translation.sql) file_.run(sql);
      if (translation.change->action == tsql::SchemaChange::Action::Rekey)
        rebuildWithKey(file_, translation.change->table);
      StoredCatalog::record(file_, *translation.change);
      file_.run(inside ? "RELEASE schema_change" : "COMMIT");
    } catch (const ado::Error&) {
      if (file_.holdsTransaction()) {
        file_.run(inside ? "ROLLBACK TO schema_change" : "ROLLBACK");
        if (inside) file_.run("RELEASE schema_change");
      }
      throw;
    }
    schemaTouched_ = inside;
    reload();
  }

  const tsql::TableInfo& current(const std::string& table) {
    const tsql::TableInfo* info = catalog_.table(table);
    if (info == nullptr) refuse("There is no table '" + table + "'.", tsql::state::noSuchTable);
    return *info;
  }

  static const tsql::ColumnInfo& required(const tsql::TableInfo& table, const std::string& name) {
    const tsql::ColumnInfo* column = table.column(name);
    if (column == nullptr) {
      refuse("The table '" + table.name + "' has no column '" + name + "'.", tsql::state::noSuchColumn);
    }
    return *column;
  }

  static tsql::Cell stored(const tsql::TableInfo& table, const tsql::ColumnInfo& column,
                           const basic::Value& value) {
    try {
      return toStored(value, column, table.name);
    } catch (const tsql::SqlError& error) {
      throw toAdoError(error);
    }
  }

  DatabaseFile file_;
  StoredCatalog catalog_;
  tsql::Translator translator_;
  Plans plans_;
  std::optional<std::int64_t> version_;  // None before the connection is told of the catalog's views.
  bool schemaTouched_ = false;
};

}  // namespace

ado::ProviderEntry providerEntry() {
  ado::ProviderEntry entry;
  entry.name = "embedded";
  entry.accepts = [](std::string_view connection) {
    return ado::ConnectionString(std::string(connection)).isPath();
  };
  entry.open = [](const std::string& connection) -> std::unique_ptr<ado::Provider> {
    const Options options = optionsOf(ado::ConnectionString(connection));
    checkFile(options);
    return std::make_unique<SqliteProvider>(options);
  };
  return entry;
}

}  // namespace payslate::sqlite
