// A user that is a program: what a desktop asks instead of waiting for a person, and what it lets the program
// do.
#pragma once

#include <string>

#include "platform/basic/Date.h"
#include "platform/ui/Key.h"
#include "platform/ui/MessageBox.h"

namespace payslate::ui {

class ComboBox;
class Control;
class DatePicker;
class Form;
class ListView;
class MenuItem;
class PopupMenu;
class RowControl;
class TabControl;

/// Attends to what a desktop shows. Calls nest as forms and messages do.
class Clerk {
 public:
  virtual ~Clerk() = default;
  /// Works on the form until it is no longer loaded, then returns.
  virtual void attend(Form& form) = 0;
  /// Asked again about a message that Escape does not close.
  virtual Answer answer(const Message& message) = 0;
  /// Null picks nothing.
  virtual MenuItem* pick(Form& form, const PopupMenu& menu) = 0;
};

/// The hands of such a user. Every call is complete with all that it sets off, when it returns.
class Hands {
 public:
  virtual ~Hands() = default;
  virtual void focus(Control& control) = 0;
  virtual void click(Control& control) = 0;
  virtual void key(Form& form, const Key& key) = 0;
  /// Selects the whole text of the focused text box or combo.
  virtual void selectAll(Control& control) = 0;
  virtual void paste(Control& control, const std::string& text) = 0;
  virtual void choose(ComboBox& combo, int index) = 0;
  virtual void pickDate(DatePicker& picker, basic::Date date) = 0;
  virtual void turnPage(TabControl& tab, int page) = 0;
  virtual void clickRow(RowControl& list, int row,
                        MouseButton button) = 0;  ///< row from 0, -1 the empty area
  virtual void doubleClickRow(RowControl& list, int row) = 0;
  virtual void checkRow(ListView& list, int row) = 0;
  virtual void close(Form& form) = 0;
};

}  // namespace payslate::ui
