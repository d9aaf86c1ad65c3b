// Adding, editing and deleting allowances.
#include "paycomponents/AllowancePage.h"

#include "component/BasPaySlate.h"
#include "component/FormHelpers.h"
#include "paycomponents/CurrencyTotals.h"
#include "paycomponents/ListColumns.h"
#include "paycomponents/frmAllowPopup.h"

namespace payslate {

AllowancePage::AllowancePage(BasPaySlate& bas, ui::ListView& lvwAllow, const FormHelpers& helpers,
                             const Formulas& formulas, CurrencyTotals& totals, RowOrigins& origins)
    : bas_(bas),
      lvwAllow_(lvwAllow),
      helpers_(helpers),
      formulas_(formulas),
      totals_(totals),
      origins_(origins),
      popup_([this] { return std::make_shared<frmAllowPopup>(bas_, *this); }) {}

bool AllowancePage::mayDelete(int row) const {
  return lvwAllow_.cellText(row, AllowColumn::Default) != AllowKind::Standing;
}

void AllowancePage::add() {
  strAllowanceFlag = PopupMode::Adding;
  popup_.show([this](frmAllowPopup& popup) {
    popup.Label2.Caption = lvwAllow_.columns()[AllowColumn::Amount].header;
  });
}

void AllowancePage::edit() {
  strAllowanceFlag = PopupMode::Editing;
  popup_.show([this](frmAllowPopup& popup) {
    popup.ShowSelectedAllowance();
    popup.Label2.Caption = lvwAllow_.columns()[AllowColumn::Amount].header;
  });
}

void AllowancePage::remove() {
  const int row = lvwAllow_.SelectedItem();
  if (!mayDelete(row)) return;
  if (!deleteSelectedRow(bas_, *helpers_.objCommonDB, lvwAllow_,
                         lvwAllow_.cellText(row, AllowColumn::AllowanceType)))
    return;
  lvwAllow_.select(lvwAllow_.rowCount() - 1);
  blnAllowChange = true;
  DisplayCurrency();
}

void AllowancePage::DisplayCurrency() {
  totals_.DisplayCurrency();
}

}  // namespace payslate
