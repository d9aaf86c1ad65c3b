// A desktop for forms that nobody looks at.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/ui/Desktop.h"

namespace payslate {

/// Keeps what the forms say, and says yes to what they ask. Nothing can be shown on it.
class MonthDesktop : public ui::Desktop {
 public:
  void showModal(ui::Form& form) override;
  ui::Answer showMessage(const ui::Message& message) override;
  ui::MenuItem* showMenu(ui::Form&, const ui::PopupMenu&) override { return nullptr; }
  void beep() override {}
  [[nodiscard]] std::string applicationFolder() const override { return "."; }

  /// The messages since this was asked before.
  std::vector<std::string> takeMessages() { return std::exchange(messages_, {}); }

 private:
  std::vector<std::string> messages_;
};

}  // namespace payslate
