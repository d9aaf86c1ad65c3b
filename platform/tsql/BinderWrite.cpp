// Inserts, updates, deletes, and the conditions and defaults of tables.
#include <algorithm>

#include "platform/tsql/Binder.h"
#include "platform/tsql/Convert.h"
#include "platform/tsql/Ranges.h"
#include "platform/tsql/TokenStream.h"

namespace payslate::tsql {

const ColumnInfo* TableInfo::column(std::string_view columnName) const {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const ColumnInfo& info) { return sameWord(info.name, columnName); });
  return found == columns.end() ? nullptr : &*found;
}

const TableInfo& Binder::requireTable(const std::string& name, Position at) const {
  if (const TableInfo* table = catalog_.table(name)) return *table;
  const bool view = catalog_.viewText(name) != nullptr;
  throw SqlError(view ? state::syntax : state::noSuchTable, at,
                 view ? "The view '" + name + "' cannot be written." : "There is no table '" + name + "'.");
}

const ColumnInfo& Binder::requireColumn(const TableInfo& table, const std::string& name, Position at) {
  if (const ColumnInfo* column = table.column(name)) return *column;
  throw SqlError(state::noSuchColumn, at, "The table '" + table.name + "' has no column '" + name + "'.");
}

Binder::Scope Binder::rowScope(const TableInfo& table) const {
  Scope scope;
  scope.depth = 1;
  scope.place = "a condition on rows to be written";
  Source source{table.name, table.name, {}};
  for (const ColumnInfo& column : table.columns) source.columns.push_back({column.name, column.type, true});
  scope.sources.push_back(std::move(source));
  return scope;
}

void Binder::assign(ExprPtr& value, const TableInfo& table, const ColumnInfo& column) const {
  const Type from = value->type;
  const Type& to = column.type;
  const std::string name = table.name + "." + column.name;
  const Position at = value->at;
  if (from.isNull()) {
    value->type = to;
    return;
  }
  value->settle();
  if (value->isLiteral()) {
    value = makeLiteral(assignCell(value->literal, from, to, name), to, at);
    return;
  }
  const bool shorterText = from.isText() && to.kind == Kind::VarChar &&
                           (to.length == unlimitedLength || (from.length > 0 && from.length <= to.length));
  if ((from == to && !from.isText()) || shorterText) return;
  ExprPtr call = makeRuntime("ts_assign", to, at);
  call->args.push_back(std::move(value));
  call->args.push_back(wholeLiteral(from.packed(), at));
  call->args.push_back(wholeLiteral(to.packed(), at));
  call->args.push_back(makeLiteral(name, Type::varchar(), at));
  value = std::move(call);
}

void Binder::bind(Insert& insert) {
  const TableInfo& table = requireTable(insert.table, insert.at);
  insert.table = table.name;
  if (insert.columns.empty()) {
    for (const ColumnInfo& column : table.columns) insert.columns.push_back(column.name);
  }
  std::vector<const ColumnInfo*> targets;
  insert.columnsAt.resize(insert.columns.size(), insert.at);
  for (std::size_t i = 0; i < insert.columns.size(); ++i) {
    std::string& name = insert.columns[i];
    targets.push_back(&requireColumn(table, name, insert.columnsAt[i]));
    name = targets.back()->name;
    if (std::count(targets.begin(), targets.end(), targets.back()) > 1) {
      throw SqlError(state::syntax, insert.columnsAt[i], "The column '" + name + "' is assigned twice.");
    }
  }
  const auto checkCount = [&](std::size_t count) {
    if (count != targets.size()) {
      throw SqlError(state::syntax, insert.at,
                     "The insert names " + std::to_string(targets.size()) + " columns and gives " +
                         std::to_string(count) + " values.");
    }
  };
  if (insert.query) {
    bindQuery(*insert.query, nullptr, false);
    checkCount(insert.query->columns.size());
    for (SelectCore& core : insert.query->cores) {
      for (std::size_t i = 0; i < targets.size(); ++i) assign(core.items[i].expr, table, *targets[i]);
    }
    return;
  }
  Scope none;
  none.depth = 1;
  none.place = "the values of an insert";
  for (std::vector<ExprPtr>& row : insert.rows) {
    checkCount(row.size());
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (row[i]->isBound()) {
        insert.assigned.push_back({*row[i]->slot, targets[i]->type, table.name + "." + targets[i]->name});
        continue;
      }
      bindValue(row[i], none);
      assign(row[i], table, *targets[i]);
    }
  }
}

void Binder::bind(Update& update) {
  const TableInfo& table = requireTable(update.table, update.at);
  update.table = table.name;
  Scope scope = rowScope(table);
  std::vector<const ColumnInfo*> assigned;
  for (auto& [name, value] : update.assignments) {
    const ColumnInfo& column = requireColumn(table, name, value->at);
    name = column.name;
    if (std::find(assigned.begin(), assigned.end(), &column) != assigned.end()) {
      throw SqlError(state::syntax, value->at, "The column '" + name + "' is assigned twice.");
    }
    assigned.push_back(&column);
    bindValue(value, scope);
    assign(value, table, column);
  }
  if (!update.where) return;
  bindCondition(update.where, scope);
  addRanges(update.where);
}

void Binder::bind(Delete& deletion) {
  const TableInfo& table = requireTable(deletion.table, deletion.at);
  deletion.table = table.name;
  Scope scope = rowScope(table);
  if (!deletion.where) return;
  bindCondition(deletion.where, scope);
  addRanges(deletion.where);
}

void Binder::bindRowCondition(ExprPtr& condition, const TableInfo& table) {
  Scope scope = rowScope(table);
  for (Source& source : scope.sources) source.sql.clear();
  bindCondition(condition, scope);
}

void Binder::bindDefault(ColumnDefinition& column, const std::string& table) {
  Scope none;
  none.depth = 1;
  none.place = "a default";
  bindValue(column.defaultValue, none);
  TableInfo owner;
  owner.name = table;
  assign(column.defaultValue, owner, {column.name, column.type, false, 0});
}

}  // namespace payslate::tsql
