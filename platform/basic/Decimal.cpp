// Arithmetic over base 10^9 limbs.
#include "platform/basic/Decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <stdexcept>

#include "platform/basic/Error.h"

namespace payslate::basic {
namespace {

constexpr std::uint64_t limbBase = 1'000'000'000;
constexpr int digitsPerLimb = 9;
constexpr int doubleDigits = 15;

[[noreturn]] void overflow(const std::string& what) {
  throw ValueError(ErrorKind::Overflow, what);
}

/// A magnitude wide enough for every intermediate: 38 digits shifted by two scales of 38, and one limb to
/// spare.
struct Wide {
  std::array<std::uint32_t, 14> limbs{};
  std::size_t size = 0;  // limbs in use, the last one not 0

  void trim() {
    while (size > 0 && limbs[size - 1] == 0) --size;
  }
  [[nodiscard]] bool isZero() const { return size == 0; }
};

template <std::size_t N>
Wide widened(const std::array<std::uint32_t, N>& limbs) {
  Wide wide;
  std::copy(limbs.begin(), limbs.end(), wide.limbs.begin());
  wide.size = N;
  wide.trim();
  return wide;
}

std::strong_ordering compare(const Wide& a, const Wide& b) {
  if (a.size != b.size) return a.size <=> b.size;
  for (std::size_t i = a.size; i-- > 0;)
    if (a.limbs[i] != b.limbs[i]) return a.limbs[i] <=> b.limbs[i];
  return std::strong_ordering::equal;
}

/// a * factor + carry, factor and carry below the base.
Wide scaledBy(const Wide& a, std::uint64_t factor, std::uint64_t carry = 0) {
  Wide result;
  for (std::size_t i = 0; i < a.size; ++i) {
    carry += a.limbs[i] * factor;
    result.limbs[i] = static_cast<std::uint32_t>(carry % limbBase);
    carry /= limbBase;
  }
  result.size = a.size;
  if (carry != 0) result.limbs[result.size++] = static_cast<std::uint32_t>(carry);
  result.trim();
  return result;
}

std::uint64_t smallPower(int exponent) {
  std::uint64_t power = 1;
  while (exponent-- > 0) power *= 10;
  return power;
}

Wide timesPowerOfTen(const Wide& a, int exponent) {
  Wide result = scaledBy(a, smallPower(exponent % digitsPerLimb));
  const auto shift = static_cast<std::size_t>(exponent / digitsPerLimb);
  if (result.isZero() || shift == 0) return result;
  for (std::size_t i = result.size; i-- > 0;) result.limbs[i + shift] = result.limbs[i];
  std::fill_n(result.limbs.begin(), shift, 0U);
  result.size += shift;
  return result;
}

Wide sum(const Wide& a, const Wide& b) {
  Wide result;
  std::uint64_t carry = 0;
  result.size = std::max(a.size, b.size);
  for (std::size_t i = 0; i < result.size; ++i) {
    carry += std::uint64_t{a.limbs[i]} + b.limbs[i];
    result.limbs[i] = static_cast<std::uint32_t>(carry % limbBase);
    carry /= limbBase;
  }
  if (carry != 0) result.limbs[result.size++] = static_cast<std::uint32_t>(carry);
  return result;
}

/// a - b where a >= b.
Wide difference(const Wide& a, const Wide& b) {
  Wide result;
  std::uint64_t borrow = 0;
  result.size = a.size;
  for (std::size_t i = 0; i < a.size; ++i) {
    const std::uint64_t limb = limbBase + a.limbs[i] - b.limbs[i] - borrow;
    result.limbs[i] = static_cast<std::uint32_t>(limb % limbBase);
    borrow = limb < limbBase ? 1 : 0;
  }
  result.trim();
  return result;
}

Wide product(const Wide& a, const Wide& b) {
  Wide result;
  for (std::size_t i = 0; i < a.size; ++i) {
    std::uint64_t carry = 0;
    for (std::size_t j = 0; j < b.size || carry != 0; ++j) {
      carry += result.limbs[i + j] + std::uint64_t{a.limbs[i]} * b.limbs[j];
      result.limbs[i + j] = static_cast<std::uint32_t>(carry % limbBase);
      carry /= limbBase;
    }
  }
  result.size = result.limbs.size();
  result.trim();
  return result;
}

/// floor(a / b), b not 0: long division, one limb of the quotient after the other.
Wide quotient(const Wide& a, const Wide& b) {
  Wide result;
  Wide rest;
  result.size = a.size;
  for (std::size_t i = a.size; i-- > 0;) {
    rest = timesPowerOfTen(rest, digitsPerLimb);
    rest.limbs[0] = a.limbs[i];
    rest.size = std::max<std::size_t>(rest.size, 1);
    rest.trim();
    // The largest limb whose product with b still fits, bracketed by the leading limbs of both.
    std::uint64_t low = 0;
    std::uint64_t high = limbBase - 1;
    const std::uint64_t lead = b.limbs[b.size - 1];
    const std::uint64_t restLead =
        (b.size < rest.limbs.size() ? rest.limbs[b.size] * limbBase : 0) + rest.limbs[b.size - 1];
    low = restLead / (lead + 1);
    high = std::min(high, restLead / lead);
    while (low < high) {
      const std::uint64_t middle = low + (high - low + 1) / 2;
      if (compare(scaledBy(b, middle), rest) <= 0)
        low = middle;
      else
        high = middle - 1;
    }
    result.limbs[i] = static_cast<std::uint32_t>(low);
    rest = difference(rest, scaledBy(b, low));
  }
  result.trim();
  return result;
}

Wide powerOfTen(int exponent) {
  Wide one;
  one.limbs[0] = 1;
  one.size = 1;
  return timesPowerOfTen(one, exponent);
}

std::string digitsOf(const Wide& a) {
  if (a.isZero()) return "0";
  std::string text = std::to_string(a.limbs[a.size - 1]);
  for (std::size_t i = a.size - 1; i-- > 0;) {
    const std::string limb = std::to_string(a.limbs[i]);
    text += std::string(digitsPerLimb - limb.size(), '0') + limb;
  }
  return text;
}

template <std::size_t N>
void narrow(const Wide& wide, int scale, std::array<std::uint32_t, N>& limbs) {
  static const Wide limit = powerOfTen(Decimal::maxDigits);
  if (scale < 0 || scale > Decimal::maxDigits || compare(wide, limit) >= 0)
    overflow("The number needs more than " + std::to_string(Decimal::maxDigits) + " digits");
  std::copy_n(wide.limbs.begin(), N, limbs.begin());
}

[[noreturn]] void noNumber(std::string_view text) {
  throw ValueError(ErrorKind::TypeMismatch, "\"" + std::string(text) + "\" is not a decimal number");
}

constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

Decimal Decimal::fromInteger(std::int64_t number) {
  return parse(std::to_string(number));
}

Decimal Decimal::parse(std::string_view text) {
  std::string_view rest = text;
  while (!rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
  while (!rest.empty() && rest.back() == ' ') rest.remove_suffix(1);
  Decimal result;
  if (!rest.empty() && (rest.front() == '-' || rest.front() == '+')) {
    result.negative_ = rest.front() == '-';
    rest.remove_prefix(1);
  }
  Wide digits;
  bool any = false;
  bool behindPeriod = false;
  for (const char c : rest) {
    if (c == '.' && !behindPeriod) {
      behindPeriod = true;
    } else if (isDigit(c)) {
      any = true;
      if (digits.size > result.limbs_.size())
        overflow("\"" + std::string(text) + "\" needs more than " + std::to_string(maxDigits) + " digits");
      digits = scaledBy(digits, 10, static_cast<std::uint64_t>(c - '0'));
      if (behindPeriod) ++result.scale_;
    } else {
      noNumber(text);
    }
  }
  if (!any) noNumber(text);
  narrow(digits, result.scale_, result.limbs_);
  if (digits.isZero()) result.negative_ = false;
  return result;
}

Decimal Decimal::fromDouble(double number, int scale) {
  if (!std::isfinite(number)) overflow("The number is too large for a decimal");
  // "d.dddddddddddddde±xx": to_chars knows no locale.
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                 std::chars_format::scientific, doubleDigits - 1);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  const std::size_t mark = text.find('e');
  int exponent = 0;
  const std::size_t sign = text[mark + 1] == '+' ? 2 : 1;  // from_chars takes no plus
  std::from_chars(text.data() + mark + sign, text.data() + text.size(), exponent);
  if (exponent >= maxDigits) overflow("The number needs more than " + std::to_string(maxDigits) + " digits");
  std::string plain = number < 0 ? "-" : "";
  std::string digits;
  for (const char c : text.substr(0, mark))
    if (isDigit(c)) digits += c;
  if (exponent < -maxDigits - 1) return parse("0").rounded(scale);
  const int point = exponent + 1;  // digits before the period
  if (point <= 0) {
    // Far decimals cannot reach the rounding digit of any scale; keep what a decimal can hold.
    std::string decimals = std::string(static_cast<std::size_t>(-point), '0') + digits;
    decimals.resize(std::min<std::size_t>(decimals.size(), maxDigits));
    plain += "0." + decimals;
  } else if (static_cast<std::size_t>(point) >= digits.size()) {
    plain += digits + std::string(static_cast<std::size_t>(point) - digits.size(), '0');
  } else {
    plain += digits.substr(0, static_cast<std::size_t>(point)) + "." +
             digits.substr(static_cast<std::size_t>(point));
  }
  return parse(plain).rounded(scale);
}

int Decimal::digits() const {
  return static_cast<int>(digitsOf(widened(limbs_)).size());
}

bool Decimal::isZero() const {
  return widened(limbs_).isZero();
}

std::string Decimal::text() const {
  std::string digits = digitsOf(widened(limbs_));
  const auto decimals = static_cast<std::size_t>(scale_);
  if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
  if (decimals > 0) digits.insert(digits.size() - decimals, ".");
  return negative_ ? "-" + digits : digits;
}

double Decimal::toDouble() const {
  const std::string plain = text();
  double number = 0;
  std::from_chars(plain.data(), plain.data() + plain.size(), number);
  return number;
}

std::int64_t Decimal::toInteger() const {
  const std::string whole = truncated(0).text();
  std::int64_t number = 0;
  const auto read = std::from_chars(whole.data(), whole.data() + whole.size(), number);
  if (read.ec != std::errc()) overflow(text() + " is too large for a whole number of 64 bits");
  return number;
}

Decimal Decimal::truncated(int scale) const {
  Decimal result;
  const Wide own = widened(limbs_);
  const Wide kept = scale >= scale_ ? timesPowerOfTen(own, std::min(scale, maxDigits) - scale_)
                                    : quotient(own, powerOfTen(scale_ - std::max(scale, 0)));
  narrow(kept, scale, result.limbs_);
  result.scale_ = scale;
  result.negative_ = negative_ && !kept.isZero();
  return result;
}

Decimal Decimal::rounded(int scale) const {
  if (scale >= scale_ || scale < 0) return truncated(scale);
  // Adding half a unit of the last kept decimal to the magnitude turns cutting into rounding.
  const Wide half = scaledBy(powerOfTen(scale_ - scale - 1), 5);
  const Wide kept = quotient(sum(widened(limbs_), half), powerOfTen(scale_ - scale));
  Decimal result;
  narrow(kept, scale, result.limbs_);
  result.scale_ = scale;
  result.negative_ = negative_ && !kept.isZero();
  return result;
}

Decimal Decimal::negated() const {
  Decimal result = *this;
  result.negative_ = !negative_ && !isZero();
  return result;
}

Decimal operator+(const Decimal& left, const Decimal& right) {
  Decimal result;
  result.scale_ = std::max(left.scale_, right.scale_);
  const Wide a = timesPowerOfTen(widened(left.limbs_), result.scale_ - left.scale_);
  const Wide b = timesPowerOfTen(widened(right.limbs_), result.scale_ - right.scale_);
  Wide total;
  if (left.negative_ == right.negative_) {
    total = sum(a, b);
    result.negative_ = left.negative_;
  } else {
    const bool leftLarger = compare(a, b) >= 0;
    total = leftLarger ? difference(a, b) : difference(b, a);
    result.negative_ = (leftLarger ? left.negative_ : right.negative_) && !total.isZero();
  }
  narrow(total, result.scale_, result.limbs_);
  return result;
}

Decimal operator-(const Decimal& left, const Decimal& right) {
  return left + right.negated();
}

Decimal operator*(const Decimal& left, const Decimal& right) {
  Decimal result;
  const Wide total = product(widened(left.limbs_), widened(right.limbs_));
  result.scale_ = left.scale_ + right.scale_;
  result.negative_ = left.negative_ != right.negative_ && !total.isZero();
  narrow(total, result.scale_, result.limbs_);
  return result;
}

Decimal Decimal::divide(const Decimal& left, const Decimal& right, int scale) {
  if (right.isZero()) throw std::domain_error("Division by zero");
  if (scale < 0 || scale > maxDigits)
    overflow("A decimal has 0 to " + std::to_string(maxDigits) + " decimals");
  Wide numerator = widened(left.limbs_);
  Wide denominator = widened(right.limbs_);
  const int shift = scale + right.scale_ - left.scale_;
  if (shift >= 0)
    numerator = timesPowerOfTen(numerator, shift);
  else
    denominator = timesPowerOfTen(denominator, -shift);
  const Wide total = quotient(numerator, denominator);
  Decimal result;
  narrow(total, scale, result.limbs_);
  result.scale_ = scale;
  result.negative_ = left.negative_ != right.negative_ && !total.isZero();
  return result;
}

std::strong_ordering operator<=>(const Decimal& left, const Decimal& right) {
  if (left.negative_ != right.negative_)
    return left.negative_ ? std::strong_ordering::less : std::strong_ordering::greater;
  const int scale = std::max(left.scale_, right.scale_);
  const std::strong_ordering magnitudes =
      compare(timesPowerOfTen(widened(left.limbs_), scale - left.scale_),
              timesPowerOfTen(widened(right.limbs_), scale - right.scale_));
  if (!left.negative_ || magnitudes == 0) return magnitudes;
  return magnitudes > 0 ? std::strong_ordering::less : std::strong_ordering::greater;
}

}  // namespace payslate::basic
