// What all controls have in common.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ui/Event.h"
#include "platform/ui/Key.h"
#include "platform/ui/Property.h"

namespace payslate::ui {

class Form;

/// Asks the key-press handlers about a pasted character, which they may replace; false when they cancel it.
using KeyFilter = std::function<bool(char32_t& character)>;

/// What of a control changed, told to the screen that shows it. `row` counts from 0 where rows are meant.
enum class Aspect {
  Enabled,
  Visible,
  Caption,
  Text,
  TextSelection,
  Items,
  ListIndex,
  Value,
  Page,
  RowsReset,
  RowInserted,
  RowRemoved,
  RowChanged,
  CurrentCell,
  SelectedRow,
  TopRow,
  Columns,
};

struct Change {
  Aspect aspect;
  int row = -1;
};

/// A control belongs to the form that it is a member of and is found there by its name. It knows nothing of a
/// screen: one observer, the screen's view of it, is told what changed.
class Control {
 public:
  Control(Form& form, std::string name);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  [[nodiscard]] const std::string& Name() const { return name_; }
  /// "TextBox", "ComboBox", "CheckBox", "OptionButton", "CommandButton", …
  [[nodiscard]] virtual std::string_view TypeName() const = 0;
  [[nodiscard]] Form& form() const { return *form_; }

  Property<bool> Enabled;
  Property<bool> Visible;
  Property<std::string> Tag;
  /// A sentence shown when the pointer rests on the control, and the name that screen readers say when the
  /// control has no label or caption of its own.
  std::string ToolTip;
  std::string AccessibleName;

  Event<> GotFocus;
  Event<> LostFocus;
  Event<bool&> Validate;  ///< Raised before the focus leaves; true refuses.
  Event<int&, int> KeyDown;
  Event<int&> KeyPress;  ///< The character; 0 cancels it, another value replaces it.
  Event<int&, int> KeyUp;

  /// Moves the focus here by program. Nothing happens when the control cannot have it or the control that has
  /// it refuses to be left.
  void SetFocus();

  /// Can it ever have the focus? (labels and frames cannot)
  [[nodiscard]] virtual bool acceptsFocus() const { return true; }

  /// What a mouse click or the mnemonic does to a control of this kind, once it has the focus.
  virtual void userClicks() {}
  /// The caption whose & marks the control's mnemonic; empty when it has none.
  [[nodiscard]] virtual std::string mnemonicCaption() const { return {}; }

  /// The text of a property by its name in any letter case; nothing when the control has no such property.
  [[nodiscard]] virtual std::optional<std::string> propertyText(std::string_view property) const;

  /// The character that a typed one stands for in this control, before any handler sees it.
  [[nodiscard]] virtual int typedCharacter(int character) const { return character; }
  /// What a key that no handler took does to a control of this kind. Called by Input alone; false when the
  /// control has no use for it.
  virtual bool keyAction(const Key& key);
  /// Takes what is pasted, every character of it through the filter. False when it is refused as a whole.
  virtual bool paste(std::u32string_view pasted, const KeyFilter& passes);

  void observe(std::function<void(const Change&)> observer) { observer_ = std::move(observer); }

 protected:
  void tell(Aspect aspect, int row = -1) const {
    if (observer_) observer_({aspect, row});
  }

 private:
  Form* form_;
  std::string name_;
  std::function<void(const Change&)> observer_;
};

/// "True" or "False".
std::string flagText(bool flag);

}  // namespace payslate::ui
