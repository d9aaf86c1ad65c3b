// Deleting a row of a list on the entry form.
#include "component/ListPage.h"

#include "component/BasPaySlate.h"
#include "platform/common/CommonDB.h"
#include "platform/ui/ListView.h"

namespace payslate {

bool deleteSelectedRow(const BasPaySlate& bas, common::CommonDB& database, ui::ListView& list,
                       const std::string& description) {
  const std::string question = "Are you sure you want to delete \r" + description + "?";
  if (bas.message(question, ui::MessageStyle::AskQuestion) != ui::Answer::Yes) return false;
  const bool moreRows = list.rowCount() > 1;
  database.fnDeleteListview(true, list, moreRows);
  return true;
}

std::string nextSerialNumber(const ui::ListView& list) {
  return std::to_string(list.rowCount() + 1);
}

std::vector<ListRow> plainRows(const ui::ListView& list) {
  std::vector<ListRow> rows;
  rows.reserve(list.rows().size());
  for (const ui::ListView::Row& row : list.rows()) rows.push_back(row.cells);
  return rows;
}

}  // namespace payslate
