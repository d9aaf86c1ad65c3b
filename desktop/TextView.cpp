// Text boxes.
#include "desktop/TextView.h"

#include <QMouseEvent>

#include "desktop/FormWindow.h"
#include "platform/ui/Form.h"

namespace payslate::desktop {

namespace {
constexpr int usualWidth = 12;  // characters

EditedText editedText(ui::TextBox& box) {
  return {[&box] { return box.Text(); }, [&box] { return box.SelStart(); },
          [&box] { return box.SelLength(); }, [&box](int start, int length) { box.Select(start, length); }};
}
}  // namespace

TextView::TextView(FormWindow& window, ui::TextBox& box, const ui::Layout& node)
    : View(window, box, new QLineEdit(&window)),
      box_(box),
      edit_(static_cast<QLineEdit*>(widget())),
      editing_(*edit_, window, editedText(box), true) {
  constexpr Qt::Alignment alignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
  edit_->setAlignment(alignments[static_cast<int>(box.alignment)] | Qt::AlignVCenter);
  setBoxWidth(*edit_, node, usualWidth);
}

void TextView::refresh() {
  View::refresh();
  edit_->setReadOnly(box_.Locked());
  // Read-only looks like the window it stands in, not like a field that waits for input.
  QPalette palette = window().palette();
  if (box_.Locked()) palette.setBrush(QPalette::Base, palette.brush(QPalette::Window));
  edit_->setPalette(palette);
  editing_.show();
}

void TextView::follow(const ui::Change& change) {
  switch (change.aspect) {
    case ui::Aspect::Enabled:
      return refresh();
    case ui::Aspect::Text:
    case ui::Aspect::TextSelection:
      return editing_.show();
    default:
      return View::follow(change);
  }
}

bool TextView::filter(QWidget&, QEvent& event) {
  const auto type = event.type();
  if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick) return editing_.filter(event);
  if (!edit_->isEnabled()) return false;
  const bool hadFocus = window().hasFocus(box_);
  return !pressTakesFocus(static_cast<QMouseEvent&>(event)) || editing_.filter(event) ||
         editing_.keepsSelection(hadFocus);
}

KeyOwner TextView::keyOwner(const QKeyEvent& event) {
  return editing_.keyOwner(event);
}

}  // namespace payslate::desktop
