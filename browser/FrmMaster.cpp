// The list of monthly entries: loading, keys and buttons; opening an entry and cancelling it.
#include "browser/FrmMaster.h"

#include "browser/Hourglass.h"
#include "persistence/EntryReader.h"
#include "persistence/StoredStateReader.h"
#include "platform/basic/Numbers.h"
#include "review/Review.h"

namespace payslate {

namespace {

std::string browseStatement(const Session& session) {
  return "select emhID, emhNo, emhDate, eName ,  case emhCancelled when 1 then 'Yes' when 0 then 'No' end  "
         "From " +
         session.TableLinks["pempmonthlyentryheader"] + ", " + session.TableLinks["pemployee"] +
         "  Where emhCompanyID = eCompanyid And emhempID = eEmpID and emhCompanyID = " +
         session.companyText();
}

}  // namespace

FrmMaster::FrmMaster(BasPaySlate& bas)
    : Form("FrmMaster", bas.desktop(), "Monthly Entry"),
      bas_(bas),
      entries_(bas, {flexMaster, cboColNames, cboSearch}),
      entryForm_([this] { return std::make_shared<frmpayslate>(bas_, &entries_); }),
      cancelForm_([&bas] { return std::make_shared<frmCancel>(bas); }),
      journalForm_([&bas] { return std::make_shared<FrmEntryJournal>(bas); }) {
  KeyPreview = true;
  optAscend.Value = true;
  arrange();
  wireEvents();
}

void FrmMaster::arrange() {
  using namespace ui::layout;
  constexpr int columnCharacters = 18;
  cboColNames.AccessibleName = "Sort by column";
  txtsearch.AccessibleName = "Search text";
  flexMaster.AccessibleName = "Monthly entries";
  setFirstFocus(flexMaster);
  setLayout(column({
      row({group(fraBrowse,
                 row({item(cboColNames).wide(columnCharacters), item(optAscend), item(optDescend)})),
           space(),
           field(lblsearch,
                 {item(cboSearch).wide(columnCharacters), item(txtsearch).wide(columnCharacters)})}),
      item(flexMaster).growing(),
      row({item(cmdnew), item(CmdEdit), item(CmdDelete), item(cmdUpdate), space(), item(CmdClose)}),
  }));
}

void FrmMaster::wireEvents() {
  Load = [this] { Form_Load(); };
  Activate = [this] { enableForRow(); };
  KeyPress = [this](int& keyAscii) {
    if (keyAscii == ui::KeyAscii::CtrlD) flexMaster.SetFocus();
  };
  flexMaster.EnterCell = [this] { enableForRow(); };
  flexMaster.DblClick = [this] { flexMaster_DblClick(); };
  flexMaster.KeyDown = [this](int& keyCode, int shift) {
    if (keyCode == ui::KeyCode::Delete && CmdDelete.Enabled()) CmdDelete_Click();
    if (keyCode == ui::KeyCode::F4 && shift == ui::Shift::None) showJournal();
  };
  flexMaster.KeyPress = [this](int& keyAscii) { flexMaster_KeyPress(keyAscii); };
  cboColNames.Click = [this] { cboColNames_Click(); };
  for (ui::OptionButton* direction : {&optAscend, &optDescend})
    direction->Click = [this] { cboColNames.setListIndex(-1); };
  txtsearch.KeyUp = [this](int&, int) {
    if (cboSearch.ListIndex() >= 0 && !basic::Trim(txtsearch.Text()).empty()) fnSearchGrid();
  };
  const auto enterMovesOn = [this](int& keyAscii) { bas_.EnterToTab(keyAscii); };
  for (ui::Control* control :
       std::initializer_list<ui::Control*>{&cboColNames, &cboSearch, &optAscend, &optDescend, &txtsearch})
    control->KeyPress = enterMovesOn;
  cmdnew.Click = [this] { cmdnew_Click(); };
  CmdEdit.Click = [this] { CmdEdit_Click(); };
  CmdDelete.Click = [this] { CmdDelete_Click(); };
  CmdClose.Click = [this] { Unload(); };
}

void FrmMaster::Form_Load() {
  helpers_.create(bas_);
  desktop().HelpFile = bas_.helpFile();
  bas_.TableLinks.load(*bas_.adocon());
  bas_.TableLinks.loadJournal(*bas_.adocon());
  setBrowseStatement();
  {
    const Hourglass hourglass(*this);
    entries_.GridPopulate(bas_.strBrowseSQL, bas_.strBrowseTable);
  }
  UserRights();
  enableForRow();
  if (!entries_.hasNumberInFirstRow()) cmdUpdate.Enabled = false;
}

void FrmMaster::setBrowseStatement() {
  helpers_.objCommonDB->strTableName(bas_.TableLinks["psettings"]);
  const std::int16_t lookBackDays = basic::CInt(
      numberOf(helpers_.objCommonDB->fnreturnfield("NoOfPreviousDays", "companyID=" + bas_.companyText())));
  bas_.strBrowseTable = bas_.TableLinks["pempmonthlyentryheader"];
  bas_.strBrowseSQL = browseStatement(bas_);
  if (lookBackDays > 0)
    bas_.strBrowseSQL += " and emhDate>='" + compactDate(bas_.ProcessDate.plusDays(-lookBackDays)) + "'";
}

void FrmMaster::UserRights() {
  if (!rights_.load(bas_)) return;
  cmdnew.Enabled = rights_.holds(Right::New);
  cmdUpdate.Enabled = rights_.holds(Right::PostLedgers);
}

void FrmMaster::enableForRow() {
  const bool entry = entries_.hasCurrent();
  CmdEdit.Enabled = entry && rights_.holds(Right::Edit);
  CmdDelete.Enabled = entry && !entries_.isCurrentCancelled() && rights_.holds(Right::Delete);
}

void FrmMaster::fnMarkCancelledRows() {
  enableForRow();
  entries_.markCancelledRows();
}

void FrmMaster::flexMaster_KeyPress(int& keyAscii) {
  if (keyAscii == ui::KeyAscii::CtrlReturn) cmdnew_Click();
  if (keyAscii == ui::KeyAscii::Return) flexMaster_DblClick();
}

void FrmMaster::flexMaster_DblClick() {
  if (CmdEdit.Enabled()) CmdEdit_Click();
}

void FrmMaster::cboColNames_Click() {
  const Hourglass hourglass(*this);
  entries_.sort(optAscend.Value());
  enableForRow();
}

void FrmMaster::fnSearchGrid() {
  entries_.search(txtsearch.Text());
  enableForRow();
}

void FrmMaster::cmdnew_Click() {
  bas_.strMode = EntryMode::New;
  entryForm_.get().Show();
}

void FrmMaster::CmdEdit_Click() {
  const auto entry = entries_.current();
  if (entry) entryForm_.open([&](frmpayslate& form) { form.openStored(*entry); });
}

bool FrmMaster::fnCheckPayrollProcessed() {
  const auto entry = entries_.current();
  return entry && isProcessedEntry(bas_, entry->id);
}

void FrmMaster::CmdDelete_Click() {
  const auto entry = entries_.current();
  if (!entry) return;
  if (fnCheckPayrollProcessed()) {
    bas_.message("Payroll processed. Cannot delete.");
    return;
  }
  const std::string question = "Are you sure you want to delete the entry - " + entries_.currentNumber();
  if (!entry->shownAsCancelled && bas_.message(question, ui::MessageStyle::AskCritical) == ui::Answer::Yes &&
      mayTakeBack(*entry))
    cancelEntry(*entry);
  entries_.goToLast();
  enableForRow();
}

bool FrmMaster::mayTakeBack(const ListedEntry& entry) {
  StoredStateReader stored(bas_);
  const std::string question = cancellationQuestion(entry.id, stored);
  return question.empty() || bas_.message(question, ui::MessageStyle::AskQuestionNo) == ui::Answer::Yes;
}

void FrmMaster::cancelEntry(const ListedEntry& entry) {
  const int row = entries_.currentRow();
  cancelForm_.show([&](frmCancel& form) { form.cancels(entry.id); });
  const Hourglass hourglass(*this);
  bas_.strMode = EntryMode::Existing;
  entries_.RefreshBrowseRow(entryCondition(entry.id), entry.id);
  entries_.markRow(row);
}

void FrmMaster::showJournal() {
  const auto entry = entries_.current();
  if (!entry) return;
  if (!bas_.keepsJournal()) {
    bas_.message("No journal of entries is kept in this database.");
    return;
  }
  journalForm_.show([&](FrmEntryJournal& form) { form.shows(entry->id, entries_.currentNumber()); });
}

}  // namespace payslate
