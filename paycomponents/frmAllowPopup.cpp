// Adding an allowance, editing one.
#include "paycomponents/frmAllowPopup.h"

#include "component/AmountBox.h"
#include "component/BasPaySlate.h"
#include "component/RowOrigins.h"
#include "paycomponents/AllowancePage.h"
#include "paycomponents/ListColumns.h"
#include "platform/basic/Numbers.h"

namespace payslate {

frmAllowPopup::frmAllowPopup(BasPaySlate& bas, AllowancePage& page)
    : Form("frmAllowPopup", bas.desktop(), "Allowance Details"),
      bas_(bas),
      page_(page),
      choice_(bas, allowanceKind, page.formulas(), helpers_, {cboAllow, txtAmount, lblsymbol, lblformula}),
      navigation_({cmdFirst, cmdPrevious, cmdNext, cmdLast}, page.list(), [this] {
        page_.strAllowanceFlag = PopupMode::Editing;
        ShowSelectedAllowance();
      }) {
  arrange();
  Load = [this] { Form_Load(); };
  Activate = [this] { Form_Activate(); };
  cboAllow.Click = [this] { choice_.chosen(); };
  cboAllow.Change = [this] { choice_.typed(); };
  cboAllow.KeyPress = [this](int& keyAscii) { bas_.EnterToTab(keyAscii); };
  makeAmountBox(txtAmount, bas_, helpers_);
  cmdOk.Click = [this] { cmdOk_Click(); };
  cmdClose.Click = [this] { cmdClose_Click(); };
}

void frmAllowPopup::arrange() {
  using namespace ui::layout;
  constexpr int nameCharacters = 36;
  constexpr int amountCharacters = 16;
  setFirstFocus(cboAllow);
  setLayout(column({
      fields({field(Label1, {item(cboAllow).wide(nameCharacters).growing()}),
              field(Label2, {item(txtAmount).wide(amountCharacters), item(lblsymbol), space()})}),
      row({item(lblformula), space()}),
      popupFoot(navigation_.buttons(), cmdOk, cmdClose),
  }));
}

void frmAllowPopup::Form_Load() {
  helpers_.create(bas_);
  helpers_.objCommonDB->strTableName(bas_.TableLinks["pAllowances"]);
  helpers_.objCommonDB->populateComboorList(cboAllow, "aAllowanceID", "aDescription",
                                            "aActive = 1 and aCompanyID = " + bas_.companyText());
  Tag = "Loaded";
  BasPaySlate::StoreControlValues(*this);
  desktop().HelpFile = bas_.helpFile();
}

void frmAllowPopup::Form_Activate() {
  navigation_.buttons().enableAll(page_.list().rowCount() > 0);
}

void frmAllowPopup::ShowSelectedAllowance() {
  const ui::ListView& list = page_.list();
  const int row = list.SelectedItem();
  strSalCarryFwd = list.cellText(row, AllowColumn::Default);
  const bool balance = strSalCarryFwd == AllowKind::CarriedForward;
  const bool added = strSalCarryFwd == AllowKind::Added;
  ComponentChoice::Row shown{list.cellText(row, AllowColumn::AllowanceType),
                             list.cellText(row, AllowColumn::Amount),
                             list.cellText(row, AllowColumn::Symbol),
                             {}};
  if (!balance) shown.componentId = basic::numberOrZero(list.cellText(row, AllowColumn::AllowID));
  choice_.showRow(shown);
  // What a stored entry paid out of the balance stays as it was stored.
  if (balance) txtAmount.Enabled = bas_.isNewEntry();
  cboAllow.Enabled = added;
  if (added) {
    cboAllow.SetFocus();
  } else {
    txtAmount.SetFocus();
  }
  BasPaySlate::StoreControlValues(*this);
}

bool frmAllowPopup::fnIsNewAllowance(std::int32_t allowanceId) const {
  const ui::ListView& list = page_.list();
  const bool editing = page_.strAllowanceFlag == PopupMode::Editing;
  for (int row = 0; row < list.rowCount(); ++row) {
    if (list.cellText(row, AllowColumn::Default) == AllowKind::CarriedForward) continue;
    if (basic::numberOrZero(list.cellText(row, AllowColumn::AllowID)) != allowanceId) continue;
    if (!editing || row != list.SelectedItem()) return false;
  }
  return true;
}

void frmAllowPopup::addRow() {
  helpers_.objCommonDB->fnInsertListview(
      page_.list(), 0,
      {nextSerialNumber(page_.list()), cboAllow.Text(), listAmount(txtAmount),
       std::to_string(choice_.componentId()), AllowKind::Added, lblsymbol.Caption()});
  page_.origins().added(page_.list(), choice_.origin());
  page_.blnAllowChange = true;
}

void frmAllowPopup::rewriteRow() {
  ui::ListView& list = page_.list();
  const int row = list.SelectedItem();
  const std::string id = std::to_string(choice_.componentId());
  if (list.cellText(row, AllowColumn::AllowID) == id) {
    noteTyped();
  } else {
    page_.origins().replaced(list, row, choice_.origin(list.cellText(row, AllowColumn::Amount)));
  }
  list.setCell(row, AllowColumn::AllowanceType, cboAllow.Text());
  list.setCell(row, AllowColumn::Amount, listAmount(txtAmount));
  list.setCell(row, AllowColumn::AllowID, id);
  list.setCell(row, AllowColumn::Symbol, lblsymbol.Caption());
  rowEdited();
}

void frmAllowPopup::noteTyped() {
  ui::ListView& list = page_.list();
  const int row = list.SelectedItem();
  page_.origins().typed(list, row, list.cellText(row, AllowColumn::Amount), listAmount(txtAmount));
}

void frmAllowPopup::rewriteAmount() {
  noteTyped();
  page_.list().setCell(page_.list().SelectedItem(), AllowColumn::Amount, listAmount(txtAmount));
  rowEdited();
}

// The popup closes after this, so the next row is only selected.
void frmAllowPopup::rowEdited() {
  if (!Tag().empty() && BasPaySlate::fnControlsChanged(*this)) page_.blnAllowChange = true;
  navigation_.selectNext();
}

bool frmAllowPopup::storeAllowance() {
  if (!cboAllow.Enabled() || choice_.showsRetired()) {  // Of a type that stays, or that is gone.
    rewriteAmount();
    return true;
  }
  if (!fnIsNewAllowance(choice_.componentId())) {
    bas_.refuse("Allowance already exists", cboAllow);
    return false;
  }
  if (page_.strAllowanceFlag == PopupMode::Adding) {
    addRow();
  } else {
    rewriteRow();
  }
  return true;
}

bool frmAllowPopup::payBalanceOut() {
  const ui::ListView& list = page_.list();
  const double balance = basic::Val(list.cellText(list.SelectedItem(), AllowColumn::AllowID));
  if (basic::Val(txtAmount.Text()) > balance) {
    bas_.refuse("The amount cannot be greater than " + basic::numberText(balance), txtAmount);
    return false;
  }
  rewriteAmount();
  return true;
}

void frmAllowPopup::cmdOk_Click() {
  const bool balance = strSalCarryFwd == AllowKind::CarriedForward;
  const bool chosen = cboAllow.ListIndex() >= 0;
  if (!balance && !chosen && cboAllow.Enabled() && !choice_.showsRetired())
    return bas_.refuse("select the allowance type", cboAllow);
  if (chosen) choice_.complete();
  if (!bas_.fnCheckBlank(txtAmount, "Enter amount", bas_.MsgboxTitle)) return;
  if (!(balance ? payBalanceOut() : storeAllowance())) return;
  page_.DisplayCurrency();
  Unload();
}

void frmAllowPopup::cmdClose_Click() {
  Unload();
  page_.DisplayCurrency();
}

}  // namespace payslate
