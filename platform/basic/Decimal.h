// Exact decimal numbers of up to 38 digits, as database columns of type decimal hold them.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace payslate::basic {

/// Sign, digits and scale. Value semantics; equality and order are by number (1.50 == 1.5), while text()
/// keeps the scale (1.50). Throws ValueError(Overflow) when a result needs more than 38 digits.
class Decimal {
 public:
  static constexpr int maxDigits = 38;

  Decimal() = default;  ///< 0 with scale 0
  static Decimal fromInteger(std::int64_t number);
  /// `[+-]digits[.digits]`, blanks around allowed; otherwise throws ValueError(TypeMismatch) naming the text.
  static Decimal parse(std::string_view text);
  /// The nearest decimal with `scale` decimals, made from the 15-significant-digit form, halves away from
  /// zero.
  static Decimal fromDouble(double number, int scale);

  [[nodiscard]] int scale() const { return scale_; }
  [[nodiscard]] int digits() const;  ///< Significant digits, at least 1.
  [[nodiscard]] bool isNegative() const { return negative_; }
  [[nodiscard]] bool isZero() const;
  [[nodiscard]] std::string text() const;  ///< With exactly scale() decimals: "1500.00", "-0.5", "3".
  [[nodiscard]] double toDouble() const;
  [[nodiscard]] std::int64_t toInteger()
      const;  ///< Truncates towards zero; throws ValueError(Overflow) outside 64 bits.

  [[nodiscard]] Decimal rounded(int scale) const;    ///< Halves away from zero; also widens.
  [[nodiscard]] Decimal truncated(int scale) const;  ///< Drops further decimals; also widens.
  [[nodiscard]] Decimal negated() const;

  friend Decimal operator+(const Decimal& left, const Decimal& right);  ///< scale: the larger of both
  friend Decimal operator-(const Decimal& left, const Decimal& right);
  friend Decimal operator*(const Decimal& left, const Decimal& right);  ///< scale: the sum of both
  /// left / right cut to `scale` decimals (towards zero). Division by zero throws std::domain_error.
  static Decimal divide(const Decimal& left, const Decimal& right, int scale);
  friend std::strong_ordering operator<=>(const Decimal& left, const Decimal& right);
  friend bool operator==(const Decimal& left, const Decimal& right) { return (left <=> right) == 0; }

 private:
  // Little-endian limbs in base 10^9: 5 limbs hold 45 digits, checked down to 38.
  std::array<std::uint32_t, 5> limbs_{};
  int scale_ = 0;
  bool negative_ = false;
};

}  // namespace payslate::basic
