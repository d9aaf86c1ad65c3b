// Rows of the list of entries: filling, marking, and one entry read again.
#include "browser/BrowseColumns.h"
#include "browser/FrmMaster.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

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

}  // namespace

void FrmMaster::GridPopulate(const std::string& statement, const std::string&) {
  flexMaster.clear(1);
  flexMaster.setColumnWidth(0, defaultIdWidth);
  ado::Recordset rows;
  rows.Open(statement, *bas_.adocon(), CursorType::Keyset, LockType::Optimistic);
  const std::size_t fields = rows.FieldCount();
  flexMaster.setColumns(static_cast<int>(fields));
  std::vector<std::vector<std::string>> cells;
  for (; !rows.Eof(); rows.MoveNext()) {
    std::vector<std::string> row;
    row.reserve(fields);
    for (std::size_t field = 0; field < fields; ++field) row.push_back(bas_.cellText(rows.Fields(field)));
    cells.push_back(std::move(row));
  }
  if (!cells.empty()) flexMaster.setRows(std::move(cells));
  fnSetGridHeader();
  flexMaster.setColumnWidth(0, 0);
}

void FrmMaster::fnSetGridHeader() {
  flexMaster.setFormatString(BrowseColumn::FormatString);
  for (int column = 1; column < flexMaster.Cols(); ++column) {
    cboColNames.AddItem(flexMaster.TextMatrix(0, column), column);
    cboSearch.AddItem(flexMaster.TextMatrix(0, column), column);
  }
  fnMarkCancelledRows();
}

void FrmMaster::fnMarkCancelledRows() {
  if (isCancelled(flexMaster.Row())) {
    CmdDelete.Enabled = false;
  } else {
    setEditAndDelete();
  }
  for (int row = 1; row < flexMaster.Rows(); ++row)
    if (isCancelled(row)) markRow(row);
}

void FrmMaster::markRow(int row) {
  const bool cancelled = isCancelled(row);
  for (int column = 0; column <= BrowseColumn::Cancelled; ++column) {
    flexMaster.setCurrent(row, column);
    if (cancelled) flexMaster.setCellColor(ui::Grid::red);
  }
}

void FrmMaster::RefreshBrowseRow(const std::string& condition, std::int32_t entryId) {
  const int columns = flexMaster.Cols();
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
    flexMaster.addRow(std::move(cells));
    const int last = flexMaster.Rows() - 1;
    flexMaster.setCurrent(last, 0);
    flexMaster.setTopRow(last);
    flexMaster.setColSel(columns - 1);
    return;
  }
  const int row = bas_.isNewEntry() ? 1 : flexMaster.Row();
  for (int column = 0; column < columns; ++column)
    flexMaster.setTextMatrix(row, column, std::move(cells[static_cast<std::size_t>(column)]));
}

}  // namespace payslate
