// Pages with tabs.
#include "desktop/TabView.h"

#include <QMouseEvent>
#include <QTabBar>

#include "desktop/FormWindow.h"
#include "desktop/Texts.h"
#include "platform/ui/Form.h"

namespace payslate::desktop {

TabView::TabView(FormWindow& window, ui::TabControl& tab)
    : View(window, tab, new QTabWidget(&window)), tab_(tab), tabs_(static_cast<QTabWidget*>(widget())) {
  tabs_->setFocusPolicy(Qt::NoFocus);
  tabs_->tabBar()->setFocusPolicy(Qt::TabFocus);
  tabs_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void TabView::addPage(QWidget* page) {
  const auto index = static_cast<std::size_t>(tabs_->count());
  tabs_->addTab(page, withoutMarks(toQt(tab_.captions().at(index))));
}

void TabView::refresh() {
  View::refresh();
  tabs_->setCurrentIndex(tab_.Tab());
}

void TabView::follow(const ui::Change& change) {
  if (change.aspect == ui::Aspect::Page)
    tabs_->setCurrentIndex(tab_.Tab());
  else
    View::follow(change);
}

bool TabView::filter(QWidget& part, QEvent& event) {
  if (&part != tabs_->tabBar()) return false;
  switch (event.type()) {
    case QEvent::Wheel:
    case QEvent::MouseButtonDblClick:
      return true;
    case QEvent::MouseButtonPress: {
      const auto& press = static_cast<QMouseEvent&>(event);
      if (!tabs_->isEnabled()) return false;
      const int page = tabs_->tabBar()->tabAt(press.position().toPoint());
      if (press.button() == Qt::LeftButton && page >= 0) window().input().turnPage(tab_, page);
      return true;
    }
    default:
      return false;
  }
}

QWidget* TabView::focusTarget() const {
  return tabs_->tabBar();
}

QPoint TabView::pressPoint() const {
  return tabPoint(tab_.Tab());
}

QPoint TabView::tabPoint(int page) const {
  return tabs_->tabBar()->mapTo(tabs_, tabs_->tabBar()->tabRect(page).center());
}

}  // namespace payslate::desktop
