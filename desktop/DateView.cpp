// Date pickers.
#include "desktop/DateView.h"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionComboBox>

#include "desktop/FormWindow.h"
#include "desktop/Keys.h"
#include "desktop/Texts.h"
#include "platform/ui/Form.h"

namespace payslate::desktop {

namespace {

constexpr int widestDate = 14;  // characters, with the button

QDate dateOf(const basic::Date& date) {
  const basic::CalendarDay day = date.calendar();
  return {day.year, day.month, day.day};
}

basic::Date dateOf(const QDate& date) {
  return basic::Date::fromCalendar(date.year(), date.month(), date.day());
}

}  // namespace

DateView::DateView(FormWindow& window, ui::DatePicker& picker)
    : View(window, picker, new QDateEdit(&window)),
      picker_(picker),
      edit_(static_cast<QDateEdit*>(widget())) {
  edit_->setDisplayFormat(toQt(window.form().desktop().shortDatePattern()));
  constexpr int firstYear = 100;
  edit_->setMinimumDate(QDate(firstYear, 1, 1));
  edit_->setCalendarPopup(true);
  edit_->setKeyboardTracking(false);
  edit_->setFocusPolicy(Qt::TabFocus);
  edit_->setContextMenuPolicy(Qt::NoContextMenu);
  edit_->setAcceptDrops(false);
  setBoxWidth(*edit_, {}, widestDate);
  const auto picked = [this] {
    // The calendar closes first: what the handlers show must not stand under it.
    if (!showing_)
      QMetaObject::invokeMethod(
          edit_, [this] { commit(); }, Qt::QueuedConnection);
  };
  QObject::connect(edit_, &QDateEdit::dateChanged, edit_, picked);
}

void DateView::refresh() {
  View::refresh();
  show();
}

void DateView::follow(const ui::Change& change) {
  if (change.aspect == ui::Aspect::Value) return show();
  View::follow(change);
}

void DateView::show() {
  const QScopedValueRollback<bool> showing(showing_, true);
  edit_->setDate(dateOf(picker_.Value()));
}

void DateView::commit() {
  {
    const QScopedValueRollback<bool> showing(showing_, true);
    edit_->interpretText();
  }
  if (edit_->date() != dateOf(picker_.Value())) window().input().pickDate(picker_, dateOf(edit_->date()));
  show();
}

bool DateView::filter(QWidget&, QEvent& event) {
  switch (event.type()) {
    case QEvent::Wheel:
      return true;
    case QEvent::MouseButtonPress:
      return edit_->isEnabled() && !pressTakesFocus(static_cast<QMouseEvent&>(event));
    default:
      return false;
  }
}

void DateView::openCalendar() {
  QStyleOptionComboBox option;
  option.initFrom(edit_);
  option.editable = true;
  const QRect arrow =
      edit_->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, edit_);
  const QPointF at(arrow.center());
  QMouseEvent press(QEvent::MouseButtonPress, at, edit_->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QApplication::sendEvent(edit_, &press);
}

KeyOwner DateView::keyOwner(const QKeyEvent& event) {
  if (!keyOf(event)) return KeyOwner::Form;
  const Qt::KeyboardModifiers held = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  if (event.key() == Qt::Key_F4 || (event.key() == Qt::Key_Down && held == Qt::AltModifier))
    return openCalendar(), KeyOwner::Done;
  switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
      return KeyOwner::Qt;
    case Qt::Key_Escape:
      show();
      return KeyOwner::Form;
    default:
      break;
  }
  const bool typed = held == Qt::NoModifier && !event.text().isEmpty() && event.text().at(0).isPrint();
  if (typed) return KeyOwner::Qt;
  commit();
  return KeyOwner::Form;
}

void DateView::leaving() {
  commit();
}

}  // namespace payslate::desktop
