// Choosing from a list, typing a text.
#include "platform/ui/ComboBox.h"

#include <algorithm>
#include <stdexcept>

#include "platform/basic/Numbers.h"
#include "platform/basic/Unicode.h"
#include "platform/ui/Form.h"

namespace payslate::ui {

ComboBox::ComboBox(Form& form, std::string name, ComboStyle style)
    : Control(form, std::move(name)), Style(style) {}

void ComboBox::requireItem(int index, int lowest) const {
  if (index >= lowest && index < ListCount()) return;
  throw std::out_of_range(Name() + " has no item " + std::to_string(index) + "; it has " +
                          std::to_string(ListCount()) + ".");
}

const ComboBox::Item& ComboBox::item(int index) const {
  requireItem(index, 0);
  return items_[static_cast<std::size_t>(index)];
}

void ComboBox::setListIndex(int index) {
  requireItem(index, -1);
  if (index == listIndex_) return;
  listIndex_ = index;
  text_ = index < 0 ? std::string() : List(index);
  selStart_ = 0;
  selLength_ = 0;
  tell(Aspect::ListIndex);
  Click.raise();
}

void ComboBox::setText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  listIndex_ = -1;
  selStart_ = selLength_ = 0;
  tell(Aspect::ListIndex);
}

void ComboBox::Clear() {
  setItems({});
}

void ComboBox::AddItem(std::string text, std::int32_t itemData) {
  items_.push_back({std::move(text), itemData});
  tell(Aspect::Items);
}

void ComboBox::setItems(std::vector<Item> items) {
  items_ = std::move(items);
  text_.clear();
  listIndex_ = -1;
  selStart_ = selLength_ = 0;
  tell(Aspect::Items);
}

std::optional<std::string> ComboBox::propertyText(std::string_view property) const {
  if (basic::sameName(property, "Text")) return text_;
  if (basic::sameName(property, "ListIndex")) return std::to_string(listIndex_);
  if (basic::sameName(property, "ListCount")) return std::to_string(ListCount());
  if (basic::sameName(property, "ItemData"))
    return listIndex_ < 0 ? std::string() : std::to_string(ItemData(listIndex_));
  return Control::propertyText(property);
}

void ComboBox::typeText(std::string text) {
  text_ = std::move(text);
  listIndex_ = -1;
  tell(Aspect::ListIndex);
  Change.raise();
  const int found = typedItem();
  if (found < 0 || listIndex_ >= 0) return;
  listIndex_ = found;
  text_ = List(found);
  tell(Aspect::ListIndex);
  Click.raise();
}

int ComboBox::typedItem() const {
  const auto positionOf = [this](const auto& same) {
    const auto found = std::find_if(items_.begin(), items_.end(), same);
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
  };
  const int exact = positionOf([this](const Item& item) { return item.text == text_; });
  if (exact >= 0) return exact;
  const std::string typed = basic::lower(text_);
  return positionOf([&typed](const Item& item) { return basic::lower(item.text) == typed; });
}

void ComboBox::Select(int start, int count) {
  const int whole = static_cast<int>(basic::characters(text_).size());
  selStart_ = std::clamp(start, 0, whole);
  selLength_ = std::clamp(count, 0, whole - selStart_);
  tell(Aspect::TextSelection);
}

void ComboBox::selectByInitial(char32_t character) {
  const std::string initial = basic::lower(basic::encoded({&character, 1}));
  for (int step = 1; step <= ListCount(); ++step) {
    const int index = (listIndex_ + step) % ListCount();
    if (basic::lower(List(index)).starts_with(initial)) return setListIndex(index);
  }
}

void ComboBox::replace(int start, int count, std::u32string_view inserted) {
  std::u32string text = basic::characters(text_);
  text.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(count), inserted);
  selStart_ = start + static_cast<int>(inserted.size());
  selLength_ = 0;
  typeText(basic::encoded(text));
}

bool ComboBox::editKey(const Key& key) {
  const auto whole = static_cast<int>(basic::characterCount(text_));
  int start = selStart_;
  int count = selLength_;
  std::u32string inserted;
  if (key.code == KeyCode::Delete) {
    if (count == 0 && start < whole) count = 1;
  } else if (key.character == KeyAscii::Back) {
    if (count == 0 && start > 0) {
      --start;
      count = 1;
    }
  } else if (key.character >= KeyAscii::FirstPrintable) {
    inserted.push_back(static_cast<char32_t>(key.character));
  } else {
    return false;
  }
  if (!inserted.empty() || count > 0) replace(start, count, inserted);
  return true;
}

bool ComboBox::paste(std::u32string_view pasted, const KeyFilter& passes) {
  if (Style != ComboStyle::DropDown) return true;
  std::u32string taken;
  for (char32_t character : pasted)
    if (character >= KeyAscii::FirstPrintable && passes(character)) taken += character;
  if (!taken.empty() && form().isLoaded()) replace(selStart_, selLength_, taken);
  return true;
}

bool ComboBox::keyAction(const Key& key) {
  if ((key.shift & (Shift::Ctrl | Shift::Alt)) != 0) {
    if (key.code == 'A' && key.shift == Shift::Ctrl)
      Select(0, static_cast<int>(basic::characters(text_).size()));
    return key.code == 'A';
  }
  switch (key.code) {
    case KeyCode::Up:
      if (listIndex_ > 0) setListIndex(listIndex_ - 1);
      return true;
    case KeyCode::Down:
      if (listIndex_ + 1 < ListCount()) setListIndex(listIndex_ + 1);
      return true;
    case KeyCode::Home:
      Select(0, 0);
      return true;
    case KeyCode::End:
      Select(static_cast<int>(basic::characters(text_).size()), 0);
      return true;
    case KeyCode::Left:
      Select(selStart_ - 1, 0);
      return true;
    case KeyCode::Right:
      Select(selStart_ + selLength_ + 1, 0);
      return true;
    default:
      break;
  }
  if (Style == ComboStyle::DropDown) return editKey(key);
  if (key.character < KeyAscii::FirstPrintable) return false;
  selectByInitial(static_cast<char32_t>(key.character));
  return true;
}

}  // namespace payslate::ui
