// The window of one form.
#include "desktop/FormWindow.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QFileInfo>
#include <QHelpEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QScreen>
#include <QToolTip>
#include <QUrl>
#include <algorithm>

#include "desktop/Keys.h"
#include "desktop/LayoutBuilder.h"
#include "desktop/RowsView.h"
#include "desktop/Texts.h"
#include "platform/ui/Form.h"

namespace payslate::desktop {

FormWindow::FormWindow(ui::Form& form, QWidget* parent) : QDialog(parent), form_(form) {
  setObjectName(toQt(form.Name()));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setWindowFlag(Qt::WindowMinMaxButtonsHint);
  setWindowModality(Qt::ApplicationModal);
  setAttribute(Qt::WA_QuitOnClose, false);  // The host's application goes on after its forms.
  LayoutBuilder(*this).build(form.layout());
  watch();
  refresh();
  form_.observe([this](ui::FormAspect aspect) {
    switch (aspect) {
      case ui::FormAspect::Caption:
        return showCaption();
      case ui::FormAspect::Pointer:
        return showPointer();
      case ui::FormAspect::Focus:
        return showFocus();
      case ui::FormAspect::Unloaded:
        return;  // Who shows the form is waiting for this.
    }
  });
}

FormWindow::~FormWindow() {
  form_.observe({});
  for (QWidget* part : findChildren<QWidget*>()) part->removeEventFilter(this);
  views_.clear();
}

ui::Input& FormWindow::input() const {
  return form_.input();
}

View* FormWindow::view(const ui::Control& control) const {
  const auto shows = [&control](const auto& view) { return &view->control() == &control; };
  const auto found = std::find_if(views_.begin(), views_.end(), shows);
  return found == views_.end() ? nullptr : found->get();
}

View* FormWindow::viewOf(const QWidget& part) const {
  for (const QWidget* widget = &part; widget != nullptr && widget != this; widget = widget->parentWidget())
    if (View* view = byWidget_.value(widget)) return view;
  return nullptr;
}

bool FormWindow::hasFocus(const ui::Control& control) const {
  return form_.ActiveControl() == &control;
}

bool FormWindow::isInFront() const {
  return form_.isLoaded() && form_.desktop().activeForm() == &form_;
}

View& FormWindow::addView(ui::Control& control, const ui::Layout& node) {
  views_.push_back(makeView(*this, control, node));
  byWidget_.insert(views_.back()->widget(), views_.back().get());
  return *views_.back();
}

// Every part of the window is watched, and none takes the focus from a click before the form was asked.
void FormWindow::watch() {
  installEventFilter(this);
  for (QWidget* part : findChildren<QWidget*>()) {
    if (part->window() != this) continue;
    part->installEventFilter(this);
    if ((part->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus)
      part->setFocusPolicy((part->focusPolicy() & Qt::TabFocus) != 0 ? Qt::TabFocus : Qt::NoFocus);
  }
}

// Qt keeps what it measured before fonts and captions were known; inner parts come first.
void FormWindow::measureAgain() {
  QList<QWidget*> parts = findChildren<QWidget*>();
  for (QWidget* part : parts) {
    part->ensurePolished();
    part->updateGeometry();
  }
  std::reverse(parts.begin(), parts.end());
  parts.append(this);
  for (const QWidget* part : parts) {
    if (part->layout() == nullptr) continue;
    part->layout()->invalidate();
    part->layout()->activate();
  }
}

void FormWindow::appear() {
  measureAgain();
  const QSize room = screen()->availableSize() * 9 / 10;
  resize(sizeHint().boundedTo(room));
  show();
  raise();
  activateWindow();
  showFocus();
}

void FormWindow::refresh() {
  showCaption();
  showPointer();
  for (const auto& view : views_) view->refresh();
}

void FormWindow::showCaption() {
  setWindowTitle(toQt(form_.Caption()));
}

void FormWindow::showPointer() {
  if (form_.MousePointer() == ui::Pointer::Hourglass)
    setCursor(Qt::WaitCursor);
  else
    unsetCursor();
}

void FormWindow::showFocus() {
  const ui::Control* active = form_.ActiveControl();
  const View* shown = active == nullptr ? nullptr : view(*active);
  if (shown == nullptr) return;
  QWidget* target = shown->focusTarget();
  if (target != focusWidget() && target->isEnabled() && target->isVisibleTo(this))
    target->setFocus(Qt::OtherFocusReason);
}

bool FormWindow::focusCame(View* view) {
  if (view != nullptr && hasFocus(view->control())) {
    view->focusChanged(true);
  } else {
    // Qt looks for another widget when one is hidden or disabled; the form knows better.
    QMetaObject::invokeMethod(
        this, [this] { showFocus(); }, Qt::QueuedConnection);
  }
  return false;
}

bool FormWindow::keyPressed(View* view, const QKeyEvent& event) {
  if (!isInFront()) return true;
  // Who works with keys sees the focus on buttons and tabs as well.
  setAttribute(Qt::WA_KeyboardFocusChange);
  const bool mine = view != nullptr && hasFocus(view->control());
  const KeyOwner owner = mine ? view->keyOwner(event) : KeyOwner::Form;
  if (owner == KeyOwner::Qt) return false;
  if (owner == KeyOwner::Done || !form_.isLoaded()) return true;
  if (event.key() == Qt::Key_F1) openHelp();
  if (const auto key = keyOf(event)) {
    input().key(*key);
    if (mine) view->keyDone();
  }
  return true;
}

bool FormWindow::showToolTip(View* view, const QHelpEvent& event) const {
  if (view == nullptr) return false;
  QString tip = toQt(view->control().ToolTip);
  if (tip.isEmpty()) tip = view->clippedText();
  if (tip.isEmpty()) return false;
  QToolTip::showText(event.globalPos(), tip.toHtmlEscaped(), view->widget());
  return true;
}

bool FormWindow::eventFilter(QObject* object, QEvent* event) {
  auto* part = qobject_cast<QWidget*>(object);
  if (part == nullptr) return false;
  View* view = viewOf(*part);
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      event->accept();  // Mnemonics and shortcuts are the form's; the key press follows.
      return true;
    case QEvent::KeyPress:
      return keyPressed(view, static_cast<const QKeyEvent&>(*event));
    case QEvent::KeyRelease:
      return true;
    case QEvent::FocusIn:
      return focusCame(view);
    case QEvent::FocusOut:
      if (view != nullptr) view->focusChanged(false);
      return false;
    case QEvent::ToolTip:
      if (showToolTip(view, static_cast<const QHelpEvent&>(*event))) return true;
      break;
    case QEvent::MouseButtonPress: {
      menuPoint_ = static_cast<const QMouseEvent&>(*event).globalPosition().toPoint();
      const ui::Control* active = form_.ActiveControl();
      View* left = active == nullptr ? nullptr : this->view(*active);
      if (left != nullptr && left != view && part->isEnabled()) left->leaving();
      if (!isInFront()) return true;
      break;
    }
    default:
      break;
  }
  return view != nullptr && view->filter(*part, *event);
}

void FormWindow::openHelp() const {
  QString file = toQt(form_.desktop().HelpFile);
  if (!QFileInfo::exists(file)) file.replace(QLatin1Char('\\'), QLatin1Char('/'));
  if (!file.isEmpty() && QFileInfo::exists(file)) QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}

QPoint FormWindow::menuPoint() const {
  if (menuPoint_) return *menuPoint_;
  const ui::Control* active = form_.ActiveControl();
  const View* shown = active == nullptr ? nullptr : view(*active);
  if (shown == nullptr) return mapToGlobal(rect().center());
  const auto* rows = dynamic_cast<const RowsView*>(shown);
  if (rows == nullptr) return shown->widget()->mapToGlobal(shown->widget()->rect().center());
  const auto& list = static_cast<const ui::RowControl&>(rows->control());
  return rows->table()->viewport()->mapToGlobal(rows->rowRect(list.currentRow()).center());
}

void FormWindow::reject() {
  if (isInFront()) input().close();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (isInFront()) input().close();
}

void FormWindow::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) refresh();
}

}  // namespace payslate::desktop
