// The popup that adds a deduction, or salary to carry forward, or edits such a row.
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

class BasPaySlate;
class DeductionPage;

/// A deduction that can be chosen shows its combo; any other row shows its description as a fixed text.
class frmDeductPopup : public ui::Form {
 public:
  frmDeductPopup(BasPaySlate& bas, DeductionPage& page);

  ui::OptionButton optDeduction{*this, "optDeduction", "Deduction"};
  ui::OptionButton optSalCarryFwd{*this, "optSalCarryFwd", "Salary Carry Forward"};
  ui::Label Label1{*this, "Label1", "Deduction Type:"};
  ui::ComboBox cboDeduct{*this, "cboDeduct"};
  ui::TextBox txtDeductionType{*this, "txtDeductionType"};
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

  std::string strDeductionType;  ///< "D" while a deduction is entered, "B" while salary is carried forward.

  /// Shows the list's selected row, ready to be edited.
  void ShowSelectedDeduction();

 private:
  void arrange();
  void Form_Load();
  void Form_Activate();
  void optDeduction_Click();
  void optSalCarryFwd_Click();
  void cmdOk_Click();
  void cmdClose_Click();

  void showAsText(bool asText);
  void showFixedRow(int row);
  /// Is no other row the same deduction, by identifier and description?
  [[nodiscard]] bool fnIsNewDeduction(std::int32_t deductionId) const;
  [[nodiscard]] bool adding() const;
  [[nodiscard]] bool storeFixed();
  [[nodiscard]] bool storeChosen();
  void addRow(const std::string& description, const std::string& id, const char* type, Origin origin);
  void rowEdited();
  void noteTyped();

  BasPaySlate& bas_;
  DeductionPage& page_;
  FormHelpers helpers_;
  ComponentChoice choice_;
  RowNavigation navigation_;
};

}  // namespace payslate
