// Showing a text and its selection, and passing on what is done to them.
#include "desktop/LineEditing.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <limits>

#include "desktop/FormWindow.h"
#include "desktop/Texts.h"
#include "platform/ui/Form.h"

namespace payslate::desktop {

LineEditing::LineEditing(QLineEdit& edit, FormWindow& window, EditedText edited, bool shiftMovesSelect)
    : edit_(edit), window_(window), edited_(std::move(edited)), shiftMovesSelect_(shiftMovesSelect) {
  edit_.setMaxLength(std::numeric_limits<int>::max());  // How much a box takes, the box knows.
  edit_.setContextMenuPolicy(Qt::NoContextMenu);
  edit_.setAcceptDrops(false);
  edit_.setDragEnabled(false);
  edit_.setFocusPolicy(Qt::TabFocus);
  QObject::connect(&edit_, &QLineEdit::selectionChanged, &window, [this] { selectionMoved(); });
  QObject::connect(&edit_, &QLineEdit::cursorPositionChanged, &window, [this] { selectionMoved(); });
}

void LineEditing::show() {
  if (selecting_) return;
  const QScopedValueRollback<bool> showing(showing_, true);
  const QString text = toQt(edited_.text());
  if (edit_.text() != text) edit_.setText(text);
  const int start = unitsOf(text, edited_.selectionStart());
  const int end = unitsOf(text, edited_.selectionStart() + edited_.selectionLength());
  if (start == end) {
    edit_.deselect();
    edit_.setCursorPosition(start);
  } else if (edit_.selectionStart() != start || edit_.selectionLength() != end - start) {
    edit_.setSelection(start, end - start);
  }
}

void LineEditing::selectionMoved() {
  const QString text = edit_.text();
  // An item picked from the list is in the line before the form has heard of it.
  if (showing_ || text != toQt(edited_.text())) return;
  const QScopedValueRollback<bool> selecting(selecting_, true);
  const int from = edit_.hasSelectedText() ? edit_.selectionStart() : edit_.cursorPosition();
  const int start = charactersOf(text, from);
  const int end = edit_.hasSelectedText() ? charactersOf(text, edit_.selectionEnd()) : start;
  edited_.select(start, end - start);
}

bool LineEditing::filter(QEvent& event) {
  switch (event.type()) {
    case QEvent::InputMethod: {
      const QString committed = static_cast<QInputMethodEvent&>(event).commitString();
      if (committed.isEmpty()) return false;
      QInputMethodEvent composed;
      edit_.event(&composed);  // Ends what was shown while it was being composed.
      window_.input().type(committed.toStdU32String());
      return true;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return static_cast<QMouseEvent&>(event).button() != Qt::LeftButton;
    case QEvent::MouseButtonRelease:
      if (static_cast<QMouseEvent&>(event).button() != Qt::LeftButton) return true;
      return std::exchange(ignoresMouse_, false);
    case QEvent::MouseMove:
      return ignoresMouse_;
    default:
      return false;
  }
}

bool LineEditing::keepsSelection(bool hadFocus) {
  ignoresMouse_ = !hadFocus && edited_.selectionLength() > 0;
  return ignoresMouse_;
}

void LineEditing::cut() {
  if (!edit_.hasSelectedText()) return;
  edit_.copy();
  window_.input().key({ui::KeyCode::Delete});
}

KeyOwner LineEditing::keyOwner(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Copy)) return edit_.copy(), KeyOwner::Done;
  if (event.matches(QKeySequence::Cut)) return cut(), KeyOwner::Done;
  if (event.matches(QKeySequence::Paste)) {
    window_.input().paste(QGuiApplication::clipboard()->text().toStdU32String());
    return KeyOwner::Done;
  }
  if (event.key() != Qt::Key_Left && event.key() != Qt::Key_Right) return KeyOwner::Form;
  const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
  const bool byWord = (held & ~Qt::ShiftModifier) == Qt::ControlModifier;
  const bool selects = held == Qt::ShiftModifier && !shiftMovesSelect_;
  return byWord || selects ? KeyOwner::Qt : KeyOwner::Form;
}

QString LineEditing::clippedText() const {
  const int width = edit_.fontMetrics().horizontalAdvance(edit_.text());
  return width > edit_.contentsRect().width() ? edit_.text() : QString();
}

QPoint LineEditing::caretPoint() const {
  return edit_.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
}

}  // namespace payslate::desktop
