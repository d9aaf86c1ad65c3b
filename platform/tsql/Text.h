// Text as the engine compares it: without regard to case.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace payslate::tsql {

/// Order of two texts without regard to case and to trailing blanks: negative, 0 or positive. Punctuation
/// comes before digits, digits before letters.
int compareText(std::string_view left, std::string_view right);

/// `%`, `_`, `[a-z]` and `[^…]`, without regard to case; blanks at the end of `text` may stay unmatched.
/// `escape` is a character that takes the next one as it stands; 0 for none.
bool matchesLike(std::string_view text, std::string_view pattern, char32_t escape);

/// A text behind all that begin with `prefix`, and as little behind them as can be said without a stray byte
/// or a last blank, which would not count; none where some of them are the last of all texts.
std::optional<std::string> firstBehind(std::string_view prefix);

inline std::string_view withoutTrailingBlanks(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

}  // namespace payslate::tsql
