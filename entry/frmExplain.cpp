// Showing an explanation.
#include "entry/frmExplain.h"

#include "component/BasPaySlate.h"

namespace payslate {

frmExplain::frmExplain(BasPaySlate& bas) : Form("frmExplain", bas.desktop(), "Explanation") {
  arrange();
  Load = [this, &bas] { desktop().HelpFile = bas.helpFile(); };
  cmdOk.Click = [this] { Unload(); };
}

void frmExplain::arrange() {
  using namespace ui::layout;
  txtExplain.AccessibleName = "Explanation";
  cmdOk.Cancel = true;
  cmdOk.Default = true;
  setFirstFocus(txtExplain);
  setLayout(column({item(txtExplain).growing(), row({space(), item(cmdOk)})}));
}

void frmExplain::shows(const Explanation& explanation) {
  Caption = explanation.title;
  txtExplain.Text = textOf(explanation);
}

}  // namespace payslate
