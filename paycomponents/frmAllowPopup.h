// The popup that adds an allowance or edits one.
#pragma once

#include <string>

#include "component/FormHelpers.h"
#include "component/Navigation.h"
#include "paycomponents/ComponentChoice.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Form.h"
#include "platform/ui/Label.h"
#include "platform/ui/TextBox.h"

namespace payslate {

class AllowancePage;
class BasPaySlate;

class frmAllowPopup : public ui::Form {
 public:
  frmAllowPopup(BasPaySlate& bas, AllowancePage& page);

  ui::Label Label1{*this, "Label1", "Allowance Type:"};
  ui::ComboBox cboAllow{*this, "cboAllow"};
  ui::Label Label2{*this, "Label2", "Amount:"};
  ui::TextBox txtAmount{*this, "txtAmount", ui::Alignment::Right};
  ui::Label lblsymbol{*this, "lblsymbol"};
  ui::Label lblformula{*this, "lblformula"};
  ui::CommandButton cmdFirst{*this, "cmdFirst", "|<"};
  ui::CommandButton cmdPrevious{*this, "cmdPrevious", "<"};
  ui::CommandButton cmdNext{*this, "cmdNext", ">"};
  ui::CommandButton cmdLast{*this, "cmdLast", ">|"};
  ui::CommandButton cmdOk{*this, "cmdOk", "&OK"};
  ui::CommandButton cmdClose{*this, "cmdClose", "&Close"};

  std::string strSalCarryFwd;  ///< The AllowKind of the row that is edited; empty while one is added.

  /// Shows the list's selected row, ready to be edited.
  void ShowSelectedAllowance();

 private:
  void arrange();
  void Form_Load();
  void Form_Activate();
  void cmdOk_Click();
  void cmdClose_Click();

  /// Does no other row of the list carry the identifier?
  [[nodiscard]] bool fnIsNewAllowance(std::int32_t allowanceId) const;
  [[nodiscard]] bool payBalanceOut();
  [[nodiscard]] bool storeAllowance();
  void rewriteAmount();
  void noteTyped();
  void addRow();
  void rewriteRow();
  void rowEdited();

  BasPaySlate& bas_;
  AllowancePage& page_;
  FormHelpers helpers_;
  ComponentChoice choice_;
  RowNavigation navigation_;
};

}  // namespace payslate
