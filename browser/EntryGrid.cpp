// Filling, marking and ordering the rows; one entry read again.
#include "browser/EntryGrid.h"

#include "browser/BrowseColumns.h"
#include "browser/GridSearch.h"
#include "component/BasPaySlate.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Desktop.h"
#include "platform/ui/Grid.h"

namespace payslate {

using ado::CursorType;
using ado::LockType;

namespace {

constexpr ui::Twips defaultIdWidth = 960;

std::string withCondition(const std::string& browseStatement, const std::string& condition) {
  std::string statement = browseStatement.substr(0, basic::lower(browseStatement).find("order by"));
  const bool narrowed = basic::lower(statement).find("where") != std::string::npos;
  return statement + (narrowed ? " and " : " where ") + condition;
}

// A date as the list shows it, without the time of day that may follow. Dates may hold blanks themselves.
std::string withoutTime(const std::string& shown) {
  const std::size_t blank = shown.rfind(' ');
  return blank != std::string::npos && shown.find(':', blank) != std::string::npos ? shown.substr(0, blank)
                                                                                   : shown;
}

}  // namespace

void EntryGrid::GridPopulate(const std::string& statement, const std::string&) {
  ui::Grid& grid = controls_.flexMaster;
  grid.clear(1);
  grid.setColumnWidth(0, defaultIdWidth);
  ado::Recordset rows;
  rows.Open(statement, *bas_.adocon(), CursorType::Keyset, LockType::Optimistic);
  const std::size_t fields = rows.FieldCount();
  grid.setColumns(static_cast<int>(fields));
  std::vector<std::vector<std::string>> cells;
  for (; !rows.Eof(); rows.MoveNext()) {
    std::vector<std::string> row;
    row.reserve(fields);
    for (std::size_t field = 0; field < fields; ++field) row.push_back(bas_.cellText(rows.Fields(field)));
    cells.push_back(std::move(row));
  }
  if (!cells.empty()) grid.setRows(std::move(cells));
  fnSetGridHeader();
  markCancelledRows();
  grid.setColumnWidth(0, 0);
}

void EntryGrid::fnSetGridHeader() {
  ui::Grid& grid = controls_.flexMaster;
  grid.setFormatString(BrowseColumn::FormatString);
  for (int column = 1; column < grid.Cols(); ++column) {
    controls_.cboColNames.AddItem(grid.TextMatrix(0, column), column);
    controls_.cboSearch.AddItem(grid.TextMatrix(0, column), column);
  }
}

void EntryGrid::markCancelledRows() {
  for (int row = 1; row < controls_.flexMaster.Rows(); ++row)
    if (isCancelled(row)) markRow(row);
}

void EntryGrid::markRow(int row) {
  const bool cancelled = isCancelled(row);
  for (int column = 0; column <= BrowseColumn::Cancelled; ++column) {
    controls_.flexMaster.setCurrent(row, column);
    if (cancelled) controls_.flexMaster.setCellColor(ui::Grid::red);
  }
}

void EntryGrid::RefreshBrowseRow(const std::string& condition, std::int32_t entryId) {
  ui::Grid& grid = controls_.flexMaster;
  const int columns = grid.Cols();
  ado::Recordset entry;
  entry.Open(withCondition(bas_.strBrowseSQL, condition), *bas_.adocon(), CursorType::Keyset,
             LockType::ReadOnly);
  if (entry.Eof()) return;
  std::vector<std::string> cells;
  cells.reserve(static_cast<std::size_t>(columns));
  for (int column = 0; column < columns; ++column)
    cells.push_back(bas_.cellText(entry.Fields(static_cast<std::size_t>(column))));
  if (bas_.isNewEntry() && !showsNoEntry()) {
    cells[BrowseColumn::EntryId] = std::to_string(entryId);
    grid.addRow(std::move(cells));
    return goToLast();
  }
  const int row = bas_.isNewEntry() ? 1 : grid.Row();
  for (int column = 0; column < columns; ++column)
    grid.setTextMatrix(row, column, std::move(cells[static_cast<std::size_t>(column)]));
}

void EntryGrid::selectRow(int row) {
  controls_.flexMaster.setCurrent(row, 0);
  controls_.flexMaster.setTopRow(row);
  controls_.flexMaster.setColSel(controls_.flexMaster.Cols() - 1);
}

void EntryGrid::goToLast() {
  selectRow(controls_.flexMaster.Rows() - 1);
}

std::optional<ListedEntry> EntryGrid::current() const {
  if (!hasCurrent()) return {};
  ListedEntry entry;
  entry.id = basic::CLng(currentCell(BrowseColumn::EntryId));
  const std::string shown = withoutTime(currentCell(BrowseColumn::EntryDate));
  if (!shown.empty()) entry.date = basic::parseDate(shown, bas_.desktop().shortDatePattern());
  entry.shownAsCancelled = isCurrentCancelled();
  return entry;
}

std::string EntryGrid::currentNumber() const {
  return currentCell(BrowseColumn::EntryNo);
}

bool EntryGrid::hasCurrent() const {
  return !currentCell(BrowseColumn::EntryId).empty();
}

bool EntryGrid::hasNumberInFirstRow() const {
  return !controls_.flexMaster.TextMatrix(1, BrowseColumn::EntryNo).empty();
}

int EntryGrid::currentRow() const {
  return controls_.flexMaster.Row();
}

void EntryGrid::sort(bool ascending) {
  const ui::ComboBox& columns = controls_.cboColNames;
  const int chosen = columns.ListIndex();
  if (chosen < 0) return;
  const bool isDate = basic::lower(columns.List(chosen)).find("date") != std::string::npos;
  // The entry number stands in for the date, which is shown in an order that does not sort.
  const int column = isDate ? BrowseColumn::EntryNo : columns.ItemData(chosen);
  controls_.flexMaster.setCurrent(currentRow(), column);
  controls_.flexMaster.Sort(ascending ? ui::SortOrder::GenericAscending : ui::SortOrder::GenericDescending);
}

void EntryGrid::search(const std::string& text) {
  ui::Grid& grid = controls_.flexMaster;
  const int column = controls_.cboSearch.ItemData(controls_.cboSearch.ListIndex());
  grid.setCurrent(grid.Row(), column);
  grid.Sort(ui::SortOrder::GenericAscending);
  if (const auto row = firstRowStartingWith(grid, column, text)) selectRow(*row);
}

const std::string& EntryGrid::currentCell(int column) const {
  return controls_.flexMaster.TextMatrix(currentRow(), column);
}

bool EntryGrid::isCancelled(int row) const {
  const ui::Grid& grid = controls_.flexMaster;
  return grid.Cols() > BrowseColumn::Cancelled && grid.TextMatrix(row, BrowseColumn::Cancelled) == "Yes";
}

bool EntryGrid::showsNoEntry() const {
  return controls_.flexMaster.TextMatrix(1, BrowseColumn::EntryId).empty() &&
         controls_.flexMaster.Rows() == 2;
}

}  // namespace payslate
