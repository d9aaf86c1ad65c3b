// A line of text that the user edits.
#pragma once

#include "platform/ui/Control.h"

namespace payslate::ui {

enum class Alignment { Left, Right, Center };

/// Positions and lengths count characters (code points), not bytes.
class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name, Alignment alignment = Alignment::Left);
  [[nodiscard]] std::string_view TypeName() const override { return "TextBox"; }

  Property<std::string> Text;  ///< Raises Change when it differs; the caret goes to its start.
  Property<bool> Locked;
  Alignment alignment;
  int MaxLength = 0;  ///< 0: no limit.

  Event<> Change;

  [[nodiscard]] int SelStart() const { return selStart_; }
  [[nodiscard]] int SelLength() const { return selLength_; }
  [[nodiscard]] std::string SelText() const;
  void Select(int start, int length);  ///< Clipped to the text.
  void SelectAll();

  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
  bool keyAction(const Key& key) override;

  /// Puts text in place of the selection, as typing and pasting do. Nothing when locked.
  void replaceSelection(std::u32string_view text);

 private:
  void edited(std::u32string text, int caret);
  void moveCaret(int to, bool selecting);

  int selStart_ = 0;
  int selLength_ = 0;
  int anchor_ = 0;
  int caret_ = 0;
};

}  // namespace payslate::ui
