// Selecting combo items and filtering number keys.
#include "platform/common/clsCommonGen.h"

#include <algorithm>

#include "platform/basic/Unicode.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/TextBox.h"

namespace payslate::common {

namespace {

bool isDigit(char32_t character) {
  return character >= U'0' && character <= U'9';
}

bool isNumberUpTo(std::u32string_view text, int integerDigits, int decimals) {
  const std::size_t point = std::min(text.find(U'.'), text.size());
  const std::u32string_view whole = text.substr(0, point);
  const std::u32string_view fraction = point < text.size() ? text.substr(point + 1) : std::u32string_view();
  return std::all_of(whole.begin(), whole.end(), isDigit) &&
         std::all_of(fraction.begin(), fraction.end(), isDigit) &&
         whole.size() <= static_cast<std::size_t>(integerDigits) &&
         fraction.size() <= static_cast<std::size_t>(decimals);
}

}  // namespace

void clsCommonGen::selectcomboitembyvalue(ui::ComboBox& combo, std::int32_t value) {
  const auto& items = combo.items();
  const auto same = [value](const ui::ComboBox::Item& item) { return item.data == value; };
  const auto found = std::find_if(items.begin(), items.end(), same);
  if (found != items.end()) combo.setListIndex(static_cast<int>(found - items.begin()));
}

void clsCommonGen::TextValidateNum(const ui::TextBox& box, int& keyAscii, int integerDigits, int decimals) {
  if (keyAscii < ui::KeyAscii::FirstPrintable) return;
  std::u32string text = basic::characters(box.Text());
  const auto typed = static_cast<char32_t>(keyAscii);
  text.replace(static_cast<std::size_t>(box.SelStart()), static_cast<std::size_t>(box.SelLength()), 1, typed);
  if (!isNumberUpTo(text, integerDigits, decimals)) keyAscii = ui::KeyAscii::None;
}

}  // namespace payslate::common
