// Keystrokes from characters and names.
#include "platform/ui/Key.h"

#include <array>
#include <utility>

#include "platform/basic/Numbers.h"
#include "platform/basic/Unicode.h"

namespace payslate::ui {

namespace {

constexpr std::array<std::pair<std::string_view, int>, 17> namedCodes{{
    {"enter", KeyCode::Return},
    {"tab", KeyCode::Tab},
    {"escape", KeyCode::Escape},
    {"delete", KeyCode::Delete},
    {"backspace", KeyCode::Back},
    {"home", KeyCode::Home},
    {"end", KeyCode::End},
    {"pageup", KeyCode::PageUp},
    {"pagedown", KeyCode::PageDown},
    {"left", KeyCode::Left},
    {"right", KeyCode::Right},
    {"up", KeyCode::Up},
    {"down", KeyCode::Down},
    {"space", KeyCode::Space},
    {"return", KeyCode::Return},
    {"pgup", KeyCode::PageUp},
    {"pgdn", KeyCode::PageDown},
}};

constexpr int functionKeys = 12;
constexpr int lastAscii = 127;

int controlCharacter(int code) {
  return code >= 'A' && code <= 'Z' ? code - 'A' + 1 : KeyAscii::None;
}

std::optional<int> functionKey(const std::string& name) {
  if (name.size() < 2 || name.size() > 3 || name[0] != 'f' || !basic::IsNumeric(name.substr(1))) return {};
  const int number = basic::numberOrZero(name.substr(1));
  if (number < 1 || number > functionKeys) return {};
  return KeyCode::F1 + number - 1;
}

int characterOf(int code, int shift) {
  const bool ctrl = (shift & Shift::Ctrl) != 0;
  switch (code) {
    case KeyCode::Return:
      return ctrl ? KeyAscii::CtrlReturn : KeyAscii::Return;
    case KeyCode::Back:
      return KeyAscii::Back;
    case KeyCode::Escape:
      return KeyAscii::Escape;
    case KeyCode::Space:
      return ' ';
    default:
      return KeyAscii::None;
  }
}

}  // namespace

Key Key::typing(char32_t character) {
  const int value = static_cast<int>(character);
  int code = value;
  if (value >= 'a' && value <= 'z') code = value - 'a' + 'A';
  const bool isLetterOrDigit =
      (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9') || code == ' ' || code == KeyCode::Return;
  // Punctuation shares its characters with the codes of movement keys ('.' is 46, as Delete is): no code.
  return {isLetterOrDigit ? code : KeyCode::None, Shift::None, value};
}

std::optional<Key> Key::named(std::string_view name) {
  int shift = Shift::None;
  std::string rest(name);
  for (;;) {
    const std::string lowered = basic::lower(rest);
    if (rest.size() > 5 && lowered.starts_with("ctrl+")) {
      shift |= Shift::Ctrl;
      rest = rest.substr(5);
    } else if (rest.size() > 6 && lowered.starts_with("shift+")) {
      shift |= Shift::ShiftKey;
      rest = rest.substr(6);
    } else if (rest.size() > 4 && lowered.starts_with("alt+")) {
      shift |= Shift::Alt;
      rest = rest.substr(4);
    } else {
      break;
    }
  }
  const std::string lowered = basic::lower(rest);
  for (const auto& [text, code] : namedCodes)
    if (lowered == text) return Key{code, shift, characterOf(code, shift)};
  if (const auto code = functionKey(lowered)) return Key{*code, shift, KeyAscii::None};
  const std::u32string characters = basic::characters(rest);
  if (characters.size() != 1) return {};
  Key key = typing(characters[0]);
  key.shift = shift;
  if ((shift & Shift::Ctrl) != 0)
    key.character = key.code <= lastAscii ? controlCharacter(key.code) : KeyAscii::None;
  if ((shift & Shift::Alt) != 0) key.character = KeyAscii::None;
  return key;
}

}  // namespace payslate::ui
