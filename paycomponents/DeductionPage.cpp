// Adding, editing and deleting deductions.
#include "paycomponents/DeductionPage.h"

#include "component/BasPaySlate.h"
#include "component/FormHelpers.h"
#include "paycomponents/CurrencyTotals.h"
#include "paycomponents/ListColumns.h"
#include "paycomponents/frmDeductPopup.h"

namespace payslate {

DeductionPage::DeductionPage(BasPaySlate& bas, const Controls& controls, const FormHelpers& helpers,
                             const Formulas& formulas, CurrencyTotals& totals)
    : bas_(bas), controls_(controls), helpers_(helpers), formulas_(formulas), totals_(totals), popup_([this] {
        return std::make_shared<frmDeductPopup>(bas_, *this);
      }) {}

bool DeductionPage::mayDelete(int row) const {
  const std::string& type = controls_.lvwDeduct.cellText(row, DeductColumn::Type);
  return type == DeductKind::Added || type == DeductKind::CarriedForward;
}

std::int32_t DeductionPage::employeeId() const {
  return controls_.cboEmpname.ItemData(controls_.cboEmpname.ListIndex());
}

void DeductionPage::add() {
  strDeductionFlag = PopupMode::Adding;
  popup_.show([this](frmDeductPopup& popup) {
    popup.Label2.Caption = controls_.lvwDeduct.columns()[DeductColumn::Amount].header;
  });
}

void DeductionPage::edit() {
  strDeductionFlag = PopupMode::Editing;
  popup_.show([this](frmDeductPopup& popup) {
    popup.ShowSelectedDeduction();
    popup.Label2.Caption = controls_.lvwDeduct.columns()[DeductColumn::Amount].header;
  });
}

void DeductionPage::remove() {
  ui::ListView& list = controls_.lvwDeduct;
  const int row = list.SelectedItem();
  if (!mayDelete(row)) return;
  if (!deleteSelectedRow(bas_, *helpers_.objCommonDB, list, list.cellText(row, DeductColumn::DeductionType)))
    return;
  list.select(list.rowCount() - 1);
  blnDeductChange = true;
}

void DeductionPage::DisplayCurrency() {
  totals_.DisplayCurrency();
}

}  // namespace payslate
