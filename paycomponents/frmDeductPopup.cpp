// Adding a deduction, editing one.
#include "paycomponents/frmDeductPopup.h"

#include "component/AmountBox.h"
#include "component/BasPaySlate.h"
#include "component/CurrencySymbols.h"
#include "component/RowOrigins.h"
#include "paycomponents/DeductionPage.h"
#include "paycomponents/ListColumns.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

// Deductions that recover the cost of a facility come from its ticks alone.
std::string choosableDeductions(const Session& session) {
  return "dActive = 1 and dCompanyID = " + session.companyText() +
         " and dDedID not in (select distinct fmdeductionid from " + session.TableLinks["pFacilityMaster"] +
         " where fmCompanyID=" + session.companyText() + ")";
}

}  // namespace

frmDeductPopup::frmDeductPopup(BasPaySlate& bas, DeductionPage& page)
    : Form("frmDeductPopup", bas.desktop(), "Deduction Details"),
      bas_(bas),
      page_(page),
      choice_(bas, deductionKind, page.formulas(), helpers_, {cboDeduct, txtAmount, lblsymbol, lblformula}),
      navigation_({cmdFirst, cmdPrevious, cmdNext, cmdLast}, page.list(), [this] {
        page_.strDeductionFlag = PopupMode::Editing;
        ShowSelectedDeduction();
      }) {
  arrange();
  Load = [this] { Form_Load(); };
  Activate = [this] { Form_Activate(); };
  optDeduction.Click = [this] { optDeduction_Click(); };
  optSalCarryFwd.Click = [this] { optSalCarryFwd_Click(); };
  cboDeduct.Click = [this] { choice_.chosen(); };
  cboDeduct.Change = [this] { choice_.typed(); };
  cboDeduct.KeyPress = [this](int& keyAscii) { bas_.EnterToTab(keyAscii); };
  makeAmountBox(txtAmount, bas_, helpers_);
  cmdOk.Click = [this] { cmdOk_Click(); };
  cmdClose.Click = [this] { cmdClose_Click(); };
}

void frmDeductPopup::arrange() {
  using namespace ui::layout;
  constexpr int nameCharacters = 36;
  constexpr int amountCharacters = 16;
  txtDeductionType.Locked = true;
  txtDeductionType.Visible = false;
  txtDeductionType.AccessibleName = "Deduction Type";
  setFirstFocus(cboDeduct);
  setLayout(column({
      row({item(optDeduction), item(optSalCarryFwd), space()}),
      fields({field(Label1, {item(cboDeduct).wide(nameCharacters).growing(),
                             item(txtDeductionType).wide(nameCharacters).growing()}),
              field(Label2, {item(txtAmount).wide(amountCharacters), item(lblsymbol), space()})}),
      row({item(lblformula), space()}),
      popupFoot(navigation_.buttons(), cmdOk, cmdClose),
  }));
}

void frmDeductPopup::Form_Load() {
  helpers_.create(bas_);
  helpers_.objCommonDB->strTableName(bas_.TableLinks["pDeductions"]);
  helpers_.objCommonDB->populateComboorList(cboDeduct, "dDedID", "dDescription", choosableDeductions(bas_));
  Tag = "Loaded";
  if (adding()) optDeduction.Value = true;
  desktop().HelpFile = bas_.helpFile();
}

void frmDeductPopup::Form_Activate() {
  navigation_.buttons().enableAll(page_.list().rowCount() > 0);
}

bool frmDeductPopup::adding() const {
  return page_.strDeductionFlag == PopupMode::Adding;
}

// One goes before the other comes, or the window makes room for both.
void frmDeductPopup::showAsText(bool asText) {
  if (asText) cboDeduct.Visible = false;
  txtDeductionType.Visible = asText;
  cboDeduct.Visible = !asText;
}

void frmDeductPopup::optDeduction_Click() {
  strDeductionType = DeductKind::Standing;
  cboDeduct.Enabled = true;
  cboDeduct.setListIndex(-1);
  showAsText(false);
  lblsymbol.Caption = "";
}

void frmDeductPopup::optSalCarryFwd_Click() {
  strDeductionType = DeductKind::CarriedForward;
  showAsText(true);
  txtDeductionType.Text = carryForwardDescription;
  if (!txtAmount.Enabled()) {  // The amount was a formula's, of the deduction that is left behind.
    txtAmount.Text = "";
    txtAmount.Enabled = true;
  }
  lblformula.Caption = "";
  lblsymbol.Caption = CurrencySymbols(bas_, *helpers_.objCommonDB).ofEmployee(page_.employeeId());
}

void frmDeductPopup::showFixedRow(int row) {
  const ui::ListView& list = page_.list();
  showAsText(true);
  txtDeductionType.Text = list.cellText(row, DeductColumn::DeductionType);
  txtAmount.Text = list.cellText(row, DeductColumn::Amount);
  lblsymbol.Caption = list.cellText(row, DeductColumn::CurrencySymbol);
  lblformula.Caption = "";
  txtAmount.Enabled = list.cellText(row, DeductColumn::Type) != DeductKind::Facility;
  txtAmount.SetFocus();
}

