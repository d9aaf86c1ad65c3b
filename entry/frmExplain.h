// The window that says where a figure comes from.
#pragma once

#include "component/Explanation.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/Form.h"
#include "platform/ui/TextPage.h"

namespace payslate {

class BasPaySlate;

class frmExplain : public ui::Form {
 public:
  explicit frmExplain(BasPaySlate& bas);

  ui::TextPage txtExplain{*this, "txtExplain"};
  ui::CommandButton cmdOk{*this, "cmdOk", "&OK"};

  /// To be said before the window is shown.
  void shows(const Explanation& explanation);

 private:
  void arrange();
};

}  // namespace payslate
