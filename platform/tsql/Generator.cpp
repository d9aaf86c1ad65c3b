// Names, literals and whole statements; the writer does what stands inside them.
#include "platform/tsql/Generator.h"

#include <array>
#include <charconv>
#include <limits>

#include "platform/tsql/Writer.h"

namespace payslate::tsql {

namespace {

std::string written(const auto& part) {
  Writer writer;
  writer.write(part);
  return std::move(writer.text);
}

}  // namespace

std::string quotedName(const std::string& name) {
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"') quoted += c;
    quoted += c;
  }
  return quoted + "\"";
}

std::string writtenLiteral(const Cell& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    // The least number has no literal of its own.
    if (*whole == std::numeric_limits<std::int64_t>::min()) return "(" + std::to_string(*whole + 1) + " - 1)";
    return std::to_string(*whole);
  }
  if (const auto* number = std::get_if<double>(&value)) {
    std::array<char, 40> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), *number, std::chars_format::scientific);
    return {buffer.data(), end.ptr};
  }
  if (const auto* content = std::get_if<std::string>(&value)) {
    std::string quoted = "'";
    for (const char c : *content) {
      if (c == '\'') quoted += c;
      quoted += c;
    }
    return quoted + "'";
  }
  return "NULL";
}

std::string writtenExpression(const Expr& expr) {
  return written(expr);
}

std::string writtenQuery(const Query& query) {
  return written(query);
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

const char* collationOf(const Type& type) {
  if (type.isText()) return textCollation;
  return type.isExact() ? decimalCollation : nullptr;
}

// INT and not INTEGER: the latter would make a single key column the row's own number, which takes no Null.
std::string storageOfColumn(const Type& type) {
  if (const char* collation = collationOf(type)) return std::string("TEXT COLLATE ") + collation;
  return type.isFloating() ? "REAL" : "INT";
}

}  // namespace payslate::tsql
