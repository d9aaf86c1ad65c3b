// Saving an entry: validation, the one transaction, the list's row.
#include "entry/frmpayslate.h"
#include "paycomponents/ListColumns.h"
#include "persistence/EntryWriter.h"
#include "persistence/Transaction.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

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
  if (cboEmpname.ListIndex() < 0) {
    bas_.refuse("select Employee", cboEmpname);
    return false;
  }
  if (!noSaveReason_.empty()) {
    bas_.refuse(noSaveReason_, cboEmpname);
    return false;
  }
  DisplayCurrency();  // A row that was deleted has left the statement as it was.
  for (int row = 0; row < lvwCurrency.rowCount(); ++row) {
    if (basic::Val(lvwCurrency.cellText(row, CurrencyColumn::Amount)) >= 0) continue;
    bas_.message("Can not have Negative pay");
    return false;
  }
  blnSaveValid_ = true;
  return true;
}

EntryRecord frmpayslate::record() const {
  EntryRecord entry;
  entry.employeeId = cboEmpname.ItemData(cboEmpname.ListIndex());
  entry.entryDate = dtpattdate.Value();
  entry.paidCash = paidCashOf(Chkpaid, chkHold);
  entry.basicPay = txtBasicPay.Text();
  if (bas_.entryList != nullptr) entry.browseEntryId = bas_.entryList->currentEntryIdText();
  entry.allowances = copyRows(lvwAllow);
  entry.deductions = copyRows(lvwDeduct);
  return entry;
}

// Rolled back, and its locks given up, before anybody hears of an error.
void frmpayslate::save() {
  const EntryRecord entry = record();
  Transaction transaction(*bas_.adocon());
  transaction.begin();
  EntryWriter writer(bas_, *helpers_.objCommonDB, entry);
  state_.lngEntryID = writer.fnSaveHeader();
  const double browseEntryId = basic::Val(entry.browseEntryId);
  if (browseEntryId > 0) writer.fnDeleteCarryForward(basic::CLng(browseEntryId));
  writer.fnSaveAllowanceDetails();
  writer.fnSaveDeductionDetails();
  fnSaveFacilityDetails(bas_, state_.lngEntryID, entry.browseEntryId, facilities_.taken());
  transaction.commit();
}

void frmpayslate::cmdOk_Click() {
  bool stored = false;
  try {
    if (!fnValidateEntry()) return;
    save();
    stored = true;
    if (bas_.entryList != nullptr)
      bas_.entryList->RefreshBrowseRow("emhID = " + std::to_string(state_.lngEntryID), state_.lngEntryID);
    cmdOk.Enabled = false;
    Unload();
  } catch (const std::exception& error) {
    bas_.message(error.what());
    // What is stored must not be stored a second time, even when the list could not show it.
    if (stored) cmdOk.Enabled = false;
  }
}

}  // namespace payslate
