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
      sql += ", PRIMARY KEY (" + listed(key.columns) + ")";
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
    sql += ", CHECK (" + writtenExpression(*check) + ")";
  }
  // Keyed tables lie in the order of their key.
  sql += keyed ? ") STRICT, WITHOUT ROWID" : ") STRICT";
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
