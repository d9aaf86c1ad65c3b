// Command buttons, check boxes and option buttons: what is clicked.
#pragma once

#include "platform/ui/Control.h"

namespace payslate::ui {

class CommandButton : public Control {
 public:
  CommandButton(Form& form, std::string name, std::string caption);
  [[nodiscard]] std::string_view TypeName() const override { return "CommandButton"; }
  [[nodiscard]] std::string mnemonicCaption() const override { return Caption(); }

  Property<std::string> Caption;  ///< & marks the mnemonic.
  bool Default = false;           ///< Pressed by Enter where the focused control has no use for it.
  bool Cancel = false;            ///< Pressed by Escape, likewise.
  Event<> Click;

  void userClicks() override { Click.raise(); }
  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
  bool keyAction(const Key& key) override;
};

enum class CheckState { Unchecked = 0, Checked = 1, Grayed = 2 };

class CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string name, std::string caption);
  [[nodiscard]] std::string_view TypeName() const override { return "CheckBox"; }
  [[nodiscard]] std::string mnemonicCaption() const override { return Caption(); }

  Property<std::string> Caption;
  Property<CheckState> Value;  ///< Raises Click when it differs.
  Event<> Click;

  [[nodiscard]] bool checked() const { return Value() == CheckState::Checked; }
  void userClicks() override { Value = checked() ? CheckState::Unchecked : CheckState::Checked; }
  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
  bool keyAction(const Key& key) override;
};

/// The options of one group on a form exclude each other.
class OptionButton : public Control {
 public:
  OptionButton(Form& form, std::string name, std::string caption, int group = 0);
  [[nodiscard]] std::string_view TypeName() const override { return "OptionButton"; }
  [[nodiscard]] std::string mnemonicCaption() const override { return Caption(); }

  Property<std::string> Caption;
  Property<bool>
      Value;  ///< Choosing raises Click and releases the others of the group, without a Click of theirs.
  Event<> Click;

  [[nodiscard]] int group() const { return group_; }
  void userClicks() override;  ///< Raises Click also when the option is chosen already.
  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
  bool keyAction(const Key& key) override;

 private:
  void releaseOthers();
  int group_;
};

}  // namespace payslate::ui
