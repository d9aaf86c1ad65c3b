// The pop-up menu that the lists of the entry form share, and the keys and clicks that lead to its commands.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/Key.h"
#include "platform/ui/Menu.h"

namespace payslate {

class ListPage;
struct EntryState;

namespace ui {
class CommandButton;
}  // namespace ui

/// Names of the lists, as `strActiveList` holds them.
namespace ActiveList {
constexpr const char* Allowances = "all";
constexpr const char* Deductions = "ded";
constexpr const char* Facilities = "fac";
}  // namespace ActiveList

/// Commands go to the list that was last made active, by a double click, Enter or a mouse press.
class ListMenu {
 public:
  /// While `cmdOk` is disabled the entry cannot be changed and nothing here acts.
  ListMenu(const EntryState& state, const ui::CommandButton& cmdOk);

  /// Takes over the list's clicks and keys. The page must outlive the menu.
  void attach(const char* activeList, ListPage& page);

  void mnuAdd_Click();
  void mnuEdit_Click();
  void mnuDelete_Click();

  std::string strActiveList;

 private:
  [[nodiscard]] ListPage* active() const;
  [[nodiscard]] bool canChange() const;
  void openRow(const char* activeList, ListPage& page);
  void pressKey(const char* activeList, ListPage& page, int keyCode);
  void pressMouse(const char* activeList, ListPage& page, ui::MouseButton button);
  void offerCommands(const ListPage& page, bool hasRows, bool mayDelete);

  struct Attached {
    const char* name;
    ListPage* page;
  };

  const EntryState& state_;
  const ui::CommandButton& cmdOk_;
  std::vector<Attached> pages_;

  ui::MenuItem mnuAdd_{"mnuAdd", "&Add"};
  ui::MenuItem mnuEdit_{"mnuEdit", "&Edit"};
  ui::MenuItem mnusep1_{"mnusep1", "-"};
  ui::MenuItem mnuDelete_{"mnuDelete", "&Delete"};
  ui::MenuItem mnusep2_{"mnusep2", "-"};
  ui::MenuItem mnuCancel_{"mnuCancel", "Cancel Menu"};
  ui::PopupMenu mnuPopup_{"mnuPopup", {&mnuAdd_, &mnuEdit_, &mnusep1_, &mnuDelete_, &mnusep2_, &mnuCancel_}};
};

}  // namespace payslate
