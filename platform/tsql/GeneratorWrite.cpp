// Statements that write, and how columns are stored.
#include "platform/tsql/Generator.h"

namespace payslate::tsql {

const char* collationOf(const Type& type) {
  if (type.isText()) return textCollation;
  return type.isExact() ? decimalCollation : nullptr;
}

std::string writtenInsert(const Insert& insert) {
  std::string sql = "INSERT INTO " + quotedName(insert.table) + " (";
  for (std::size_t i = 0; i < insert.columns.size(); ++i)
    sql += (i > 0 ? ", " : "") + quotedName(insert.columns[i]);
  sql += ") ";
  if (insert.query) return sql + writtenQuery(*insert.query);
  for (std::size_t row = 0; row < insert.rows.size(); ++row) {
    sql += row == 0 ? "VALUES (" : ", (";
    for (std::size_t i = 0; i < insert.rows[row].size(); ++i) {
      sql += (i > 0 ? ", " : "") + writtenExpression(*insert.rows[row][i]);
    }
    sql += ")";
  }
  return sql;
}

std::string writtenUpdate(const Update& update) {
  std::string sql = "UPDATE " + quotedName(update.table) + " SET ";
  for (std::size_t i = 0; i < update.assignments.size(); ++i) {
    const auto& [column, value] = update.assignments[i];
    sql += (i > 0 ? ", " : "") + quotedName(column) + " = " + writtenExpression(*value);
  }
  return update.where ? sql + " WHERE " + writtenExpression(*update.where) : sql;
}

std::string writtenDelete(const Delete& deletion) {
  const std::string sql = "DELETE FROM " + quotedName(deletion.table);
  return deletion.where ? sql + " WHERE " + writtenExpression(*deletion.where) : sql;
}

// INT and not INTEGER: the latter would make a single key column the row's own number, which takes no Null.
std::string storageOfColumn(const Type& type) {
  if (const char* collation = collationOf(type)) return std::string("TEXT COLLATE ") + collation;
  return type.isFloating() ? "REAL" : "INT";
}

}  // namespace payslate::tsql
