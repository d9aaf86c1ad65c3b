// Editing a line of text.
#include "platform/ui/TextBox.h"

#include "platform/basic/Numbers.h"
#include "platform/basic/Unicode.h"
#include "platform/ui/Form.h"

namespace payslate::ui {

namespace {

int length(const std::string& text) {
  return static_cast<int>(basic::characterCount(text));
}

// Cells and lines are copied with the blanks and line ends around them.
std::u32string numberIn(std::u32string_view pasted) {
  constexpr std::u32string_view around = U" \t\r\n\u00A0";
  const std::size_t first = std::min(pasted.find_first_not_of(around), pasted.size());
  std::u32string number(pasted.substr(first, pasted.find_last_not_of(around) - first + 1));
  const auto count = [&number](char32_t mark) { return std::count(number.begin(), number.end(), mark); };
  if (count(KeyAscii::Point) == 0 && count(KeyAscii::Comma) == 1)
    number[number.find(KeyAscii::Comma)] = KeyAscii::Point;
  return number;
}

}  // namespace

TextBox::TextBox(Form& form, std::string name, Alignment align)
    : Control(form, std::move(name)),
      Text({},
           [this] {
             selection_ = {};
             mark_ = {};
             tell(Aspect::Text);
             Change.raise();
           }),
      Locked(false, [this] { tell(Aspect::Enabled); }),
      alignment(align) {}

std::string TextBox::SelText() const {
  const std::size_t from = byteOf(SelStart());
  return Text().substr(from, byteOf(SelStart() + SelLength()) - from);
}

void TextBox::Select(int start, int count) {
  const int whole = length(Text());
  selection_.anchor = std::clamp(start, 0, whole);
  selection_.caret = selection_.anchor + std::clamp(count, 0, whole - selection_.anchor);
  tell(Aspect::TextSelection);
}

void TextBox::SelectAll() {
  Select(0, length(Text()));
}

std::optional<std::string> TextBox::propertyText(std::string_view property) const {
  if (basic::sameName(property, "Text")) return Text();
  if (basic::sameName(property, "SelStart")) return std::to_string(SelStart());
  if (basic::sameName(property, "SelLength")) return std::to_string(SelLength());
  if (basic::sameName(property, "SelText")) return SelText();
  if (basic::sameName(property, "Locked")) return flagText(Locked());
  if (basic::sameName(property, "MaxLength")) return std::to_string(MaxLength);
  return Control::propertyText(property);
}

std::size_t TextBox::room() const {
  if (MaxLength <= 0) return std::u32string_view::npos;
  return static_cast<std::size_t>(std::max(0, MaxLength - length(Text()) + SelLength()));
}

std::size_t TextBox::byteOf(int character) const {
  if (character == mark_.characters) return mark_.bytes;
  std::string_view rest = Text();
  for (; character > 0 && !rest.empty(); --character) rest.remove_prefix(basic::firstCharacter(rest).bytes);
  return Text().size() - rest.size();
}

// In place, and nobody is told: a long text is pasted character by character.
void TextBox::put(std::u32string_view typed) {
  const std::size_t from = byteOf(SelStart());
  const std::size_t to = byteOf(SelStart() + SelLength());
  const std::string bytes = basic::encoded(typed);
  mark_ = {SelStart() + static_cast<int>(typed.size()), from + bytes.size()};
  Text.stored().replace(from, to - from, bytes);
  selection_ = {mark_.characters, mark_.characters};
}

void TextBox::announce() {
  tell(Aspect::Text);
  if (form().isLoaded()) Change.raise();
}

void TextBox::replaceSelection(std::u32string_view typed) {
  if (Locked()) return;
  typed = typed.substr(0, room());
  if (typed.empty() && SelLength() == 0) return;
  put(typed);
  announce();
}

bool TextBox::paste(std::u32string_view pasted, const KeyFilter& passes) {
  if (Locked()) return true;
  if (numeric) return pasteNumber(pasted, passes);
  pasteText(pasted, passes);
  return true;
}

void TextBox::pasteText(std::u32string_view pasted, const KeyFilter& passes) {
  std::size_t left = room();
  bool taken = false;
  try {
    for (char32_t character : pasted) {
      if (character < KeyAscii::FirstPrintable) continue;  // Line ends are no Enter keys.
      if (left-- == 0) break;
      if (!passes(character)) continue;
      put({&character, 1});
      taken = true;
    }
  } catch (...) {
    if (taken) announce();
    throw;
  }
  if (taken) announce();
}

// Tried on the box itself, since filters look at it.
bool TextBox::pasteNumber(std::u32string_view pasted, const KeyFilter& passes) {
  const std::u32string number = numberIn(pasted);
  if (number.empty()) return true;
  const auto restore = [this, text = Text(), selection = selection_] {
    Text.stored() = text;
    selection_ = selection;
    mark_ = {};
    tell(Aspect::Text);
  };
  const auto takes = [&](char32_t character) {
    if (character < KeyAscii::FirstPrintable || !passes(character)) return false;
    put({&character, 1});
    return true;
  };
  bool whole = number.size() <= room();
  try {
    whole = whole && std::all_of(number.begin(), number.end(), takes);
  } catch (...) {
    restore();
    throw;
  }
  if (whole)
    announce();
  else
    restore();
  return whole;
}

void TextBox::moveCaret(int to, bool selecting) {
  selection_.caret = std::clamp(to, 0, length(Text()));
  if (!selecting) selection_.anchor = selection_.caret;
  tell(Aspect::TextSelection);
}

int TextBox::typedCharacter(int character) const {
  return numeric && character == KeyAscii::Comma ? KeyAscii::Point : character;
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
      moveCaret(selection_.caret - 1, selecting);
      return true;
    case KeyCode::Right:
      moveCaret(selection_.caret + 1, selecting);
      return true;
    default:
      break;
  }
  if (deletes) {
    const int step = key.code == KeyCode::Delete ? 1 : -1;
    if (SelLength() == 0) selection_.caret = std::clamp(selection_.caret + step, 0, length(Text()));
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
