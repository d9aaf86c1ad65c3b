// The conversion table: a target kind each, with the source kinds it takes.
#include "platform/tsql/Convert.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/basic/Error.h"
#include "platform/basic/Unicode.h"
#include "platform/tsql/DateTime.h"
#include "platform/tsql/SqlError.h"
#include "platform/tsql/Text.h"
#include "platform/tsql/TokenStream.h"

namespace payslate::tsql {

namespace {

using basic::Decimal;

constexpr std::string_view currencySigns[] = {"$", "\xC2\xA3", "\xE2\x82\xAC",
                                              "\xC2\xA5"};  // dollar, pound, euro, yen

std::string_view trimmed(std::string_view text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string shown(const CellView& value) {
  const std::string text = textOf(value);
  constexpr std::size_t most = 60;
  return "'" + (text.size() > most ? text.substr(0, most) + "…" : text) + "'";
}

[[noreturn]] void cannotConvert(const CellView& value, const Type& to) {
  throw SqlError(state::badCast, "The value " + shown(value) + " cannot be converted to " + to.text() + ".");
}

[[noreturn]] void overflows(const std::string& value, const std::string& type) {
  throw SqlError(state::overflow, "Arithmetic overflow: " + value + " does not fit the type " + type + ".");
}

// from_chars takes no plus sign.
std::string_view withoutPlus(std::string_view text) {
  return text.size() > 1 && text[0] == '+' && text[1] != '-' ? text.substr(1) : text;
}

std::int64_t wholeFromText(const CellView& value, const Type& to) {
  const std::string_view text = withoutPlus(trimmed(std::get<std::string_view>(value)));
  if (text.empty()) return 0;
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc::result_out_of_range) overflows(shown(value), to.text());
  if (error != std::errc() || end != text.data() + text.size()) cannotConvert(value, to);
  return number;
}

double doubleFromText(const CellView& value, const Type& to) {
  const std::string_view text = withoutPlus(trimmed(std::get<std::string_view>(value)));
  if (text.empty()) return 0;
  double number = 0;
  const bool plain = text.find_first_not_of("0123456789.+-eE") == std::string_view::npos;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (plain && error == std::errc::result_out_of_range) overflows(shown(value), to.text());
  if (!plain || error != std::errc() || end != text.data() + text.size()) cannotConvert(value, to);
  return number;
}

// Money takes a currency sign and thousands commas.
std::string moneyDigits(std::string_view text) {
  std::string digits;
  for (const std::string_view sign : currencySigns) {
    if (const std::size_t at = text.find(sign); at != std::string_view::npos && at <= 1) {
      digits = std::string(text.substr(0, at)) + std::string(text.substr(at + sign.size()));
      text = "";
    }
  }
  if (digits.empty()) digits = text;
  std::erase(digits, ',');
  return digits.empty() ? "0" : digits;
}

Decimal decimalFromText(const CellView& value, const Type& to) {
  const std::string_view text = trimmed(std::get<std::string_view>(value));
  try {
    return Decimal::parse(to.kind == Kind::Money ? moneyDigits(text) : std::string(text));
  } catch (const basic::ValueError& error) {
    if (error.kind() == basic::ErrorKind::Overflow) overflows(shown(value), to.text());
    cannotConvert(value, to);
  }
}

std::int64_t cutDouble(double number, const Type& to) {
  constexpr double limit = 9223372036854775808.0;  // 2^63
  if (!(number > -limit && number < limit)) overflows(textOf(number), to.text());
  return static_cast<std::int64_t>(number);
}

Cell toBit(const CellView& value, const Type& from, const Type& to) {
  if (from.isText()) {
    const std::string_view text = trimmed(std::get<std::string_view>(value));
    if (sameWord(text, "true")) return std::int64_t{1};
    if (sameWord(text, "false")) return std::int64_t{0};
    return std::int64_t{wholeFromText(value, to) != 0};
  }
  if (from.isExact()) return std::int64_t{!decimalOf(value).isZero()};
  if (from.isFloating()) return std::int64_t{doubleOf(value) != 0};
  return std::int64_t{std::get<std::int64_t>(value) != 0};
}

// A moment as a number counts days, and rounds to the nearest.
std::int64_t roundedDays(std::int64_t moment) {
  return dayNumber(moment + millisecondsPerDay / 2);
}

Cell toWhole(const CellView& value, const Type& from, const Type& to) {
  if (to.kind == Kind::Bit) return toBit(value, from, to);
  std::int64_t number = 0;
  if (from.isText()) {
    number = wholeFromText(value, to);
  } else if (from.isDate()) {
    number = roundedDays(std::get<std::int64_t>(value));
  } else if (from.isFloating()) {
    number = cutDouble(doubleOf(value), to);
  } else if (from.kind == Kind::Money) {
    number = decimalOf(value).rounded(0).toInteger();
  } else {
    try {
      number = wholeOf(value);
    } catch (const basic::ValueError&) {
      overflows(shown(value), to.text());
    }
  }
  return checkedWhole(number, to.kind);
}

double daysOf(std::int64_t moment) {
  return static_cast<double>(moment) / static_cast<double>(millisecondsPerDay);
}

Cell toDecimal(const CellView& value, const Type& from, const Type& to) {
  try {
    if (from.isText()) return checkedDecimal(decimalFromText(value, to), to);
    if (from.isDate())
      return checkedDecimal(Decimal::fromDouble(daysOf(std::get<std::int64_t>(value)), to.scale), to);
    if (from.isFloating()) return checkedDecimal(Decimal::fromDouble(doubleOf(value), to.scale), to);
    return checkedDecimal(decimalOf(value), to);
  } catch (const basic::ValueError&) {
    overflows(shown(value), to.text());
  }
}

Cell toDouble(const CellView& value, const Type& from, const Type& to) {
  double number = 0;
  if (from.isText()) {
    number = doubleFromText(value, to);
  } else if (from.isDate()) {
    number = daysOf(std::get<std::int64_t>(value));
  } else {
    number = doubleOf(value);
  }
  if (to.kind == Kind::Real) {
    if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max()))
      overflows(textOf(number), to.text());
    number = static_cast<double>(static_cast<float>(number));
  }
  return number;
}

