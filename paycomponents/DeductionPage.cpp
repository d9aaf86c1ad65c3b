// Adding, editing and deleting deductions.
#include "paycomponents/DeductionPage.h"

#include "component/BasPaySlate.h"
#include "component/EntryState.h"
#include "component/FormHelpers.h"
#include "paycomponents/CurrencyTotals.h"
#include "paycomponents/ListColumns.h"
#include "paycomponents/frmDeductPopup.h"

namespace payslate {

DeductionPage::DeductionPage(BasPaySlate& bas, const EntryState& state, ui::ListView& lvwDeduct,
                             const FormHelpers& helpers, const Formulas& formulas, CurrencyTotals& totals,
                             RowOrigins& origins)
    : bas_(bas),
      state_(state),
      lvwDeduct_(lvwDeduct),
      helpers_(helpers),
      formulas_(formulas),
      totals_(totals),
      origins_(origins),
      popup_([this] { return std::make_shared<frmDeductPopup>(bas_, *this); }) {}

bool DeductionPage::mayDelete(int row) const {
  const std::string& type = lvwDeduct_.cellText(row, DeductColumn::Type);
  return type == DeductKind::Added || type == DeductKind::CarriedForward;
}

std::int32_t DeductionPage::employeeId() const {
  return state_.employeeId.value();
}

void DeductionPage::add() {
  strDeductionFlag = PopupMode::Adding;
  popup_.show([this](frmDeductPopup& popup) {
    popup.Label2.Caption = lvwDeduct_.columns()[DeductColumn::Amount].header;
  });
}

void DeductionPage::edit() {
  strDeductionFlag = PopupMode::Editing;
  popup_.show([this](frmDeductPopup& popup) {
    popup.ShowSelectedDeduction();
    popup.Label2.Caption = lvwDeduct_.columns()[DeductColumn::Amount].header;
  });
}

void DeductionPage::remove() {
  const int row = lvwDeduct_.SelectedItem();
  if (!mayDelete(row)) return;
  if (!deleteSelectedRow(bas_, *helpers_.objCommonDB, lvwDeduct_,
                         lvwDeduct_.cellText(row, DeductColumn::DeductionType)))
    return;
  lvwDeduct_.select(lvwDeduct_.rowCount() - 1);
  blnDeductChange = true;
  DisplayCurrency();
}

void DeductionPage::DisplayCurrency() {
  totals_.DisplayCurrency();
}

}  // namespace payslate
