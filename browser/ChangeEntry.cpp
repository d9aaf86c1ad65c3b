// Opening the current entry for editing, and cancelling it.
#include "browser/BrowseColumns.h"
#include "browser/FrmMaster.h"
#include "browser/Hourglass.h"
#include "browser/StoredEntry.h"
#include "component/Navigation.h"
#include "platform/basic/Numbers.h"

namespace payslate {

void FrmMaster::CmdEdit_Click() {
  bas_.strMode = EntryMode::Existing;
  StoredEntry entry(bas_, *helpers_.objCommonDB, currentCell(BrowseColumn::EntryId));
  entryForm_.show([&](frmpayslate& form) { openEntry(entry, form); });
}

void FrmMaster::refuseChanges(frmpayslate& form, const std::string& reason) const {
  bas_.message(reason);
  form.cmdOk.Enabled = false;
  form.navigation().enableAll(false);
}

void FrmMaster::openEntry(StoredEntry& entry, frmpayslate& form) {
  entry.showHeader(form, *helpers_.objCommonGen);
  const std::int32_t employeeId = entry.employeeId();
  entry.fnLoadAttendanceCounts(form, employeeId);
  bas_.fnLoadLeaveSummary(employeeId, form.lvwLeaves);
  if (entry.isCancelled()) form.cmdOk.Enabled = false;
  form.navigation().enableAt(form.cboEmpname.ListIndex(), form.cboEmpname.ListCount());
  const bool cancelled = isCancelled(flexMaster.Row());
  if (cancelled) {
    refuseChanges(form, "Record deleted. Cannot edit.");
  } else if (fnCheckPayrollProcessed()) {
    refuseChanges(form, "Payroll processed. Cannot edit.");
  }
  entry.loadDeductions(form.lvwDeduct);
  entry.loadAllowances(form.lvwAllow);
  entry.fnLoadEntryFacilities(form.lvwfacility, employeeId);
  entry.fnLoadEntryCarryForward(form);
  form.DisplayCurrency();
  form.monthIsWhole();
  BasPaySlate::StoreControlValues(form);
}

void FrmMaster::CmdDelete_Click() {
  const int row = flexMaster.Row();
  if (fnCheckPayrollProcessed()) {
    bas_.message("Payroll processed. Cannot delete.");
    return;
  }
  if (!isCancelled(row)) {
    const std::string question =
        "Are you sure you want to delete the entry - " + flexMaster.TextMatrix(row, BrowseColumn::EntryNo);
    if (bas_.message(question, ui::MessageStyle::AskCritical) == ui::Answer::Yes) cancelEntry(row);
  }
  settleAfterDelete();
}

void FrmMaster::cancelEntry(int row) {
  cancelForm_.get().Show();
  const Hourglass hourglass(*this);
  bas_.strMode = EntryMode::Existing;
  const std::string& id = currentCell(BrowseColumn::EntryId);
  RefreshBrowseRow("emhID = " + id, basic::CLng(id));
  markRow(row);
}

void FrmMaster::settleAfterDelete() {
  if (flexMaster.TextMatrix(1, BrowseColumn::EntryNo).empty()) {
    CmdEdit.Enabled = false;
    CmdDelete.Enabled = false;
  } else {
    setEditAndDelete();
  }
  if (isCancelled(flexMaster.Row())) CmdDelete.Enabled = false;
  const int last = flexMaster.Rows() - 1;
  flexMaster.setCurrent(last, 0);
  flexMaster.setTopRow(last);
  flexMaster.setColSel(flexMaster.Cols() - 1);
  flexMaster_EnterCell();
}

}  // namespace payslate