Cell toMoment(const CellView& value, const Type& from, const Type& to, int style) {
  if (from.isText()) return roundedMoment(readMoment(std::get<std::string_view>(value), style), to.kind);
  if (from.isDate()) return roundedMoment(std::get<std::int64_t>(value), to.kind);
  if (to.kind == Kind::Date) cannotConvert(value, to);
  constexpr double mostDays = 4'000'000;
  const double days = doubleOf(value);
  if (std::abs(days) > mostDays) overflows(shown(value), to.text());
  return roundedMoment(
      static_cast<std::int64_t>(std::llround(days * static_cast<double>(millisecondsPerDay))), to.kind);
}

std::string floatText(double number, int digits, std::chars_format format = std::chars_format::general) {
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, format, digits);
  return {buffer.data(), end.ptr};
}

[[noreturn]] void unknownStyle(int style, const Type& from) {
  throw SqlError(state::syntax, "The style " + std::to_string(style) + " of convert is not supported for " +
                                    from.text() + ".");
}

std::string moneyText(const Decimal& number, int style, const Type& from) {
  enum Style { Cents, Thousands, Whole, Exchange = 126 };
  if (style == Whole || style == Exchange) return number.text();
  if (style != Cents && style != Thousands) unknownStyle(style, from);
  std::string text = number.rounded(2).text();
  constexpr std::size_t group = 3;
  const std::size_t first = text.front() == '-' ? 1 : 0;
  for (std::size_t at = text.find('.'); style == Thousands && at > first + group;)
    text.insert(at -= group, ",");
  return text;
}

// An exponent has three digits at least.
std::string floatingText(double number, int style, const Type& from) {
  static constexpr int digits[] = {6, 8, 16, 17};  // By style; but for the first, always with an exponent.
  if (style < 0 || style >= static_cast<int>(std::size(digits))) unknownStyle(style, from);
  std::string text = style == 0 ? floatText(number, digits[0])
                                : floatText(number, digits[style] - 1, std::chars_format::scientific);
  constexpr std::size_t exponentDigits = 3;
  if (const std::size_t sign = text.find('e'); sign != std::string::npos) {
    const std::size_t given = text.size() - sign - 2;
    if (given < exponentDigits) text.insert(sign + 2, exponentDigits - given, '0');
  }
  return text;
}

std::string plainText(const CellView& value, const Type& from, int style) {
  if (from.isDate()) return writeMoment(std::get<std::int64_t>(value), style, from.kind);
  if (from.kind == Kind::Money) return moneyText(decimalOf(value), style, from);
  if (from.isFloating()) return floatingText(doubleOf(value), style, from);
  return textOf(value);
}

std::string fittedText(std::string text, const Type& to) {
  if (to.length <= 0) return text;
  const auto length = static_cast<std::size_t>(to.length);
  if (text.size() > length && basic::characterCount(text) > length)
    text = basic::encoded(basic::characters(text).substr(0, length));
  if (to.kind == Kind::Char) {
    const std::size_t count = basic::characterCount(text);
    if (count < length) text.append(length - count, ' ');
  }
  return text;
}

