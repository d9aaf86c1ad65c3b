// Tables and indexes of the embedded database, from their Transact-SQL definitions.
#include "platform/tsql/Schema.h"

#include <algorithm>

#include "platform/tsql/Binder.h"
#include "platform/tsql/Generator.h"
#include "platform/tsql/TokenStream.h"

namespace payslate::tsql {

namespace {

std::string listed(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + quotedName(name);
  return list;
}

constexpr std::string_view keyStart = ", PRIMARY KEY (";
constexpr std::string_view checkStart = ", CHECK (";
// Keyed tables lie in the order of their key.
constexpr const char* keyedTail = ") STRICT, WITHOUT ROWID";
constexpr const char* plainTail = ") STRICT";

std::string keyClause(const std::vector<std::string>& columns) {
  return columns.empty() ? "" : std::string(keyStart) + listed(columns) + ")";
}

/// Where the parts of a table's definition lie in its text.
struct TableParts {
  std::size_t keyAt = std::string::npos;
  std::size_t keyEnd = std::string::npos;
  std::size_t firstCheck = std::string::npos;
  std::size_t end = std::string::npos;  ///< Of the definition: its closing parenthesis.
};

// Names and texts may hold anything, between quotes that are doubled inside.
TableParts partsOf(std::string_view sql) {
  TableParts parts;
  int depth = 0;
  char quote = 0;
  for (std::size_t at = 0; at < sql.size(); ++at) {
    const char c = sql[at];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '(') {
      ++depth;
    } else if (c == ')' && --depth == 0) {
      parts.end = at;
      return parts;
    } else if (c == ')' && depth == 1 && parts.keyAt < at && parts.keyEnd == std::string::npos) {
      parts.keyEnd = at + 1;
    } else if (c == ',' && depth == 1 && sql.substr(at).starts_with(keyStart)) {
      parts.keyAt = at;
    } else if (c == ',' && depth == 1 && sql.substr(at).starts_with(checkStart)) {
      parts.firstCheck = std::min(parts.firstCheck, at);
    }
  }
  return parts;
}

std::vector<std::string> keyOf(const TableInfo& table) {
  std::vector<const ColumnInfo*> columns;
  for (const ColumnInfo& column : table.columns)
    if (column.keyPosition > 0) columns.push_back(&column);
  std::sort(columns.begin(), columns.end(),
            [](const auto* a, const auto* b) { return a->keyPosition < b->keyPosition; });
  std::vector<std::string> names;
  names.reserve(columns.size());
  for (const ColumnInfo* column : columns) names.push_back(column->name);
  return names;
}

Translation rekeyed(TableInfo table) {
  Translation result;
  SchemaChange change;
  change.action = SchemaChange::Action::Rekey;
  change.name = table.name;
  change.table = std::move(table);
  result.change = std::move(change);
  return result;
}

std::string writtenColumn(ColumnDefinition& column, const std::string& table, const Catalog& catalog) {
  std::string sql = quotedName(column.name) + " " + storageOfColumn(column.type);
  if (column.notNull) sql += " NOT NULL";
  if (column.defaultValue) {
    Binder(catalog).bindDefault(column, table);
    sql += " DEFAULT (" + writtenExpression(*column.defaultValue) + ")";
  }
  return sql;
}

// Null counts as a value of its own there: no two rows may have it. The database's unique index lets any
// number of rows with a Null through, so those rows get an index of their own, where Null is an ordinary
// value.
std::vector<std::string> uniqueIndex(const TableInfo& table, const std::string& name,
                                     const std::vector<std::pair<std::string, bool>>& columns,
                                     const std::string& filter) {
  const auto [plain, withNulls] = indexNames(table.name, name);
  std::string list;
  std::string substituted;
  std::string anyNull;
  for (const auto& [columnName, descending] : columns) {
    const ColumnInfo* column = table.column(columnName);
    const std::string quoted = quotedName(column->name);
    list += (list.empty() ? "" : ", ") + quoted + (descending ? " DESC" : "");
    const std::string collation = column->type.isText()    ? std::string(" COLLATE ") + textCollation
                                  : column->type.isExact() ? std::string(" COLLATE ") + decimalCollation
                                                           : "";
    substituted += (substituted.empty() ? "" : ", ") + ("ifnull(" + quoted + ", x'00')" + collation);
    if (!column->notNull) anyNull += (anyNull.empty() ? "" : " OR ") + quoted + " IS NULL";
  }
  std::vector<std::string> sql;
  sql.push_back("CREATE UNIQUE INDEX " + quotedName(plain) + " ON " + quotedName(table.name) + " (" + list +
                ")" + (filter.empty() ? "" : " WHERE " + filter));
  if (!anyNull.empty()) {
    sql.push_back("CREATE UNIQUE INDEX " + quotedName(withNulls) + " ON " + quotedName(table.name) + " (" +
                  substituted + ") WHERE (" + anyNull + ")" + (filter.empty() ? "" : " AND " + filter));
  }
  return sql;
}

TableInfo described(CreateTable& table) {
  TableInfo info;
  info.name = table.name;
  for (ColumnDefinition& column : table.columns) {
    if (info.column(column.name) != nullptr) {
      throw SqlError(state::syntax, column.at,
                     "The table '" + table.name + "' has two columns '" + column.name + "'.");
    }
    info.columns.push_back({column.name, column.type, column.notNull, 0});
  }
  bool primary = false;
  for (KeyDefinition& key : table.keys) {
    if (key.primary && std::exchange(primary, true)) {
      throw SqlError(state::syntax, table.at, "The table '" + table.name + "' has two primary keys.");
    }
    int position = 0;
    for (std::string& name : key.columns) {
      const ColumnInfo& named = Binder::requireColumn(info, name, table.at);
      name = named.name;
      if (!key.primary) continue;
      const auto index = static_cast<std::size_t>(&named - info.columns.data());
      info.columns[index].keyPosition = ++position;
      info.columns[index].notNull = true;
      table.columns[index].notNull = true;
    }
  }
  return info;
}

}  // namespace

