// A list of rows with columns, one of them selected, optionally with a check box each.
#pragma once

#include "platform/ui/RowControl.h"

namespace payslate::ui {

class ListView : public RowControl {
 public:
  struct Row {
    std::vector<std::string> cells;  ///< The item text, then the sub-items; missing ones read as empty.
    bool checked = false;
    int tag = 0;  ///< What a program keeps beside the row, wherever it moves; 0: nothing.
  };

  ListView(Form& form, std::string name, std::vector<ColumnLayout> columns, bool checkBoxes = false);
  [[nodiscard]] std::string_view TypeName() const override { return "ListView"; }
  [[nodiscard]] bool hasCheckBoxes() const { return checkBoxes_; }

  /// Appends; the first row of an empty list becomes the selected one.
  void addRow(std::vector<std::string> cells, bool checked = false);
  void removeRow(int row);
  void clear();
  void setCell(int row, int column, std::string text);

  [[nodiscard]] int rowCount() const override { return static_cast<int>(rows_.size()); }
  [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
  [[nodiscard]] const std::vector<ColumnLayout>& columns() const override { return columns_; }
  [[nodiscard]] const std::string& cellText(int row, int column) const override;
  [[nodiscard]] bool isRed(int) const override { return false; }
  [[nodiscard]] int currentRow() const override { return selected_; }
  [[nodiscard]] bool isChecked(int row) const { return at(row).checked; }
  void setChecked(int row, bool checked);  ///< By program: no event.
  [[nodiscard]] int tag(int row) const { return at(row).tag; }
  void setTag(int row, int tag) { at(row).tag = tag; }

  [[nodiscard]] int SelectedItem() const { return selected_; }
  void select(int row);  ///< -1: none.

  void userSelects(int row) override;
  void userChecks(int row);  ///< The user clicks the row's check box: it turns, then ItemCheck.

  Event<int> ItemClick;  ///< row
  Event<int> ItemCheck;  ///< row; raised by the user alone

  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
  bool keyAction(const Key& key) override;

 private:
  [[nodiscard]] const Row& at(int row) const { return rows_.at(static_cast<std::size_t>(row)); }
  [[nodiscard]] Row& at(int row) { return rows_.at(static_cast<std::size_t>(row)); }

  std::vector<ColumnLayout> columns_;
  std::vector<Row> rows_;
  int selected_ = -1;
  bool checkBoxes_;
};

}  // namespace payslate::ui
