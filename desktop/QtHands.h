// A clerk's hands on real windows: every action is made of mouse and key events.
#pragma once

#include "platform/ui/Clerk.h"

class QPoint;
class QWidget;

namespace payslate::desktop {

class FormWindow;
class QtDesktop;
class View;

/// Acts on the form in front; controls of other forms, and hidden or disabled ones, take nothing. Calls
/// return when all that the action set off is done, and throw what the clerk threw while it answered.
class QtHands : public ui::Hands {
 public:
  explicit QtHands(QtDesktop& desktop) : desktop_(desktop) {}

  void focus(ui::Control& control) override;
  void click(ui::Control& control) override;
  void key(ui::Form& form, const ui::Key& key) override;
  void selectAll(ui::Control& control) override;
  /// Goes through the system's clipboard, which keeps the text.
  void paste(ui::Control& control, const std::string& text) override;
  void choose(ui::ComboBox& combo, int index) override;
  void pickDate(ui::DatePicker& picker, basic::Date date) override;
  void turnPage(ui::TabControl& tab, int page) override;
  /// A list whose rows fill it has no empty area: row -1 does nothing then.
  void clickRow(ui::RowControl& list, int row, ui::MouseButton button) override;
  void doubleClickRow(ui::RowControl& list, int row) override;
  void checkRow(ui::ListView& list, int row) override;
  void close(ui::Form& form) override;

 private:
  [[nodiscard]] View* reach(const ui::Control& control) const;
  bool bringFocus(ui::Control& control);
  [[nodiscard]] QPoint rowPoint(const ui::RowControl& list, int row) const;
  void done();

  QtDesktop& desktop_;
};

}  // namespace payslate::desktop