std::pair<std::string, std::string> indexNames(const std::string& table, const std::string& index) {
  const std::string name = lowerWord(table) + "." + lowerWord(index);
  return {name, name + nullIndexSuffix};
}

Translation translateTable(CreateTable& table, const Catalog& catalog) {
  Translation result;
  SchemaChange change;
  change.table = described(table);
  change.name = table.name;
  std::string sql = "CREATE TABLE " + quotedName(table.name) + " (";
  bool first = true;
  for (ColumnDefinition& column : table.columns) {
    sql += (std::exchange(first, false) ? "" : ", ") + writtenColumn(column, table.name, catalog);
  }
  bool keyed = false;
  std::vector<std::string> indexes;
  for (const KeyDefinition& key : table.keys) {
    if (key.primary) {
      sql += keyClause(key.columns);
      keyed = true;
      continue;
    }
    std::vector<std::pair<std::string, bool>> columns;
    for (const std::string& name : key.columns) columns.emplace_back(name, false);
    const std::string name = "unique" + std::to_string(indexes.size() + 1);
    for (std::string& index : uniqueIndex(change.table, name, columns, ""))
      indexes.push_back(std::move(index));
  }
  for (ExprPtr& check : table.checks) {
    Binder(catalog).bindRowCondition(check, change.table);
    sql += std::string(checkStart) + writtenExpression(*check) + ")";
  }
  sql += keyed ? keyedTail : plainTail;
  result.sql.push_back(std::move(sql));
  for (std::string& index : indexes) result.sql.push_back(std::move(index));
  result.change = std::move(change);
  return result;
}

