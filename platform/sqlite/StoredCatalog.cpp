// Two tables: objects, and the columns of tables with their Transact-SQL types.
#include "platform/sqlite/StoredCatalog.h"

#include "platform/tsql/Convert.h"
#include "platform/tsql/Generator.h"
#include "platform/tsql/Parser.h"
#include "platform/tsql/TokenStream.h"

namespace payslate::sqlite {

namespace {

using tsql::Cell;

constexpr const char* objectsTable =
    "CREATE TABLE catalog_objects (key TEXT NOT NULL PRIMARY KEY, kind TEXT NOT NULL, name TEXT NOT NULL, "
    "text TEXT) STRICT, WITHOUT ROWID";
constexpr const char* columnsTable =
    "CREATE TABLE catalog_columns (object TEXT NOT NULL, ordinal INT NOT NULL, name TEXT NOT NULL, type TEXT "
    "NOT NULL, "
    "not_null INT NOT NULL, key_position INT NOT NULL, PRIMARY KEY (object, ordinal)) STRICT, WITHOUT ROWID";

constexpr const char* tablesView = "INFORMATION_SCHEMA.TABLES";
constexpr int longestName = 128;

// TABLE_TYPE as the standard words it.
std::string tablesViewText() {
  return "CREATE TEMP VIEW " + tsql::quotedName(tablesView) +
         " (TABLE_SCHEMA, TABLE_NAME, TABLE_TYPE) AS SELECT 'dbo' COLLATE " + tsql::textCollation +
         ", name COLLATE " + tsql::textCollation +
         ", CASE kind WHEN 'table' THEN 'BASE TABLE' ELSE 'VIEW' END COLLATE " + tsql::textCollation +
         " FROM main.catalog_objects WHERE kind IN ('table', 'view')";
}

tsql::TableInfo tablesViewInfo() {
  tsql::TableInfo info{tablesView, {}};
  for (const char* column : {"TABLE_SCHEMA", "TABLE_NAME", "TABLE_TYPE"})
    info.columns.push_back({column, tsql::Type::varchar(longestName), true});
  return info;
}

const char* kindName(tsql::ObjectKind kind) {
  switch (kind) {
    case tsql::ObjectKind::Table:
      return "table";
    case tsql::ObjectKind::View:
      return "view";
    case tsql::ObjectKind::Procedure:
      return "procedure";
    case tsql::ObjectKind::Index:
      return "index";
  }
  return "";
}

[[noreturn]] void damaged(const std::string& object) {
  throw ado::Error("The catalog of the database is damaged at '" + object + "'.", tsql::state::general,
                   "payslate.sqlite");
}

std::string text(const Statement& row, std::size_t column) {
  const Cell cell = row.column(column);
  const auto* value = std::get_if<std::string>(&cell);
  if (value == nullptr) damaged(tsql::textOf(row.column(0)));  // The key of the row.
  return *value;
}

std::int64_t number(const Statement& row, std::size_t column) {
  const Cell cell = row.column(column);
  const auto* value = std::get_if<std::int64_t>(&cell);
  if (value == nullptr) damaged(text(row, 0));
  return *value;
}

tsql::Type storedType(const std::string& type, const std::string& object) {
  try {
    return tsql::parseType(type);
  } catch (const tsql::SqlError&) {
    damaged(object);
  }
}

template <typename Map>
auto* found(Map& map, std::string_view name) {
  const auto entry = map.find(tsql::lowerWord(name));
  return entry == map.end() ? nullptr : &entry->second;
}

void recordColumns(DatabaseFile& file, const std::string& key, const tsql::TableInfo& table) {
  file.run("DELETE FROM catalog_columns WHERE object = ?1", {key});
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const tsql::ColumnInfo& column = table.columns[i];
    file.run("INSERT INTO catalog_columns VALUES (?1, ?2, ?3, ?4, ?5, ?6)",
             {key, static_cast<std::int64_t>(i), column.name, column.type.text(),
              std::int64_t{column.notNull}, std::int64_t{column.keyPosition}});
  }
}

}  // namespace

const tsql::TableInfo* StoredCatalog::table(std::string_view name) const {
  return found(tables_, name);
}
const std::string* StoredCatalog::viewText(std::string_view name) const {
  return found(views_, name);
}
const std::string* StoredCatalog::procedureText(std::string_view name) const {
  return found(procedures_, name);
}

void StoredCatalog::prepare(DatabaseFile& file) {
  const std::string own =
      "SELECT count(*) FROM sqlite_schema WHERE name IN ('catalog_objects', 'catalog_columns')";
  constexpr std::int64_t ownTables = 2;
  if (file.number(own) == ownTables) return;
  if (file.number("SELECT count(*) FROM sqlite_schema") > 0) {
    throw ado::Error("The file is a database of another program.", tsql::state::general, "payslate.sqlite");
  }
  file.run("BEGIN IMMEDIATE");
  if (file.number(own) == 0) {  // Another process may have been faster.
    file.run(objectsTable);
    file.run(columnsTable);
  }
  file.run("COMMIT");
}

void StoredCatalog::describe(DatabaseFile& file) {
  file.run(tablesViewText());
}

void StoredCatalog::load(DatabaseFile& file) {
  tables_.clear();
  tables_[tsql::lowerWord(tablesView)] = tablesViewInfo();
  views_.clear();
  procedures_.clear();
  const auto objects = file.prepare("SELECT key, kind, name, text FROM catalog_objects");
  while (objects->step()) {
    const std::string kind = text(*objects, 1);
    const std::string name = text(*objects, 2);
    if (kind == kindName(tsql::ObjectKind::Table)) {
      tables_[text(*objects, 0)].name = name;
    } else if (kind == kindName(tsql::ObjectKind::View)) {
      views_[text(*objects, 0)] = text(*objects, 3);
    } else if (kind == kindName(tsql::ObjectKind::Procedure)) {
      procedures_[text(*objects, 0)] = text(*objects, 3);
    } else {
      damaged(name);
    }
  }
  const auto columns = file.prepare(
      "SELECT object, name, type, not_null, key_position FROM catalog_columns ORDER BY object, ordinal");
  while (columns->step()) {
    const std::string key = text(*columns, 0);
    tables_[key].columns.push_back({text(*columns, 1), storedType(text(*columns, 2), key),
                                    number(*columns, 3) != 0, static_cast<int>(number(*columns, 4))});
  }
  for (const auto& [key, table] : tables_)
    if (table.name.empty() || table.columns.empty()) damaged(key);
}

void StoredCatalog::record(DatabaseFile& file, const tsql::SchemaChange& change) {
  using Action = tsql::SchemaChange::Action;
  if (change.kind == tsql::ObjectKind::Index) return;  // Indexes are the database's own affair.
  const std::string key = tsql::lowerWord(change.name);
  if (change.action == Action::Add) {
    file.run("INSERT INTO catalog_objects VALUES (?1, ?2, ?3, ?4)",
             {key, std::string(kindName(change.kind)), change.name, change.text});
  }
  if (change.action == Action::Drop) {
    file.run("DELETE FROM catalog_objects WHERE key = ?1", {key});
    file.run("DELETE FROM catalog_columns WHERE object = ?1", {key});
  } else if (change.kind == tsql::ObjectKind::Table) {
    recordColumns(file, key, change.table);
  }
}

}  // namespace payslate::sqlite
