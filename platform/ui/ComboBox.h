// A text with a list of items to choose from.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/ui/Control.h"

namespace payslate::ui {

enum class ComboStyle {
  DropDown,      ///< The text can be typed.
  DropDownList,  ///< Only the list can be chosen from.
};

class ComboBox : public Control {
 public:
  struct Item {
    std::string text;
    std::int32_t data = 0;
  };

  ComboBox(Form& form, std::string name, ComboStyle style = ComboStyle::DropDown);
  [[nodiscard]] std::string_view TypeName() const override { return "ComboBox"; }

  /// Position of the selected item, -1 for none. Setting it shows the item's text and raises Click when it
  /// differs; a position outside the list is an error (std::out_of_range) and changes nothing.
  void setListIndex(int index);
  [[nodiscard]] int ListIndex() const { return listIndex_; }

  [[nodiscard]] const std::string& Text() const { return text_; }
  /// By program: no Change; selects nothing unless the text is that of the selected item.
  void setText(std::string text);

  void Clear();
  void AddItem(std::string text, std::int32_t itemData = 0);
  void setItems(std::vector<Item> items);  ///< Clear and add all, telling the screen once.
  [[nodiscard]] int ListCount() const { return static_cast<int>(items_.size()); }
  /// std::out_of_range for a position outside the list, as with setListIndex.
  [[nodiscard]] const std::string& List(int index) const { return item(index).text; }
  [[nodiscard]] std::int32_t ItemData(int index) const { return item(index).data; }
  [[nodiscard]] const std::vector<Item>& items() const { return items_; }

  const ComboStyle Style;

  Event<> Click;   ///< An item was selected, by whomever.
  Event<> Change;  ///< The user typed.

  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
  bool keyAction(const Key& key) override;
  /// Typed at once: one Change, whatever items the text would have met on the way.
  bool paste(std::u32string_view pasted, const KeyFilter& passes) override;

  /// The user's typing: the text becomes this, nothing is selected, Change; then the item with this text, if
  /// there is one, is selected and shown as it is written, which raises Click. An item that differs in the
  /// case of letters alone is taken when none is exactly this.
  void typeText(std::string text);

  /// Selection inside the text, counted in characters; as in a text box.
  [[nodiscard]] int SelStart() const { return selStart_; }
  [[nodiscard]] int SelLength() const { return selLength_; }
  void Select(int start, int count);

 private:
  [[nodiscard]] const Item& item(int index) const;
  void requireItem(int index, int lowest) const;
  [[nodiscard]] int typedItem() const;  // -1 for none
  bool editKey(const Key& key);
  void replace(int start, int count, std::u32string_view inserted);
  void selectByInitial(char32_t character);

  std::vector<Item> items_;
  std::string text_;
  int listIndex_ = -1;
  int selStart_ = 0;
  int selLength_ = 0;
};

}  // namespace payslate::ui
