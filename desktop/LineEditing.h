// A line edit that shows the text and selection of a text box or combo, and edits only through the form.
#pragma once

#include <QLineEdit>
#include <functional>
#include <string>

#include "desktop/View.h"

namespace payslate::desktop {

/// What a line edit shows; positions count code points.
struct EditedText {
  std::function<std::string()> text;
  std::function<int()> selectionStart;
  std::function<int()> selectionLength;
  std::function<void(int, int)> select;
};

class LineEditing {
 public:
  /// `shiftMovesSelect`: the control itself selects with Shift and the arrows.
  LineEditing(QLineEdit& edit, FormWindow& window, EditedText edited, bool shiftMovesSelect);

  void show();
  /// Typing by an input method, clicks of other buttons; true keeps the event from Qt.
  bool filter(QEvent& event);
  /// After a press has brought the focus: a selection that the program made stays. True keeps the press.
  bool keepsSelection(bool hadFocus);
  KeyOwner keyOwner(const QKeyEvent& event);
  [[nodiscard]] QString clippedText() const;
  /// Where a press leaves the caret where it is.
  [[nodiscard]] QPoint caretPoint() const;

 private:
  void selectionMoved();
  void cut();

  QLineEdit& edit_;
  FormWindow& window_;
  EditedText edited_;
  bool shiftMovesSelect_;
  bool showing_ = false;
  bool selecting_ = false;
  bool ignoresMouse_ = false;
};

}  // namespace payslate::desktop
