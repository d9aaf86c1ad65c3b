// Key filters and checks of the basic-pay and day-count boxes.
#pragma once

namespace payslate {

class BasPaySlate;

namespace common {
class CommonGen;
}
namespace ui {
class TextBox;
}

struct PayBoxControls {
  ui::TextBox& txtBasicPay;
  const ui::TextBox& txtworkingdays;
  ui::TextBox& txtNoPresent;
  ui::TextBox& txtNoLeave;
  ui::TextBox& txtNoAbsent;
};

class PayBoxes {
 public:
  PayBoxes(const BasPaySlate& bas, const PayBoxControls& controls) : bas_(bas), controls_(controls) {}

  void txtBasicPay_KeyPress(common::CommonGen& general, int& keyAscii) const;
  /// The basic pay can be corrected within one unit of the amount loaded, which the box's Tag holds.
  void txtBasicPay_Validate(bool& cancel) const;

  void txtNoPresent_KeyPress(common::CommonGen& general, int& keyAscii) const;
  void dayCount_KeyPress(common::CommonGen& general, const ui::TextBox& box, int& keyAscii) const;
  /// Absent days follow the present days as they are typed.
  void txtNoPresent_KeyUp() const;
  void txtNoPresent_Validate(bool& cancel) const;

 private:
  [[nodiscard]] double largestPresent() const;

  const BasPaySlate& bas_;
  PayBoxControls controls_;
};

}  // namespace payslate
