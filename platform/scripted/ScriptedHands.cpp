// User actions as calls of the form's input.
#include "platform/scripted/ScriptedHands.h"

#include "platform/basic/Unicode.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/DatePicker.h"
#include "platform/ui/Form.h"
#include "platform/ui/ListView.h"
#include "platform/ui/TabControl.h"
#include "platform/ui/TextBox.h"

namespace payslate::scripted {

using namespace payslate::ui;

void ScriptedHands::focus(Control& control) {
  control.form().input().focus(control);
}

void ScriptedHands::click(Control& control) {
  control.form().input().click(control);
}

void ScriptedHands::key(Form& form, const Key& key) {
  form.input().key(key);
}

void ScriptedHands::selectAll(Control& control) {
  if (auto* box = dynamic_cast<TextBox*>(&control))
    box->SelectAll();
  else if (auto* combo = dynamic_cast<ComboBox*>(&control))
    combo->Select(0, static_cast<int>(basic::characters(combo->Text()).size()));
}

void ScriptedHands::paste(Control& control, const std::string& text) {
  if (control.form().input().focus(control)) control.form().input().paste(basic::characters(text));
}

void ScriptedHands::choose(ComboBox& combo, int index) {
  combo.form().input().choose(combo, index);
}

void ScriptedHands::pickDate(DatePicker& picker, basic::Date date) {
  picker.form().input().pickDate(picker, date);
}

void ScriptedHands::turnPage(TabControl& tab, int page) {
  tab.form().input().turnPage(tab, page);
}

void ScriptedHands::clickRow(RowControl& list, int row, MouseButton button) {
  list.form().input().clickRow(list, row, button);
}

void ScriptedHands::doubleClickRow(RowControl& list, int row) {
  list.form().input().doubleClickRow(list, row);
}

void ScriptedHands::checkRow(ListView& list, int row) {
  list.form().input().checkRow(list, row);
}

void ScriptedHands::close(Form& form) {
  form.input().close();
}

}  // namespace payslate::scripted
