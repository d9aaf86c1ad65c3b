// The entry form's life: loading, keys, navigation and closing.
#include "entry/frmpayslate.h"

#include <algorithm>
#include <array>
#include <vector>

#include "paycomponents/ListColumns.h"
#include "platform/ado/Error.h"

namespace payslate {

namespace {

std::vector<ui::ColumnLayout> leaveColumns() {
  using enum ui::Alignment;
  return {{"Sno", 926, Left}, {"LeaveName", 7409, Left}, {"LeaveID", 0, Left}, {"No of Days", 2540, Right}};
}

std::string employeesWithoutEntry(const Session& session) {
  return "eCompanyID=" + session.companyText() + " and eActive=1  and eempid not in (select  emhempID from " +
         session.TableLinks["pempmonthlyentryheader"] +
         " where month(emhDate)=" + std::to_string(session.ProcessDate.month()) +
         " and year(emhDate)=" + std::to_string(session.ProcessDate.year()) +
         " and emhCompanyID=" + session.companyText() + " and emhCancelled = 0)";
}

}  // namespace

frmpayslate::frmpayslate(BasPaySlate& bas, EntryList* list)
    : Form("frmpayslate", bas.desktop(), "Monthly Entry"),
      lvwAllow(*this, "lvwAllow", allowColumns()),
      lvwDeduct(*this, "lvwDeduct", deductColumns()),
      lvwLeaves(*this, "lvwLeaves", leaveColumns()),
      lvwfacility(*this, "lvwfacility", facilityColumns(), true),
      lvwCurrency(*this, "lvwCurrency", currencyColumns()),
      bas_(bas),
      list_(list),
      formulas_(bas, state_, {txtNoPresent, txtNoAbsent, txtNoLeave}),
      totals_({lblcursymbol, txtBasicPay, lvwAllow, lvwDeduct, lvwCurrency}),
      attendance_(bas, state_,
                  {dtpattdate, txtTotalDays, txtworkingdays, txtNoPresent, txtNoLeave, txtNoAbsent, cmdOk}),
      hourlyItems_(bas, helpers_, formulas_, state_.rowOrigins, {lvwAllow, lvwDeduct}),
      payLoader_(bas, state_, helpers_, formulas_, hourlyItems_,
                 {lblBasicPay, lblcursymbol, lvwAllow, lvwDeduct}),
      storedMonth_(helpers_,
                   {txtAtteNo, dtpattdate, cboEmpname, txtBasicPay, Chkpaid, chkHold, lvwAllow, lvwDeduct}),
      allowances_(bas, lvwAllow, helpers_, formulas_, totals_, state_.rowOrigins),
      deductions_(bas, state_, lvwDeduct, helpers_, formulas_, totals_, state_.rowOrigins),
      facilities_(bas, {lvwfacility, lvwDeduct}, helpers_, [this] { DisplayCurrency(); }),
      listMenu_(state_, cmdOk),
      boxes_(bas, {txtBasicPay, txtworkingdays, txtNoPresent, txtNoLeave, txtNoAbsent}),
      workingCopy_({txtAtteNo, txtworkingdays, txtNoPresent, txtNoLeave, txtNoAbsent, lblBasicPay,
                    txtBasicPay, lblcursymbol, chkHold, Chkpaid, lvwLeaves, lvwCurrency},
                   allowances_, deductions_, facilities_),
      explainForm_([this] { return std::make_shared<frmExplain>(bas_); }) {
  KeyPreview = true;
  arrange();
  wireEvents();
}

void frmpayslate::wireEvents() {
  Load = [this] { Form_Load(); };
  KeyDown = [this](int& keyCode, int shift) {
    if (keyCode == ui::KeyCode::F2 && shift == ui::Shift::None) return explainFocused();
    Form_KeyDown(keyCode);
  };
  QueryUnload = [this](bool& cancel, ui::UnloadMode) { Form_QueryUnload(cancel); };

  dtpattdate.Change = [this] { dtpattdate_Change(); };
  cboEmpname.SelectionMoved = [this] { cboEmpname_SelectionMoved(); };
  cboEmpname.Click = [this] { cboEmpname_Click(); };
  cboEmpname.Change = [this] { cboEmpname_Click(); };
  cboEmpname.KeyPress = [this](int& keyAscii) { bas_.EnterToTab(keyAscii); };
  cmdFirst.Click = [this] { cmdFirst_Click(); };
  cmdPrevious.Click = [this] { cmdPrevious_Click(); };
  cmdNext.Click = [this] { cmdNext_Click(); };
  cmdLast.Click = [this] { cmdLast_Click(); };

  chkHold.Click = [this] {
    if (chkHold.checked()) Chkpaid.Value = ui::CheckState::Unchecked;
  };
  Chkpaid.Click = [this] {
    if (Chkpaid.checked()) chkHold.Value = ui::CheckState::Unchecked;
  };
  listMenu_.attach(ActiveList::Allowances, allowances_);
  listMenu_.attach(ActiveList::Deductions, deductions_);
  listMenu_.attach(ActiveList::Facilities, facilities_);
  cmdRefresh.Click = [this] { formulas_.refresh(*helpers_.objCommonDB, lvwAllow, lvwDeduct, state_); };

  txtBasicPay.numeric = true;
  txtBasicPay.Change = [this] { DisplayCurrency(); };
  txtBasicPay.KeyPress = [this](int& keyAscii) {
    boxes_.txtBasicPay_KeyPress(*helpers_.objCommonGen, keyAscii);
  };
  txtBasicPay.Validate = [this](bool& cancel) { boxes_.txtBasicPay_Validate(cancel); };
  for (ui::TextBox* box : {&txtNoPresent, &txtNoLeave, &txtNoAbsent}) {
    box->numeric = true;
    box->GotFocus = [box] { box->SelectAll(); };
    box->KeyPress = [this, box](int& keyAscii) {
      boxes_.dayCount_KeyPress(*helpers_.objCommonGen, *box, keyAscii);
    };
  }
  txtNoPresent.KeyPress = [this](int& keyAscii) {
    boxes_.txtNoPresent_KeyPress(*helpers_.objCommonGen, keyAscii);
  };
  txtNoPresent.KeyUp = [this](int&, int) { boxes_.txtNoPresent_KeyUp(); };
  txtNoPresent.Validate = [this](bool& cancel) { boxes_.txtNoPresent_Validate(cancel); };

  cmdOk.Click = [this] { cmdOk_Click(); };
  cmdCancel.Click = [this] { Unload(); };
}

void frmpayslate::dtpattdate_Change() {
  const bool keepsMonth = opened_ && heldIndex_ && !bas_.isNewEntry();
  if (!keepsMonth && !mayLeaveMonth()) {
    dtpattdate.Value = ownDate_;
    return;
  }
  bas_.ProcessDate = dtpattdate.Value();
  // A stored month that was met by choosing an employee is not the list's entry: the other date starts
  // afresh.
  if (!keepsMonth) bas_.strMode = EntryMode::New;
  Form_Load();
}

void frmpayslate::Form_Load() {
  helpers_.create(bas_);
  desktop().HelpFile = bas_.helpFile();
  bas_.strComboTable = bas_.TableLinks["pemployee"];
  const bool reloaded = !Tag().empty();
  fillEmployees();
  ownDate_ = dtpattdate.Value();
  attendance_.computePeriod(*helpers_.objCommonDB);
  Caption = "Monthly Entry-For period From - " + bas_.shortDate(bas_.dtPeriodStart) + " To " +
            bas_.shortDate(bas_.dtPeriodEnd);
  tabpayslate.Tab = 0;
  Tag = "Loaded";
  // A stored entry is still there when another date was picked, and what the clerk changed in it still
  // counts.
  if (bas_.isNewEntry() || !reloaded) BasPaySlate::StoreControlValues(*this);
}

void frmpayslate::fillEmployees() {
  if (bas_.isNewEntry()) {
    opened_.reset();
    giveMonthUp();
    bas_.FillCombo(cboEmpname, "eEmpId", "ename", employeesWithoutEntry(bas_));
    cboEmpname.Enabled = true;
    dtpattdate.Value = bas_.ProcessDate;
    return;
  }
  if (Tag().empty()) bas_.FillCombo(cboEmpname, "eEmpId", "ename", "eCompanyID=" + bas_.companyText());
  takeListedEntry();
  cboEmpname.Enabled = false;
}

void frmpayslate::takeListedEntry() {
  if (!opened_) return;
  state_.lngEntryID = opened_->id;
  if (!opened_->date)
    throw ado::Error("The entry has no date (emhDate): it has to be given one in the database first.",
                     "22002");
  dtpattdate.Value = *opened_->date;
}

void frmpayslate::Form_KeyDown(int& keyCode) {
  struct Navigation {
    int key;
    int functionKey;
    ui::CommandButton& button;
    void (frmpayslate::*run)();
  };
  const std::array<Navigation, 4> navigation{{
      {ui::KeyCode::Home, ui::KeyCode::F9, cmdFirst, &frmpayslate::cmdFirst_Click},
      {ui::KeyCode::PageUp, ui::KeyCode::F10, cmdPrevious, &frmpayslate::cmdPrevious_Click},
      {ui::KeyCode::PageDown, ui::KeyCode::F11, cmdNext, &frmpayslate::cmdNext_Click},
      {ui::KeyCode::End, ui::KeyCode::F12, cmdLast, &frmpayslate::cmdLast_Click},
  }};
  for (const Navigation& step : navigation) {
    if (keyCode != step.key && keyCode != step.functionKey) continue;
    keyCode = ui::KeyCode::Escape;
    if (step.button.Enabled()) (this->*step.run)();
    return;
  }
}

void frmpayslate::selectEmployee(int index, bool moveFocus) {
  cboEmpname.setListIndex(index);
  if (cboEmpname.ListIndex() != index) return;  // The clerk stays with what he changed.
  txtNoPresent.SelectAll();
  if (moveFocus) txtNoPresent.SetFocus();
  BasPaySlate::StoreControlValues(*this);
}

void frmpayslate::cmdFirst_Click() {
  if (cboEmpname.ListIndex() >= 0) selectEmployee(0, true);
}

void frmpayslate::cmdPrevious_Click() {
  if (cboEmpname.ListIndex() >= 0) selectEmployee(std::max(0, cboEmpname.ListIndex() - 1), true);
}

void frmpayslate::cmdNext_Click() {
  if (cboEmpname.ListIndex() < 0) return;
  selectEmployee(std::min(cboEmpname.ListCount() - 1, cboEmpname.ListIndex() + 1), true);
}

void frmpayslate::cmdLast_Click() {
  if (cboEmpname.ListIndex() >= 0) selectEmployee(cboEmpname.ListCount() - 1, false);
}

// The save unloads the form itself, which is refused here, since the form is being unloaded already.
void frmpayslate::Form_QueryUnload(bool& cancel) {
  const bool changed = heldIndex_ && workingCopy_.isChanged();
  if (!cmdOk.Enabled() || (!changed && !BasPaySlate::fnControlsChanged(*this))) return;
  if (bas_.message("Save Changes?", ui::MessageStyle::AskInformation) != ui::Answer::Yes) return;
  if (!boxes_.accept()) {  // Closing leaves no box, so nothing has looked at them yet.
    cancel = true;
    return;
  }
  cmdOk_Click();
  // A save disables OK when all of it is stored. Otherwise, whether validation or the database refused it,
  // the form stays, so that nothing the clerk typed is lost.
  cancel = !blnSaveValid_ || cmdOk.Enabled();
}

}  // namespace payslate
