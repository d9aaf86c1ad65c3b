// Opening a stored entry.
#include "entry/frmpayslate.h"
#include "persistence/EntryReader.h"

namespace payslate {

void frmpayslate::openStored(const ListedEntry& listed) {
  bas_.strMode = EntryMode::Existing;
  opened_ = listed;
  const EntryRecord header = readHeader(bas_, listed.id);
  load();
  opening_ = true;
  showStored(header);
  opening_ = false;
  ownDate_ = dtpattdate.Value();
}

void frmpayslate::refuseChanges(const std::string& reason) {
  bas_.message(reason);
  cmdOk.Enabled = false;
  navigation().enableAll(false);
}

void frmpayslate::showStored(const EntryRecord& header) {
  storedMonth_.showHeader(header);
  attendance_.fnLoadAttendanceCounts(header.employeeId);
  bas_.fnLoadLeaveSummary(header.employeeId, lvwLeaves);
  if (header.cancelled) cmdOk.Enabled = false;
  enableNavigation();
  if (opened_->shownAsCancelled) {
    refuseChanges("Record deleted. Cannot edit.");
  } else if (isProcessedEntry(bas_, header.id)) {
    refuseChanges("Payroll processed. Cannot edit.");
  }
  EntryReader reader(bas_, *helpers_.objCommonDB);
  EntryRecord entry = header;
  reader.readRows(entry);
  storedMonth_.showPay(entry);
  facilities_.showTaken(entry.facilities);
  DisplayCurrency();
  holdWhole();
  state_.loaded.stored = true;
  state_.loaded.entry.processed = header.processed;
  state_.loaded.entry.periodStart = header.periodStart;
  state_.loaded.entry.periodEnd = header.periodEnd;
  // What opens for reading deletes nothing.
  if (cmdOk.Enabled()) state_.loaded.hiddenRows = reader.hiddenRows(entry);
  BasPaySlate::StoreControlValues(*this);
}

}  // namespace payslate