void frmDeductPopup::ShowSelectedDeduction() {
  const ui::ListView& list = page_.list();
  const int row = list.SelectedItem();
  const std::string& type = list.cellText(row, DeductColumn::Type);
  // The option first: choosing it clears what it does not know.
  (type == DeductKind::CarriedForward ? optSalCarryFwd : optDeduction).Value = true;
  if (type == DeductKind::Added) {
    showAsText(false);
    choice_.showRow({list.cellText(row, DeductColumn::DeductionType),
                     list.cellText(row, DeductColumn::Amount),
                     list.cellText(row, DeductColumn::CurrencySymbol),
                     basic::numberOrZero(list.cellText(row, DeductColumn::DeductID))});
    cboDeduct.SetFocus();
  } else {
    showFixedRow(row);
  }
  optDeduction.Enabled = false;
  optSalCarryFwd.Enabled = false;
  BasPaySlate::StoreControlValues(*this);
}

bool frmDeductPopup::fnIsNewDeduction(std::int32_t deductionId) const {
  const ui::ListView& list = page_.list();
  for (int row = 0; row < list.rowCount(); ++row) {
    if (!adding() && row == list.SelectedItem()) continue;
    if (basic::numberOrZero(list.cellText(row, DeductColumn::DeductID)) == deductionId &&
        list.cellText(row, DeductColumn::DeductionType) == cboDeduct.Text())
      return false;
  }
  return true;
}

void frmDeductPopup::addRow(const std::string& description, const std::string& id, const char* type,
                            Origin origin) {
  helpers_.objCommonDB->fnInsertListview(page_.list(), 0,
                                         {nextSerialNumber(page_.list()), description, listAmount(txtAmount),
                                          id, type, lblsymbol.Caption(), ""});
  page_.origins().added(page_.list(), std::move(origin));
  page_.blnDeductChange = true;
}

// The popup closes after this, so the next row is only selected.
void frmDeductPopup::rowEdited() {
  if (!Tag().empty() && BasPaySlate::fnControlsChanged(*this)) page_.blnDeductChange = true;
  navigation_.selectNext();
}

void frmDeductPopup::noteTyped() {
  ui::ListView& list = page_.list();
  const int row = list.SelectedItem();
  page_.origins().typed(list, row, list.cellText(row, DeductColumn::Amount), listAmount(txtAmount));
}

bool frmDeductPopup::storeFixed() {
  if (!bas_.fnCheckBlank(txtAmount, "Enter amount", bas_.MsgboxTitle)) return false;
  if (adding()) {
    Origin typed;
    typed.known = true;
    typed.change = ChangedBy::Clerk;
    addRow(txtDeductionType.Text(), "", DeductKind::CarriedForward, std::move(typed));
  } else {
    noteTyped();
    page_.list().setCell(page_.list().SelectedItem(), DeductColumn::Amount, listAmount(txtAmount));
    rowEdited();
  }
  return true;
}

bool frmDeductPopup::storeChosen() {
  if (!adding() && choice_.showsRetired()) return storeFixed();
  if (cboDeduct.ListIndex() < 0) {
    bas_.refuse("select the deduction type", cboDeduct);
    return false;
  }
  choice_.complete();
  if (!bas_.fnCheckBlank(txtAmount, "Enter amount", bas_.MsgboxTitle)) return false;
  const std::int32_t id = choice_.componentId();
  if (!fnIsNewDeduction(id)) {
    bas_.refuse("Deduction already exists", cboDeduct);
    return false;
  }
  if (adding()) {
    addRow(cboDeduct.Text(), std::to_string(id), DeductKind::Added, choice_.origin());
    return true;
  }
  ui::ListView& list = page_.list();
  const int row = list.SelectedItem();
  if (list.cellText(row, DeductColumn::DeductID) == std::to_string(id)) {
    noteTyped();
  } else {
    page_.origins().replaced(list, row, choice_.origin(list.cellText(row, DeductColumn::Amount)));
  }
  list.setCell(row, DeductColumn::DeductionType, cboDeduct.Text());
  list.setCell(row, DeductColumn::Amount, listAmount(txtAmount));
  list.setCell(row, DeductColumn::DeductID, std::to_string(id));
  list.setCell(row, DeductColumn::CurrencySymbol, lblsymbol.Caption());
  rowEdited();
  return true;
}

void frmDeductPopup::cmdOk_Click() {
  if (!(txtDeductionType.Visible() ? storeFixed() : storeChosen())) return;
  page_.DisplayCurrency();
  Unload();
}

void frmDeductPopup::cmdClose_Click() {
  Unload();
  page_.DisplayCurrency();
}

}  // namespace payslate
