// Clicks, keystrokes and choices.
#include "platform/scripted/Doing.h"

#include "platform/basic/Numbers.h"
#include "platform/basic/Unicode.h"
#include "platform/scripted/Finding.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/DatePicker.h"
#include "platform/ui/ListView.h"
#include "platform/ui/TabControl.h"
#include "platform/ui/TextBox.h"

namespace payslate::scripted {

using namespace payslate::ui;

namespace {

constexpr Key enterKey{KeyCode::Return, Shift::None, KeyAscii::Return};
constexpr Key tabKey{KeyCode::Tab, Shift::None, KeyAscii::None};
constexpr Key deleteKey{KeyCode::Delete, Shift::None, KeyAscii::None};

template <class C>
C& reachable(const Form& form, const std::string& name, const std::string& wanted) {
  C& control = controlOf<C>(form, name, wanted);
  requireReachable(form, control);
  return control;
}

Control& reachable(const Form& form, const std::string& name) {
  Control& control = controlOf(form, name);
  requireReachable(form, control);
  return control;
}

// "\r\n" is one line end, thus one Enter.
std::vector<Key> strokes(std::string_view text) {
  std::vector<Key> keys;
  char32_t before = 0;
  for (const char32_t character : basic::characters(text)) {
    if (character == '\t')
      keys.push_back(tabKey);
    else if (character == '\r' || (character == '\n' && before != '\r'))
      keys.push_back(enterKey);
    else if (character != '\n')
      keys.push_back(Key::typing(character));
    before = character;
  }
  return keys;
}

std::string rowsOf(const RowControl& list) {
  const int count = list.rowCount();
  return list.Name() + " has " + std::to_string(count) + (count == 1 ? " row" : " rows");
}

std::string joined(const std::vector<std::string>& texts) {
  std::string line;
  for (const std::string& text : texts) line += (line.empty() ? "" : ", ") + inQuotes(text);
  return line.empty() ? "none" : line;
}

}  // namespace

void Doing::perform(const Instruction& instruction, Form& form) {
  switch (instruction.verb) {
    case Verb::Click:
      return hands_->click(reachable(form, instruction.target));
    case Verb::Focus:
      return hands_->focus(reachable(form, instruction.target));
    case Verb::Type:
    case Verb::Replace:
    case Verb::Paste:
      return edit(instruction, form);
    case Verb::Press:
      return hands_->key(form, instruction.key);
    case Verb::Choose:
      return choose(instruction, form);
    case Verb::PickDate:
      return hands_->pickDate(reachable<DatePicker>(form, instruction.target, "a date picker"),
                              instruction.date);
    case Verb::TurnPage:
      return turnPage(instruction, form);
    case Verb::ClickRow:
    case Verb::DoubleClickRow:
    case Verb::RightClickRow:
      return actOnRow(instruction, form);
    case Verb::Tick:
      return tick(instruction, form);
    default:
      return hands_->close(form);
  }
}

// A control that is left may refuse, and one that is reached may pass the focus on: then nobody types.
void Doing::goTo(Form& form, Control& control) {
  if (form.ActiveControl() == &control) return;
  hands_->focus(control);
  if (interrupted_()) return;
  if (!form.isLoaded()) throw Mismatch("the focus in " + control.Name(), form.Name() + " was closed");
  if (form.ActiveControl() == &control) return;
  const Control* active = form.ActiveControl();
  throw Mismatch("the focus in " + control.Name(),
                 active == nullptr ? "no control has it" : active->Name() + " has it");
}

void Doing::type(Form& form, std::string_view text) {
  for (const Key& key : strokes(text)) {
    if (interrupted_()) return;
    if (!form.isLoaded())
      throw Mismatch(form.Name() + " in front until all of " + inQuotes(std::string(text)) + " is typed",
                     "it was closed before");
    hands_->key(form, key);
  }
}

void Doing::replace(Form& form, Control& control, const std::string& text) {
  hands_->selectAll(control);
  if (interrupted_()) return;
  if (text.empty()) return hands_->key(form, deleteKey);
  type(form, text);
}

void Doing::edit(const Instruction& instruction, Form& form) {
  Control& control = reachable(form, instruction.target);
  const bool holdsText =
      dynamic_cast<TextBox*>(&control) != nullptr || dynamic_cast<ComboBox*>(&control) != nullptr;
  if (instruction.verb != Verb::Type && !holdsText) refuseKind(control, "a text box or a combo");
  goTo(form, control);
  if (interrupted_()) return;
  if (instruction.verb == Verb::Type) return type(form, instruction.text);
  if (instruction.verb == Verb::Replace) return replace(form, control, instruction.text);
  hands_->paste(control, instruction.text);
}

void Doing::choose(const Instruction& instruction, Form& form) {
  auto& combo = reachable<ComboBox>(form, instruction.target, "a combo");
  const std::string wanted = basic::Trim(instruction.text);
  std::vector<std::string> texts;
  for (int index = 0; index < combo.ListCount(); ++index) {
    if (basic::Trim(combo.List(index)) == wanted) return hands_->choose(combo, index);
    texts.push_back(combo.List(index));
  }
  throw Mismatch("an item " + inQuotes(wanted) + " in " + combo.Name(), joined(texts));
}

void Doing::turnPage(const Instruction& instruction, Form& form) {
  auto& tab = reachable<TabControl>(form, instruction.target, "a tab control");
  const std::string wanted = basic::Trim(instruction.text);
  for (std::size_t page = 0; page < tab.captions().size(); ++page)
    if (basic::Trim(tab.captions()[page]) == wanted) return hands_->turnPage(tab, static_cast<int>(page));
  throw Mismatch("a page " + inQuotes(wanted) + " of " + tab.Name(), joined(tab.captions()));
}

void Doing::actOnRow(const Instruction& instruction, Form& form) {
  auto& list = reachable<RowControl>(form, instruction.target, "a list");
  if (instruction.number > list.rowCount())
    throw Mismatch("row " + std::to_string(instruction.number) + " of " + list.Name(), rowsOf(list));
  const int row = instruction.number - 1;
  if (instruction.verb == Verb::DoubleClickRow) return hands_->doubleClickRow(list, row);
  const bool right = instruction.verb == Verb::RightClickRow;
  hands_->clickRow(list, row, right ? MouseButton::Right : MouseButton::Left);
}

void Doing::tick(const Instruction& instruction, Form& form) {
  auto& list = reachable<ListView>(form, instruction.target, "a list with check boxes");
  if (!list.hasCheckBoxes()) refuseKind(list, "a list with check boxes");
  if (instruction.number > list.rowCount())
    throw Mismatch("row " + std::to_string(instruction.number) + " of " + list.Name(), rowsOf(list));
  hands_->checkRow(list, instruction.number - 1);
}

}  // namespace payslate::scripted
