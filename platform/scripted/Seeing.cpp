// Comparing what is there with what an errand expects.
#include "platform/scripted/Seeing.h"

#include <algorithm>
#include <functional>

#include "platform/basic/Decimal.h"
#include "platform/basic/Error.h"
#include "platform/basic/Numbers.h"
#include "platform/scripted/Finding.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Grid.h"
#include "platform/ui/TextPage.h"

namespace payslate::scripted {

using namespace payslate::ui;

namespace {

constexpr std::string_view datePattern = "yyyy/mm/dd";

std::string counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

// Rows of whatever is compared with a table: their number and the text of each cell.
struct Rows {
  std::size_t count = 0;
  std::function<std::string(std::size_t row, std::size_t column)> text;
};

std::string wholeRow(const Rows& rows, std::size_t row, std::size_t columns) {
  std::string line = "|";
  for (std::size_t column = 0; column < columns; ++column) line += " " + rows.text(row, column) + " |";
  return line;
}

std::string place(std::size_t row, const std::string& column) {
  return "row " + std::to_string(row + 1) + ", column " + column + ": ";
}

// Blanks at the end show only where the errand quotes them.
bool sameText(const Cell& cell, const std::string& found) {
  if (cell.quoted) return cell.text == found;
  return cell.text == std::string_view(found).substr(0, found.find_last_not_of(' ') + 1);
}

void compare(const Table& table, const Rows& rows) {
  const std::size_t both = std::min(rows.count, table.rows.size());
  for (std::size_t row = 0; row < both; ++row) {
    for (std::size_t column = 0; column < table.columns.size(); ++column) {
      const Cell& wanted = table.rows[row][column];
      const std::string found = rows.text(row, column);
      if (sameText(wanted, found)) continue;
      const std::string where = place(row, table.columns[column]);
      throw Mismatch(where + inQuotes(wanted.text), where + inQuotes(found));
    }
  }
  if (rows.count == table.rows.size()) return;
  std::string found = counted(rows.count, "row");
  if (rows.count > both) found += ", next " + wholeRow(rows, both, table.columns.size());
  throw Mismatch(counted(table.rows.size(), "row"), found);
}

// The one empty row that stands for "no rows" may also be written down as such.
bool isOneEmptyRow(const Table& table) {
  return table.rows.size() == 1 && std::all_of(table.rows.front().begin(), table.rows.front().end(),
                                               [](const Cell& cell) { return cell.text.empty(); });
}

bool showsNoRows(const RowControl& list) {
  if (dynamic_cast<const Grid*>(&list) == nullptr || list.rowCount() != 1) return false;
  for (int column = 0; column < static_cast<int>(list.columns().size()); ++column)
    if (!list.cellText(0, column).empty()) return false;
  return true;
}

void seeList(const Instruction& expectation, const Form& form) {
  const auto& list = controlOf<RowControl>(form, expectation.target, "a list");
  std::vector<int> columns;
  for (const std::string& name : expectation.table.columns) {
    columns.push_back(list.columnNamed(name));
    if (columns.back() >= 0) continue;
    std::string headers;
    for (const ColumnLayout& column : list.columns())
      headers += (headers.empty() ? "" : ", ") + inQuotes(basic::Trim(column.header));
    throw Mismatch("a column " + inQuotes(name) + " in " + list.Name(), headers);
  }
  const auto text = [&](std::size_t row, std::size_t column) {
    return list.cellText(static_cast<int>(row), columns[column]);
  };
  const bool none = showsNoRows(list) && !isOneEmptyRow(expectation.table);
  compare(expectation.table, {none ? 0 : static_cast<std::size_t>(list.rowCount()), text});
}

void seeCombo(const Instruction& expectation, const Form& form) {
  const auto& combo = controlOf<ComboBox>(form, expectation.target, "a combo");
  const auto& columns = expectation.table.columns;
  const auto text = [&](std::size_t row, std::size_t column) {
    const ComboBox::Item& item = combo.items()[row];
    return basic::sameName(columns[column], "Text") ? item.text : std::to_string(item.data);
  };
  compare(expectation.table, {combo.items().size(), text});
}

// The form's page of text, named by the form, or a page named by itself.
const TextPage& pageOf(const Form& form, const std::string& name) {
  if (!basic::sameName(form.Name(), name)) return controlOf<TextPage>(form, name, "a page of text");
  for (const Control* control : form.Controls())
    if (const auto* page = dynamic_cast<const TextPage*>(control)) return *page;
  throw Mismatch("a page of text on " + form.Name(), "it has none");
}

void seeText(const Instruction& expectation, const Form& form) {
  const std::vector<std::string> lines = pageOf(form, expectation.target).lines();
  const std::vector<std::vector<Cell>>& wanted = expectation.table.rows;
  for (std::size_t line = 0; line < std::max(lines.size(), wanted.size()); ++line) {
    const std::string where = "line " + std::to_string(line + 1) + ": ";
    if (line >= wanted.size()) throw Mismatch(counted(wanted.size(), "line"), where + inQuotes(lines[line]));
    const std::string expected = where + inQuotes(wanted[line].front().text);
    if (wanted[line].size() != 1) throw Mismatch("one cell a line", counted(wanted[line].size(), "cell"));
    if (line >= lines.size()) throw Mismatch(expected, counted(lines.size(), "line"));
    if (!sameText(wanted[line].front(), lines[line])) throw Mismatch(expected, where + inQuotes(lines[line]));
  }
}

void seeProperty(const Instruction& expectation, const Form& form) {
  const std::string& property = expectation.property;
  std::optional<std::string> text;
  std::string owner = form.Name();
  if (basic::sameName(expectation.target, "form")) {
    if (basic::sameName(property, "Caption")) text = form.Caption();
    if (basic::sameName(property, "Tag")) text = form.Tag();
    if (basic::sameName(property, "Name")) text = form.Name();
  } else {
    const Control& control = controlOf(form, expectation.target);
    owner = control.Name() + ", a " + std::string(control.TypeName());
    text = control.propertyText(property);
  }
  if (!text) throw Mismatch("a property " + property, owner + ", which has none of that name");
  if (*text != expectation.text) throw Mismatch(inQuotes(expectation.text), inQuotes(*text));
}

void seeFocus(const Instruction& expectation, const Form& form) {
  const Control& wanted = controlOf(form, expectation.target);
  const Control* active = form.ActiveControl();
  if (active == &wanted) return;
  throw Mismatch("the focus on " + wanted.Name(),
                 active == nullptr ? "no control has it" : "it is on " + active->Name());
}

void seeRed(const Instruction& expectation, const Form& form) {
  const auto& list = controlOf<RowControl>(form, expectation.target, "a grid");
  const std::string row = "row " + std::to_string(expectation.number);
  if (expectation.number > list.rowCount())
    throw Mismatch(row + " of " + list.Name(), counted(static_cast<std::size_t>(list.rowCount()), "row"));
  const bool red = list.isRed(expectation.number - 1);
  if (red == (expectation.verb == Verb::ExpectRed)) return;
  throw Mismatch(row + (red ? " not red" : " red"), red ? "it is red" : "it is not red");
}

// Numbers of any length compare exactly; only those with an exponent go through a double.
bool sameNumber(const std::string& left, const std::string& right) {
  try {
    return basic::Decimal::parse(left) == basic::Decimal::parse(right);
  } catch (const basic::ValueError&) {
    return basic::Val(left) == basic::Val(right);
  }
}

// Flags read as databases show them.
std::string sqlText(const basic::Value& value) {
  if (basic::isNull(value)) return "NULL";
  if (const bool* flag = std::get_if<bool>(&value)) return *flag ? "1" : "0";
  return basic::textOf(value, datePattern);
}

bool sameValue(const Cell& cell, const basic::Value& value) {
  if (cell.isNull() || basic::isNull(value)) return cell.isNull() && basic::isNull(value);
  const std::string found = sqlText(value);
  if (basic::IsNumeric(cell.text) && basic::IsNumeric(found)) return sameNumber(cell.text, found);
  return sameText(cell, found);
}

std::string shown(const basic::Value& value) {
  return std::holds_alternative<std::string>(value) ? inQuotes(sqlText(value)) : sqlText(value);
}

std::string rowText(const std::vector<basic::Value>& row) {
  std::string line = "|";
  for (const basic::Value& value : row) line += " " + sqlText(value) + " |";
  return line;
}

}  // namespace

void see(const Instruction& expectation, const Form& form) {
  switch (expectation.verb) {
    case Verb::ExpectFocus:
      return seeFocus(expectation, form);
    case Verb::ExpectRed:
    case Verb::ExpectNotRed:
      return seeRed(expectation, form);
    case Verb::ExpectList:
      return seeList(expectation, form);
    case Verb::ExpectCombo:
      return seeCombo(expectation, form);
    case Verb::ExpectText:
      return seeText(expectation, form);
    default:
      return seeProperty(expectation, form);
  }
}

void seeRows(const Table& table, const std::vector<std::vector<basic::Value>>& rows) {
  const std::size_t both = std::min(rows.size(), table.rows.size());
  for (std::size_t row = 0; row < both; ++row) {
    const auto& wanted = table.rows[row];
    if (wanted.size() != rows[row].size())
      throw Mismatch("rows of " + counted(wanted.size(), "column"),
                     counted(rows[row].size(), "column") + ": " + rowText(rows[row]));
    for (std::size_t column = 0; column < wanted.size(); ++column) {
      if (sameValue(wanted[column], rows[row][column])) continue;
      const std::string where = place(row, std::to_string(column + 1));
      const Cell& cell = wanted[column];
      throw Mismatch(where + (cell.isNull() ? cell.text : inQuotes(cell.text)),
                     where + shown(rows[row][column]));
    }
  }
  if (rows.size() == table.rows.size()) return;
  std::string found = counted(rows.size(), "row");
  if (rows.size() > both) found += ", next " + rowText(rows[both]);
  throw Mismatch(counted(table.rows.size(), "row"), found);
}

std::string described(const Message& message) {
  return "a message box " + inQuotes(message.text) + " style " +
         std::to_string(static_cast<int>(message.style)) + " title " + inQuotes(message.title);
}

void seeMessage(const Instruction& expectation, const Message& message) {
  const bool same = matches(expectation.text, message.text) &&
                    expectation.style.value_or(message.style) == message.style &&
                    expectation.title.value_or(message.title) == message.title;
  if (!same) throw Mismatch(expectation.written, described(message));
  if (expectation.answer == Answer::Escape) return;
  const bool yesOrNo = expectation.answer != Answer::Ok;
  if (yesOrNo != message.asksYesNo())
    throw Mismatch(
        expectation.written,
        described(message) + (message.asksYesNo() ? ", which offers Yes and No" : ", which offers OK alone"));
}

bool matches(std::string_view pattern, std::string_view text) {
  const std::size_t star = pattern.find('*');
  if (star == std::string_view::npos) return pattern == text;
  if (!text.starts_with(pattern.substr(0, star))) return false;
  text.remove_prefix(star);
  pattern.remove_prefix(star + 1);
  // Each piece between two stars at its earliest place leaves the most room for the pieces behind it.
  for (std::size_t next = pattern.find('*'); next != std::string_view::npos; next = pattern.find('*')) {
    const std::size_t at = text.find(pattern.substr(0, next));
    if (at == std::string_view::npos) return false;
    text.remove_prefix(at + next);
    pattern.remove_prefix(next + 1);
  }
  return text.ends_with(pattern);
}

}  // namespace payslate::scripted
