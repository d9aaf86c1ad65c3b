// The module that every form stands on: session state and the small procedures that forms share.
#pragma once

#include <cstdint>
#include <string>

#include "component/DatabaseValues.h"
#include "component/Session.h"
#include "platform/basic/Date.h"
#include "platform/ui/MessageBox.h"

namespace payslate {

namespace ado {
class Field;
}
namespace ui {
class ComboBox;
class Control;
class Desktop;
class Form;
class ListView;
}  // namespace ui

/// One instance a process, basPaySlate(); forms are given a reference.
class BasPaySlate : public Session {
 public:
  [[nodiscard]] ui::Desktop& desktop() const { return *desktop_; }
  void desktop(ui::Desktop& desktop) { desktop_ = &desktop; }

  /// Sends {TAB} when the key is Enter; the character stays as it is.
  void EnterToTab(int keyAscii) const;

  /// True when the control's text is more than blanks; otherwise `text` is shown and the control
  /// focused.
  bool fnCheckBlank(ui::Control& control, const std::string& text, const std::string& title) const;

  /// Keeps text and value of the form's input controls in their Tag.
  static void StoreControlValues(ui::Form& form);
  /// Does an input control differ from what StoreControlValues kept?
  [[nodiscard]] static bool fnControlsChanged(const ui::Form& form);

  /// Fills the combo with two columns of `strComboTable` in the server's order. An error carries a hint.
  void FillCombo(ui::ComboBox& combo, const std::string& keyColumn, const std::string& textColumn,
                 const std::string& condition = {});

  /// Refills the leave list with the employee's leave days inside the pay period: for information only.
  void fnLoadLeaveSummary(std::int32_t employeeId, ui::ListView& lvwLeaves);

  /// A message box with the session's title.
  ui::Answer message(const std::string& text, ui::MessageStyle style = ui::MessageStyle::Information) const;

  /// Says why something is refused and moves the focus to where it can be put right.
  void refuse(const std::string& reason, ui::Control& control) const;

  /// Where the application's help file stands.
  [[nodiscard]] std::string helpFile() const;
  [[nodiscard]] std::string shortDate(basic::Date date) const;
  /// The field joined to empty text and trimmed, dates in the short date format.
  [[nodiscard]] std::string cellText(const ado::Field& field) const;

 private:
  ui::Desktop* desktop_ = nullptr;
};

BasPaySlate& basPaySlate();

}  // namespace payslate
