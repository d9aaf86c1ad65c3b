// Pages with tabs.
#pragma once

#include <QTabWidget>

#include "desktop/View.h"
#include "platform/ui/TabControl.h"

namespace payslate::desktop {

class TabView : public View {
 public:
  TabView(FormWindow& window, ui::TabControl& tab);
  void addPage(QWidget* page);  ///< The next page in order of the captions.
  void refresh() override;
  bool filter(QWidget& part, QEvent& event) override;
  [[nodiscard]] QWidget* focusTarget() const override;
  [[nodiscard]] QPoint pressPoint() const override;  ///< The tab in front.
  [[nodiscard]] QPoint tabPoint(int page) const;

 protected:
  void follow(const ui::Change& change) override;

 private:
  ui::TabControl& tab_;
  QTabWidget* tabs_;
};

}  // namespace payslate::desktop
