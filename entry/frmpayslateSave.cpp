// Saving an entry: validation, the one transaction, the list's row.
#include <algorithm>

#include "entry/frmpayslate.h"
#include "paycomponents/ListColumns.h"
#include "persistence/EntryStore.h"
#include "persistence/StoredStateReader.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

/// Pages of tabpayslate.
namespace EntryPage {
enum : int { Allowances, Deductions, Leaves, Facilities, Currencies };
}

PaidCash paidCashOf(const ui::CheckBox& paid, const ui::CheckBox& hold) {
  if (paid.checked()) return PaidCash::PaidInCash;
  return hold.checked() ? PaidCash::OnHold : PaidCash::Normal;
}

}  // namespace

bool frmpayslate::fnValidateEntry() {
  blnSaveValid_ = false;
  if (!state_.employeeId) {
    bas_.refuse("select Employee", cboEmpname);
    return false;
  }
  if (!monthIsWhole()) {
    bas_.refuse(noSaveReason(state_.month), cboEmpname);
    return false;
  }
  DisplayCurrency();
  for (int row = 0; row < lvwCurrency.rowCount(); ++row) {
    if (basic::Val(lvwCurrency.cellText(row, CurrencyColumn::Amount)) >= 0) continue;
    bas_.message("Can not have Negative pay");
    tabpayslate.Tab = EntryPage::Currencies;
    lvwCurrency.select(row);
    return false;
  }
  if (!attendance_.hasPeriod()) {
    bas_.refuse(
        "Pay month " + std::to_string(dtpattdate.Value().month()) +
            " of this company has no start date, and an entry without a pay period is not stored. Have "
            "the pay months (vwPaymonthvsdate) completed.",
        dtpattdate);
    return false;
  }
  blnSaveValid_ = true;
  return true;
}

EntryRecord frmpayslate::record() const {
  EntryRecord entry;
  if (!bas_.isNewEntry() && opened_) entry.id = opened_->id;
  entry.employeeId = state_.employeeId.value();
  entry.date = dtpattdate.Value();
  entry.paidCash = paidCashOf(Chkpaid, chkHold);
  entry.basicPay = txtBasicPay.Text();
  entry.days = {basic::Val(txtNoPresent.Text()), basic::Val(txtNoAbsent.Text()),
                basic::Val(txtNoLeave.Text())};
  entry.periodStart = bas_.dtPeriodStart;
  entry.periodEnd = bas_.dtPeriodEnd;
  entry.allowances = plainRows(lvwAllow);
  entry.deductions = plainRows(lvwDeduct);
  entry.facilities = facilities_.taken();
  entry.origins = {state_.rowOrigins.of(lvwAllow), state_.rowOrigins.of(lvwDeduct), state_.basicPayOrigin,
                   state_.daysOrigin};
  return entry;
}

std::vector<Finding> frmpayslate::findings() const {
  StoredStateReader stored(bas_);
  return review(record(), state_.loaded, stored);
}

std::optional<OfferedMonth> frmpayslate::offeredMonth() {
  if (!fnValidateEntry()) return {};
  return OfferedMonth{record(), state_.loaded, findings()};
}

void frmpayslate::takeRecoveries() {
  for (int row = 0; row < lvwfacility.rowCount(); ++row)
    if (!lvwfacility.isChecked(row)) lvwfacility.userChecks(row);
}

void frmpayslate::leaveBalance() {
  for (int row = lvwAllow.rowCount() - 1; row >= 0; --row) {
    if (lvwAllow.cellText(row, AllowColumn::Default) != AllowKind::CarriedForward) continue;
    lvwAllow.select(row);
    allowances_.remove();
  }
}

bool frmpayslate::reviewEntry() {
  const std::vector<Finding> findings = this->findings();
  if (findings.empty()) return true;
  if (bas_.message(reviewQuestion(findings), ui::MessageStyle::AskQuestionNo) == ui::Answer::Yes) return true;
  const auto placed = [](const Finding& finding) { return finding.page != ReviewPage::None; };
  const auto first = std::find_if(findings.begin(), findings.end(), placed);
  if (first != findings.end()) pointOut(*first);
  return false;
}

void frmpayslate::pointOut(const Finding& finding) {
  const auto turnTo = [&](int page, ui::ListView& list) {
    tabpayslate.Tab = page;
    if (finding.row) list.select(static_cast<int>(*finding.row));
  };
  switch (finding.page) {
    case ReviewPage::Allowances:
      return turnTo(EntryPage::Allowances, lvwAllow);
    case ReviewPage::Deductions:
      return turnTo(EntryPage::Deductions, lvwDeduct);
    case ReviewPage::Facilities:
      return turnTo(EntryPage::Facilities, lvwfacility);
    case ReviewPage::DayCounts:
      return txtNoPresent.SetFocus();
    case ReviewPage::None:
      return;
  }
}

void frmpayslate::save() {
  state_.lngEntryID = storeEntry(bas_, *helpers_.objCommonDB, record(), state_.loaded);
}

void frmpayslate::cmdOk_Click() {
  bool stored = false;
  try {
    if (!fnValidateEntry() || !reviewEntry()) return;
    save();
    stored = true;
    workingCopy_.keepLoaded();
    if (list_ != nullptr) list_->RefreshBrowseRow(entryCondition(state_.lngEntryID), state_.lngEntryID);
    cmdOk.Enabled = false;
    Unload();
  } catch (const std::exception& error) {
    bas_.message(error.what());
    // What is stored must not be stored a second time, even when the list could not show it.
    if (stored) cmdOk.Enabled = false;
  }
}

}  // namespace payslate
