// A line of text that the user edits.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>

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
  /// Holds a number: a typed comma is the decimal point, and a paste is taken whole or not at all.
  bool numeric = false;

  Event<> Change;

  [[nodiscard]] int SelStart() const { return selection_.start(); }
  [[nodiscard]] int SelLength() const { return selection_.length(); }
  [[nodiscard]] std::string SelText() const;
  void Select(int start, int count);  ///< Clipped to the text.
  void SelectAll();

  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
  [[nodiscard]] int typedCharacter(int character) const override;
  bool keyAction(const Key& key) override;
  /// Handlers are asked about as many characters as MaxLength leaves room for, and find the box with those
  /// that passed before. A number is pasted without the blanks and line ends around it; the only comma of one
  /// without a point is its point. Where it is refused, the box is as it was.
  bool paste(std::u32string_view pasted, const KeyFilter& passes) override;

  /// Puts text in place of the selection, as typing does. Nothing when locked.
  void replaceSelection(std::u32string_view typed);

 private:
  struct Selection {
    int anchor = 0;
    int caret = 0;
    [[nodiscard]] int start() const { return std::min(anchor, caret); }
    [[nodiscard]] int length() const { return std::abs(caret - anchor); }
  };
  struct Mark {
    int characters = 0;
    std::size_t bytes = 0;
  };
  void moveCaret(int to, bool selecting);
  [[nodiscard]] std::size_t room() const;
  [[nodiscard]] std::size_t byteOf(int character) const;
  void put(std::u32string_view typed);
  void announce();
  void pasteText(std::u32string_view pasted, const KeyFilter& passes);
  bool pasteNumber(std::u32string_view pasted, const KeyFilter& passes);

  Selection selection_;
  Mark mark_;  // where the last edit ended: the next one goes on from there
};

}  // namespace payslate::ui
