// Number rules: reading numbers out of text, narrowing them, and writing them.
#include "platform/basic/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

#include "platform/basic/Error.h"
#include "platform/basic/Unicode.h"

namespace payslate::basic {
namespace {

constexpr int significantDigits = 15;

constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Length of the number at the start of `text`; 0 when none stands there. Sign, digits, one period, and an
/// exponent that has digits.
std::size_t numberLength(std::string_view text) {
  const auto digitsFrom = [&](std::size_t at) {
    std::size_t count = 0;
    while (at + count < text.size() && isDigit(text[at + count])) ++count;
    return count;
  };
  const auto isSign = [&](std::size_t at) {
    return at < text.size() && (text[at] == '+' || text[at] == '-');
  };
  std::size_t at = isSign(0) ? 1 : 0;
  const std::size_t whole = digitsFrom(at);
  at += whole;
  std::size_t decimals = 0;
  if (at < text.size() && text[at] == '.') {
    decimals = digitsFrom(at + 1);
    if (whole + decimals > 0) at += 1 + decimals;
  }
  if (whole + decimals == 0) return 0;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    const std::size_t digitsAt = at + 1 + (isSign(at + 1) ? 1 : 0);
    if (const std::size_t exponent = digitsFrom(digitsAt); exponent > 0) at = digitsAt + exponent;
  }
  return at;
}

[[noreturn]] void overflow(const std::string& what, const char* wanted) {
  throw ValueError(ErrorKind::Overflow, "Overflow: " + what + " is too large for " + wanted);
}

/// `number` has the form that numberLength accepts, as a whole.
double readNumber(std::string_view number) {
  if (number.front() == '+') number.remove_prefix(1);
  double result = 0;
  const auto read = std::from_chars(number.data(), number.data() + number.size(), result);
  if (read.ec == std::errc::result_out_of_range) {
    // Too small for a double reads as 0; the mantissa and the exponent's sign tell which side was left.
    const std::size_t exponent = number.find_first_of("eE");
    const std::string_view mantissa = number.substr(0, exponent);
    const bool small = exponent != std::string_view::npos
                           ? number[exponent + 1] == '-'
                           : mantissa.find_first_of("123456789") > mantissa.find('.');
    if (!small) overflow("\"" + std::string(number) + "\"", "a number");
    return 0;
  }
  return result == 0 ? 0 : result;  // no negative zero
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

double roundHalfEven(double number) {
  const double below = std::floor(number);
  const double rest = number - below;
  if (rest < 0.5) return below;
  if (rest > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

Decimal roundHalfEven(const Decimal& number) {
  const Decimal whole = number.truncated(0);
  Decimal rest = number - whole;
  if (rest.isNegative()) rest = rest.negated();
  const Decimal half = Decimal::parse("0.5");
  const Decimal two = Decimal::fromInteger(2);
  const bool odd = !(whole - Decimal::divide(whole, two, 0) * two).isZero();
  if (rest < half || (rest == half && !odd)) return whole;
  return whole + Decimal::fromInteger(number.isNegative() ? -1 : 1);
}

double numberOf(const Value& value, const char* wanted) {
  struct Reader {
    const char* wanted;
    double operator()(Null) const {
      throw ValueError(ErrorKind::TypeMismatch, std::string("Null is not ") + wanted);
    }
    double operator()(bool flag) const { return flag ? -1 : 0; }
    double operator()(std::int64_t number) const { return static_cast<double>(number); }
    double operator()(double number) const { return number; }
    double operator()(const Decimal& number) const { return number.toDouble(); }
    double operator()(Date date) const { return date.serial(); }
    double operator()(const std::string& text) const {
      if (!IsNumeric(text)) throw ValueError(ErrorKind::TypeMismatch, "\"" + text + "\" is not " + wanted);
      return readNumber(trimmed(text));
    }
  };
  return std::visit(Reader{wanted}, value);
}

template <typename Whole>
Whole wholeOf(const Value& value, const char* wanted) {
  // A decimal is rounded before it becomes a double: 1.4999999999999999999 is below the half.
  const auto* decimal = std::get_if<Decimal>(&value);
  const double rounded =
      decimal ? roundHalfEven(*decimal).toDouble() : roundHalfEven(numberOf(value, wanted));
  constexpr double least = std::numeric_limits<Whole>::min();
  constexpr double most = std::numeric_limits<Whole>::max();
  if (!(rounded >= least && rounded <= most)) overflow(textOf(value), wanted);
  return static_cast<Whole>(rounded);
}

/// A finite number as its 15 significant digits d.dddd * 10^exponent, without sign.
struct Digits {
  std::string digits;
  int exponent = 0;
};

Digits digitsOf(double number) {
  if (!std::isfinite(number)) throw ValueError(ErrorKind::Overflow, "The number is too large to be written");
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(number),
                                 std::chars_format::scientific, significantDigits - 1);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  const std::size_t mark = text.find('e');
  Digits result;
  for (const char c : text.substr(0, mark))
    if (isDigit(c)) result.digits += c;
  const std::size_t from = mark + (text[mark + 1] == '+' ? 2 : 1);  // from_chars takes no plus
  std::from_chars(text.data() + from, text.data() + text.size(), result.exponent);
  return result;
}

/// Whole digits and exactly `decimals` decimals in one run, halves away from zero.
std::string roundedRun(const Digits& number, std::size_t decimals) {
  std::string run = number.digits;
  if (number.exponent < 0) run.insert(0, static_cast<std::size_t>(-number.exponent), '0');
  const std::size_t whole = number.exponent < 0 ? 1 : static_cast<std::size_t>(number.exponent) + 1;
  const std::size_t wanted = whole + decimals;
  if (run.size() <= wanted) return run.append(wanted - run.size(), '0');
  const bool up = run[wanted] >= '5';
  run.resize(wanted);
  if (!up) return run;
  for (std::size_t i = run.size(); i-- > 0;) {
    if (run[i] != '9') {
      ++run[i];
      return run;
    }
    run[i] = '0';
  }
  return "1" + run;
}

/// What a pattern of '#', '0' and one period asks for.
struct Places {
  std::size_t leastWhole = 0;
  std::size_t leastDecimals = 0;
  std::size_t mostDecimals = 0;
  bool period = false;
};

Places readPattern(std::string_view pattern) {
  Places places;
  for (const char c : pattern) {
    if (c == '.' && !places.period) {
      places.period = true;
    } else if (c != '0' && c != '#') {
      throw ValueError(ErrorKind::TypeMismatch, "\"" + std::string(pattern) + "\" is not a number pattern");
    } else if (places.period) {
      ++places.mostDecimals;
      if (c == '0') places.leastDecimals = places.mostDecimals;
    } else if (c == '0' || places.leastWhole > 0) {
      ++places.leastWhole;
    }
  }
  return places;
}

constexpr char lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
}

// Plain letters are the rule, and names are compared often.
std::string withCase(std::string_view text, char32_t (*changed)(char32_t)) {
  if (isAscii(text)) {
    std::string result(text);
    for (char& c : result) c = static_cast<char>(changed(static_cast<unsigned char>(c)));
    return result;
  }
  std::u32string result = characters(text);
  std::transform(result.begin(), result.end(), result.begin(), changed);
  return encoded(result);
}

}  // namespace

double Val(std::string_view text) {
  std::string packed;
  std::copy_if(text.begin(), text.end(), std::back_inserter(packed), [](char c) { return c != ' '; });
  const std::size_t length = numberLength(packed);
  return length == 0 ? 0 : readNumber(std::string_view(packed).substr(0, length));
}

bool IsNumeric(std::string_view text) {
  const std::string_view core = trimmed(text);
  return !core.empty() && numberLength(core) == core.size();
}

std::string Trim(std::string_view text) {
  return std::string(trimmed(text));
}

std::int16_t CInt(const Value& value) {
  return wholeOf<std::int16_t>(value, "a whole number of 16 bits");
}
std::int32_t CLng(const Value& value) {
  return wholeOf<std::int32_t>(value, "a whole number of 32 bits");
}
double CDbl(const Value& value) {
  return numberOf(value, "a number");
}

bool CBool(const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    if (sameName(trimmed(*text), "True")) return true;
    if (sameName(trimmed(*text), "False")) return false;
  }
  if (const auto* decimal = std::get_if<Decimal>(&value)) return !decimal->isZero();
  return numberOf(value, "a flag") != 0;
}

