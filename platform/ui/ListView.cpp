// Rows of a list view.
#include "platform/ui/ListView.h"

#include <algorithm>

#include "platform/basic/Numbers.h"

namespace payslate::ui {

ListView::ListView(Form& form, std::string name, std::vector<ColumnLayout> columns, bool checkBoxes)
    : RowControl(form, std::move(name)), columns_(std::move(columns)), checkBoxes_(checkBoxes) {}

void ListView::addRow(std::vector<std::string> cells, bool checked) {
  rows_.push_back({std::move(cells), checked, 0});
  tell(Aspect::RowInserted, rowCount() - 1);
  if (selected_ < 0 && rowCount() == 1) select(0);
}

void ListView::removeRow(int row) {
  rows_.erase(rows_.begin() + row);
  if (selected_ > row || selected_ >= rowCount()) --selected_;
  tell(Aspect::RowRemoved, row);
  tell(Aspect::SelectedRow, selected_);
}

void ListView::clear() {
  if (rows_.empty()) return;
  rows_.clear();
  selected_ = -1;
  tell(Aspect::RowsReset);
}

void ListView::setCell(int row, int column, std::string text) {
  auto& cells = at(row).cells;
  const auto index = static_cast<std::size_t>(column);
  if (cells.size() <= index) cells.resize(index + 1);
  if (cells[index] == text) return;
  cells[index] = std::move(text);
  tell(Aspect::RowChanged, row);
}

const std::string& ListView::cellText(int row, int column) const {
  static const std::string none;
  const auto& cells = at(row).cells;
  const auto index = static_cast<std::size_t>(column);
  return index < cells.size() ? cells[index] : none;
}

void ListView::setChecked(int row, bool checked) {
  at(row).checked = checked;
  tell(Aspect::RowChanged, row);
}

void ListView::select(int row) {
  if (row == selected_) return;
  selected_ = std::clamp(row, -1, rowCount() - 1);
  tell(Aspect::SelectedRow, selected_);
}

void ListView::userSelects(int row) {
  select(row);
  if (row >= 0) ItemClick.raise(row);
}

void ListView::userChecks(int row) {
  at(row).checked = !at(row).checked;
  tell(Aspect::RowChanged, row);
  ItemCheck.raise(row);
}

std::optional<std::string> ListView::propertyText(std::string_view property) const {
  if (basic::sameName(property, "SelectedItem")) return std::to_string(selected_ + 1);
  return RowControl::propertyText(property);
}

bool ListView::keyAction(const Key& key) {
  if (key.code == KeyCode::Space && checkBoxes_ && selected_ >= 0) {
    userChecks(selected_);
    return true;
  }
  return RowControl::keyAction(key);
}

}  // namespace payslate::ui
