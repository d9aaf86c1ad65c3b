// Texts are UTF-8; lengths, carets and key characters count characters (code points).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace payslate::basic {

struct FirstCharacter {
  char32_t character;
  std::size_t bytes;
};

/// The first character of a text that is not empty. A byte that is no UTF-8 is a character of its own, which
/// `encoded` writes back as it was.
FirstCharacter firstCharacter(std::string_view text);

std::u32string characters(std::string_view text);
/// Half a character, or a number beyond all characters, is written as U+FFFD.
std::string encoded(std::u32string_view characters);
std::size_t characterCount(std::string_view text);
/// How many bytes the first `count` characters take; all of them where there are fewer.
std::size_t bytesOf(std::string_view text, std::size_t count);

/// Latin, Greek and Cyrillic letters; any other character stays.
char32_t lowerCharacter(char32_t c);
char32_t upperCharacter(char32_t c);

}  // namespace payslate::basic
