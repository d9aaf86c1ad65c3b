// Date pickers.
#pragma once

#include <QDateEdit>

#include "desktop/View.h"
#include "platform/ui/DatePicker.h"

namespace payslate::desktop {

/// Digits are Qt's own editing; the date counts when the user picks it in the calendar, or leaves what he
/// typed by Enter, Tab or any other key of the form.
class DateView : public View {
 public:
  DateView(FormWindow& window, ui::DatePicker& picker);
  void refresh() override;
  bool filter(QWidget& part, QEvent& event) override;
  KeyOwner keyOwner(const QKeyEvent& event) override;
  void leaving() override;
  [[nodiscard]] QDateEdit* edit() const { return edit_; }
  void openCalendar();

 protected:
  void follow(const ui::Change& change) override;

 private:
  void show();
  void commit();

  ui::DatePicker& picker_;
  QDateEdit* edit_;
  bool showing_ = false;
};

}  // namespace payslate::desktop
