// The rows of the list of entries.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "component/EntryList.h"

namespace payslate {

class BasPaySlate;

namespace ui {
class ComboBox;
class Grid;
}  // namespace ui

struct EntryGridControls {
  ui::Grid& flexMaster;
  ui::ComboBox& cboColNames;
  ui::ComboBox& cboSearch;
};

/// Rows of the grid count as its own properties do: the first entry is row 1.
class EntryGrid : public EntryList {
 public:
  EntryGrid(BasPaySlate& bas, const EntryGridControls& controls) : bas_(bas), controls_(controls) {}

  /// Fills the grid from a statement over `table`, the physical name of what is listed, which is said for
  /// other grids' sake: this one does not need it.
  void GridPopulate(const std::string& statement, const std::string& table);
  void RefreshBrowseRow(const std::string& condition, std::int32_t entryId) override;

  /// The current row's entry; none while the list is empty. basic::ValueError for an identifier or a date
  /// that is none.
  [[nodiscard]] std::optional<ListedEntry> current() const;
  [[nodiscard]] std::string currentNumber() const;
  [[nodiscard]] bool hasCurrent() const;
  [[nodiscard]] bool isCurrentCancelled() const { return isCancelled(currentRow()); }
  [[nodiscard]] bool hasNumberInFirstRow() const;

  [[nodiscard]] int currentRow() const;
  /// Paints every cancelled row red; the last painted cell is then the current one.
  void markCancelledRows();
  /// The same for one row, whether it is cancelled or not.
  void markRow(int row);
  /// Selects the last row and scrolls to it.
  void goToLast();

  /// Sorts by the column chosen in `cboColNames`, if one is.
  void sort(bool ascending);
  /// Selects the first row that starts with the text in the column chosen in `cboSearch`.
  void search(const std::string& text);

 private:
  void fnSetGridHeader();
  void selectRow(int row);
  [[nodiscard]] const std::string& currentCell(int column) const;
  [[nodiscard]] bool isCancelled(int row) const;
  [[nodiscard]] bool showsNoEntry() const;

  BasPaySlate& bas_;
  EntryGridControls controls_;
};

}  // namespace payslate
