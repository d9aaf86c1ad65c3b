// First, previous, next and last: the four buttons that walk through a list.
#pragma once

#include <functional>

#include "platform/ui/Layout.h"

namespace payslate {

namespace ui {
class CommandButton;
class ListView;
}  // namespace ui

struct NavigationButtons {
  ui::CommandButton& first;
  ui::CommandButton& previous;
  ui::CommandButton& next;
  ui::CommandButton& last;

  /// Says in words what the captions draw.
  void nameForReaders() const;
  void enableAll(bool enabled) const;
  /// Off where they would not move: a list of one counts as its beginning.
  void enableAt(int index, int count) const;
};

/// The last line of a popup: the buttons, OK and Close, which Escape presses. Tab and Enter come to OK before
/// they come to a button that leaves the row.
ui::Layout popupFoot(const NavigationButtons& buttons, ui::CommandButton& cmdOk, ui::CommandButton& cmdClose);

/// The buttons over the selected row of a list. `show` is called after a move, with the row selected.
class RowNavigation {
 public:
  RowNavigation(const NavigationButtons& buttons, ui::ListView& list, std::function<void()> show);

  [[nodiscard]] const NavigationButtons& buttons() const { return buttons_; }
  /// Selects the row after the selected one, if there is one, and shows nothing.
  void selectNext();
  /// What the Next button does.
  void next();
  void enableHere() const;

 private:
  void move(int row);

  NavigationButtons buttons_;
  ui::ListView& list_;
  std::function<void()> show_;
};

}  // namespace payslate
