// Suggesting items while a combo's text is typed.
#include "desktop/Suggestions.h"

#include <QScreen>
#include <QScrollBar>
#include <algorithm>

#include "desktop/Texts.h"

namespace payslate::desktop {

namespace {
constexpr int mostRowsShown = 10;
}

Suggestions::Suggestions(const ui::ComboBox& combo, QWidget& below, std::function<void(int)> pick)
    : QListView(&below), combo_(combo), below_(below), pick_(std::move(pick)) {
  setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFocusPolicy(Qt::NoFocus);
  setEditTriggers(NoEditTriggers);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setModel(&texts_);
  hide();
  connect(this, &QListView::clicked, this, [this](const QModelIndex& index) { pickRow(index.row()); });
}

void Suggestions::offer(const QString& typed) {
  std::vector<int> contained;
  indexes_.clear();
  for (int index = 0; index < combo_.ListCount(); ++index) {
    const QString item = toQt(combo_.List(index));
    if (item.startsWith(typed, Qt::CaseInsensitive))
      indexes_.push_back(index);
    else if (item.contains(typed, Qt::CaseInsensitive))
      contained.push_back(index);
  }
  indexes_.insert(indexes_.end(), contained.begin(), contained.end());
  if (indexes_.empty()) return hide();
  QStringList texts;
  for (const int index : indexes_) texts.append(toQt(combo_.List(index)));
  texts_.setStringList(texts);
  setCurrentIndex({});
  const int rows = std::min(mostRowsShown, static_cast<int>(indexes_.size()));
  const int height = rows * sizeHintForRow(0) + 2 * frameWidth();
  const QRect screen = below_.screen()->availableGeometry();
  QPoint corner = below_.mapToGlobal(QPoint(0, below_.height()));
  if (corner.y() + height > screen.bottom()) corner = below_.mapToGlobal(QPoint(0, -height));
  const int scrollBar = verticalScrollBar()->sizeHint().width();
  const int wanted = std::max(below_.width(), sizeHintForColumn(0) + scrollBar + 2 * frameWidth());
  setGeometry(QRect(corner, QSize(std::min(wanted, screen.right() - corner.x()), height)));
  show();
  raise();
}

bool Suggestions::step(int rows) {
  const int last = texts_.rowCount() - 1;
  const int row = currentIndex().isValid() ? currentIndex().row() + rows : 0;
  setCurrentIndex(texts_.index(std::clamp(row, 0, last)));
  return true;
}

bool Suggestions::takesKey(const QKeyEvent& event) {
  if (!isVisible() || event.modifiers() != Qt::NoModifier) return false;
  const bool inside = currentIndex().isValid();
  switch (event.key()) {
    case Qt::Key_Down:
      return step(1);
    case Qt::Key_Up:
      return step(-1);
    case Qt::Key_PageDown:
      return inside && step(mostRowsShown);
    case Qt::Key_PageUp:
      return inside && step(-mostRowsShown);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (inside) pickRow(currentIndex().row());
      return inside;
    case Qt::Key_Escape:
      hide();
      return inside;
    default:
      return false;
  }
}

void Suggestions::pickRow(int row) {
  const int index = indexes_.at(static_cast<std::size_t>(row));
  hide();
  pick_(index);
}

}  // namespace payslate::desktop
