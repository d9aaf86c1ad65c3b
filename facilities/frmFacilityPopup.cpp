// Settling less than a recovery's whole amount.
#include "facilities/frmFacilityPopup.h"

#include "component/AmountBox.h"
#include "component/BasPaySlate.h"
#include "facilities/FacilityPage.h"
#include "platform/basic/Numbers.h"
#include "platform/ui/ListView.h"

namespace payslate {

frmFacilityPopup::frmFacilityPopup(BasPaySlate& bas, FacilityPage& page)
    : Form("frmFacilityPopup", bas.desktop(), "Facility Details"),
      bas_(bas),
      page_(page),
      navigation_({cmdFirst, cmdPrevious, cmdNext, cmdLast}, page.list(),
                  [this] { showRow(FacilityColumn::ActualAmount); }) {
  arrange();
  Load = [this] {
    helpers_.create(bas_);
    desktop().HelpFile = bas_.helpFile();
  };
  Activate = [this] { navigation_.enableHere(); };
  makeAmountBox(txtAmount, bas_, helpers_);
  cmdOk.Click = [this] { cmdOk_Click(); };
  cmdClose.Click = [this] { cmdClose_Click(); };
}

void frmFacilityPopup::arrange() {
  using namespace ui::layout;
  constexpr int nameCharacters = 36;
  constexpr int amountCharacters = 16;
  txtfacilityname.Locked = true;
  setFirstFocus(txtAmount);
  setLayout(column({
      fields({field(Label1, {item(txtfacilityname).wide(nameCharacters).growing()}),
              field(Label2, {item(txtAmount).wide(amountCharacters), item(lblsymbol), space()})}),
      popupFoot(navigation_.buttons(), cmdOk, cmdClose),
  }));
}

void frmFacilityPopup::showRow(int amountColumn) {
  const ui::ListView& list = page_.list();
  const int row = list.SelectedItem();
  txtAmount.Text = list.cellText(row, amountColumn);
  txtfacilityname.Text = list.cellText(row, FacilityColumn::FacilityName);
  lblsymbol.Caption = list.cellText(row, FacilityColumn::CurrencySymbol);
}

void frmFacilityPopup::showSelectedRecovery() {
  showRow(FacilityColumn::SettlementAmount);
}

void frmFacilityPopup::cmdOk_Click() {
  if (!bas_.fnCheckBlank(txtAmount, "Enter amount", bas_.MsgboxTitle)) return;
  ui::ListView& list = page_.list();
  const int row = list.SelectedItem();
  if (basic::Val(txtAmount.Text()) > basic::Val(list.cellText(row, FacilityColumn::ActualAmount)))
    return bas_.refuse("Invalid Amount", txtAmount);
  list.setCell(row, FacilityColumn::FacilityName, txtfacilityname.Text());
  list.setCell(row, FacilityColumn::SettlementAmount, listAmount(txtAmount));
  page_.settleRow(row);
  if (row + 1 < list.rowCount()) return navigation_.next();
  navigation_.enableHere();  // Behind the last row there is none, and this one's amount stays in the box.
}

void frmFacilityPopup::cmdClose_Click() {
  Unload();
  page_.DisplayCurrency();
}

}  // namespace payslate
