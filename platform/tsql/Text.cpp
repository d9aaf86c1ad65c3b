// The collation and "like".
#include "platform/tsql/Text.h"

#include <algorithm>
#include <array>

#include "platform/basic/Unicode.h"

namespace payslate::tsql {

using basic::characters;
using basic::lowerCharacter;

namespace {

/// Sort weight of an already lowered character.
constexpr char32_t weight(char32_t c) {
  constexpr char32_t digitClass = 0x100;
  constexpr char32_t letterClass = 0x200;
  if (c >= 'a' && c <= 'z') return letterClass + c;
  if (c >= '0' && c <= '9') return digitClass + c;
  if (c >= 0x80U) return letterClass + c;
  return c;
}

constexpr char32_t firstNotAscii = 0x80;
constexpr auto asciiWeights = [] {
  std::array<char32_t, firstNotAscii> weights{};
  for (char32_t c = 0; c < firstNotAscii; ++c)
    weights[c] = weight(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
  return weights;
}();

/// Moves behind the ASCII characters at the start that compare equal; the order of the first that do not,
/// else 0.
int compareAscii(std::string_view& left, std::string_view& right) {
  std::size_t at = 0;
  for (const std::size_t both = std::min(left.size(), right.size()); at < both; ++at) {
    const auto a = static_cast<unsigned char>(left[at]);
    const auto b = static_cast<unsigned char>(right[at]);
    if (a >= firstNotAscii || b >= firstNotAscii) break;
    if (asciiWeights[a] != asciiWeights[b]) return asciiWeights[a] < asciiWeights[b] ? -1 : 1;
  }
  left.remove_prefix(at);
  right.remove_prefix(at);
  return 0;
}

constexpr char32_t lastCharacter = 0x10FFFF;

/// Does a text with it at the end compare by it? Upper-case letters do by another one's weight.
bool countsAsItself(char32_t c) {
  return c != ' ' && lowerCharacter(c) == c && (c < 0xD800U || c > 0xDFFFU);
}

/// Of the characters with a larger weight the one with the least; 0 for none.
char32_t successor(char32_t c) {
  c = lowerCharacter(c);
  if (c >= firstNotAscii) {  // Characters in the order of their weights.
    do ++c;
    while (c <= lastCharacter && !countsAsItself(c));
    return c <= lastCharacter ? c : 0;
  }
  char32_t next = firstNotAscii;
  for (char32_t other = 1; other < firstNotAscii; ++other) {
    if (countsAsItself(other) && weight(other) > weight(c) && weight(other) < weight(next)) next = other;
  }
  return next;
}

/// One "[…]" of a pattern: where it ends, and whether it takes `c`.
struct SetMatch {
  std::size_t end;
  bool matches;
};

class LikeMatcher {
 public:
  LikeMatcher(std::u32string text, std::u32string pattern, char32_t escape)
      : text_(std::move(text)), pattern_(std::move(pattern)), escape_(escape) {}

  // Backtracks to the last "%" only: what an earlier one could take, the later one can as well.
  [[nodiscard]] bool run() const {
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t starText = 0;
    std::size_t starPattern = std::u32string::npos;
    for (;;) {
      if (p == pattern_.size() && onlyBlanksFrom(t)) return true;
      if (p < pattern_.size() && pattern_[p] == U'%' && !isEscape(p)) {
        starPattern = ++p;
        starText = t;
        continue;
      }
      std::size_t next = p;
      if (t < text_.size() && p < pattern_.size() && takes(text_[t], next)) {
        ++t;
        p = next;
        continue;
      }
      if (starPattern == std::u32string::npos || starText >= text_.size()) return false;
      t = ++starText;
      p = starPattern;
    }
  }

 private:
  [[nodiscard]] bool isEscape(std::size_t p) const { return escape_ != 0 && pattern_[p] == escape_; }

  [[nodiscard]] bool onlyBlanksFrom(std::size_t t) const {
    return std::all_of(text_.begin() + static_cast<std::ptrdiff_t>(t), text_.end(),
                       [](char32_t c) { return c == U' '; });
  }

  // Moves `p` behind the pattern element.
  bool takes(char32_t c, std::size_t& p) const {
    if (isEscape(p)) {
      ++p;
      if (p >= pattern_.size()) return false;
      return pattern_[p++] == c;
    }
    if (pattern_[p] == U'_') {
      ++p;
      return true;
    }
    if (pattern_[p] == U'[') {
      const SetMatch set = matchSet(c, p);
      p = set.end;
      return set.matches;
    }
    return pattern_[p++] == c;
  }

  [[nodiscard]] SetMatch matchSet(char32_t c, std::size_t p) const {
    std::size_t i = p + 1;
    const bool excluded = i < pattern_.size() && pattern_[i] == U'^';
    if (excluded) ++i;
    bool found = false;
    for (std::size_t first = i; i < pattern_.size(); ++i) {
      if (pattern_[i] == U']' && i > first) return {i + 1, found != excluded};
      if (isEscape(i) && i + 1 < pattern_.size()) ++i;
      char32_t high = pattern_[i];
      const char32_t low = high;
      if (i + 2 < pattern_.size() && pattern_[i + 1] == U'-' && pattern_[i + 2] != U']') {
        high = pattern_[i + 2];
        i += 2;
      }
      found = found || (weight(c) >= weight(low) && weight(c) <= weight(high));
    }
    return {pattern_.size(), false};  // An unclosed set matches nothing.
  }

  std::u32string text_;
  std::u32string pattern_;
  char32_t escape_;
};

std::u32string lowered(std::string_view text) {
  std::u32string result = characters(text);
  std::transform(result.begin(), result.end(), result.begin(), lowerCharacter);
  return result;
}

}  // namespace

int compareText(std::string_view left, std::string_view right) {
  left = withoutTrailingBlanks(left);
  right = withoutTrailingBlanks(right);
  if (const int order = compareAscii(left, right); order != 0) return order;
  while (!left.empty() && !right.empty()) {
    const basic::FirstCharacter a = basic::firstCharacter(left);
    const basic::FirstCharacter b = basic::firstCharacter(right);
    if (a.character != b.character) {
      const char32_t first = weight(lowerCharacter(a.character));
      const char32_t second = weight(lowerCharacter(b.character));
      if (first != second) return first < second ? -1 : 1;
    }
    left.remove_prefix(a.bytes);
    right.remove_prefix(b.bytes);
  }
  return static_cast<int>(!left.empty()) - static_cast<int>(!right.empty());
}

std::optional<std::string> firstBehind(std::string_view prefix) {
  std::u32string text = characters(prefix);
  while (!text.empty()) {
    if (const char32_t next = successor(text.back()); next != 0) {
      text.back() = next;
      return basic::encoded(text);
    }
    text.pop_back();
  }
  return std::nullopt;
}

bool matchesLike(std::string_view text, std::string_view pattern, char32_t escape) {
  return LikeMatcher(lowered(text), lowered(pattern), lowerCharacter(escape)).run();
}

}  // namespace payslate::tsql
