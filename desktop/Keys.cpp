// Keystrokes between Qt and the model.
#include "desktop/Keys.h"

#include <QList>
#include <algorithm>
#include <array>
#include <utility>

namespace payslate::desktop {

namespace {

namespace KeyCode = ui::KeyCode;
namespace KeyAscii = ui::KeyAscii;
namespace Shift = ui::Shift;

// Where several Qt keys mean one code, the first is what is sent for it.
constexpr std::array<std::pair<int, int>, 17> codes{{
    {Qt::Key_Return, KeyCode::Return},
    {Qt::Key_Enter, KeyCode::Return},
    {Qt::Key_Tab, KeyCode::Tab},
    {Qt::Key_Backtab, KeyCode::Tab},
    {Qt::Key_Escape, KeyCode::Escape},
    {Qt::Key_Backspace, KeyCode::Back},
    {Qt::Key_Delete, KeyCode::Delete},
    {Qt::Key_Space, KeyCode::Space},
    {Qt::Key_PageUp, KeyCode::PageUp},
    {Qt::Key_PageDown, KeyCode::PageDown},
    {Qt::Key_Home, KeyCode::Home},
    {Qt::Key_End, KeyCode::End},
    {Qt::Key_Left, KeyCode::Left},
    {Qt::Key_Up, KeyCode::Up},
    {Qt::Key_Right, KeyCode::Right},
    {Qt::Key_Down, KeyCode::Down},
    {0, KeyCode::None},
}};

constexpr int lastLatin1 = 0xFF;

bool isLetter(int code) {
  return code >= 'A' && code <= 'Z';
}
bool isDigit(int code) {
  return code >= '0' && code <= '9';
}

int codeOf(int qtKey) {
  if (isLetter(qtKey) || isDigit(qtKey)) return qtKey;
  if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12) return KeyCode::F1 + qtKey - Qt::Key_F1;
  const auto found =
      std::find_if(codes.begin(), codes.end(), [qtKey](const auto& pair) { return pair.first == qtKey; });
  return found == codes.end() ? KeyCode::None : found->second;
}

int characterOf(const QKeyEvent& event, int code, int shift) {
  const bool ctrl = (shift & Shift::Ctrl) != 0;
  const bool alt = (shift & Shift::Alt) != 0;
  switch (code) {
    case KeyCode::Return:
      return ctrl ? KeyAscii::CtrlReturn : KeyAscii::Return;
    case KeyCode::Back:
      return KeyAscii::Back;
    case KeyCode::Escape:
      return KeyAscii::Escape;
    default:
      break;
  }
  if (ctrl && !alt) return isLetter(code) ? code - 'A' + 1 : KeyAscii::None;
  const QList<uint> points = event.text().toUcs4();
  const bool printable = !points.isEmpty() && event.text().at(0).isPrint();
  // Ctrl and Alt together with a character are how some keyboards say AltGr.
  if (!printable || (alt && !ctrl)) return KeyAscii::None;
  return static_cast<int>(points.front());
}

}  // namespace

int shiftMask(Qt::KeyboardModifiers modifiers) {
  int mask = Shift::None;
  if (modifiers.testFlag(Qt::ShiftModifier)) mask |= Shift::ShiftKey;
  if (modifiers.testFlag(Qt::ControlModifier)) mask |= Shift::Ctrl;
  if (modifiers.testFlag(Qt::AltModifier)) mask |= Shift::Alt;
  return mask;
}

std::optional<ui::Key> keyOf(const QKeyEvent& event) {
  ui::Key key;
  key.code = codeOf(event.key());
  key.shift = shiftMask(event.modifiers());
  if (event.key() == Qt::Key_Backtab) key.shift |= Shift::ShiftKey;
  key.character = characterOf(event, key.code, key.shift);
  // A character of AltGr is typed, not commanded.
  if (key.character >= KeyAscii::FirstPrintable) key.shift &= Shift::ShiftKey;
  if (key.code == KeyCode::None && key.character == KeyAscii::None) return {};
  return key;
}

QtStroke strokeOf(const ui::Key& key) {
  QtStroke stroke;
  if ((key.shift & Shift::ShiftKey) != 0) stroke.modifiers |= Qt::ShiftModifier;
  if ((key.shift & Shift::Ctrl) != 0) stroke.modifiers |= Qt::ControlModifier;
  if ((key.shift & Shift::Alt) != 0) stroke.modifiers |= Qt::AltModifier;
  const auto named =
      std::find_if(codes.begin(), codes.end(), [&key](const auto& pair) { return pair.second == key.code; });
  if (key.code >= KeyCode::F1 && key.code <= KeyCode::F12)
    stroke.key = Qt::Key_F1 + key.code - KeyCode::F1;
  else if (key.code != KeyCode::None && named != codes.end())
    stroke.key = named->first;
  else if (key.code != KeyCode::None)
    stroke.key = key.code;
  else if (key.character <= lastLatin1)
    stroke.key = key.character;
  if (stroke.key == Qt::Key_Tab && stroke.modifiers.testFlag(Qt::ShiftModifier)) stroke.key = Qt::Key_Backtab;
  if (key.character != KeyAscii::None) {
    const auto character = static_cast<char32_t>(key.character);
    stroke.text = QString::fromUcs4(&character, 1);
  }
  return stroke;
}

}  // namespace payslate::desktop
