// A grid of cell texts with one header row, a current cell and sorting.
#pragma once

#include "platform/ui/RowControl.h"

namespace payslate::ui {

enum class SortOrder { None = 0, GenericAscending = 1, GenericDescending = 2 };

/// Rows count as the grid's own properties do: row 0 is the header, data rows start at 1 (but the members of
/// RowControl, made for screens, count data rows from 0). A grid has at least the header and one data row.
class Grid : public RowControl {
 public:
  static constexpr int red = 255;
  static constexpr int noColor = -1;

  Grid(Form& form, std::string name);
  [[nodiscard]] std::string_view TypeName() const override { return "Grid"; }

  /// Empties the grid: header and one empty data row of `columns` columns; the current cell is (1, 0).
  void clear(int columns);
  void setColumns(int count);
  /// Header captions separated by "|"; a leading ">" aligns right, "<" or nothing left, "^" centred. Column
  /// widths follow from the captions with their blanks.
  void setFormatString(const std::string& format);
  void setColumnWidth(int column, Twips width);
  /// Several data rows at once, in place of what is there; each row has as many cells as the grid columns.
  void setRows(std::vector<std::vector<std::string>> rows);
  void addRow(std::vector<std::string> cells);

  [[nodiscard]] int Rows() const { return rowCount() + 1; }
  [[nodiscard]] int Cols() const { return static_cast<int>(columns_.size()); }
  [[nodiscard]] const std::string& TextMatrix(int row, int column) const;
  void setTextMatrix(int row, int column, std::string text);

  [[nodiscard]] int Row() const { return row_; }
  [[nodiscard]] int Col() const { return col_; }
  [[nodiscard]] int ColSel() const { return colSel_; }
  /// Makes a cell current; raises EnterCell when it moves. The selection shrinks to it.
  void setCurrent(int row, int column);
  void setColSel(int column);  ///< The selection reaches from Col to here.
  [[nodiscard]] int TopRow() const { return topRow_; }
  void setTopRow(int row);

  /// Colour of the current cell's text: Grid::red or Grid::noColor. It stays with its row when rows are
  /// sorted.
  void setCellColor(int color);

  /// Sorts all data rows by the current column: numbers among themselves by value and before texts, texts
  /// without regard to case, equal ones in their order. The current cell stays at its place.
  void Sort(SortOrder order);

  Event<> EnterCell;

  [[nodiscard]] int rowCount() const override { return static_cast<int>(rows_.size()); }
  [[nodiscard]] const std::vector<ColumnLayout>& columns() const override { return columns_; }
  [[nodiscard]] const std::string& cellText(int row, int column) const override;
  [[nodiscard]] bool isRed(int row) const override;
  [[nodiscard]] int currentRow() const override { return row_ - 1; }
  void userSelects(int row) override;

  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;

 private:
  struct DataRow {
    std::vector<std::string> cells;
    std::vector<int> colors;
  };
  [[nodiscard]] DataRow makeRow(std::vector<std::string> cells) const;

  std::vector<ColumnLayout> columns_;
  std::vector<DataRow> rows_;
  int row_ = 1;
  int col_ = 0;
  int colSel_ = 0;
  int topRow_ = 1;
};

}  // namespace payslate::ui
