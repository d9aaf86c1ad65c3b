// Cells, current cell and sorting of a grid.
#include "platform/ui/Grid.h"

#include <algorithm>

#include "platform/basic/Numbers.h"

namespace payslate::ui {

namespace {

constexpr Twips defaultWidth = 960;
constexpr Twips twipsPerCharacter = 90;

// What a cell is compared by, worked out once a row.
struct SortKey {
  bool isNumber = false;
  double number = 0;
  std::string text;
};

SortKey sortKey(const std::string& cell) {
  if (basic::IsNumeric(cell)) return {true, basic::Val(cell), {}};
  return {false, 0, basic::upper(cell)};
}

bool before(const SortKey& left, const SortKey& right) {
  if (left.isNumber != right.isNumber) return left.isNumber;
  return left.isNumber ? left.number < right.number : left.text < right.text;
}

}  // namespace

Grid::Grid(Form& form, std::string name) : RowControl(form, std::move(name)) {
  clear(1);
}

Grid::DataRow Grid::makeRow(std::vector<std::string> cells) const {
  cells.resize(columns_.size());
  return {std::move(cells), std::vector<int>(columns_.size(), noColor)};
}

void Grid::clear(int columns) {
  columns_.assign(static_cast<std::size_t>(columns), ColumnLayout{{}, defaultWidth, Alignment::Left});
  rows_.clear();
  rows_.push_back(makeRow({}));
  row_ = topRow_ = 1;
  col_ = colSel_ = 0;
  tell(Aspect::Columns);
  tell(Aspect::RowsReset);
}

void Grid::setColumns(int count) {
  columns_.resize(static_cast<std::size_t>(count), ColumnLayout{{}, defaultWidth, Alignment::Left});
  for (DataRow& row : rows_) {
    row.cells.resize(columns_.size());
    row.colors.resize(columns_.size(), noColor);
  }
  tell(Aspect::Columns);
  tell(Aspect::RowsReset);
}

void Grid::setFormatString(const std::string& format) {
  std::size_t column = 0;
  for (std::size_t at = 0; column < columns_.size(); ++column) {
    const std::size_t bar = std::min(format.find('|', at), format.size());
    std::string caption = format.substr(at, bar - at);
    auto& layout = columns_[column];
    const char mark = caption.empty() ? ' ' : caption.front();
    layout.alignment = mark == '>' ? Alignment::Right : mark == '^' ? Alignment::Center : Alignment::Left;
    if (mark == '>' || mark == '<' || mark == '^') caption.erase(0, 1);
    if (!caption.empty()) layout.width = static_cast<Twips>(caption.size()) * twipsPerCharacter;
    layout.header = caption.substr(0, caption.find_last_not_of(' ') + 1);
    if (bar == format.size()) break;
    at = bar + 1;
  }
  tell(Aspect::Columns);
}

void Grid::setColumnWidth(int column, Twips width) {
  columns_.at(static_cast<std::size_t>(column)).width = width;
  tell(Aspect::Columns);
}

void Grid::setRows(std::vector<std::vector<std::string>> rows) {
  rows_.clear();
  rows_.reserve(rows.size());
  for (auto& cells : rows) rows_.push_back(makeRow(std::move(cells)));
  if (rows_.empty()) rows_.push_back(makeRow({}));
  row_ = std::min(row_, rowCount());
  topRow_ = 1;
  tell(Aspect::RowsReset);
}

void Grid::addRow(std::vector<std::string> cells) {
  rows_.push_back(makeRow(std::move(cells)));
  tell(Aspect::RowInserted, rowCount() - 1);
}

const std::string& Grid::TextMatrix(int row, int column) const {
  return row == 0 ? columns_.at(static_cast<std::size_t>(column)).header : cellText(row - 1, column);
}

void Grid::setTextMatrix(int row, int column, std::string text) {
  rows_.at(static_cast<std::size_t>(row - 1)).cells.at(static_cast<std::size_t>(column)) = std::move(text);
  tell(Aspect::RowChanged, row - 1);
}

void Grid::setCurrent(int row, int column) {
  const int newRow = std::clamp(row, 1, rowCount());
  const int newCol = std::clamp(column, 0, std::max(0, Cols() - 1));
  colSel_ = newCol;
  if (newRow == row_ && newCol == col_) return;
  row_ = newRow;
  col_ = newCol;
  tell(Aspect::CurrentCell, row_ - 1);
  EnterCell.raise();
}

void Grid::setColSel(int column) {
  colSel_ = column;
  tell(Aspect::CurrentCell, row_ - 1);
}

void Grid::setTopRow(int row) {
  topRow_ = std::clamp(row, 1, rowCount());
  tell(Aspect::TopRow, topRow_ - 1);
}

void Grid::setCellColor(int color) {
  rows_.at(static_cast<std::size_t>(row_ - 1)).colors.at(static_cast<std::size_t>(col_)) = color;
  tell(Aspect::RowChanged, row_ - 1);
}

void Grid::Sort(SortOrder order) {
  if (order == SortOrder::None) return;
  std::vector<std::pair<SortKey, DataRow>> keyed;
  keyed.reserve(rows_.size());
  for (DataRow& row : rows_) {
    SortKey key = sortKey(row.cells[static_cast<std::size_t>(col_)]);
    keyed.emplace_back(std::move(key), std::move(row));
  }
  const bool ascending = order == SortOrder::GenericAscending;
  std::stable_sort(keyed.begin(), keyed.end(), [ascending](const auto& left, const auto& right) {
    return ascending ? before(left.first, right.first) : before(right.first, left.first);
  });
  std::transform(keyed.begin(), keyed.end(), rows_.begin(),
                 [](auto& pair) { return std::move(pair.second); });
  tell(Aspect::RowsReset);
}

const std::string& Grid::cellText(int row, int column) const {
  return rows_.at(static_cast<std::size_t>(row)).cells.at(static_cast<std::size_t>(column));
}

bool Grid::isRed(int row) const {
  const auto& colors = rows_.at(static_cast<std::size_t>(row)).colors;
  return !colors.empty() && std::all_of(colors.begin(), colors.end(), [](int color) { return color == red; });
}

void Grid::userSelects(int row) {
  if (row >= 0) setCurrent(row + 1, col_);
}

std::optional<std::string> Grid::propertyText(std::string_view property) const {
  const std::pair<std::string_view, int> numbers[] = {{"Row", row_},       {"Col", col_},
                                                      {"ColSel", colSel_}, {"TopRow", topRow_},
                                                      {"Rows", Rows()},    {"Cols", Cols()}};
  for (const auto& [name, number] : numbers)
    if (basic::sameName(property, name)) return std::to_string(number);
  return RowControl::propertyText(property);
}

}  // namespace payslate::ui
