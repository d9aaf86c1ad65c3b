// Aligning cells.
#include "host/TablePrint.h"

#include <algorithm>
#include <ostream>
#include <vector>

#include "platform/ado/Recordset.h"
#include "platform/basic/Unicode.h"

namespace payslate::host {

namespace {

struct Cell {
  std::string text;
  bool toTheRight = false;
};

std::size_t widthOf(const std::string& text) {
  return basic::characters(text).size();
}

Cell cellOf(const basic::Value& value) {
  if (basic::isNull(value)) return {"-", true};
  if (const auto* amount = std::get_if<basic::Decimal>(&value)) return {amount->text(), true};
  const bool leftward =
      std::holds_alternative<std::string>(value) || std::holds_alternative<basic::Date>(value);
  return {basic::textOf(value, "yyyy/mm/dd"), !leftward};
}

std::string padded(const Cell& cell, std::size_t width) {
  const std::string blanks(width - widthOf(cell.text), ' ');
  return cell.toTheRight ? blanks + cell.text : cell.text + blanks;
}

}  // namespace

void printRows(std::ostream& out, const std::string& title, ado::Connection& connection,
               const std::string& statement) {
  ado::Recordset answer = connection.Execute(statement);
  const std::size_t columns = answer.FieldCount();
  std::vector<std::vector<Cell>> lines(1);
  for (std::size_t column = 0; column < columns; ++column)
    lines[0].push_back({answer.Fields(column).Name(), false});
  for (; !answer.Eof(); answer.MoveNext()) {
    auto& line = lines.emplace_back();
    for (std::size_t column = 0; column < columns; ++column)
      line.push_back(cellOf(answer.Fields(column).Value()));
  }
  std::vector<std::size_t> widths(columns, 0);
  for (const auto& line : lines)
    for (std::size_t column = 0; column < columns; ++column)
      widths[column] = std::max(widths[column], widthOf(line[column].text));
  out << title << '\n';
  for (const auto& line : lines) {
    std::string text;
    for (std::size_t column = 0; column < columns; ++column)
      text += "  " + padded(line[column], widths[column]);
    text.erase(text.find_last_not_of(' ') + 1);
    out << text << '\n';
  }
  if (lines.size() == 1) out << "  no rows\n";
}

}  // namespace payslate::host
