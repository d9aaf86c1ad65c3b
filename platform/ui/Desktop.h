// The screen: what shows forms, message boxes and menus, and the services of the session it runs in.
#pragma once

#include <deque>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "platform/ui/Key.h"
#include "platform/ui/MessageBox.h"
#include "platform/ui/Property.h"

namespace payslate::ui {

class Form;
class MenuItem;
class PopupMenu;

/// Implemented by a screen. All calls come from one thread.
class Desktop {
 public:
  virtual ~Desktop() = default;

  /// Shows the form and feeds user input to its Input until it is no longer loaded; then returns. Nested
  /// calls are for forms shown by a form's handler.
  virtual void showModal(Form& form) = 0;
  /// Shows the message and waits for its answer: Yes or No when it asks, else Ok.
  virtual Answer showMessage(const Message& message) = 0;
  /// Shows the visible items and waits; null when the user picks none.
  virtual MenuItem* showMenu(Form& form, const PopupMenu& menu) = 0;
  /// The sound that tells of an input that is refused.
  virtual void beep() = 0;
  /// The region's short date format, with a four-digit year: dd, MM and yyyy in some order.
  [[nodiscard]] virtual std::string shortDatePattern() const { return "dd/MM/yyyy"; }
  /// The folder that the running application stands in, without a trailing separator.
  [[nodiscard]] virtual std::string applicationFolder() const = 0;

  std::string HelpFile;      ///< Opened by F1.
  std::string MessageTitle;  ///< Title of the messages about errors that no handler caught.

  /// Sends a keystroke to the form in front; it arrives when the user action in progress is done.
  void sendKeys(Key key);
  /// Takes the next keystroke sent to this form, if there is one.
  bool takeSentKey(const Form& form, Key& key);

  /// Shows an error that escaped an event handler.
  void report(const std::exception& error);

  [[nodiscard]] Form* activeForm() const { return shown_.empty() ? nullptr : shown_.back(); }
  [[nodiscard]] const std::vector<Form*>& shownForms() const { return shown_; }

 private:
  friend class Form;
  void forgetKeys(const Form& form);

  std::vector<Form*> shown_;
  std::deque<std::pair<const Form*, Key>> pending_;
};

}  // namespace payslate::ui
