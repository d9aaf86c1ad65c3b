// Hands that need no screen: every action goes straight to the form's input.
#pragma once

#include "platform/ui/Clerk.h"

namespace payslate::scripted {

class ScriptedHands : public ui::Hands {
 public:
  void focus(ui::Control& control) override;
  void click(ui::Control& control) override;
  void key(ui::Form& form, const ui::Key& key) override;
  void selectAll(ui::Control& control) override;
  void paste(ui::Control& control, const std::string& text) override;
  void choose(ui::ComboBox& combo, int index) override;
  void pickDate(ui::DatePicker& picker, basic::Date date) override;
  void turnPage(ui::TabControl& tab, int page) override;
  void clickRow(ui::RowControl& list, int row, ui::MouseButton button) override;
  void doubleClickRow(ui::RowControl& list, int row) override;
  void checkRow(ui::ListView& list, int row) override;
  void close(ui::Form& form) override;
};

}  // namespace payslate::scripted
