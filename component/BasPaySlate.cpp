// Session state of the process and the procedures that forms share.
#include "component/BasPaySlate.h"

#include <algorithm>

#include "platform/ado/Recordset.h"
#include "platform/basic/Error.h"
#include "platform/basic/Numbers.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Form.h"
#include "platform/ui/TextBox.h"

namespace payslate {

namespace {

constexpr const char* comboHint = "\rHINT: Check whether Properties assigned";

std::string comboStatement(const std::string& key, const std::string& text, const std::string& table,
                           const std::string& condition) {
  std::string statement = "select " + key + ", " + text + " from " + table;
  if (!condition.empty()) statement += " where " + condition;
  return statement;
}

const std::string* enteredText(const ui::Control& control) {
  if (const auto* box = dynamic_cast<const ui::TextBox*>(&control)) return &box->Text();
  if (const auto* combo = dynamic_cast<const ui::ComboBox*>(&control)) return &combo->Text();
  return nullptr;
}

// The value of a check box or option as the number its snapshot holds; nothing for other controls.
std::optional<int> tickedValue(const ui::Control& control) {
  if (const auto* box = dynamic_cast<const ui::CheckBox*>(&control)) return static_cast<int>(box->Value());
  if (const auto* option = dynamic_cast<const ui::OptionButton*>(&control)) return option->Value() ? 1 : 0;
  return {};
}

bool differsFromTag(const ui::Control& control) {
  if (const std::string* text = enteredText(control)) return basic::Trim(*text) != basic::Trim(control.Tag());
  const auto value = tickedValue(control);
  return value && *value != basic::numberOrZero(control.Tag());
}

}  // namespace

BasPaySlate& basPaySlate() {
  static BasPaySlate module;
  return module;
}

void BasPaySlate::EnterToTab(int keyAscii) const {
  if (keyAscii == ui::KeyAscii::Return) desktop().sendKeys({ui::KeyCode::Tab});
}

bool BasPaySlate::fnCheckBlank(ui::Control& control, const std::string& text,
                               const std::string& title) const {
  if (!basic::Trim(control.propertyText("Text").value_or("")).empty()) return true;
  desktop().showMessage({text, ui::MessageStyle::Information, title});
  control.SetFocus();
  return false;
}

void BasPaySlate::StoreControlValues(ui::Form& form) {
  for (ui::Control* control : form.Controls()) {
    if (const std::string* text = enteredText(*control)) control->Tag = *text;
    if (const auto value = tickedValue(*control)) control->Tag = std::to_string(*value);
  }
}

bool BasPaySlate::fnControlsChanged(const ui::Form& form) {
  return std::any_of(form.Controls().begin(), form.Controls().end(),
                     [](const ui::Control* control) { return differsFromTag(*control); });
}

void BasPaySlate::FillCombo(ui::ComboBox& combo, const std::string& keyColumn, const std::string& textColumn,
                            const std::string& condition) {
  try {
    combo.Clear();
    ado::Recordset rows = adocon()->Execute(comboStatement(keyColumn, textColumn, strComboTable, condition));
    std::vector<ui::ComboBox::Item> items;
    for (; !rows.Eof(); rows.MoveNext())
      items.push_back({rows.Fields(1).Text(), basic::CLng(rows.Fields(0).Value())});
    combo.setItems(std::move(items));
  } catch (ado::Error& error) {
    error.Description += comboHint;
    throw;
  } catch (const basic::ValueError& error) {
    throw ado::Error(error.what() + std::string(comboHint), "22018");
  }
}

ui::Answer BasPaySlate::message(const std::string& text, ui::MessageStyle style) const {
  return desktop().showMessage({text, style, MsgboxTitle});
}

void BasPaySlate::refuse(const std::string& reason, ui::Control& control) const {
  message(reason);
  control.SetFocus();
}

std::string BasPaySlate::helpFile() const {
  return desktop().applicationFolder() + "\\Help\\helpfile.hlp";
}

std::string BasPaySlate::shortDate(basic::Date date) const {
  return basic::formatDate(date, desktop().shortDatePattern());
}

std::string BasPaySlate::cellText(const ado::Field& field) const {
  return basic::Trim(basic::textOf(field.Value(), desktop().shortDatePattern()));
}

}  // namespace payslate
