// Saving an entry: validation, the one transaction, the list's row.
#include "entry/frmpayslate.h"
#include "paycomponents/ListColumns.h"
#include "persistence/EntryStore.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

constexpr int currencyPage = 4;

std::vector<ListRow> copyRows(const ui::ListView& list) {
  std::vector<ListRow> rows;
  rows.reserve(list.rows().size());
  for (const ui::ListView::Row& row : list.rows()) rows.push_back(row.cells);
  return rows;
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
    tabpayslate.Tab = currencyPage;
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
  entry.periodStart = bas_.dtPeriodStart;
  entry.periodEnd = bas_.dtPeriodEnd;
  entry.allowances = copyRows(lvwAllow);
  entry.deductions = copyRows(lvwDeduct);
  entry.facilities = facilities_.taken();
  return entry;
}

void frmpayslate::save() {
  state_.lngEntryID = storeEntry(bas_, *helpers_.objCommonDB, record());
}

void frmpayslate::cmdOk_Click() {
  bool stored = false;
  try {
    if (!fnValidateEntry()) return;
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
