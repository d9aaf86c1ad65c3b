// Pages of text.
#include "desktop/PageView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextDocument>
#include <algorithm>

#include "desktop/FormWindow.h"
#include "desktop/Texts.h"
#include "platform/ui/Form.h"

namespace payslate::desktop {

namespace {
constexpr int widestPage = 76;  // characters
constexpr int fewestLines = 4;
constexpr int mostLines = 22;
constexpr int margin = 2;  // lines and characters
}  // namespace

PageView::PageView(FormWindow& window, ui::TextPage& page)
    : View(window, page, new QPlainTextEdit(&window)),
      page_(page),
      edit_(static_cast<QPlainTextEdit*>(widget())) {
  edit_->setReadOnly(true);
  edit_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  edit_->setContextMenuPolicy(Qt::NoContextMenu);
  edit_->setFocusPolicy(Qt::TabFocus);
  edit_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  show();
}

// As large as its text, within reason.
void PageView::show() {
  edit_->setPlainText(toQt(page_.Text()));
  int widest = 0;
  for (const std::string& line : page_.lines())
    widest = std::max(widest, edit_->fontMetrics().horizontalAdvance(toQt(line)));
  const int lines = std::clamp(static_cast<int>(page_.lines().size()), fewestLines, mostLines) + 1;
  edit_->setMinimumWidth(std::min(widest, widthOf(*edit_, widestPage)) + widthOf(*edit_, 2 * margin));
  edit_->setMinimumHeight(edit_->fontMetrics().lineSpacing() * lines);
}

void PageView::refresh() {
  View::refresh();
  // Read-only looks like the window it stands in, not like a field that waits for input.
  QPalette palette = window().palette();
  palette.setBrush(QPalette::Base, palette.brush(QPalette::Window));
  edit_->setPalette(palette);
}

void PageView::follow(const ui::Change& change) {
  if (change.aspect == ui::Aspect::Text) return show();
  View::follow(change);
}

bool PageView::filter(QWidget&, QEvent& event) {
  const auto type = event.type();
  if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick) return false;
  return edit_->isEnabled() && !pressTakesFocus(static_cast<QMouseEvent&>(event));
}

KeyOwner PageView::keyOwner(const QKeyEvent& event) {
  const bool copies = event.matches(QKeySequence::Copy) || event.matches(QKeySequence::SelectAll);
  switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
      return KeyOwner::Qt;
    default:
      return copies ? KeyOwner::Qt : KeyOwner::Form;
  }
}

}  // namespace payslate::desktop
