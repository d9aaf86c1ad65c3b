// Key filters and checks of the basic-pay and day-count boxes.
#include "entry/PayBoxes.h"

#include "component/BasPaySlate.h"
#include "platform/basic/Numbers.h"
#include "platform/basic/Unicode.h"
#include "platform/common/CommonGen.h"
#include "platform/ui/TextBox.h"

namespace payslate {

using basic::numberText;
using basic::Trim;
using basic::Val;

namespace {
constexpr int integerDigits = 18;
constexpr int decimals = 2;
constexpr double basicPayTolerance = 1;
}  // namespace

void PayBoxes::keepLoaded() {
  loadedBasicPay_ = controls_.txtBasicPay.Text();
  loadedPresent_ = presentSeen_ = controls_.txtNoPresent.Text();
  loadedAbsent_ = controls_.txtNoAbsent.Text();
}

bool PayBoxes::accept() const {
  bool refused = false;
  txtBasicPay_Validate(refused);
  if (!refused) txtNoPresent_Validate(refused);
  return !refused;
}

void PayBoxes::txtBasicPay_KeyPress(common::CommonGen& general, int& keyAscii) const {
  bas_.EnterToTab(keyAscii);
  general.TextValidateNum(controls_.txtBasicPay, keyAscii, integerDigits, decimals);
}

void PayBoxes::txtBasicPay_Validate(bool& cancel) const {
  ui::TextBox& box = controls_.txtBasicPay;
  const double loaded = Val(loadedBasicPay_);
  const double entered = Val(box.Text());
  if (loaded - basicPayTolerance < entered && entered <= loaded + basicPayTolerance) return;
  bas_.message("Check Basic pay ");
  box.Text = loadedBasicPay_;
  box.SetFocus();
  cancel = true;
}

void PayBoxes::dayCount_KeyPress(common::CommonGen& general, const ui::TextBox& box, int& keyAscii) const {
  bas_.EnterToTab(keyAscii);
  if (keyAscii == ui::KeyAscii::Minus) keyAscii = ui::KeyAscii::None;
  if (keyAscii == ui::KeyAscii::Zero && Trim(box.Text()).empty()) keyAscii = ui::KeyAscii::None;
  general.TextValidateNum(box, keyAscii, integerDigits, decimals);
}

void PayBoxes::txtNoPresent_KeyPress(common::CommonGen& general, int& keyAscii) const {
  const ui::TextBox& box = controls_.txtNoPresent;
  const auto length = static_cast<int>(basic::characters(Trim(box.Text())).size());
  if (keyAscii == ui::KeyAscii::Zero && length == box.SelLength()) keyAscii = ui::KeyAscii::None;
  dayCount_KeyPress(general, box, keyAscii);
}

double PayBoxes::largestPresent() const {
  return Val(controls_.txtworkingdays.Text()) - Val(controls_.txtNoLeave.Text());
}

void PayBoxes::txtNoPresent_KeyUp() {
  if (controls_.txtNoPresent.Text() == presentSeen_) return;
  presentSeen_ = controls_.txtNoPresent.Text();
  // Typed back to what was loaded, the days are those of the sheets again: the reckoning takes leave off
  // twice.
  controls_.txtNoAbsent.Text =
      presentSeen_ == loadedPresent_ ? loadedAbsent_ : numberText(largestPresent() - Val(presentSeen_));
}

void PayBoxes::txtNoPresent_Validate(bool& cancel) const {
  if (controls_.txtNoPresent.Text() == loadedPresent_) return;
  if (largestPresent() - Val(controls_.txtNoPresent.Text()) >= 0) return;
  cancel = true;
  bas_.message("Present no of days can not be greater than " + numberText(largestPresent()));
}

}  // namespace payslate
