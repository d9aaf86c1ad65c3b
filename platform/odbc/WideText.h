// Text between UTF-8, as the program holds it, and UTF-16, as drivers take it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace payslate::odbc {

/// What is no UTF-8 becomes the replacement character.
std::u16string toWide(std::string_view text);
/// Half a surrogate pair becomes the replacement character.
std::string fromWide(std::u16string_view text);

/// The text that a driver left in a buffer of bytes or of UTF-16. It may tell the length that a longer one
/// would have needed.
template <typename Unit, std::size_t room>
std::string textIn(const std::array<Unit, room>& buffer, std::int16_t told) {
  const auto end = buffer.begin() + std::clamp<std::ptrdiff_t>(told, 0, room - 1);
  if constexpr (sizeof(Unit) == 1)
    return std::string(buffer.begin(), end);
  else
    return fromWide(std::u16string(buffer.begin(), end));
}

}  // namespace payslate::odbc
