// The old table steps aside, its rows move over, and its indexes are made again.
#include "platform/sqlite/Rebuilding.h"

#include <algorithm>

#include "platform/tsql/Convert.h"
#include "platform/tsql/Generator.h"
#include "platform/tsql/Schema.h"

namespace payslate::sqlite {

namespace {

constexpr const char* oldTable = "catalog_rebuilt";

std::vector<std::string> storedTexts(DatabaseFile& file, const std::string& condition,
                                     const std::string& table) {
  const auto rows = file.prepare("SELECT sql FROM sqlite_schema WHERE sql IS NOT NULL AND " + condition +
                                 " ORDER BY rowid");
  rows->bind(1, table);
  std::vector<std::string> texts;
  while (rows->step()) texts.push_back(tsql::textOf(rows->column(0)));
  return texts;
}

// Rows that come in the order of the new key fill its pages one after the other.
std::string movingRows(const tsql::TableInfo& table) {
  std::string columns;
  std::vector<std::string> key(table.columns.size());
  for (const tsql::ColumnInfo& column : table.columns) {
    const std::string name = tsql::quotedName(column.name);
    columns += (columns.empty() ? "" : ", ") + name;
    if (column.keyPosition > 0) key[static_cast<std::size_t>(column.keyPosition - 1)] = name;
  }
  std::string order;
  for (const std::string& name : key)
    if (!name.empty()) order += (order.empty() ? " ORDER BY " : ", ") + name;
  return "INSERT INTO " + tsql::quotedName(table.name) + " (" + columns + ") SELECT " + columns + " FROM " +
         oldTable + order;
}

}  // namespace

void rebuildWithKey(DatabaseFile& file, const tsql::TableInfo& table) {
  const std::vector<std::string> made = storedTexts(file, "type = 'table' AND name = ?1", table.name);
  const std::string anew = made.empty() ? "" : tsql::withKeyOf(made.front(), table);
  if (anew.empty()) throw file.damage("its catalog at '" + table.name + "'");
  // What others may have added beside our indexes goes along.
  const std::vector<std::string> belongings =
      storedTexts(file, "type IN ('index', 'trigger') AND tbl_name = ?1", table.name);
  // Views that somebody else has put over the table are to keep naming it.
  file.run("PRAGMA legacy_alter_table = ON");
  file.run("ALTER TABLE " + tsql::quotedName(table.name) + " RENAME TO " + oldTable);
  file.run("PRAGMA legacy_alter_table = OFF");
  file.run(anew);
  file.run(movingRows(table));
  file.run(std::string("DROP TABLE ") + oldTable);
  for (const std::string& text : belongings) file.run(text);
}

}  // namespace payslate::sqlite
