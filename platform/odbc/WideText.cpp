// Code points as one or two units of UTF-16.
#include "platform/odbc/WideText.h"

#include "platform/basic/Unicode.h"

namespace payslate::odbc {
namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t firstBeyond = 0x10000;
constexpr char32_t last = 0x10FFFF;
constexpr char32_t firstHigh = 0xD800;
constexpr char32_t firstLow = 0xDC00;
constexpr char32_t behindLow = 0xE000;
constexpr int lowBits = 10;
constexpr char32_t lowMask = 0x3FF;

bool isHigh(char32_t unit) {
  return unit >= firstHigh && unit < firstLow;
}

bool isLow(char32_t unit) {
  return unit >= firstLow && unit < behindLow;
}

}  // namespace

std::u16string toWide(std::string_view text) {
  std::u16string wide;
  wide.reserve(text.size());
  for (char32_t c : basic::characters(text)) {
    if (c > last || isHigh(c) || isLow(c)) c = replacement;
    if (c < firstBeyond) {
      wide += static_cast<char16_t>(c);
      continue;
    }
    c -= firstBeyond;
    wide += static_cast<char16_t>(firstHigh + (c >> lowBits));
    wide += static_cast<char16_t>(firstLow + (c & lowMask));
  }
  return wide;
}

std::string fromWide(std::u16string_view text) {
  std::u32string characters;
  characters.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char32_t unit = text[i];
    if (!isHigh(unit) && !isLow(unit)) {
      characters += unit;
    } else if (isHigh(unit) && i + 1 < text.size() && isLow(text[i + 1])) {
      const char32_t low = text[++i] - firstLow;
      characters += static_cast<char32_t>(firstBeyond + ((unit - firstHigh) << lowBits) + low);
    } else {
      characters += replacement;
    }
  }
  return basic::encoded(characters);
}

}  // namespace payslate::odbc
