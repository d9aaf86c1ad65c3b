// Text as the engine compares it: without regard to case.
#pragma once

#include <string_view>

namespace payslate::tsql {

/// Order of two texts without regard to case and to trailing blanks: negative, 0 or positive. Punctuation
/// comes before digits, digits before letters.
int compareText(std::string_view left, std::string_view right);

/// `%`, `_`, `[a-z]` and `[^…]`, without regard to case; blanks at the end of `text` may stay unmatched.
/// `escape` is a character that takes the next one as it stands; 0 for none.
bool matchesLike(std::string_view text, std::string_view pattern, char32_t escape);

std::string_view withoutTrailingBlanks(std::string_view text);

}  // namespace payslate::tsql
