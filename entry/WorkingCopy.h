// The boxes, ticks and lists in which the clerk works on a month.
#pragma once

#include <string>
#include <vector>

namespace payslate {

class AllowancePage;
class DeductionPage;
class FacilityPage;

namespace ui {
class CheckBox;
class Label;
class ListView;
class TextBox;
}  // namespace ui

struct WorkingControls {
  ui::TextBox& txtAtteNo;
  ui::TextBox& txtworkingdays;
  ui::TextBox& txtNoPresent;
  ui::TextBox& txtNoLeave;
  ui::TextBox& txtNoAbsent;
  ui::Label& lblBasicPay;
  ui::TextBox& txtBasicPay;
  ui::Label& lblcursymbol;
  ui::CheckBox& chkHold;
  ui::CheckBox& Chkpaid;
  ui::ListView& lvwLeaves;
  ui::ListView& lvwCurrency;
};

class WorkingCopy {
 public:
  WorkingCopy(const WorkingControls& controls, AllowancePage& allowances, DeductionPage& deductions,
              FacilityPage& facilities)
      : controls_(controls), allowances_(allowances), deductions_(deductions), facilities_(facilities) {}

  /// Empties all of it: what is shown next is somebody else's.
  void clear();
  /// What it holds now is the month as loaded.
  void keepLoaded();
  /// Has the clerk changed a box, a tick or a list since? Amounts that a refresh altered count.
  [[nodiscard]] bool isChanged() const;

 private:
  [[nodiscard]] std::vector<std::string> contents() const;

  WorkingControls controls_;
  AllowancePage& allowances_;
  DeductionPage& deductions_;
  FacilityPage& facilities_;
  std::vector<std::string> loaded_;
};

}  // namespace payslate
