// A stored entry, shown on the entry form.
#pragma once

#include "component/EntryRecord.h"

namespace payslate {

struct FormHelpers;

namespace ui {
class CheckBox;
class ComboBox;
class DatePicker;
class ListView;
class TextBox;
}  // namespace ui

struct StoredMonthControls {
  ui::TextBox& txtAtteNo;
  ui::DatePicker& dtpattdate;
  ui::ComboBox& cboEmpname;
  ui::TextBox& txtBasicPay;
  ui::CheckBox& Chkpaid;
  ui::CheckBox& chkHold;
  ui::ListView& lvwAllow;
  ui::ListView& lvwDeduct;
};

class StoredMonth {
 public:
  /// The helpers must be there before anything is shown.
  StoredMonth(const FormHelpers& helpers, const StoredMonthControls& controls)
      : helpers_(helpers), controls_(controls) {}

  void showNumberAndDate(const EntryRecord& entry);
  /// Number, date, employee (whose choice raises the combo's Click), basic pay, and how it is paid.
  void showHeader(const EntryRecord& entry);
  /// Allowances and deductions.
  void showPay(const EntryRecord& entry);

 private:
  const FormHelpers& helpers_;
  StoredMonthControls controls_;
};

}  // namespace payslate
