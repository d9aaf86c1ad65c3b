// Case folding, the collation and "like".
#include "platform/tsql/Text.h"

#include <algorithm>

namespace payslate::tsql {

namespace {

constexpr char32_t invalidByteBase = 0xDC00;  // Stray bytes are kept as lone surrogates, to be written back.

struct Decoded {
  char32_t character;
  std::size_t bytes;
};

Decoded decode(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const auto follows = [&](std::size_t i) { return i < text.size() && (byte(i) & 0xC0U) == 0x80U; };
  const char32_t lead = byte(0);
  if (lead < 0x80U) return {lead, 1};
  if (lead >= 0xC2U && lead < 0xE0U && follows(1)) return {((lead & 0x1FU) << 6U) | (byte(1) & 0x3FU), 2};
  if (lead >= 0xE0U && lead < 0xF0U && follows(1) && follows(2)) {
    const char32_t c = ((lead & 0x0FU) << 12U) | ((byte(1) & 0x3FU) << 6U) | (byte(2) & 0x3FU);
    if (c >= 0x800U && (c < 0xD800U || c > 0xDFFFU)) return {c, 3};
  }
  if (lead >= 0xF0U && lead < 0xF5U && follows(1) && follows(2) && follows(3)) {
    const char32_t c =
        ((lead & 0x07U) << 18U) | ((byte(1) & 0x3FU) << 12U) | ((byte(2) & 0x3FU) << 6U) | (byte(3) & 0x3FU);
    if (c >= 0x10000U && c <= 0x10FFFFU) return {c, 4};
  }
  return {invalidByteBase + lead, 1};
}

void append(std::string& text, char32_t c) {
  const auto put = [&](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (c < 0x80U) {
    put(c);
  } else if (c < 0x800U) {
    put(0xC0U | (c >> 6U));
    put(0x80U | (c & 0x3FU));
  } else if (c >= invalidByteBase && c < invalidByteBase + 0x100U) {
    put(c - invalidByteBase);
  } else if (c < 0x10000U) {
    put(0xE0U | (c >> 12U));
    put(0x80U | ((c >> 6U) & 0x3FU));
    put(0x80U | (c & 0x3FU));
  } else {
    put(0xF0U | (c >> 18U));
    put(0x80U | ((c >> 12U) & 0x3FU));
    put(0x80U | ((c >> 6U) & 0x3FU));
    put(0x80U | (c & 0x3FU));
  }
}

/// Ranges whose upper-case letters stand `shift` before their lower-case ones.
struct CaseRange {
  char32_t first;
  char32_t last;
  char32_t shift;
};
constexpr CaseRange shiftedCases[] = {{'A', 'Z', 0x20},     {0xC0, 0xD6, 0x20},   {0xD8, 0xDE, 0x20},
                                      {0x391, 0x3A9, 0x20}, {0x410, 0x42F, 0x20}, {0x400, 0x40F, 0x50}};
/// Ranges where each upper-case letter is followed by its lower-case one, starting with an upper-case letter.
constexpr CaseRange pairedCases[] = {{0x100, 0x12F, 1}, {0x132, 0x137, 1},  {0x139, 0x148, 1},
                                     {0x14A, 0x177, 1}, {0x179, 0x17E, 1},  {0x460, 0x481, 1},
                                     {0x48A, 0x4BF, 1}, {0x1E00, 0x1EFF, 1}};

/// Sort weight of an already lowered character.
char32_t weight(char32_t c) {
  constexpr char32_t digitClass = 0x100;
  constexpr char32_t letterClass = 0x200;
  if (c >= 'a' && c <= 'z') return letterClass + c;
  if (c >= '0' && c <= '9') return digitClass + c;
  if (c >= 0x80U) return letterClass + c;
  return c;
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

std::u32string characters(std::string_view text) {
  std::u32string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const Decoded next = decode(text);
    result += next.character;
    text.remove_prefix(next.bytes);
  }
  return result;
}

std::string encoded(std::u32string_view characters) {
  std::string text;
  text.reserve(characters.size());
  for (const char32_t c : characters) append(text, c);
  return text;
}

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  while (!text.empty()) {
    text.remove_prefix(decode(text).bytes);
    ++count;
  }
  return count;
}

char32_t lowerCharacter(char32_t c) {
  for (const CaseRange& range : shiftedCases) {
    if (c >= range.first && c <= range.last) return c + range.shift;
  }
  if (c < 0x100U) return c;
  for (const CaseRange& range : pairedCases) {
    if (c >= range.first && c <= range.last && (c - range.first) % 2 == 0) return c + 1;
  }
  return c;
}

char32_t upperCharacter(char32_t c) {
  for (const CaseRange& range : shiftedCases) {
    if (c >= range.first + range.shift && c <= range.last + range.shift) return c - range.shift;
  }
  if (c < 0x100U) return c;
  for (const CaseRange& range : pairedCases) {
    if (c >= range.first && c <= range.last && (c - range.first) % 2 == 1) return c - 1;
  }
  return c;
}

std::string_view withoutTrailingBlanks(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

int compareText(std::string_view left, std::string_view right) {
  left = withoutTrailingBlanks(left);
  right = withoutTrailingBlanks(right);
  while (!left.empty() && !right.empty()) {
    const Decoded a = decode(left);
    const Decoded b = decode(right);
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

bool matchesLike(std::string_view text, std::string_view pattern, char32_t escape) {
  return LikeMatcher(lowered(text), lowered(pattern), lowerCharacter(escape)).run();
}

}  // namespace payslate::tsql
