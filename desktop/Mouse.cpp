// A mouse and a keyboard whose events go the way of real ones.
#include "desktop/Mouse.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

#include "desktop/Keys.h"

namespace payslate::desktop {

namespace {

constexpr QPoint farOutside(-10000, -10000);

void send(QWidget& target, QEvent::Type type, QPoint at, Qt::MouseButton button) {
  const Qt::MouseButtons held =
      type == QEvent::MouseButtonRelease || type == QEvent::MouseMove ? Qt::NoButton : button;
  const Qt::MouseButton changed = type == QEvent::MouseMove ? Qt::NoButton : button;
  QMouseEvent event(type, QPointF(at), QPointF(target.mapToGlobal(at)), changed, held, Qt::NoModifier);
  QApplication::sendEvent(&target, &event);
}

// What a press at this point would hit; null when that is not the widget or a part of it.
QWidget* hitBy(QWidget& widget, QPoint at) {
  if (!widget.isVisible() || !widget.isEnabled()) return nullptr;
  QWidget* window = widget.window();
  const QPoint inWindow = widget.mapTo(window, at);
  if (!window->rect().contains(inWindow)) return nullptr;
  QWidget* hit = window->childAt(inWindow);
  if (hit == nullptr) hit = window;
  return hit == &widget || widget.isAncestorOf(hit) ? hit : nullptr;
}

}  // namespace

void clickAt(QWidget& widget, QPoint at, Qt::MouseButton button, Press press) {
  QPointer<QWidget> hit = hitBy(widget, at);
  if (hit == nullptr) return;
  const QPoint there = hit->mapFrom(&widget, at);
  send(*hit, QEvent::MouseMove, there, button);
  const int presses = press == Press::Twice ? 2 : press == Press::ThreeTimes ? 3 : 1;
  for (int count = 1; count <= presses; ++count) {
    if (hit == nullptr) return;
    send(*hit, count == 2 ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, there, button);
    if (hit == nullptr) return;
    send(*hit, QEvent::MouseButtonRelease, press == Press::Abandoned ? farOutside : there, button);
  }
}

void strikeKey(QWidget& window, const ui::Key& key) {
  const QPointer<QWidget> target = window.focusWidget() != nullptr ? window.focusWidget() : &window;
  const QtStroke stroke = strokeOf(key);
  QKeyEvent shortcut(QEvent::ShortcutOverride, stroke.key, stroke.modifiers, stroke.text);
  QApplication::sendEvent(target, &shortcut);
  if (target == nullptr) return;
  QKeyEvent press(QEvent::KeyPress, stroke.key, stroke.modifiers, stroke.text);
  QApplication::sendEvent(target, &press);
  if (target == nullptr) return;
  QKeyEvent release(QEvent::KeyRelease, stroke.key, stroke.modifiers, stroke.text);
  QApplication::sendEvent(target, &release);
}

}  // namespace payslate::desktop
