// A list of the entry form whose rows the clerk adds, edits and deletes.
#pragma once

#include <string>
#include <vector>

#include "component/EntryRecord.h"

namespace payslate {

class BasPaySlate;

namespace common {
class CommonDB;
}
namespace ui {
class ListView;
}

/// What the shared list menu asks of a list. Edit and remove work on the selected row.
class ListPage {
 public:
  virtual ~ListPage() = default;
  [[nodiscard]] virtual ui::ListView& list() = 0;
  /// Can the clerk add rows of his own?
  [[nodiscard]] virtual bool offersAdd() const = 0;
  [[nodiscard]] virtual bool mayDelete(int row) const = 0;
  /// Does any key pressed in it make this the active list first?
  [[nodiscard]] virtual bool keysActivate() const { return true; }

  virtual void add() = 0;
  virtual void edit() = 0;
  /// Asks first, and does nothing where the row may not be deleted.
  virtual void remove() = 0;
};

/// What a popup does with its row; texts as the forms' public flags hold them.
namespace PopupMode {
constexpr const char* Adding = "N";
constexpr const char* Editing = "E";
}  // namespace PopupMode

/// Asks whether the selected row, which `description` names, is to go, and removes it on Yes. True when it is
/// gone.
bool deleteSelectedRow(const BasPaySlate& bas, common::CommonDB& database, ui::ListView& list,
                       const std::string& description);

/// The serial number that the next row of a list gets.
std::string nextSerialNumber(const ui::ListView& list);

/// The cells of every row.
std::vector<ListRow> plainRows(const ui::ListView& list);

}  // namespace payslate
