// Editing a line of text.
#include "platform/ui/TextBox.h"

#include <algorithm>

#include "platform/basic/Numbers.h"
#include "platform/basic/Unicode.h"

namespace payslate::ui {

namespace {
int length(const std::string& text) {
  return static_cast<int>(basic::characters(text).size());
}
}  // namespace

TextBox::TextBox(Form& form, std::string name, Alignment align)
    : Control(form, std::move(name)),
      Text({},
           [this] {
             selStart_ = selLength_ = anchor_ = caret_ = 0;
             tell(Aspect::Text);
             Change.raise();
           }),
      Locked(false, [this] { tell(Aspect::Enabled); }),
      alignment(align) {}

std::string TextBox::SelText() const {
  return basic::encoded(basic::characters(Text()).substr(static_cast<std::size_t>(selStart_),
                                                         static_cast<std::size_t>(selLength_)));
}

void TextBox::Select(int start, int count) {
  const int whole = length(Text());
  selStart_ = anchor_ = std::clamp(start, 0, whole);
  selLength_ = std::clamp(count, 0, whole - selStart_);
  caret_ = selStart_ + selLength_;
  tell(Aspect::TextSelection);
}

void TextBox::SelectAll() {
  Select(0, length(Text()));
}

std::optional<std::string> TextBox::propertyText(std::string_view property) const {
  if (basic::sameName(property, "Text")) return Text();
  if (basic::sameName(property, "SelStart")) return std::to_string(selStart_);
  if (basic::sameName(property, "SelLength")) return std::to_string(selLength_);
  if (basic::sameName(property, "SelText")) return SelText();
  if (basic::sameName(property, "Locked")) return flagText(Locked());
  if (basic::sameName(property, "MaxLength")) return std::to_string(MaxLength);
  return Control::propertyText(property);
}

void TextBox::edited(std::u32string text, int caret) {
  Text.store(basic::encoded(text));
  selStart_ = anchor_ = caret_ = caret;
  selLength_ = 0;
  tell(Aspect::Text);
  Change.raise();
}

void TextBox::replaceSelection(std::u32string_view typed) {
  if (Locked()) return;
  std::u32string text = basic::characters(Text());
  std::u32string inserted(typed);
  if (MaxLength > 0) {
    const auto room = std::max(0, MaxLength - static_cast<int>(text.size()) + selLength_);
    inserted.resize(std::min(inserted.size(), static_cast<std::size_t>(room)));
  }
  if (inserted.empty() && selLength_ == 0) return;
  text.replace(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_), inserted);
  edited(std::move(text), selStart_ + static_cast<int>(inserted.size()));
}

void TextBox::moveCaret(int to, bool selecting) {
  caret_ = std::clamp(to, 0, length(Text()));
  if (!selecting) anchor_ = caret_;
  selStart_ = std::min(anchor_, caret_);
  selLength_ = std::abs(caret_ - anchor_);
  tell(Aspect::TextSelection);
}

bool TextBox::keyAction(const Key& key) {
  const bool selecting = (key.shift & Shift::ShiftKey) != 0;
  const bool commanding = (key.shift & (Shift::Ctrl | Shift::Alt)) != 0;
  const bool deletes = key.code == KeyCode::Delete || key.character == KeyAscii::Back;
  if (deletes && Locked()) return true;
  switch (key.code) {
    case KeyCode::Home:
      moveCaret(0, selecting);
      return true;
    case KeyCode::End:
      moveCaret(length(Text()), selecting);
      return true;
    case KeyCode::Left:
      moveCaret(caret_ - 1, selecting);
      return true;
    case KeyCode::Right:
      moveCaret(caret_ + 1, selecting);
      return true;
    case KeyCode::Delete:
      if (selLength_ == 0) {
        if (selStart_ >= length(Text())) return true;
        selLength_ = 1;
      }
      replaceSelection({});
      return true;
    default:
      break;
  }
  if (key.character == KeyAscii::Back) {
    if (selLength_ == 0) {
      if (selStart_ == 0) return true;
      --selStart_;
      selLength_ = 1;
    }
    replaceSelection({});
    return true;
  }
  if (key.code == 'A' && key.shift == Shift::Ctrl) {
    SelectAll();
    return true;
  }
  if (commanding || key.character < KeyAscii::FirstPrintable) return false;
  const char32_t typed = static_cast<char32_t>(key.character);
  replaceSelection({&typed, 1});
  return true;
}

}  // namespace payslate::ui
