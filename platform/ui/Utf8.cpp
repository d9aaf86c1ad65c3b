// UTF-8 to code points and back.
#include "platform/ui/Utf8.h"

#include <cstdint>

namespace payslate::ui {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t continuationBits = 6;

// Length announced by a leading byte, and the bits it carries; 0 for a byte that cannot lead.
std::size_t sequenceLength(std::uint8_t lead, char32_t& bits) {
  if (lead < 0x80) {
    bits = lead;
    return 1;
  }
  if (lead >= 0xC2 && lead < 0xE0) {
    bits = lead & 0x1FU;
    return 2;
  }
  if (lead >= 0xE0 && lead < 0xF0) {
    bits = lead & 0x0FU;
    return 3;
  }
  if (lead >= 0xF0 && lead < 0xF5) {
    bits = lead & 0x07U;
    return 4;
  }
  return 0;
}

}  // namespace

std::u32string utf32(std::string_view text) {
  std::u32string points;
  points.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    char32_t point = 0;
    const std::size_t length = sequenceLength(static_cast<std::uint8_t>(text[at]), point);
    bool whole = length > 0 && at + length <= text.size();
    for (std::size_t i = 1; whole && i < length; ++i) {
      const auto byte = static_cast<std::uint8_t>(text[at + i]);
      whole = (byte & 0xC0U) == 0x80U;
      point = (point << continuationBits) | (byte & 0x3FU);
    }
    points.push_back(whole ? point : replacement);
    at += whole ? length : 1;
  }
  return points;
}

std::string utf8(std::u32string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  const auto tail = [&bytes](char32_t point, unsigned shift) {
    bytes.push_back(static_cast<char>(0x80U | ((point >> shift) & 0x3FU)));
  };
  for (const char32_t point : text) {
    if (point < 0x80) {
      bytes.push_back(static_cast<char>(point));
    } else if (point < 0x800) {
      bytes.push_back(static_cast<char>(0xC0U | (point >> 6U)));
      tail(point, 0);
    } else if (point < 0x10000) {
      bytes.push_back(static_cast<char>(0xE0U | (point >> 12U)));
      tail(point, 6);
      tail(point, 0);
    } else {
      bytes.push_back(static_cast<char>(0xF0U | (point >> 18U)));
      tail(point, 12);
      tail(point, 6);
      tail(point, 0);
    }
  }
  return bytes;
}

}  // namespace payslate::ui
