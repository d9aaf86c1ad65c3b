// Keystrokes: key codes, shift states and the characters they produce.
#pragma once

#include <optional>
#include <string_view>

namespace payslate::ui {

/// Codes of keys without a character of their own, and of those that event handlers name. Letters and digits
/// have the code of their upper-case ASCII character.
namespace KeyCode {
constexpr int None = 0;
constexpr int Back = 8;
constexpr int Tab = 9;
constexpr int Return = 13;
constexpr int Escape = 27;
constexpr int Space = 32;
constexpr int PageUp = 33;
constexpr int PageDown = 34;
constexpr int End = 35;
constexpr int Home = 36;
constexpr int Left = 37;
constexpr int Up = 38;
constexpr int Right = 39;
constexpr int Down = 40;
constexpr int Delete = 46;
constexpr int F1 = 112;
constexpr int F2 = 113;
constexpr int F4 = 115;
constexpr int F9 = 120;
constexpr int F10 = 121;
constexpr int F11 = 122;
constexpr int F12 = 123;
}  // namespace KeyCode

/// What key-press handlers receive for keys that are no printable characters.
namespace KeyAscii {
constexpr int None = 0;
constexpr int CtrlD = 4;
constexpr int Back = 8;
constexpr int CtrlReturn = 10;
constexpr int Return = 13;
constexpr int Escape = 27;
constexpr int Comma = 44;
constexpr int Minus = 45;
constexpr int Point = 46;
constexpr int Zero = 48;
constexpr int FirstPrintable = 32;
}  // namespace KeyAscii

namespace Shift {
constexpr int None = 0;
constexpr int ShiftKey = 1;
constexpr int Ctrl = 2;
constexpr int Alt = 4;
}  // namespace Shift

/// One stroke: code, shift mask, and the character for key-press (0 when it has none).
struct Key {
  int code = KeyCode::None;
  int shift = Shift::None;
  int character = KeyAscii::None;

  /// The stroke that types a character (a Unicode code point).
  static Key typing(char32_t character);
  /// A key by its name as errands write it: "Enter", "Ctrl+D", "Shift+Tab", "F9", "x"; nothing for another
  /// text.
  static std::optional<Key> named(std::string_view name);
};

enum class MouseButton { Left = 1, Right = 2 };

}  // namespace payslate::ui
