// The list of monthly entries: loading, keys and buttons.
#include "browser/FrmMaster.h"

#include "browser/BrowseColumns.h"
#include "browser/GridSearch.h"
#include "browser/Hourglass.h"
#include "platform/basic/Numbers.h"

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
      entryForm_([&bas] { return std::make_shared<frmpayslate>(bas); }),
      cancelForm_([&bas] { return std::make_shared<frmCancel>(bas); }) {
  KeyPreview = true;
  optAscend.Value = true;
  arrange();
  wireEvents();
  bas_.entryList = this;
}

FrmMaster::~FrmMaster() {
  if (bas_.entryList == this) bas_.entryList = nullptr;
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
  Activate = [this] { Form_Activate(); };
  KeyPress = [this](int& keyAscii) {
    if (keyAscii == ui::KeyAscii::CtrlD) flexMaster.SetFocus();
  };
  flexMaster.EnterCell = [this] { flexMaster_EnterCell(); };
  flexMaster.DblClick = [this] { flexMaster_DblClick(); };
  flexMaster.KeyDown = [this](int& keyCode, int) {
    if (keyCode == ui::KeyCode::Delete && CmdDelete.Enabled()) CmdDelete_Click();
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
  setBrowseStatement();
  {
    const Hourglass hourglass(*this);
    GridPopulate(bas_.strBrowseSQL, bas_.strBrowseTable);
  }
  UserRights();
  flexMaster_EnterCell();
  if (flexMaster.TextMatrix(1, BrowseColumn::EntryNo).empty())
    for (ui::CommandButton* button : {&CmdEdit, &CmdDelete, &cmdUpdate}) button->Enabled = false;
  if (isCancelled(flexMaster.Row())) CmdDelete.Enabled = false;
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

void FrmMaster::Form_Activate() {
  if (currentCell(BrowseColumn::EntryId).empty()) {
    CmdEdit.Enabled = false;
    CmdDelete.Enabled = false;
  } else {
    setEditAndDelete();
  }
  flexMaster_EnterCell();
}

void FrmMaster::flexMaster_EnterCell() {
  if (currentCell(BrowseColumn::EntryId).empty()) {
    CmdDelete.Enabled = false;
    CmdEdit.Enabled = false;
  } else if (isCancelled(flexMaster.Row())) {
    CmdDelete.Enabled = false;
  } else {
    setEditAndDelete();
  }
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
  const int chosen = cboColNames.ListIndex();
  if (chosen < 0) return;
  const bool isDate = basic::lower(cboColNames.List(chosen)).find("date") != std::string::npos;
  // The entry number stands in for the date, which is shown in an order that does not sort.
  const int column = isDate ? BrowseColumn::EntryNo : cboColNames.ItemData(chosen);
  flexMaster.setCurrent(flexMaster.Row(), column);
  flexMaster.Sort(optAscend.Value() ? ui::SortOrder::GenericAscending : ui::SortOrder::GenericDescending);
  flexMaster_EnterCell();
}

void FrmMaster::fnSearchGrid() {
  const int column = cboSearch.ItemData(cboSearch.ListIndex());
  flexMaster.setCurrent(flexMaster.Row(), column);
  flexMaster.Sort(ui::SortOrder::GenericAscending);
  if (const auto row = firstRowStartingWith(flexMaster, column, txtsearch.Text())) {
    flexMaster.setCurrent(*row, 0);
    flexMaster.setColSel(flexMaster.Cols() - 1);
    flexMaster.setTopRow(*row);
  }
  flexMaster_EnterCell();
}

void FrmMaster::cmdnew_Click() {
  bas_.strMode = EntryMode::New;
  entryForm_.get().Show();
}

const std::string& FrmMaster::currentCell(int column) const {
  return flexMaster.TextMatrix(flexMaster.Row(), column);
}

bool FrmMaster::isCancelled(int row) const {
  return flexMaster.Cols() > BrowseColumn::Cancelled &&
         flexMaster.TextMatrix(row, BrowseColumn::Cancelled) == "Yes";
}

bool FrmMaster::showsNoEntry() const {
  return flexMaster.TextMatrix(1, BrowseColumn::EntryId).empty() && flexMaster.Rows() == 2;
}

std::string FrmMaster::currentEntryIdText() const {
  return currentCell(BrowseColumn::EntryId);
}
std::string FrmMaster::currentEntryDateText() const {
  return currentCell(BrowseColumn::EntryDate);
}

}  // namespace payslate