std::int32_t numberOrZero(std::string_view text) {
  return IsNumeric(text) ? CLng(std::string(text)) : 0;
}

std::string Format(double number, std::string_view pattern) {
  const Places places = readPattern(pattern);
  const std::string run = roundedRun(digitsOf(number), places.mostDecimals);
  std::string whole = run.substr(0, run.size() - places.mostDecimals);
  std::string decimals = run.substr(whole.size());
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
  if (whole.size() < places.leastWhole) whole.insert(0, places.leastWhole - whole.size(), '0');
  while (decimals.size() > places.leastDecimals && decimals.back() == '0') decimals.pop_back();
  const bool negative = number < 0 && run.find_first_not_of('0') != std::string::npos;
  return (negative ? "-" : "") + whole + (places.period ? "." : "") + decimals;
}

std::string numberText(double number) {
  constexpr int smallestPlain = -4;  // 1e-4
  if (number == 0) return "0";
  Digits parts = digitsOf(number);
  while (parts.digits.size() > 1 && parts.digits.back() == '0') parts.digits.pop_back();
  const std::string sign = number < 0 ? "-" : "";
  const int decimals = static_cast<int>(parts.digits.size()) - 1 - parts.exponent;
  const bool exponential =
      parts.exponent >= significantDigits || (parts.exponent < smallestPlain && decimals > significantDigits);
  if (exponential) {
    std::string exponent = std::to_string(std::abs(parts.exponent));
    if (exponent.size() < 2) exponent.insert(0, "0");
    if (parts.digits.size() > 1) parts.digits.insert(1, ".");
    return sign + parts.digits + (parts.exponent < 0 ? "E-" : "E+") + exponent;
  }
  const auto places = static_cast<std::size_t>(std::max(decimals, 0));
  std::string run = roundedRun(parts, places);
  if (places > 0) run.insert(run.size() - places, ".");
  return sign + run;
}

bool sameName(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return lowered(a) == lowered(b); });
}

std::string upper(std::string_view text) {
  return withCase(text, upperCharacter);
}
std::string lower(std::string_view text) {
  return withCase(text, lowerCharacter);
}

}  // namespace payslate::basic
