// The list of monthly entries.
#pragma once

#include <string>

#include "browser/frmCancel.h"
#include "component/BasPaySlate.h"
#include "component/FormHelpers.h"
#include "entry/frmpayslate.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Form.h"
#include "platform/ui/Grid.h"
#include "platform/ui/Label.h"
#include "platform/ui/TextBox.h"

namespace payslate {

class StoredEntry;

class FrmMaster : public ui::Form, private EntryList {
 public:
  explicit FrmMaster(BasPaySlate& bas);
  ~FrmMaster() override;

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

  std::string strRights;  ///< The user's right letters; empty until loaded.

  /// Fills the grid from a statement over `table`, the physical name of what is listed, which is said for
  /// other grids' sake: this one does not need it.
  void GridPopulate(const std::string& statement, const std::string& table);
  /// Does the user hold this right? The letter is trimmed and made upper case in place.
  bool fnUserRights(std::string& letter);
  /// Button state for the current row, and cancelled rows in red.
  void fnMarkCancelledRows();
  /// Has the payroll run taken the current row's entry?
  bool fnCheckPayrollProcessed();

 private:
  void arrange();
  void wireEvents();
  void Form_Load();
  void Form_Activate();
  void setBrowseStatement();
  void fnSetGridHeader();
  void markRow(int row);
  void UserRights();
  [[nodiscard]] bool holds(const char* right);
  void setEditAndDelete();
  void flexMaster_EnterCell();
  void flexMaster_KeyPress(int& keyAscii);
  void flexMaster_DblClick();
  void cboColNames_Click();
  void fnSearchGrid();
  void cmdnew_Click();

  // Editing and cancelling: ChangeEntry.cpp
  void CmdEdit_Click();
  void openEntry(StoredEntry& entry, frmpayslate& form);
  void refuseChanges(frmpayslate& form, const std::string& reason) const;
  void CmdDelete_Click();
  void cancelEntry(int row);
  void settleAfterDelete();

  [[nodiscard]] const std::string& currentCell(int column) const;
  [[nodiscard]] bool isCancelled(int row) const;
  [[nodiscard]] bool showsNoEntry() const;

  [[nodiscard]] std::string currentEntryIdText() const override;
  [[nodiscard]] std::string currentEntryDateText() const override;
  void RefreshBrowseRow(const std::string& condition, std::int32_t entryId) override;

  BasPaySlate& bas_;
  FormHelpers helpers_;
  ui::FormSlot<frmpayslate> entryForm_;
  ui::FormSlot<frmCancel> cancelForm_;
};

}  // namespace payslate
