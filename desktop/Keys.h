// Keystrokes between Qt and the model.
#pragma once

#include <QKeyEvent>
#include <optional>

#include "platform/ui/Key.h"

namespace payslate::desktop {

int shiftMask(Qt::KeyboardModifiers modifiers);

/// The stroke of a key event; nothing for keys that are no strokes of their own (Shift, Ctrl, dead keys, …).
std::optional<ui::Key> keyOf(const QKeyEvent& event);

/// What a keyboard sends for a stroke.
struct QtStroke {
  int key = 0;
  Qt::KeyboardModifiers modifiers;
  QString text;
};
QtStroke strokeOf(const ui::Key& key);

}  // namespace payslate::desktop
