// The provider: statements by way of the translator, rows of a table by way of its columns.
#include "platform/sqlite/SqliteProvider.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <unordered_map>

#include "platform/ado/ConnectionString.h"
#include "platform/basic/Numbers.h"
#include "platform/sqlite/CatalogSeal.h"
#include "platform/sqlite/DatabaseFile.h"
#include "platform/sqlite/RowCursor.h"
#include "platform/sqlite/StoredCatalog.h"
#include "platform/sqlite/Values.h"
#include "platform/tsql/Generator.h"
#include "platform/tsql/Translator.h"

namespace payslate::sqlite {

namespace {

constexpr const char* source = "payslate.sqlite";
constexpr std::size_t mostTranslations = 1000;

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

class SqliteProvider : public ado::Provider {
 public:
  explicit SqliteProvider(const Options& options) : file_(options.file), translator_(catalog_) {
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

  std::unique_ptr<ado::Cursor> execute(std::string_view statement) override {
    const std::shared_ptr<const tsql::Translation> translation = translated(statement);
    if (translation->change) {
      changeSchema(*translation);
      return nullptr;
    }
    if (!translation->returnsRows) {
      file_.run(translation->sql.front(), translation->bindings);
      return nullptr;
    }
    std::unique_ptr<Statement> prepared = file_.prepare(translation->sql.front());
    prepared->bind(translation->bindings);
    return std::make_unique<RowCursor>(file_, std::move(prepared), translation->columns);
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
    const std::shared_ptr<const tsql::Translation> translation = translated(statement);
    if (!translation->baseTable) return std::nullopt;
    return catalog_.table(*translation->baseTable)->name;
  }

  std::vector<std::string> key(const std::string& table) override {
    std::vector<const tsql::ColumnInfo*> columns;
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
    const tsql::TableInfo& info = current(table);
    if (row.empty()) return file_.run("INSERT INTO " + tsql::quotedName(info.name) + " DEFAULT VALUES");
    std::string names;
    std::string places;
    std::vector<tsql::Cell> values;
    for (const ado::Assignment& assignment : row) {
      const tsql::ColumnInfo& column = required(info, assignment.column);
      values.push_back(stored(info, column, assignment.value));
      names += (names.empty() ? "" : ", ") + tsql::quotedName(column.name);
      places += (places.empty() ? "?" : ", ?") + std::to_string(values.size());
    }
    file_.run("INSERT INTO " + tsql::quotedName(info.name) + " (" + names + ") VALUES (" + places + ")",
              values);
  }

  void update(const std::string& table, const std::vector<ado::Assignment>& key,
              const std::vector<ado::Assignment>& row) override {
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
    file_.run("UPDATE " + tsql::quotedName(info.name) + " SET " + assignments + " WHERE " + condition,
              values);
    if (file_.changedRows() == 0) {
      refuse("The row of '" + info.name + "' is not there any more: another user has deleted it.", "HY000");
    }
  }

 private:
  // Translations are kept by text for as long as the catalog stays what it is.
  std::shared_ptr<const tsql::Translation> translated(std::string_view statement) {
    refresh();
    std::string text(statement);
    if (const auto known = translations_.find(text); known != translations_.end()) return known->second;
    try {
      auto translation = std::make_shared<const tsql::Translation>(translator_.translate(statement));
      if (translation->change) return translation;
      if (translations_.size() >= mostTranslations) translations_.clear();
      translations_.emplace(std::move(text), translation);
      return translation;
    } catch (const tsql::SqlError& error) {
      throw toAdoError(error);
    }
  }

  void refresh() {
    if (file_.followOthers()) version_.reset();
    if (version_ && StoredCatalog::version(file_) == *version_) return;
    requireSeal(file_);
    if (!version_) StoredCatalog::describe(file_);
    reload();
  }

  void reload() {
    translations_.clear();
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
    refresh();
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
  std::unordered_map<std::string, std::shared_ptr<const tsql::Translation>> translations_;
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
