// Looking up fields, next numbers and list rows.
#include "platform/common/clsCommonDB.h"

#include "platform/ado/Error.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/ListView.h"

namespace payslate::common {

namespace {

std::string selectText(const std::string& columns, const std::string& table, const std::string& condition) {
  std::string text = "select " + columns + " from " + table;
  if (!condition.empty()) text += " where " + condition;
  return text;
}

}  // namespace

ado::Connection& clsCommonDB::connection() const {
  if (!connection_)
    throw ado::Error("The database helper was given no connection: assign adocon first.", "08003");
  return *connection_;
}

basic::Value clsCommonDB::fnreturnfield(const std::string& field, const std::string& condition) {
  ado::Recordset rows;
  rows.Open(selectText(field, table_, condition), connection(), ado::CursorType::ForwardOnly,
            ado::LockType::ReadOnly);
  if (rows.Eof()) return basic::Null{};
  return rows.Fields(0).Value();
}

void clsCommonDB::populateComboorList(ui::ComboBox& combo, const std::string& keyColumn,
                                      const std::string& textColumn, const std::string& condition) {
  ado::Recordset rows;
  rows.Open(selectText(keyColumn + ", " + textColumn, table_, condition), connection(),
            ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
  std::vector<ui::ComboBox::Item> items;
  for (; !rows.Eof(); rows.MoveNext())
    items.push_back({rows.Fields(1).Text(), basic::CLng(rows.Fields(0).Value())});
  combo.setItems(std::move(items));
}

std::int32_t clsCommonDB::fnGetNextMaxNo(const std::string& column) {
  const basic::Value largest = fnreturnfield("max(" + column + ")", {});
  if (basic::isNull(largest)) return 1;
  return basic::CLng(basic::CDbl(largest) + 1);
}

void clsCommonDB::fnInsertListview(ui::ListView& list, int, std::vector<std::string> cells) {
  list.addRow(std::move(cells));
}

void clsCommonDB::fnDeleteListview(bool selectedRow, ui::ListView& list, bool moreRows) {
  if (!selectedRow || list.SelectedItem() < 0) return;
  list.removeRow(list.SelectedItem());
  if (!moreRows) return;
  for (int row = 0; row < list.rowCount(); ++row) list.setCell(row, 0, std::to_string(row + 1));
}

}  // namespace payslate::common
