// Pages of text.
#pragma once

#include <QPlainTextEdit>

#include "desktop/View.h"
#include "platform/ui/TextPage.h"

namespace payslate::desktop {

class PageView : public View {
 public:
  PageView(FormWindow& window, ui::TextPage& page);
  void refresh() override;
  bool filter(QWidget& part, QEvent& event) override;
  /// Selecting, copying and scrolling are Qt's.
  KeyOwner keyOwner(const QKeyEvent& event) override;

 protected:
  void follow(const ui::Change& change) override;

 private:
  void show();

  ui::TextPage& page_;
  QPlainTextEdit* edit_;
};

}  // namespace payslate::desktop