Cell toText(const CellView& value, const Type& from, const Type& to, int style) {
  std::string text = plainText(value, from, style);
  const auto length = static_cast<std::size_t>(to.length);
  if (to.length > 0 && text.size() > length) {
    if (from.isExact() || from.isFloating()) overflows(text, to.text());
    if (from.isWhole()) return fittedText("*", to);  // A whole number that does not fit is a star.
  }
  return fittedText(std::move(text), to);
}

}  // namespace

std::int64_t checkedWhole(std::int64_t number, Kind kind) {
  struct Range {
    Kind kind;
    std::int64_t low;
    std::int64_t high;
  };
  static constexpr Range ranges[] = {
      {Kind::TinyInt, 0, std::numeric_limits<std::uint8_t>::max()},
      {Kind::SmallInt, std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()},
      {Kind::Int, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}};
  for (const Range& range : ranges) {
    if (range.kind == kind && (number < range.low || number > range.high)) {
      overflows(std::to_string(number), Type::of(kind).text());
    }
  }
  return number;
}

std::string checkedDecimal(const Decimal& number, const Type& type) {
  try {
    const Decimal rounded = number.rounded(type.scale);
    if (rounded.digits() <= type.precision) return rounded.text();
  } catch (const basic::ValueError&) {
    overflows(number.text(), type.text());
  }
  overflows(number.text(), type.text());
}

double checkedDouble(double number) {
  if (std::isnan(number)) throw SqlError(state::overflow, "The operation has no result that is a number.");
  if (std::isinf(number)) overflows("the result", "float");
  return number;
}

double doubleOf(const CellView& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&value)) return *number;
  return Decimal::parse(std::get<std::string_view>(value)).toDouble();
}

Decimal decimalOf(const CellView& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return Decimal::fromInteger(*whole);
  constexpr int floatScale = 15;
  if (const auto* number = std::get_if<double>(&value)) return Decimal::fromDouble(*number, floatScale);
  return Decimal::parse(std::get<std::string_view>(value));
}

std::int64_t cutToWhole(const CellView& value) {
  if (const auto* number = std::get_if<double>(&value)) return cutDouble(*number, Type::of(Kind::BigInt));
  return decimalOf(value).toInteger();
}

std::string textOf(const CellView& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
  constexpr int allDigits = 15;
  if (const auto* number = std::get_if<double>(&value)) return floatText(*number, allDigits);
  if (const auto* text = std::get_if<std::string_view>(&value)) return std::string(*text);
  return "null";
}

bool isNumericText(std::string_view text) {
  text = trimmed(text);
  if (text.empty()) return false;
  std::size_t i = 0;
  bool sign = false;
  const auto skipSign = [&] {
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
      ++i;
      sign = true;
    }
  };
  skipSign();
  for (const std::string_view currency : currencySigns) {
    if (i == text.size() || text[i] != currency.front() || text.substr(i, currency.size()) != currency)
      continue;
    i += currency.size();
    if (!sign) skipSign();
    sign = true;
    break;
  }
  std::size_t digits = 0;
  bool period = false;
  for (; i < text.size(); ++i) {
    if (text[i] >= '0' && text[i] <= '9') {
      ++digits;
    } else if (text[i] == '.' && !period) {
      period = true;
    } else if (text[i] != ',' || period) {
      break;
    }
  }
  if (i == text.size()) return digits > 0 || period || sign;
  if (digits == 0 || (text[i] != 'e' && text[i] != 'E' && text[i] != 'd' && text[i] != 'D')) return false;
  ++i;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  return i < text.size() && text.find_first_not_of("0123456789", i) == std::string_view::npos;
}

Cell convertCell(const CellView& value, const Type& from, const Type& to, int style) {
  if (isNull(value)) return {};
  if (to.isText()) return toText(value, from, to, style);
  if (to.isWhole()) return toWhole(value, from, to);
  if (to.isExact()) return toDecimal(value, from, to);
  if (to.isFloating()) return toDouble(value, from, to);
  return toMoment(value, from, to, style);
}

Cell assignCell(const CellView& value, const Type& from, const Type& to, const std::string& column) {
  if (isNull(value)) return {};
  try {
    if (!to.isText()) return convertCell(value, from, to);
    std::string text =
        from.isText() ? std::string(std::get<std::string_view>(value)) : plainText(value, from, 0);
    const auto length = static_cast<std::size_t>(to.length);
    if (to.length > 0 && basic::characterCount(withoutTrailingBlanks(text)) > length) {
      throw SqlError(state::truncation, "The text " + shown(value) +
                                            " is too long: it would be truncated to " +
                                            std::to_string(length) + " characters.");
    }
    return fittedText(std::move(text), to);
  } catch (const SqlError& error) {
    throw SqlError(error.sqlState(), "Column '" + column + "': " + error.what());
  }
}

}  // namespace payslate::tsql
