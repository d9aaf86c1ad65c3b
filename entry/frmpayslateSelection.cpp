// Choosing an employee on the entry form.
#include "component/CurrencySymbols.h"
#include "entry/frmpayslate.h"
#include "persistence/EntryReader.h"
#include "platform/basic/Numbers.h"

namespace payslate {

using basic::Val;

namespace {

constexpr const char* basicPayPattern = "########0.00";

}  // namespace

bool frmpayslate::prepareNewMonth(std::int32_t employeeId) {
  GetDeptID(employeeId);
  if (slashDate(state_.dtDateOfJoin) > slashDate(bas_.dtPeriodEnd)) {
    state_.whyNotWhole = "Employee's Date of Join is greater than enddate";
    bas_.message(state_.whyNotWhole);
    return false;
  }
  return !FnCheckCalendarSettingsNotEntered();
}

void frmpayslate::cboEmpname_SelectionMoved() {
  state_.employeeId.reset();
  if (cboEmpname.ListIndex() >= 0) state_.employeeId = cboEmpname.ItemData(cboEmpname.ListIndex());
  state_.month = HeldMonth::Nothing;
  state_.whyNotWhole = state_.employeeId ? "The month is not loaded yet." : "Nobody is selected.";
}

void frmpayslate::cboEmpname_Click() {
  if (!state_.employeeId || takingBack_) return;
  if (!opening_) {
    // Typed away and back: the month was never left.
    if (heldIndex_ == cboEmpname.ListIndex() && state_.month != HeldMonth::Whole) return takeSelectionBack();
    if (!mayLeaveMonth()) return takeSelectionBack();
    giveMonthUp();
  }
  try {
    chooseMonth(*state_.employeeId);
  } catch (const std::exception& error) {
    giveMonthUp();
    state_.whyNotWhole = error.what();
    enableNavigation();
    throw;
  }
  if (state_.month == HeldMonth::Nothing) enableNavigation();
}

bool frmpayslate::mayLeaveMonth() const {
  return !heldIndex_ || !workingCopy_.isChanged() ||
         bas_.message("What was changed for this employee is not stored. Go on without it?",
                      ui::MessageStyle::AskQuestionNo) == ui::Answer::Yes;
}

void frmpayslate::takeSelectionBack() {
  takingBack_ = true;
  cboEmpname.setListIndex(*heldIndex_);
  takingBack_ = false;
  state_.month = HeldMonth::Whole;
  state_.whyNotWhole.clear();
}

// From here until a month is there whole, nothing of another one is shown.
void frmpayslate::giveMonthUp() {
  state_.month = HeldMonth::Nothing;
  heldIndex_.reset();
  state_.dblBasic = 0;
  state_.dblHolidays = 0;
  workingCopy_.clear();
  boxes_.keepLoaded();
  state_.rowOrigins.clear();
  state_.basicPayOrigin = {};
  state_.daysOrigin = {};
}

void frmpayslate::chooseMonth(std::int32_t employeeId) {
  // Behind somebody whose month is stored the date is the clerk's again, and no longer that entry's.
  if (!opening_) dtpattdate.Value = ownDate_;
  std::optional<EntryRecord> stored;
  if (bas_.isNewEntry()) {
    // The month of the form's date, which is the one that a save would store.
    if (!prepareNewMonth(employeeId)) return;
    stored = liveInMonth(bas_, employeeId, dtpattdate.Value());
  } else {
    lblcursymbol.Caption = CurrencySymbols(bas_, *helpers_.objCommonDB).ofStoredBasicPay(employeeId);
    stored = liveAmongAllInMonth(bas_, employeeId, dtpattdate.Value());
  }
  if (stored) return meetStoredMonth(*stored);
  if (opening_) return;  // It was removed this moment, which its save will say.
  // From an opened entry the clerk has come to somebody without one, whose month is checked like any other.
  if (bas_.isNewEntry() || prepareNewMonth(employeeId)) loadNewMonth(employeeId);
}

void frmpayslate::loadNewMonth(std::int32_t employeeId) {
  bas_.strMode = EntryMode::New;
  if (!attendance_.fnLoadAttendance(employeeId)) return;
  payLoader_.fnLoadEmployeePay(employeeId);
  payLoader_.fnLoadCarryForward(employeeId, dtpattdate.Value());
  payLoader_.fnLoadStandingDeductions(employeeId);
  facilities_.fnLoadFacilities(EntryReader(bas_, *helpers_.objCommonDB).openRecoveries(employeeId));
  bas_.fnLoadLeaveSummary(employeeId, lvwLeaves);
  enableNavigation();
  attendance_.setWorkingDays();
  state_.basicPayOrigin = payLoader_.basicPayOrigin(Val(txtTotalDays.Text()), Val(txtNoAbsent.Text()),
                                                    attendance_.daysBeforeJoining());
  txtBasicPay.Text = basic::Format(state_.basicPayOrigin.reduced(), basicPayPattern);
  attendance_.setPresentDays();
  txtBasicPay.Tag = txtBasicPay.Text();
  DisplayCurrency();
  holdWhole();
}

void frmpayslate::meetStoredMonth(const EntryRecord& entry) {
  bas_.strMode = EntryMode::Existing;
  state_.month = HeldMonth::StoredAlready;
  state_.whyNotWhole = noSaveReason(state_.month);
  // The month of an entry that is being opened may hold another, cancelled one.
  if (!opening_) storedMonth_.showNumberAndDate(entry);
  helpers_.objCommonGen->selectcomboitembyvalue(cboEmpname, entry.employeeId);
  enableNavigation();
  BasPaySlate::StoreControlValues(*this);
}

const char* frmpayslate::noSaveReason(HeldMonth month) {
  return month == HeldMonth::StoredAlready
             ? "This employee has an entry for the month. Open it from the list to change it."
             : "The month of this employee is not loaded. Choose the employee again.";
}

void frmpayslate::holdWhole() {
  state_.month = HeldMonth::Whole;
  state_.whyNotWhole.clear();
  heldIndex_ = cboEmpname.ListIndex();
  workingCopy_.keepLoaded();
  boxes_.keepLoaded();
  state_.loaded = {};
  state_.loaded.entry = record();
}

void frmpayslate::enableNavigation() {
  navigation().enableAt(cboEmpname.ListIndex(), cboEmpname.ListCount());
}

}  // namespace payslate