Translation translateColumn(AddColumn& addition, const Catalog& catalog) {
  const TableInfo& table = Binder(catalog).requireTable(addition.table, addition.at);
  ColumnDefinition& column = addition.column;
  if (table.column(column.name) != nullptr) {
    throw SqlError(state::syntax, column.at,
                   "The table '" + table.name + "' has a column '" + column.name + "' already.");
  }
  if (column.notNull && !column.defaultValue) {
    throw SqlError(state::syntax, column.at, "A column that is added must allow Null or have a default.");
  }
  Translation result;
  result.sql.push_back("ALTER TABLE " + quotedName(table.name) + " ADD COLUMN " +
                       writtenColumn(column, table.name, catalog));
  SchemaChange change;
  change.action = SchemaChange::Action::Extend;
  change.name = table.name;
  change.table = table;
  change.table.columns.push_back({column.name, column.type, column.notNull, 0});
  result.change = std::move(change);
  return result;
}

Translation translateKey(AddKey& addition, const Catalog& catalog) {
  TableInfo table = Binder(catalog).requireTable(addition.table, addition.at);
  const auto refuse = [&](const std::string& why) -> SqlError { return {state::syntax, addition.at, why}; };
  if (!keyOf(table).empty()) throw refuse("The table '" + table.name + "' has a primary key already.");
  int position = 0;
  for (const std::string& name : addition.columns) {
    const auto index =
        static_cast<std::size_t>(&Binder::requireColumn(table, name, addition.at) - table.columns.data());
    ColumnInfo& column = table.columns[index];
    if (!column.notNull)
      throw refuse("The column '" + column.name + "' allows Null, and a primary key does not.");
    if (column.keyPosition > 0) throw refuse("The key names the column '" + column.name + "' twice.");
    column.keyPosition = ++position;
  }
  return rekeyed(std::move(table));
}

Translation translateConstraint(const DropConstraint& drop, const Catalog& catalog) {
  TableInfo table = Binder(catalog).requireTable(drop.table, drop.at);
  if (keyOf(table).empty() || !sameWord(drop.name, keyPrefix + table.name)) {
    throw SqlError(state::syntax, drop.at,
                   "The table '" + table.name + "' has no primary key '" + drop.name +
                       "', and other constraints cannot be dropped.");
  }
  for (ColumnInfo& column : table.columns) column.keyPosition = 0;
  return rekeyed(std::move(table));
}

std::string withKeyOf(std::string createStatement, const TableInfo& table) {
  const TableParts old = partsOf(createStatement);
  if (old.end == std::string::npos) return {};
  const bool wasKeyed = old.keyAt != std::string::npos;
  const std::string key = keyClause(keyOf(table));
  createStatement.replace(old.end, std::string::npos, key.empty() ? plainTail : keyedTail);
  if (wasKeyed) return createStatement.replace(old.keyAt, old.keyEnd - old.keyAt, key);
  return createStatement.insert(std::min(old.firstCheck, old.end), key);
}

Translation translateIndex(CreateIndex& index, const Catalog& catalog) {
  const TableInfo& table = Binder(catalog).requireTable(index.table, index.at);
  for (auto& [name, descending] : index.columns) name = Binder::requireColumn(table, name, index.at).name;
  std::string filter;
  if (index.where) {
    Binder(catalog).bindRowCondition(index.where, table);
    filter = writtenExpression(*index.where);
  }
  Translation result;
  if (index.unique) {
    result.sql = uniqueIndex(table, index.name, index.columns, filter);
  } else {
    std::string list;
    for (const auto& [name, descending] : index.columns) {
      list += (list.empty() ? "" : ", ") + quotedName(name) + (descending ? " DESC" : "");
    }
    result.sql.push_back("CREATE INDEX " + quotedName(indexNames(table.name, index.name).first) + " ON " +
                         quotedName(table.name) + " (" + list + ")" +
                         (filter.empty() ? "" : " WHERE " + filter));
  }
  SchemaChange change;
  change.kind = ObjectKind::Index;
  change.name = index.name;
  result.change = std::move(change);
  return result;
}

}  // namespace payslate::tsql
