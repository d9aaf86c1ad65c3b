// Two tables: objects, and the columns of tables with their Transact-SQL types.
#include "platform/sqlite/StoredCatalog.h"

#include <algorithm>

#include "platform/sqlite/CatalogSeal.h"
#include "platform/tsql/Convert.h"
#include "platform/tsql/Generator.h"
#include "platform/tsql/Parser.h"
#include "platform/tsql/Schema.h"
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

constexpr int longestName = 128;

/// What a statement may ask of the catalog, as servers offer it.
struct CatalogView {
  const char* name;
  std::vector<tsql::ColumnInfo> columns;
  std::string text;  ///< Of the select that fills it.
};

// A table's number is good for joining, and for nothing else. An index of a table is stored as "table.index"
// in small letters; what stands beside it for rows with a Null, and what a key is kept by, are no indexes of
// their own.
std::vector<CatalogView> catalogViews() {
  using tsql::Kind;
  using tsql::Type;
  const std::string collated = std::string(" COLLATE ") + tsql::textCollation;
  const auto named = [](const char* name) {
    return tsql::ColumnInfo{name, Type::varchar(longestName), true};
  };
  const auto numbered = [](const char* name) { return tsql::ColumnInfo{name, Type::of(Kind::Int), true}; };
  const std::string keyName = std::string("('") + tsql::keyPrefix + "' || o.name)" + collated;
  // TABLE_TYPE as the standard words it.
  return {
      {"INFORMATION_SCHEMA.TABLES",
       {named("TABLE_SCHEMA"), named("TABLE_NAME"), named("TABLE_TYPE")},
       "SELECT 'dbo'" + collated + ", name" + collated +
           ", CASE kind WHEN 'table' THEN 'BASE TABLE' ELSE 'VIEW' END" + collated +
           " FROM main.catalog_objects WHERE kind IN ('table', 'view')"},
      {"sys.tables",
       {named("name"), numbered("object_id")},
       "SELECT o.name" + collated +
           ", s.rootpage FROM main.catalog_objects o, main.sqlite_schema s"
           " WHERE o.kind = 'table' AND s.type = 'table' AND s.name = o.name"},
      {"INFORMATION_SCHEMA.COLUMNS",
       {named("TABLE_NAME"), named("COLUMN_NAME"), numbered("ORDINAL_POSITION"), named("IS_NULLABLE")},
       "SELECT o.name" + collated + ", c.name" + collated + ", c.ordinal + 1, iif(c.not_null, 'NO', 'YES')" +
           collated + " FROM main.catalog_objects o, main.catalog_columns c WHERE c.object = o.key"},
      {"INFORMATION_SCHEMA.KEY_COLUMN_USAGE",
       {named("CONSTRAINT_NAME"), named("TABLE_NAME"), named("COLUMN_NAME"), numbered("ORDINAL_POSITION")},
       "SELECT " + keyName + ", o.name" + collated + ", c.name" + collated +
           ", c.key_position FROM main.catalog_objects o, main.catalog_columns c"
           " WHERE c.object = o.key AND c.key_position > 0"},
      {"sys.key_constraints",
       {named("name"), numbered("parent_object_id"), named("type")},
       "SELECT " + keyName + ", s.rootpage, 'PK'" + collated +
           " FROM main.catalog_objects o, main.catalog_columns c, main.sqlite_schema s"
           " WHERE c.object = o.key AND c.key_position = 1 AND s.type = 'table' AND s.name = o.name"},
      {"sys.indexes",
       {numbered("object_id"), named("name"), {"is_unique", Type::of(Kind::Bit), true}},
       "SELECT t.rootpage, substr(i.name, length(t.name) + 2)" + collated +
           ", i.sql LIKE 'CREATE UNIQUE %' FROM main.sqlite_schema i, main.sqlite_schema t"
           " WHERE i.type = 'index' AND t.type = 'table' AND t.name = i.tbl_name AND i.sql IS NOT NULL"
           " AND i.name NOT LIKE '%" +
           std::string(tsql::nullIndexSuffix) + "'"}};
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

struct DamagedObject {
  std::string name;
};

[[noreturn]] void damaged(std::string object) {
  const auto isUnprintable = [](char byte) { return byte < ' ' || byte > '~'; };
  std::replace_if(object.begin(), object.end(), isUnprintable, '?');
  throw DamagedObject{std::move(object)};
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

// Where the file's head names the program behind it: "PSL" and a byte for the format. Files were without it
// at first.
constexpr std::int64_t formatMark =
    std::int64_t{'P'} << 24 | std::int64_t{'S'} << 16 | std::int64_t{'L'} << 8;
constexpr std::int64_t knownFormat = 1;
constexpr std::int64_t formatBits = 0xff;

void requireKnownFormat(DatabaseFile& file) {
  const std::int64_t mark = file.number("PRAGMA application_id");
  if (mark == 0) return;
  const std::int64_t format = mark & formatBits;
  if (mark - format != formatMark)
    throw ado::Error("The file is a database of another program.", tsql::state::general, "payslate.sqlite");
  if (format <= knownFormat) return;
  throw ado::Error("The file has the format " + std::to_string(format) +
                       " of a newer program; this one knows formats up to " + std::to_string(knownFormat) +
                       ".",
                   tsql::state::general, "payslate.sqlite");
}

void markFormat(DatabaseFile& file) {
  file.run("PRAGMA application_id = " + std::to_string(formatMark + knownFormat));
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
  requireKnownFormat(file);
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
    markFormat(file);
  }
  file.run("COMMIT");
}

void StoredCatalog::describe(DatabaseFile& file) {
  for (const CatalogView& view : catalogViews()) {
    std::string columns;
    for (const tsql::ColumnInfo& column : view.columns)
      columns += (columns.empty() ? "" : ", ") + tsql::quotedName(column.name);
    file.run("CREATE TEMP VIEW IF NOT EXISTS " + tsql::quotedName(view.name) + " (" + columns + ") AS " +
             view.text);
  }
}

std::int64_t StoredCatalog::version(DatabaseFile& file) {
  return file.number("PRAGMA user_version");
}

void StoredCatalog::load(DatabaseFile& file) {
  requireKnownFormat(file);
  try {
    loadObjects(file);
  } catch (const DamagedObject& object) {
    throw file.damage("its catalog at '" + object.name + "'");
  }
}

void StoredCatalog::loadObjects(DatabaseFile& file) {
  tables_.clear();
  for (CatalogView& view : catalogViews())
    tables_[tsql::lowerWord(view.name)] = tsql::TableInfo{view.name, std::move(view.columns)};
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
  const auto indexes = file.prepare(
      "SELECT lower(t.name), i.name FROM main.sqlite_schema t, pragma_index_list(t.name) l,"
      " pragma_index_info(l.name) i WHERE t.type = 'table' AND l.partial = 0 AND i.seqno = 0"
      " AND i.name IS NOT NULL");
  while (indexes->step()) {
    const auto table = tables_.find(text(*indexes, 0));
    if (table == tables_.end()) continue;
    for (tsql::ColumnInfo& column : table->second.columns)
      column.leadsIndex = column.leadsIndex || tsql::sameWord(column.name, text(*indexes, 1));
  }
  for (const auto& [key, table] : tables_)
    if (table.name.empty() || table.columns.empty()) damaged(key);
}

void StoredCatalog::record(DatabaseFile& file, const tsql::SchemaChange& change) {
  recordObject(file, change);
  file.run("PRAGMA user_version = " + std::to_string(version(file) + 1));
  // Views and procedures are rows to the database; the statements of other connections are to notice them
  // too.
  file.run("PRAGMA schema_version = " + std::to_string(file.number("PRAGMA schema_version") + 1));
  markFormat(file);
  sealCatalog(file);
}

void StoredCatalog::recordObject(DatabaseFile& file, const tsql::SchemaChange& change) {
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
