// User actions and the events they raise, in one place for all screens.
#include "platform/ui/Input.h"

#include <exception>
#include <memory>

#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/DatePicker.h"
#include "platform/ui/Form.h"
#include "platform/ui/ListView.h"
#include "platform/ui/TabControl.h"

namespace payslate::ui {

void Input::guarded(const std::function<void()>& action) {
  const std::shared_ptr<Form> keep = form_.shared_from_this();
  try {
    action();
  } catch (const std::exception& error) {
    form_.desktop().report(error);
  }
}

void Input::perform(const std::function<void()>& action) {
  const std::shared_ptr<Form> keep = form_.shared_from_this();
  if (!form_.isLoaded()) return;
  ++depth_;
  guarded(action);
  --depth_;
  if (depth_ > 0) return;
  Key sent;
  while (form_.isLoaded() && form_.desktop().activeForm() == &form_ &&
         form_.desktop().takeSentKey(form_, sent)) {
    ++depth_;
    guarded([this, sent] { stroke(sent); });
    --depth_;
  }
}

bool Input::focus(Control& control) {
  bool there = false;
  perform([&] { there = form_.canHaveFocus(control) && form_.moveFocus(control); });
  return there && form_.ActiveControl() == &control;
}

void Input::key(Key key) {
  perform([&] { stroke(key); });
}

void Input::type(std::u32string_view characters) {
  for (const char32_t character : characters) key(Key::typing(character));
}

void Input::paste(std::u32string_view characters) {
  perform([&] {
    Control* control = form_.ActiveControl();
    if (control == nullptr) return;
    const auto passes = [&](char32_t& character) {
      Key pasted{KeyCode::None, Shift::None, static_cast<int>(character)};
      if (!form_.isLoaded() || !filter(control, pasted)) return false;
      character = static_cast<char32_t>(pasted.character);
      return true;
    };
    const bool refused = !control->paste(characters, passes);
    if (!form_.isLoaded()) return;
    if (refused) form_.desktop().beep();
    int released = 'V';
    control->KeyUp.raise(released, Shift::Ctrl);
  });
}

void Input::click(Control& control) {
  perform([&] {
    if (form_.canHaveFocus(control) && form_.moveFocus(control)) control.userClicks();
  });
}

void Input::choose(ComboBox& combo, int index) {
  perform([&] {
    if (!form_.canHaveFocus(combo) || !form_.moveFocus(combo)) return;
    if (combo.ListIndex() == index) {
      combo.Click.raise();
    } else {
      combo.setListIndex(index);
    }
  });
}

void Input::pickDate(DatePicker& picker, basic::Date date) {
  perform([&] {
    if (form_.canHaveFocus(picker) && form_.moveFocus(picker)) picker.userPicks(date);
  });
}

void Input::turnPage(TabControl& tab, int page) {
  perform([&] {
    if (form_.canHaveFocus(tab) && form_.moveFocus(tab)) tab.Tab = page;
  });
}

void Input::clickRow(RowControl& list, int row, MouseButton button, int shift, int x, int y) {
  perform([&] {
    if (!form_.canHaveFocus(list) || !form_.moveFocus(list)) return;
    if (row >= 0) list.userSelects(row);
    if (!form_.isLoaded()) return;
    list.MouseDown.raise(button, shift, x, y);
    if (form_.isLoaded() && button == MouseButton::Left) list.Click.raise();
  });
}

void Input::doubleClickRow(RowControl& list, int row) {
  clickRow(list, row);
  clickAgain(list);
}

void Input::clickAgain(RowControl& list) {
  perform([&] {
    if (form_.ActiveControl() == &list) list.DblClick.raise();
  });
}

void Input::checkRow(ListView& list, int row) {
  perform([&] {
    if (form_.canHaveFocus(list) && form_.moveFocus(list)) list.userChecks(row);
  });
}

void Input::close() {
  perform([this] { form_.Unload(UnloadMode::CloseBox); });
}

// The key-press handlers, the form's first when it previews; false when one of them cancelled the character.
bool Input::filter(Control* control, Key& key) {
  if (key.character == KeyAscii::None) return true;
  if (form_.KeyPreview) form_.KeyPress.raise(key.character);
  if (key.character != KeyAscii::None && control != nullptr && form_.isLoaded())
    control->KeyPress.raise(key.character);
  return key.character != KeyAscii::None && form_.isLoaded();
}

bool Input::pressMnemonic(const Key& key) {
  if ((key.shift & Shift::Alt) == 0 || key.code == KeyCode::None) return false;
  Control* target = form_.mnemonicTarget(key.code);
  if (target == nullptr) return false;
  if (form_.moveFocus(*target)) target->userClicks();
  return true;
}

void Input::keyEffect(Control* control, const Key& key) {
  if (control != nullptr && form_.canHaveFocus(*control) && control->keyAction(key)) return;
  const bool enter = key.code == KeyCode::Return;
  if (!enter && key.code != KeyCode::Escape) return;
  for (Control* one : form_.Controls()) {
    auto* button = dynamic_cast<CommandButton*>(one);
    if (button == nullptr || !(enter ? button->Default : button->Cancel) || !button->Enabled()) continue;
    button->userClicks();
    return;
  }
}

void Input::stroke(Key key) {
  if (key.code == KeyCode::Tab) {
    form_.focusNext((key.shift & Shift::ShiftKey) != 0);
    return;
  }
  Control* control = form_.ActiveControl();
  const int pressed = key.code;
  if (form_.KeyPreview) form_.KeyDown.raise(key.code, key.shift);
  if (control != nullptr && key.code != KeyCode::None && form_.isLoaded())
    control->KeyDown.raise(key.code, key.shift);
  if (!form_.isLoaded()) return;
  if (control != nullptr) key.character = control->typedCharacter(key.character);
  if (!pressMnemonic(key) && filter(control, key)) keyEffect(control, key);
  if (!form_.isLoaded() || control == nullptr) return;
  int released = pressed;
  control->KeyUp.raise(released, key.shift);
}

}  // namespace payslate::ui
