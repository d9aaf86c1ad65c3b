// Filling the entry form from what is stored.
#include "entry/StoredMonth.h"

#include "component/FormHelpers.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/DatePicker.h"
#include "platform/ui/ListView.h"
#include "platform/ui/TextBox.h"

namespace payslate {

namespace {

void fill(ui::ListView& list, const std::vector<ListRow>& rows) {
  list.clear();
  for (const ListRow& row : rows) list.addRow(row);
}

}  // namespace

void StoredMonth::showNumberAndDate(const EntryRecord& entry) {
  controls_.txtAtteNo.Text = entry.number;
  controls_.dtpattdate.Value = entry.date;
}

void StoredMonth::showHeader(const EntryRecord& entry) {
  showNumberAndDate(entry);
  helpers_.objCommonGen->selectcomboitembyvalue(controls_.cboEmpname, entry.employeeId);
  controls_.txtBasicPay.Text = entry.basicPay;

  const PaidCash code = entry.paidCash;
  if (code != PaidCash::Normal && code != PaidCash::PaidInCash && code != PaidCash::OnHold) return;
  using enum ui::CheckState;
  controls_.Chkpaid.Value = code == PaidCash::PaidInCash ? Checked : Unchecked;
  controls_.chkHold.Value = code == PaidCash::OnHold ? Checked : Unchecked;
}

void StoredMonth::showPay(const EntryRecord& entry) {
  fill(controls_.lvwDeduct, entry.deductions);
  fill(controls_.lvwAllow, entry.allowances);
}

}  // namespace payslate
