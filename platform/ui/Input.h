// What a user does on a form: the few entry points that every screen and the scripted clerk feed.
#pragma once

#include <functional>
#include <string_view>

#include "platform/basic/Date.h"
#include "platform/ui/Key.h"

namespace payslate::ui {

class ComboBox;
class Control;
class DatePicker;
class Form;
class ListView;
class RowControl;
class TabControl;

/// Each call is one user action, complete with its events; keystrokes that handlers sent follow it. An error
/// that escapes a handler is shown in a message box. Controls that cannot have the focus take no input.
class Input {
 public:
  explicit Input(Form& form) : form_(form) {}

  /// Clicks into the control or tabs to it. False when the focus did not get there.
  bool focus(Control& control);
  /// A key on the focused control: form key-down, key-down, key-press, the key's effect, key-up.
  void key(Key key);
  void type(std::u32string_view characters);
  /// Ctrl+V: text into the focused control, every character through its key-press filter; then one Change and
  /// key-up. A beep tells of a paste that is refused as a whole.
  void paste(std::u32string_view characters);
  /// Left button on a control; buttons, check boxes and options do what they are for.
  void click(Control& control);
  /// Picks an item from the list; Click also when it is the selected one.
  void choose(ComboBox& combo, int index);
  void pickDate(DatePicker& picker, basic::Date date);
  void turnPage(TabControl& tab, int page);
  /// Mouse button on a row (from 0; -1 is the empty area).
  void clickRow(RowControl& list, int row, MouseButton button = MouseButton::Left, int shift = Shift::None,
                int x = 0, int y = 0);
  /// Twice the left button.
  void doubleClickRow(RowControl& list, int row);
  /// The second press of a double click, for screens whose first press was told by clickRow.
  void clickAgain(RowControl& list);
  /// The check box of a row.
  void checkRow(ListView& list, int row);
  /// The window's close box.
  void close();

  /// Runs something and shows an error that escapes it.
  void guarded(const std::function<void()>& action);

 private:
  void perform(const std::function<void()>& action);
  void stroke(Key key);
  bool filter(Control* control, Key& key);
  void keyEffect(Control* control, const Key& key);
  bool pressMnemonic(const Key& key);

  Form& form_;
  int depth_ = 0;
};

}  // namespace payslate::ui
