// Text as the engine compares and cuts it: UTF-8, counted in characters, without regard to case.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace payslate::tsql {

/// The characters of a text; a byte that is no UTF-8 counts as one character.
std::u32string characters(std::string_view text);
std::string encoded(std::u32string_view characters);
std::size_t characterCount(std::string_view text);

char32_t lowerCharacter(char32_t c);
char32_t upperCharacter(char32_t c);

/// Order of two texts without regard to case and to trailing blanks: negative, 0 or positive. Punctuation
/// comes before digits, digits before letters.
int compareText(std::string_view left, std::string_view right);

/// `%`, `_`, `[a-z]` and `[^…]`, without regard to case; blanks at the end of `text` may stay unmatched.
/// `escape` is a character that takes the next one as it stands; 0 for none.
bool matchesLike(std::string_view text, std::string_view pattern, char32_t escape);

std::string_view withoutTrailingBlanks(std::string_view text);

}  // namespace payslate::tsql
