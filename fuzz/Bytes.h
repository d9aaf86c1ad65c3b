// The fuzzer's bytes, read as numbers and texts.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace payslate::fuzz {

class Bytes {
 public:
  Bytes() = default;
  explicit Bytes(std::string_view bytes) : rest_(bytes) {}

  [[nodiscard]] bool atEnd() const { return rest_.empty(); }
  /// 0 behind the end, likewise below.
  std::uint8_t byte() { return number<std::uint8_t>(); }
  /// Of any bits; missing ones are 0.
  template <typename Number>
  Number number() {
    std::array<char, sizeof(Number)> bits{};
    const std::string_view given = taken(bits.size());
    std::copy(given.begin(), given.end(), bits.begin());
    return std::bit_cast<Number>(bits);
  }
  /// A byte says how long it is.
  std::string_view text() { return taken(byte()); }
  std::string_view taken(std::size_t count) {
    const std::string_view given = rest_.substr(0, count);
    rest_.remove_prefix(given.size());
    return given;
  }

 private:
  std::string_view rest_;
};

}  // namespace payslate::fuzz
