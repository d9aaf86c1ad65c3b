// Emptying a month's controls, and telling what became of them.
#include "entry/WorkingCopy.h"

#include "component/Amounts.h"
#include "facilities/FacilityPage.h"
#include "paycomponents/AllowancePage.h"
#include "paycomponents/DeductionPage.h"
#include "platform/basic/Numbers.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/Label.h"
#include "platform/ui/ListView.h"
#include "platform/ui/TextBox.h"

namespace payslate {

void WorkingCopy::clear() {
  for (ui::TextBox* box : {&controls_.txtAtteNo, &controls_.txtworkingdays, &controls_.txtNoPresent,
                           &controls_.txtNoLeave, &controls_.txtNoAbsent, &controls_.txtBasicPay})
    box->Text = "";
  controls_.lblBasicPay.Caption = "Basic Pay:";
  controls_.lblcursymbol.Caption = "";
  for (ui::CheckBox* box : {&controls_.chkHold, &controls_.Chkpaid}) box->Value = ui::CheckState::Unchecked;
  for (ui::ListView* list : {&allowances_.list(), &deductions_.list(), &facilities_.list(),
                             &controls_.lvwLeaves, &controls_.lvwCurrency})
    list->clear();
  keepLoaded();
}

void WorkingCopy::keepLoaded() {
  allowances_.blnAllowChange = false;
  deductions_.blnDeductChange = false;
  facilities_.blnfailitychange = false;
  loaded_ = contents();
}

bool WorkingCopy::isChanged() const {
  return allowances_.blnAllowChange || deductions_.blnDeductChange || facilities_.blnfailitychange ||
         contents() != loaded_;
}

// An amount that is only written otherwise, 500 and 500.00, is no change.
std::vector<std::string> WorkingCopy::contents() const {
  std::vector<std::string> texts;
  for (const ui::TextBox* box :
       {&controls_.txtNoPresent, &controls_.txtNoLeave, &controls_.txtNoAbsent, &controls_.txtBasicPay})
    texts.push_back(typedAmountText(basic::Trim(box->Text())));
  for (const ui::CheckBox* box : {&controls_.chkHold, &controls_.Chkpaid})
    texts.emplace_back(box->checked() ? "1" : "0");
  for (const ui::ListView* list : {&allowances_.list(), &deductions_.list(), &facilities_.list()})
    for (const ui::ListView::Row& row : list->rows()) {
      texts.emplace_back(row.checked ? "1" : "0");
      for (const std::string& cell : row.cells) texts.push_back(typedAmountText(cell));
    }
  return texts;
}

}  // namespace payslate
