// Names, literals and whole statements; the writer does what stands inside them.
#include "platform/tsql/Generator.h"

#include <array>
#include <charconv>
#include <limits>

#include "platform/tsql/Writer.h"

namespace payslate::tsql {

namespace {

WrittenStatement taken(Writer& writer) {
  return {std::move(writer.text), std::move(writer.bound)};
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
  Writer writer;
  writer.write(expr);
  return std::move(writer.text);
}

WrittenStatement writtenQuery(const Query& query) {
  Writer writer;
  writer.write(query);
  return taken(writer);
}

WrittenStatement writtenInsert(const Insert& insert) {
  Writer writer;
  writer.text = "INSERT INTO " + quotedName(insert.table) + " (";
  for (std::size_t i = 0; i < insert.columns.size(); ++i)
    writer.text += (i > 0 ? ", " : "") + quotedName(insert.columns[i]);
  writer.text += ") ";
  if (insert.query) writer.write(*insert.query);
  for (std::size_t row = 0; row < insert.rows.size(); ++row) {
    writer.text += row == 0 ? "VALUES (" : ", (";
    for (std::size_t i = 0; i < insert.rows[row].size(); ++i) {
      if (i > 0) writer.text += ", ";
      writer.write(*insert.rows[row][i]);
    }
    writer.text += ")";
  }
  return taken(writer);
}

WrittenStatement writtenUpdate(const Update& update) {
  Writer writer;
  writer.text = "UPDATE " + quotedName(update.table) + " SET ";
  for (std::size_t i = 0; i < update.assignments.size(); ++i) {
    const auto& [column, value] = update.assignments[i];
    writer.text += (i > 0 ? ", " : "") + quotedName(column) + " = ";
    writer.write(*value);
  }
  writer.where(update.where);
  return taken(writer);
}

WrittenStatement writtenDelete(const Delete& deletion) {
  Writer writer;
  writer.text = "DELETE FROM " + quotedName(deletion.table);
  writer.where(deletion.where);
  return taken(writer);
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
