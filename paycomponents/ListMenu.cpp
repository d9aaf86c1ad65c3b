// Dispatching list commands to the active list.
#include "paycomponents/ListMenu.h"

#include <algorithm>

#include "component/EntryState.h"
#include "component/ListPage.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/Form.h"
#include "platform/ui/ListView.h"

namespace payslate {

ListMenu::ListMenu(const EntryState& state, const ui::CommandButton& cmdOk) : state_(state), cmdOk_(cmdOk) {
  mnuAdd_.Click = [this] { mnuAdd_Click(); };
  mnuEdit_.Click = [this] { mnuEdit_Click(); };
  mnuDelete_.Click = [this] { mnuDelete_Click(); };
}

void ListMenu::attach(const char* activeList, ListPage& page) {
  pages_.push_back({activeList, &page});
  ui::ListView& list = page.list();
  list.DblClick = [this, activeList, &page] { openRow(activeList, page); };
  list.KeyPress = [this, activeList, &page](int& keyAscii) {
    if (keyAscii == ui::KeyAscii::Return) openRow(activeList, page);
  };
  list.KeyDown = [this, activeList, &page](int& keyCode, int) { pressKey(activeList, page, keyCode); };
  list.MouseDown = [this, activeList, &page](ui::MouseButton button, int, int, int) {
    pressMouse(activeList, page, button);
  };
}

ListPage* ListMenu::active() const {
  const auto named = [this](const Attached& one) { return one.name == strActiveList; };
  const auto found = std::find_if(pages_.begin(), pages_.end(), named);
  return found == pages_.end() ? nullptr : found->page;
}

bool ListMenu::canChange() const {
  return cmdOk_.Enabled() && state_.employeeId.has_value();
}

void ListMenu::openRow(const char* activeList, ListPage& page) {
  if (!canChange()) return;
  strActiveList = activeList;
  if (page.list().rowCount() > 0) {
    mnuEdit_Click();
  } else if (page.offersAdd()) {
    mnuAdd_Click();
  }
}

void ListMenu::pressKey(const char* activeList, ListPage& page, int keyCode) {
  if (!cmdOk_.Enabled()) return;
  if (page.keysActivate()) strActiveList = activeList;
  if (keyCode == ui::KeyCode::Delete && page.list().rowCount() > 0) mnuDelete_Click();
}

void ListMenu::offerCommands(const ListPage& page, bool hasRows, bool mayDelete) {
  mnuAdd_.Visible = page.offersAdd();
  mnuEdit_.Enabled = hasRows;
  mnuDelete_.Enabled = hasRows && mayDelete;
}

void ListMenu::pressMouse(const char* activeList, ListPage& page, ui::MouseButton button) {
  if (!canChange()) return;
  strActiveList = activeList;
  const int row = page.list().SelectedItem();
  offerCommands(page, row >= 0, row >= 0 && page.mayDelete(row));
  if (button == ui::MouseButton::Right) page.list().form().popUp(mnuPopup_);
}

void ListMenu::mnuAdd_Click() {
  if (ListPage* page = active()) page->add();
}

void ListMenu::mnuEdit_Click() {
  ListPage* page = active();
  if (page != nullptr && page->list().SelectedItem() >= 0) page->edit();
}

void ListMenu::mnuDelete_Click() {
  ListPage* page = active();
  if (page != nullptr && page->list().SelectedItem() >= 0) page->remove();
}

}  // namespace payslate
