// Arithmetic, rounding and mathematical functions.
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <stdexcept>

#include "platform/basic/Decimal.h"
#include "platform/basic/Error.h"
#include "platform/tsql/Arithmetic.h"
#include "platform/tsql/Convert.h"
#include "platform/tsql/Runtime.h"
#include "platform/tsql/SqlError.h"
#include "platform/tsql/Type.h"

namespace payslate::tsql {

namespace {

using basic::Decimal;

[[noreturn]] void divisionByZero() {
  throw SqlError(state::divisionByZero, "Division by zero.");
}

[[noreturn]] void overflow(const Type& type) {
  throw SqlError(state::overflow,
                 "Arithmetic overflow: the result does not fit the type " + type.text() + ".");
}

std::int64_t whole(const CellView& value) {
  return std::get<std::int64_t>(value);
}

Cell wholeResult(const Decimal& number, const Type& type) {
  try {
    return checkedWhole(number.toInteger(), type.kind);
  } catch (const basic::ValueError&) {
    overflow(type);
  }
}

std::int64_t multiplied(std::int64_t left, std::int64_t right, const Type& type) {
  constexpr auto low = std::numeric_limits<std::int64_t>::min();
  constexpr auto high = std::numeric_limits<std::int64_t>::max();
  if (left == 0 || right == 0) return 0;
  if ((left == -1 && right == low) || (right == -1 && left == low)) overflow(type);
  if (left == -1 || right == -1) return left * right;
  const bool positive = (left > 0) == (right > 0);
  const bool fits = positive ? (left > 0 ? left <= high / right : left >= high / right)
                             : (left > 0 ? right >= low / left : left >= low / right);
  if (!fits) overflow(type);
  return left * right;
}

std::int64_t added(std::int64_t left, std::int64_t right, const Type& type) {
  if (right > 0 ? left > std::numeric_limits<std::int64_t>::max() - right
                : left < std::numeric_limits<std::int64_t>::min() - right) {
    overflow(type);
  }
  return left + right;
}

std::int64_t computeWhole(char op, std::int64_t left, std::int64_t right, const Type& type) {
  constexpr auto low = std::numeric_limits<std::int64_t>::min();
  switch (op) {
    case '+':
      return added(left, right, type);
    case '-':
      if (right == low) overflow(type);
      return added(left, -right, type);
    case '*':
      return multiplied(left, right, type);
    default:
      break;
  }
  if (right == 0) divisionByZero();
  if (right == -1 && left == low) overflow(type);
  return op == '/' ? left / right : left % right;
}

std::int64_t wholeComputed(char op, const CellView& left, const CellView& right, const Type& type) {
  return checkedWhole(computeWhole(op, wholeOf(left), wholeOf(right), type), type.kind);
}

double computeDouble(char op, double left, double right) {
  switch (op) {
    case '+':
      return checkedDouble(left + right);
    case '-':
      return checkedDouble(left - right);
    case '*':
      return checkedDouble(left * right);
    default:
      break;
  }
  if (right == 0) divisionByZero();
  return checkedDouble(op == '/' ? left / right : std::fmod(left, right));
}

int wholeDigits(const Decimal& number) {
  return std::max(0, number.digits() - number.scale());
}

// A product of many decimals gives up those that no type can keep.
Decimal product(Decimal left, Decimal right) {
  const int room = Decimal::maxDigits - wholeDigits(left) - wholeDigits(right);
  while (left.scale() + right.scale() > std::max(0, room)) {
    Decimal& longer = left.scale() >= right.scale() ? left : right;
    if (longer.scale() == 0) break;
    longer = longer.rounded(longer.scale() - 1);
  }
  return left * right;
}

Decimal remainder(const Decimal& left, const Decimal& right) {
  return left - Decimal::divide(left, right, 0) * right;
}

std::string computeDecimal(char op, const Decimal& left, const Decimal& right, const Type& type) {
  try {
    switch (op) {
      case '+':
        return checkedDecimal(left + right, type);
      case '-':
        return checkedDecimal(left - right, type);
      case '*':
        return checkedDecimal(product(left, right), type);
      default:
        break;
    }
    if (right.isZero()) divisionByZero();
    return checkedDecimal(op == '/' ? Decimal::divide(left, right, type.scale) : remainder(left, right),
                          type);
  } catch (const basic::ValueError&) {
    overflow(type);
  }
}

Type typeOf(const CellView& code) {
  return Type::unpacked(whole(code));
}

template <char op>
Answer arithmetic(Arguments args) {
  const Type type = typeOf(args[2]);
  if (type.isWhole()) return wholeComputed(op, args[0], args[1], type);
  return compute(op, args[0], args[1], type);
}

// first, then (operator's character, operand, type) again and again: a long sum as one call.
Answer chain(Arguments args) {
  constexpr std::size_t step = 3;
  Cell value = args[0].cell();
  for (std::size_t i = 1; i + step <= args.size(); i += step) {
    value = compute(static_cast<char>(whole(args[i])), value, args[i + 1], typeOf(args[i + 2]));
  }
  return value;
}

Answer negative(Arguments args) {
  const Type type = typeOf(args[1]);
  if (type.isExact()) return decimalOf(args[0]).negated().text();
  if (type.isFloating()) return -doubleOf(args[0]);
  return compute('-', std::int64_t{0}, args[0], type);
}

Answer absolute(Arguments args) {
  const Type type = typeOf(args[1]);
  if (type.isExact()) {
    const Decimal number = decimalOf(args[0]);
    return number.isNegative() ? number.negated().text() : number.text();
  }
  if (type.isFloating()) return std::abs(doubleOf(args[0]));
  if (whole(args[0]) < 0) return compute('-', std::int64_t{0}, args[0], type);
  return args[0];
}

Answer signOf(Arguments args) {
  const Type type = typeOf(args[1]);
  const double number = type.isExact() && decimalOf(args[0]).isZero() ? 0 : doubleOf(args[0]);
  const int sign = static_cast<int>(number > 0) - static_cast<int>(number < 0);
  if (type.isExact()) return checkedDecimal(Decimal::fromInteger(sign), type);
  if (type.isFloating()) return static_cast<double>(sign);
  return std::int64_t{sign};
}

Decimal powerOfTen(int exponent) {
  return Decimal::parse("1" + std::string(static_cast<std::size_t>(exponent), '0'));
}

// Places below zero round in front of the period.
Decimal roundedTo(const Decimal& number, std::int64_t places, bool cut) {
  if (places >= number.scale()) return number;
  if (places >= 0) {
    const int scale = static_cast<int>(places);
    return cut ? number.truncated(scale) : number.rounded(scale);
  }
  if (-places > number.digits() - number.scale()) return Decimal();
  const Decimal unit = powerOfTen(static_cast<int>(-places));
  const Decimal count = Decimal::divide(number, unit, number.scale() + 1 <= Decimal::maxDigits ? 1 : 0);
  if (cut) return count.truncated(0) * unit;
  return count.rounded(0) * unit;
}

double roundedTo(double number, std::int64_t places, bool cut) {
  constexpr std::int64_t mostPlaces = 300;
  if (places > mostPlaces) return number;
  if (places < -mostPlaces) return 0;
  const double factor = std::pow(10.0, static_cast<double>(std::abs(places)));
  const double scaled = places >= 0 ? number * factor : number / factor;
  if (!std::isfinite(scaled)) return number;
  const double kept = cut ? std::trunc(scaled) : std::round(scaled);
  return places >= 0 ? kept / factor : kept * factor;
}

Answer roundTo(Arguments args) {
  const Type type = typeOf(args[3]);
  const std::int64_t places = wholeOf(args[1]);
  const bool cut = wholeOf(args[2]) != 0;
  if (type.isFloating()) return checkedDouble(roundedTo(doubleOf(args[0]), places, cut));
  const Decimal rounded = roundedTo(decimalOf(args[0]), places, cut);
  if (type.isExact()) return checkedDecimal(rounded, type);
  return wholeResult(rounded, type);
}

template <bool up>
Answer wholeBound(Arguments args) {
  const Type type = typeOf(args[1]);
  if (type.isWhole()) return args[0];
  if (type.isFloating()) return up ? std::ceil(doubleOf(args[0])) : std::floor(doubleOf(args[0]));
  const Decimal number = decimalOf(args[0]);
  Decimal bound = number.truncated(0);
  if (up && bound < number) bound = bound + Decimal::fromInteger(1);
  if (!up && bound > number) bound = bound - Decimal::fromInteger(1);
  return checkedDecimal(bound, type);
}

Answer power(Arguments args) {
  const Type type = typeOf(args[2]);
  const double base = doubleOf(args[0]);
  const double exponent = doubleOf(args[1]);
  if (base == 0 && exponent < 0) divisionByZero();
  // Whole exponents of exact numbers stay exact as long as they fit.
  if (!type.isFloating() && exponent >= 0 && exponent == std::floor(exponent)) {
    const Decimal factor = decimalOf(args[0]);
    Decimal result = Decimal::fromInteger(1);
    try {
      constexpr double mostFactors = 128;
      for (double i = 0; i < std::min(exponent, mostFactors); ++i) result = product(result, factor);
    } catch (const basic::ValueError&) {
      overflow(type);
    }
    constexpr double mostFactors = 128;
    if (exponent <= mostFactors) {
      if (type.isExact()) return checkedDecimal(result, type);
      return wholeResult(result, type);
    }
  }
  return convertCell(checkedDouble(std::pow(base, exponent)), Type::of(Kind::Float), type);
}

template <double (*function)(double)>
Answer mathematical(Arguments args) {
  return checkedDouble(function(doubleOf(args[0])));
}

double checkedLog(double number) {
  return number > 0 ? std::log(number) : std::nan("");
}
double checkedLog10(double number) {
  return number > 0 ? std::log10(number) : std::nan("");
}
double squared(double number) {
  return number * number;
}
double root(double number) {
  return std::sqrt(number);
}
double exponential(double number) {
  return std::exp(number);
}

Answer pi(Arguments) {
  return std::numbers::pi;
}

Answer isNumeric(Arguments args) {
  if (isNull(args[0])) return std::int64_t{0};
  const auto* text = std::get_if<std::string_view>(args.data());
  return std::int64_t{text == nullptr || isNumericText(*text)};
}

Answer convertValue(Arguments args) {
  return convertCell(args[0], typeOf(args[1]), typeOf(args[2]), static_cast<int>(whole(args[3])));
}

Answer assignValue(Arguments args) {
  return assignCell(args[0], typeOf(args[1]), typeOf(args[2]),
                    std::string(std::get<std::string_view>(args[3])));
}

Answer raise(Arguments args) {
  throw SqlError(std::string(std::get<std::string_view>(args[0])),
                 std::string(std::get<std::string_view>(args[1])));
}

constexpr std::array functions = {
    RuntimeFunction{"ts_add", 3, arithmetic<'+'>},
    RuntimeFunction{"ts_sub", 3, arithmetic<'-'>},
    RuntimeFunction{"ts_mul", 3, arithmetic<'*'>},
    RuntimeFunction{"ts_div", 3, arithmetic<'/'>},
    RuntimeFunction{"ts_mod", 3, arithmetic<'%'>},
    RuntimeFunction{"ts_chain", -1, chain},
    RuntimeFunction{"ts_neg", 2, negative},
    RuntimeFunction{"ts_abs", 2, absolute},
    RuntimeFunction{"ts_sign", 2, signOf},
    RuntimeFunction{"ts_round", 4, roundTo},
    RuntimeFunction{"ts_ceiling", 2, wholeBound<true>},
    RuntimeFunction{"ts_floor", 2, wholeBound<false>},
    RuntimeFunction{"ts_power", 3, power},
    RuntimeFunction{"ts_sqrt", 1, mathematical<root>},
    RuntimeFunction{"ts_square", 1, mathematical<squared>},
    RuntimeFunction{"ts_exp", 1, mathematical<exponential>},
    RuntimeFunction{"ts_log", 1, mathematical<checkedLog>},
    RuntimeFunction{"ts_log10", 1, mathematical<checkedLog10>},
    RuntimeFunction{"ts_pi", 0, pi},
    RuntimeFunction{"ts_isnumeric", 1, isNumeric, false},
    RuntimeFunction{"ts_convert", 4, convertValue},
    RuntimeFunction{"ts_assign", 4, assignValue},
    RuntimeFunction{"ts_raise", 2, raise, true, false},
};

}  // namespace

Cell compute(char op, const CellView& left, const CellView& right, const Type& type) {
  if (isNull(left) || isNull(right)) return {};
  if (type.isFloating()) return computeDouble(op, doubleOf(left), doubleOf(right));
  if (type.isExact()) return computeDecimal(op, decimalOf(left), decimalOf(right), type);
  return wholeComputed(op, left, right, type);
}

std::span<const RuntimeFunction> numberFunctions() {
  return functions;
}

}  // namespace payslate::tsql
