// Key filters and checks of the basic-pay and day-count boxes.
#pragma once

#include <string>

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

  /// What the boxes hold now is the month as loaded; to be said after every load.
  void keepLoaded();
  /// Runs the checks that leaving the boxes runs. False when one of them refused, and said so.
  [[nodiscard]] bool accept() const;

  void txtBasicPay_KeyPress(common::CommonGen& general, int& keyAscii) const;
  /// The basic pay can be corrected within one unit of the amount loaded.
  void txtBasicPay_Validate(bool& cancel) const;

  void txtNoPresent_KeyPress(common::CommonGen& general, int& keyAscii) const;
  void dayCount_KeyPress(common::CommonGen& general, const ui::TextBox& box, int& keyAscii) const;
  /// Absent days follow the present days as they are typed, and no other key.
  void txtNoPresent_KeyUp();
  /// Days that nobody touched can be left as they are.
  void txtNoPresent_Validate(bool& cancel) const;

 private:
  [[nodiscard]] double largestPresent() const;

  const BasPaySlate& bas_;
  PayBoxControls controls_;
  std::string loadedBasicPay_;
  std::string loadedPresent_;
  std::string loadedAbsent_;
  std::string presentSeen_;  ///< As absent days were reckoned from last.
};

}  // namespace payslate
