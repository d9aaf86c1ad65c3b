// The dialog that asks why an entry is cancelled, and cancels it.
#pragma once

#include <string>

#include "platform/ui/Buttons.h"
#include "platform/ui/Form.h"
#include "platform/ui/Label.h"
#include "platform/ui/TextBox.h"

namespace payslate {

class BasPaySlate;

/// Works on the list's current entry. Closing the window leaves the entry as it is.
class frmCancel : public ui::Form {
 public:
  explicit frmCancel(BasPaySlate& bas);

  ui::Label Label1{*this, "Label1", "&Reason :"};
  ui::TextBox txtcanreason{*this, "txtcanreason"};
  ui::CommandButton cmdOk{*this, "cmdOk", "&OK"};

 private:
  void arrange();
  void Form_Load();
  void txtcanreason_KeyPress(int& keyAscii);
  void cmdOk_Click();
  [[nodiscard]] std::string remark() const;

  BasPaySlate& bas_;
};

}  // namespace payslate
