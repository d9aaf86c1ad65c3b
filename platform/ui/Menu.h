// Pop-up menus.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/Event.h"
#include "platform/ui/Property.h"

namespace payslate::ui {

/// One line of a menu. A caption of "-" is a separator.
class MenuItem {
 public:
  MenuItem(std::string name, std::string caption) : Caption(std::move(caption)), name_(std::move(name)) {}

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] bool isSeparator() const { return Caption() == "-"; }
  [[nodiscard]] bool canBePicked() const { return Enabled() && Visible() && !isSeparator(); }

  Property<std::string> Caption;
  Property<bool> Enabled{true};
  Property<bool> Visible{true};
  Event<> Click;

 private:
  std::string name_;
};

/// The items are members of the form, which outlives the menu's showing.
class PopupMenu {
 public:
  PopupMenu(std::string name, std::vector<MenuItem*> items)
      : name_(std::move(name)), items_(std::move(items)) {}
  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const std::vector<MenuItem*>& items() const { return items_; }

 private:
  std::string name_;
  std::vector<MenuItem*> items_;
};

/// A caption without the & that marks its mnemonic ("&&" is one &).
std::string withoutMnemonic(std::string_view caption);

}  // namespace payslate::ui
