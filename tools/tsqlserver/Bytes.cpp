// Numbers and texts of the wire.
#include "tools/tsqlserver/Bytes.h"

#include <array>

#include "platform/basic/Unicode.h"

namespace payslate::tsqlserver {

namespace {

constexpr unsigned bitsOfByte = 8;
constexpr char32_t replacement = 0xFFFD;
constexpr char32_t firstBeyond = 0x10000;  // From here on a character takes two units.
constexpr char32_t highSurrogate = 0xD800;
constexpr char32_t lowSurrogate = 0xDC00;
constexpr char32_t endOfSurrogates = 0xE000;
constexpr unsigned surrogateBits = 10;
constexpr char32_t surrogateMask = 0x3FF;

// Where Windows Latin 1 differs from the first 256 characters: 0x80 to 0x9F.
constexpr unsigned char firstOwn = 0x80;
constexpr std::array<char16_t, 32> ownLatin = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

void Writer::little(std::uint64_t number, int size) {
  for (int i = 0; i < size; ++i, number >>= bitsOfByte) bytes_ += static_cast<char>(number & 0xFFU);
}

void Writer::big16(std::uint64_t number) {
  u8(number >> bitsOfByte);
  u8(number);
}

void Writer::big32(std::uint64_t number) {
  big16(number >> 2 * bitsOfByte);
  big16(number);
}

void Writer::shortText(std::string_view text) {
  const Bytes units = toUtf16(text);
  u8(units.size() / 2);
  raw(units);
}

void Writer::longText(std::string_view text) {
  const Bytes units = toUtf16(text);
  u16(units.size() / 2);
  raw(units);
}

std::uint64_t Reader::little(std::size_t size) {
  const std::string_view octets = raw(size);
  std::uint64_t number = 0;
  for (std::size_t i = size; i-- > 0;)
    number = (number << bitsOfByte) | static_cast<unsigned char>(octets[i]);
  return number;
}

std::string_view Reader::raw(std::size_t size) {
  if (size > left()) throw ProtocolError("A message is shorter than it says.");
  const std::string_view octets = bytes_.substr(at_, size);
  at_ += size;
  return octets;
}

std::string Reader::text(std::size_t units) {
  return fromUtf16(raw(units * 2));
}

Bytes toUtf16(std::string_view text) {
  Writer units;
  for (char32_t character : basic::characters(text)) {
    if (character < firstBeyond) {
      units.u16(character);
      continue;
    }
    character -= firstBeyond;
    units.u16(highSurrogate | (character >> surrogateBits));
    units.u16(lowSurrogate | (character & surrogateMask));
  }
  return units.take();
}

std::string fromUtf16(std::string_view octets) {
  std::u32string characters;
  Reader units(octets);
  char32_t high = 0;
  while (units.left() >= 2) {
    const char32_t unit = units.u16();
    const bool isLow = unit >= lowSurrogate && unit < endOfSurrogates;
    if (isLow && high != 0) {
      characters.back() = firstBeyond + ((high - highSurrogate) << surrogateBits) + (unit - lowSurrogate);
      high = 0;
      continue;
    }
    high = unit >= highSurrogate && unit < lowSurrogate ? unit : 0;
    characters += high != 0 || isLow ? replacement : unit;
  }
  return basic::encoded(characters);
}

std::string fromLatin(std::string_view octets) {
  std::u32string characters;
  for (const char octet : octets) {
    const auto code = static_cast<unsigned char>(octet);
    const bool own = code >= firstOwn && code < firstOwn + ownLatin.size();
    characters += own ? ownLatin[code - firstOwn] : char32_t{code};
  }
  return basic::encoded(characters);
}

}  // namespace payslate::tsqlserver
