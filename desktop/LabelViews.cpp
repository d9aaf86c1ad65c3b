// Labels and frames.
#include "desktop/LabelViews.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

#include "desktop/FormWindow.h"
#include "desktop/Texts.h"
#include "platform/ui/Menu.h"

namespace payslate::desktop {

namespace {
constexpr int shortestLabel = 16;  // characters that a label keeps when room is short
}

QSize ElidingLabel::minimumSizeHint() const {
  const QSize whole = QLabel::minimumSizeHint();
  return {std::min(whole.width(), widthOf(*this, shortestLabel)), whole.height()};
}

bool ElidingLabel::isClipped() const {
  return QLabel::minimumSizeHint().width() > width();
}

void ElidingLabel::paintEvent(QPaintEvent* event) {
  if (!isClipped()) return QLabel::paintEvent(event);
  QPainter painter(this);
  const QString elided =
      fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width(), Qt::TextShowMnemonic);
  const int flags = static_cast<int>(alignment()) | Qt::TextShowMnemonic;
  style()->drawItemText(&painter, contentsRect(), flags, palette(), isEnabled(), elided, foregroundRole());
}

LabelView::LabelView(FormWindow& window, ui::Label& label)
    : View(window, label, new ElidingLabel(&window)),
      label_(label),
      line_(static_cast<ElidingLabel*>(widget())) {
  line_->setTextFormat(Qt::PlainText);
  line_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void LabelView::setField(View& field) {
  field_ = &field;
  line_->setBuddy(field.focusTarget());
}

void LabelView::refresh() {
  View::refresh();
  if (field_ == nullptr) return line_->setText(withoutMarks(toQt(ui::withoutMnemonic(label_.Caption()))));
  line_->setText(toQt(label_.Caption()));
  field_->setLabelName(spokenName(label_.Caption()));
}

QString LabelView::clippedText() const {
  return line_->isClipped() ? toQt(ui::withoutMnemonic(label_.Caption())) : QString();
}

void LabelView::follow(const ui::Change& change) {
  if (change.aspect == ui::Aspect::Caption) return refresh();
  View::follow(change);
}

FrameView::FrameView(FormWindow& window, ui::Frame& frame)
    : View(window, frame, new QGroupBox(&window)), frame_(frame), box_(static_cast<QGroupBox*>(widget())) {}

void FrameView::refresh() {
  View::refresh();
  box_->setTitle(withoutMarks(toQt(ui::withoutMnemonic(frame_.Caption()))));
}

void FrameView::follow(const ui::Change& change) {
  if (change.aspect == ui::Aspect::Caption) return refresh();
  View::follow(change);
}

}  // namespace payslate::desktop
