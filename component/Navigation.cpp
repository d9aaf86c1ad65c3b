// Walking through a list by buttons.
#include "component/Navigation.h"

#include <algorithm>

#include "platform/ui/Buttons.h"
#include "platform/ui/ListView.h"

namespace payslate {

void NavigationButtons::nameForReaders() const {
  first.AccessibleName = "First";
  previous.AccessibleName = "Previous";
  next.AccessibleName = "Next";
  last.AccessibleName = "Last";
}

void NavigationButtons::enableAll(bool enabled) const {
  for (ui::CommandButton* button : {&first, &previous, &next, &last}) button->Enabled = enabled;
}

void NavigationButtons::enableAt(int index, int count) const {
  const bool atFirst = index == 0;
  const bool atLast = !atFirst && index == count - 1;
  for (ui::CommandButton* back : {&first, &previous}) back->Enabled = !atFirst;
  for (ui::CommandButton* forward : {&next, &last}) forward->Enabled = !atLast;
}

ui::Layout popupFoot(const NavigationButtons& buttons, ui::CommandButton& cmdOk,
                     ui::CommandButton& cmdClose) {
  using namespace ui::layout;
  cmdClose.Cancel = true;
  return row({item(buttons.first).later(), item(buttons.previous).later(), item(buttons.next).later(),
              item(buttons.last).later(), space(), item(cmdOk), item(cmdClose)});
}

RowNavigation::RowNavigation(const NavigationButtons& buttons, ui::ListView& list, std::function<void()> show)
    : buttons_(buttons), list_(list), show_(std::move(show)) {
  buttons_.nameForReaders();
  buttons_.first.Click = [this] { move(0); };
  buttons_.previous.Click = [this] { move(list_.SelectedItem() - 1); };
  buttons_.next.Click = [this] { next(); };
  buttons_.last.Click = [this] { move(list_.rowCount() - 1); };
}

void RowNavigation::move(int row) {
  if (list_.rowCount() == 0) return;
  list_.select(std::clamp(row, 0, list_.rowCount() - 1));
  show_();
  enableHere();
}

void RowNavigation::selectNext() {
  list_.select(std::min(list_.SelectedItem() + 1, list_.rowCount() - 1));
}

void RowNavigation::next() {
  move(list_.SelectedItem() + 1);
}

void RowNavigation::enableHere() const {
  buttons_.enableAt(list_.SelectedItem(), list_.rowCount());
}

}  // namespace payslate
