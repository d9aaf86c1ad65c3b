// A clerk's hands on real windows.
#include "desktop/QtHands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QTabWidget>

#include "desktop/ComboView.h"
#include "desktop/DateView.h"
#include "desktop/FormWindow.h"
#include "desktop/Mouse.h"
#include "desktop/QtDesktop.h"
#include "desktop/RowsView.h"
#include "desktop/TabView.h"
#include "desktop/Texts.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/Form.h"

namespace payslate::desktop {

namespace {

constexpr QPoint noPoint(-1, -1);

bool isClicked(const ui::Control& control) {
  return dynamic_cast<const ui::CommandButton*>(&control) != nullptr ||
         dynamic_cast<const ui::CheckBox*>(&control) != nullptr ||
         dynamic_cast<const ui::OptionButton*>(&control) != nullptr;
}

template <class V>
V& as(View* view) {
  return static_cast<V&>(*view);
}

}  // namespace

// The view of a control that can be reached with a mouse now.
View* QtHands::reach(const ui::Control& control) const {
  if (desktop_.activeForm() != &control.form()) return nullptr;
  const FormWindow* window = desktop_.window(control.form());
  View* view = window == nullptr ? nullptr : window->view(control);
  return view != nullptr && view->widget()->isVisible() && view->widget()->isEnabled() ? view : nullptr;
}

void QtHands::done() {
  desktop_.settle();
  desktop_.throwClerksFailure();
}

// A press where it changes nothing but the focus.
bool QtHands::bringFocus(ui::Control& control) {
  View* view = reach(control);
  if (view == nullptr) return false;
  if (control.form().ActiveControl() != &control) {
    clickAt(*view->widget(), view->pressPoint(), Qt::LeftButton,
            isClicked(control) ? Press::Abandoned : Press::Once);
    desktop_.settle();
    if (auto* popup = QApplication::activePopupWidget()) popup->close();  // of a combo that is only a list
  }
  return reach(control) != nullptr && control.form().ActiveControl() == &control;
}

void QtHands::focus(ui::Control& control) {
  bringFocus(control);
  done();
}

void QtHands::click(ui::Control& control) {
  View* view = reach(control);
  if (view != nullptr && isClicked(control))
    clickAt(*view->widget(), view->pressPoint());
  else
    bringFocus(control);
  done();
}

void QtHands::key(ui::Form& form, const ui::Key& key) {
  FormWindow* window = desktop_.window(form);
  if (window != nullptr && desktop_.activeForm() == &form) strikeKey(*window, key);
  done();
}

void QtHands::selectAll(ui::Control& control) {
  if (bringFocus(control)) {
    const View* view = reach(control);
    // Without this, the next press here would count as one more of the three.
    const int usual = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(0);
    clickAt(*view->widget(), view->pressPoint(), Qt::LeftButton, Press::ThreeTimes);
    QApplication::setDoubleClickInterval(usual);
  }
  done();
}

void QtHands::paste(ui::Control& control, const std::string& text) {
  QApplication::clipboard()->setText(toQt(text));
  if (bringFocus(control)) strikeKey(*desktop_.window(control.form()), *ui::Key::named("Ctrl+V"));
  done();
}

void QtHands::choose(ui::ComboBox& combo, int index) {
  if (index >= 0 && index < combo.ListCount() && bringFocus(combo)) {
    const auto& view = as<ComboView>(reach(combo));
    strikeKey(*desktop_.window(combo.form()), *ui::Key::named("F4"));
    desktop_.settle();
    QAbstractItemView* list = view.box()->view();
    const QModelIndex item = list->model()->index(index, 0);
    list->scrollTo(item);
    desktop_.settle();
    // At its start: a name may be wider than the list, and Qt ignores a click where a press has just opened
    // it.
    const QRect line = list->visualRect(item);
    clickAt(*list->viewport(), {line.left() + line.height() / 2, line.center().y()});
  }
  done();
}

void QtHands::pickDate(ui::DatePicker& picker, basic::Date date) {
  if (bringFocus(picker)) {
    const auto& view = as<DateView>(reach(picker));
    strikeKey(*desktop_.window(picker.form()), *ui::Key::named("F4"));
    desktop_.settle();
    if (QCalendarWidget* calendar = view.edit()->calendarWidget();
        calendar != nullptr && calendar->isVisible()) {
      const basic::CalendarDay day = date.calendar();
      calendar->setSelectedDate(QDate(day.year, day.month, day.day));
      strikeKey(*calendar->window(), *ui::Key::named("Enter"));
      desktop_.settle();
    }
  }
  done();
}

void QtHands::turnPage(ui::TabControl& tab, int page) {
  if (View* view = reach(tab)) clickAt(*view->widget(), as<TabView>(view).tabPoint(page));
  done();
}

// In the viewport, on a cell's text; a point outside when the row is not there.
QPoint QtHands::rowPoint(const ui::RowControl& list, int row) const {
  const auto& view = as<RowsView>(reach(list));
  RowsTable& table = *view.table();
  if (row < 0) {
    const int bottom = table.viewport()->height() - 1;
    return table.rowAt(bottom) < 0 ? QPoint(table.viewport()->width() / 2, bottom) : noPoint;
  }
  if (row >= list.rowCount()) return noPoint;
  const QModelIndex cell = table.rows().index(row, table.rows().leadingColumn());
  table.scrollTo(cell);
  desktop_.settle();
  return {table.visualRect(cell).right() - 2, table.visualRect(cell).center().y()};
}

void QtHands::clickRow(ui::RowControl& list, int row, ui::MouseButton button) {
  if (View* view = reach(list))
    clickAt(*as<RowsView>(view).table()->viewport(), rowPoint(list, row),
            button == ui::MouseButton::Left ? Qt::LeftButton : Qt::RightButton);
  done();
}

void QtHands::doubleClickRow(ui::RowControl& list, int row) {
  if (View* view = reach(list))
    clickAt(*as<RowsView>(view).table()->viewport(), rowPoint(list, row), Qt::LeftButton, Press::Twice);
  done();
}

void QtHands::checkRow(ui::ListView& list, int row) {
  View* view = reach(list);
  if (view != nullptr && list.hasCheckBoxes() && rowPoint(list, row) != noPoint) {
    RowsTable& table = *as<RowsView>(view).table();
    const QModelIndex cell = table.rows().index(row, table.rows().leadingColumn());
    clickAt(*table.viewport(), table.delegate().checkRect(table, cell).center());
  }
  done();
}

void QtHands::close(ui::Form& form) {
  FormWindow* window = desktop_.window(form);
  if (window != nullptr && desktop_.activeForm() == &form) window->close();
  done();
}

}  // namespace payslate::desktop
