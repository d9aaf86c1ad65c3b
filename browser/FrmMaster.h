// The list of monthly entries.
#pragma once

#include <string>

#include "browser/EntryGrid.h"
#include "browser/FrmEntryJournal.h"
#include "browser/frmCancel.h"
#include "component/BasPaySlate.h"
#include "component/FormHelpers.h"
#include "component/FunctionRights.h"
#include "entry/frmpayslate.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Form.h"
#include "platform/ui/Grid.h"
#include "platform/ui/Label.h"
#include "platform/ui/TextBox.h"

namespace payslate {

/// Composed of its rows and the user's rights; its own are the buttons, the keys and the order of a load.
class FrmMaster : public ui::Form {
 public:
  explicit FrmMaster(BasPaySlate& bas);

  ui::Frame fraBrowse{*this, "fraBrowse", "Browse"};
  ui::ComboBox cboColNames{*this, "cboColNames", ui::ComboStyle::DropDownList};
  ui::OptionButton optAscend{*this, "optAscend", "Ascending"};
  ui::OptionButton optDescend{*this, "optDescend", "Descending"};
  ui::Label lblsearch{*this, "lblsearch", "&Search On:"};
  ui::ComboBox cboSearch{*this, "cboSearch", ui::ComboStyle::DropDownList};
  ui::TextBox txtsearch{*this, "txtsearch"};
  ui::Grid flexMaster{*this, "flexMaster"};
  ui::CommandButton cmdnew{*this, "cmdnew", "&New"};
  ui::CommandButton CmdEdit{*this, "CmdEdit", "&Edit"};
  ui::CommandButton CmdDelete{*this, "CmdDelete", "&Delete"};
  ui::CommandButton cmdUpdate{*this, "cmdUpdate", "&Post Ledgers"};
  ui::CommandButton CmdClose{*this, "CmdClose", "&Close"};

  bool fnUserRights(std::string& letter) { return rights_.fnUserRights(letter); }
  /// Button state for the current row, and cancelled rows in red.
  void fnMarkCancelledRows();
  /// Has the payroll run taken the current row's entry?
  bool fnCheckPayrollProcessed();

 private:
  void arrange();
  void wireEvents();
  void Form_Load();
  void setBrowseStatement();
  void UserRights();
  /// Edit and Delete as the rights and the current row have it.
  void enableForRow();
  void flexMaster_KeyPress(int& keyAscii);
  void flexMaster_DblClick();
  void cboColNames_Click();
  void fnSearchGrid();
  void cmdnew_Click();
  void CmdEdit_Click();
  void CmdDelete_Click();
  /// True unless the clerk, told that others have paid out what the entry kept back, leaves it.
  bool mayTakeBack(const ListedEntry& entry);
  /// F4
  void showJournal();
  void cancelEntry(const ListedEntry& entry);

  BasPaySlate& bas_;
  FormHelpers helpers_;
  EntryGrid entries_;
  FunctionRights rights_;
  ui::FormSlot<frmpayslate> entryForm_;
  ui::FormSlot<frmCancel> cancelForm_;
  ui::FormSlot<FrmEntryJournal> journalForm_;
};

}  // namespace payslate
