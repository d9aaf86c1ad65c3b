// The popup that lowers the amount of a facility recovery.
#pragma once

#include "component/FormHelpers.h"
#include "component/Navigation.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/Form.h"
#include "platform/ui/Label.h"
#include "platform/ui/TextBox.h"

namespace payslate {

class BasPaySlate;
class FacilityPage;

class frmFacilityPopup : public ui::Form {
 public:
  frmFacilityPopup(BasPaySlate& bas, FacilityPage& page);

  ui::Label Label1{*this, "Label1", "Facility Name:"};
  ui::TextBox txtfacilityname{*this, "txtfacilityname"};
  ui::Label Label2{*this, "Label2", "Amount:"};
  ui::TextBox txtAmount{*this, "txtAmount", ui::Alignment::Right};
  ui::Label lblsymbol{*this, "lblsymbol"};
  ui::CommandButton cmdFirst{*this, "cmdFirst", "|<"};
  ui::CommandButton cmdPrevious{*this, "cmdPrevious", "<"};
  ui::CommandButton cmdNext{*this, "cmdNext", ">"};
  ui::CommandButton cmdLast{*this, "cmdLast", ">|"};
  ui::CommandButton cmdOk{*this, "cmdOk", "&OK"};
  ui::CommandButton cmdClose{*this, "cmdClose", "&Close"};

  /// Shows the list's selected row with the amount that is to be settled.
  void showSelectedRecovery();

 private:
  void arrange();
  void showRow(int amountColumn);
  void cmdOk_Click();
  void cmdClose_Click();

  BasPaySlate& bas_;
  FacilityPage& page_;
  FormHelpers helpers_;
  RowNavigation navigation_;
};

}  // namespace payslate
