// UTF-8, characters and letter case.
#include "platform/basic/Unicode.h"

namespace payslate::basic {

namespace {

constexpr char32_t invalidByteBase = 0xDC00;  // Stray bytes are kept as lone surrogates, to be written back.

bool isStrayByte(char32_t c) {
  return c >= invalidByteBase + 0x80U && c <= invalidByteBase + 0xFFU;
}

void append(std::string& text, char32_t c) {
  constexpr char32_t replacement = 0xFFFD;
  // Of what no text can hold, a quote or a zero in disguise must not come out as one.
  if (c > 0x10FFFFU || (c >= 0xD800U && c <= 0xDFFFU && !isStrayByte(c))) c = replacement;
  const auto put = [&](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (c < 0x80U) {
    put(c);
  } else if (c < 0x800U) {
    put(0xC0U | (c >> 6U));
    put(0x80U | (c & 0x3FU));
  } else if (isStrayByte(c)) {
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

}  // namespace

FirstCharacter firstCharacter(std::string_view text) {
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

namespace {

constexpr unsigned firstNotAscii = 0x80;

// Most characters are ASCII.
std::size_t bytesAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]) < firstNotAscii ? 1 : firstCharacter(text.substr(at)).bytes;
}

}  // namespace

std::u32string characters(std::string_view text) {
  std::u32string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const FirstCharacter next = firstCharacter(text);
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
  unsigned bits = 0;
  for (const char c : text) bits |= static_cast<unsigned char>(c);
  if (bits < firstNotAscii) return text.size();
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) at += bytesAt(text, at);
  return count;
}

std::size_t bytesOf(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  for (; at < text.size() && count > 0; --count) at += bytesAt(text, at);
  return at;
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

}  // namespace payslate::basic
