// A mouse and a keyboard whose events go the way of real ones.
#pragma once

#include <QPoint>

#include "platform/ui/Key.h"

class QWidget;

namespace payslate::desktop {

enum class Press {
  Once,
  Twice,       ///< a double click
  ThreeTimes,  ///< a double click and a third press at once
  Abandoned,   ///< pressed here, released outside
};

/// Presses and releases a button at a point of the widget. Nothing happens where the widget is hidden,
/// disabled or covered by another one.
void clickAt(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton, Press press = Press::Once);

/// A stroke on the widget that has the focus in this window.
void strikeKey(QWidget& window, const ui::Key& key);

}  // namespace payslate::desktop
