// The dialog that asks why an entry is cancelled, and cancels it.
#pragma once

#include <cstdint>

#include "platform/ui/Buttons.h"
#include "platform/ui/Form.h"
#include "platform/ui/Label.h"
#include "platform/ui/TextBox.h"

namespace payslate {

class BasPaySlate;

/// Closing the window leaves the entry as it is.
class frmCancel : public ui::Form {
 public:
  explicit frmCancel(BasPaySlate& bas);

  /// The entry that OK cancels; to be said before the dialog is shown.
  void cancels(std::int32_t entryId) { entryId_ = entryId; }

  ui::Label Label1{*this, "Label1", "&Reason :"};
  ui::TextBox txtcanreason{*this, "txtcanreason"};
  ui::CommandButton cmdOk{*this, "cmdOk", "&OK"};

 private:
  void arrange();
  void Form_Load();
  void txtcanreason_KeyPress(int& keyAscii);
  void cmdOk_Click();

  BasPaySlate& bas_;
  std::int32_t entryId_ = 0;
};

}  // namespace payslate
