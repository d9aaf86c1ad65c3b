// Types and values of parameters.
#include "tools/tsqlserver/Parameters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <optional>
#include <vector>

#include "platform/ado/Error.h"

namespace payslate::tsqlserver {

namespace {

constexpr double secondsOfDay = 86400;
constexpr std::int64_t firstDayOf1900 = 2;     // As a serial number.
constexpr std::int64_t firstDayOf1 = -693593;  // Likewise of the year 1.
constexpr std::uint64_t unlimited = 0xFFFF;
constexpr std::uint64_t nullLength = 0xFFFF;

// How a type says how long its values are.
enum class Lengths { Fixed, Byte, Word, Long };
enum class Family {
  Null,
  Whole,
  Flag,
  Floating,
  Money,
  Decimal,
  DateTime,
  Date,
  Time,
  DateTime2,
  Wide,
  Latin
};

struct TypeEntry {
  std::uint8_t code;
  Family family;
  Lengths lengths;
  std::uint8_t size = 0;  ///< Of a fixed type.
};

constexpr TypeEntry types[] = {
    {0x1F, Family::Null, Lengths::Fixed, 0},     {0x30, Family::Whole, Lengths::Fixed, 1},
    {0x32, Family::Flag, Lengths::Fixed, 1},     {0x34, Family::Whole, Lengths::Fixed, 2},
    {0x38, Family::Whole, Lengths::Fixed, 4},    {0x3A, Family::DateTime, Lengths::Fixed, 4},
    {0x3B, Family::Floating, Lengths::Fixed, 4}, {0x3C, Family::Money, Lengths::Fixed, 8},
    {0x3D, Family::DateTime, Lengths::Fixed, 8}, {0x3E, Family::Floating, Lengths::Fixed, 8},
    {0x7A, Family::Money, Lengths::Fixed, 4},    {0x7F, Family::Whole, Lengths::Fixed, 8},
    {0x26, Family::Whole, Lengths::Byte},        {0x68, Family::Flag, Lengths::Byte},
    {0x6A, Family::Decimal, Lengths::Byte},      {0x6C, Family::Decimal, Lengths::Byte},
    {0x6D, Family::Floating, Lengths::Byte},     {0x6E, Family::Money, Lengths::Byte},
    {0x6F, Family::DateTime, Lengths::Byte},     {0x28, Family::Date, Lengths::Byte},
    {0x29, Family::Time, Lengths::Byte},         {0x2A, Family::DateTime2, Lengths::Byte},
    {0xA7, Family::Latin, Lengths::Word},        {0xAF, Family::Latin, Lengths::Word},
    {0xE7, Family::Wide, Lengths::Word},         {0xEF, Family::Wide, Lengths::Word},
    {0x23, Family::Latin, Lengths::Long},        {0x63, Family::Wide, Lengths::Long},
};

struct ParameterType {
  TypeEntry entry;
  int scale = 0;
  bool large = false;  ///< In pieces.
};

[[noreturn]] void refuse(const std::string& sentence, const char* sqlState = "42000") {
  throw ado::Error(sentence, sqlState, "tsqlserver");
}

ParameterType readType(Reader& call) {
  constexpr std::size_t collationSize = 5;
  const std::uint8_t code = call.u8();
  const auto* found = std::find_if(std::begin(types), std::end(types),
                                   [code](const TypeEntry& entry) { return entry.code == code; });
  if (found == std::end(types))
    refuse("A parameter has the type " + std::to_string(code) + ", which is not known.");
  ParameterType type{*found};
  const Family family = found->family;
  if (family == Family::Time || family == Family::DateTime2) {
    type.scale = call.u8();
  } else if (found->lengths == Lengths::Byte && family != Family::Date) {
    call.u8();
  }
  if (family == Family::Decimal) {
    call.u8();  // Precision.
    type.scale = call.u8();
  }
  if (found->lengths == Lengths::Word) type.large = call.u16() == unlimited;
  if (found->lengths == Lengths::Long) call.u32();
  if (family == Family::Latin || family == Family::Wide) call.raw(collationSize);
  return type;
}

Bytes readPieces(Reader& call) {
  Bytes whole;
  while (const std::uint32_t size = call.u32()) whole += call.raw(size);
  return whole;
}

// Nothing for Null.
std::optional<Bytes> readOctets(const ParameterType& type, Reader& call) {
  constexpr std::uint64_t nullPieces = std::numeric_limits<std::uint64_t>::max();
  constexpr std::uint32_t nullLong = std::numeric_limits<std::uint32_t>::max();
  if (type.large) {
    if (call.u64() == nullPieces) return std::nullopt;
    return readPieces(call);
  }
  std::size_t size = type.entry.size;
  switch (type.entry.lengths) {
    case Lengths::Fixed:
      if (type.entry.family == Family::Null) return std::nullopt;
      break;
    case Lengths::Byte:
      size = call.u8();
      if (size == 0) return std::nullopt;
      break;
    case Lengths::Word:
      size = call.u16();
      if (size == nullLength) return std::nullopt;
      break;
    case Lengths::Long:
      size = call.u32();
      if (size == nullLong) return std::nullopt;
      break;
  }
  return Bytes(call.raw(size));
}

// A day and the part of it that is past. Before the zero date the whole part counts backwards.
basic::Date dateOf(std::int64_t day, double part) {
  const auto whole = static_cast<double>(day);
  return basic::Date(whole < 0 ? whole - part : whole + part);
}

std::int64_t signedOf(std::uint64_t number, std::size_t size) {
  switch (size) {
    case 2:
      return static_cast<std::int16_t>(number);
    case 4:
      return static_cast<std::int32_t>(number);
    default:  // One byte has no sign.
      return static_cast<std::int64_t>(number);
  }
}

double floatingOf(const Bytes& octets) {
  float single = 0;
  double number = 0;
  if (octets.size() == sizeof single) {
    std::memcpy(&single, octets.data(), sizeof single);
    return double{single};
  }
  if (octets.size() != sizeof number) throw ProtocolError("A floating number has a wrong length.");
  std::memcpy(&number, octets.data(), sizeof number);
  return number;
}

basic::Decimal withScale(std::string digits, int scale, bool negative) {
  const auto decimals = static_cast<std::size_t>(scale);
  if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
  if (decimals > 0) digits.insert(digits.size() - decimals, ".");
  return basic::Decimal::parse((negative ? "-" : "") + digits);
}

// Sign, then the digits as one binary number, the lowest byte first.
basic::Decimal decimalOf(Bytes octets, int scale) {
  constexpr unsigned base = 10;
  constexpr unsigned bitsOfByte = 8;
  const bool negative = octets.front() == 0;
  octets.erase(0, 1);
  std::string digits;
  while (std::any_of(octets.begin(), octets.end(), [](char octet) { return octet != 0; })) {
    unsigned remainder = 0;
    for (std::size_t i = octets.size(); i-- > 0;) {
      remainder = (remainder << bitsOfByte) | static_cast<unsigned char>(octets[i]);
      octets[i] = static_cast<char>(remainder / base);
      remainder %= base;
    }
    digits.insert(digits.begin(), static_cast<char>('0' + remainder));
  }
  return withScale(digits, scale, negative);
}

// Ten-thousandths; the high half comes first where there are two.
basic::Decimal moneyOf(Reader octets) {
  constexpr int scale = 4;
  std::int64_t amount = 0;
  if (octets.left() == sizeof(std::int32_t)) {
    amount = static_cast<std::int32_t>(octets.u32());
  } else {
    const std::uint64_t high = octets.u32();
    amount = static_cast<std::int64_t>((high << 32U) | octets.u32());
  }
  std::string digits = std::to_string(amount);
  if (amount < 0) digits.erase(0, 1);
  return withScale(digits, scale, amount < 0);
}

basic::Date dateTimeOf(Reader octets) {
  constexpr double ticksOfDay = 300 * secondsOfDay;
  constexpr double minutesOfDay = 1440;
  if (octets.left() == 4) {
    const std::int64_t day = octets.u16();
    return dateOf(day + firstDayOf1900, octets.u16() / minutesOfDay);
  }
  const auto day = static_cast<std::int32_t>(octets.u32());
  return dateOf(day + firstDayOf1900, octets.u32() / ticksOfDay);
}

// Time of day in units of 10^-scale seconds, where there is one, then days, where there are any.
basic::Date momentOf(Reader octets, const ParameterType& type) {
  constexpr std::size_t daySize = 3;
  const std::size_t timeSize = type.entry.family == Family::Time ? octets.left() : octets.left() - daySize;
  const double units = static_cast<double>(octets.little(timeSize));
  const double part = units / std::pow(10.0, type.scale) / secondsOfDay;
  if (type.entry.family == Family::Time) return dateOf(0, part);
  return dateOf(static_cast<std::int64_t>(octets.little(daySize)) + firstDayOf1, part);
}

basic::Value valueOf(const Bytes& octets, const ParameterType& type) {
  switch (type.entry.family) {
    case Family::Null:
      return basic::Null{};
    case Family::Whole:
      return signedOf(Reader(octets).little(octets.size()), octets.size());
    case Family::Flag:
      return octets.front() != 0;
    case Family::Floating:
      return floatingOf(octets);
    case Family::Money:
      return moneyOf(Reader(octets));
    case Family::Decimal:
      return decimalOf(octets, type.scale);
    case Family::DateTime:
      return dateTimeOf(Reader(octets));
    case Family::Date:
    case Family::Time:
    case Family::DateTime2:
      return momentOf(Reader(octets), type);
    case Family::Wide:
      return fromUtf16(octets);
    case Family::Latin:
      return fromLatin(octets);
  }
  return basic::Null{};
}

std::string quoted(const std::string& text) {
  std::string literal = "'";
  for (const char c : text) literal += c == '\'' ? "''" : std::string(1, c);
  return literal + "'";
}

// Quoted where a sign in front would meet another.
std::string signedLiteral(const std::string& number) {
  return number.front() == '-' ? "(" + number + ")" : number;
}

std::string literal(std::int64_t number) {
  const bool plain = number >= -std::numeric_limits<std::int32_t>::max() &&
                     number <= std::numeric_limits<std::int32_t>::max();
  const std::string digits = std::to_string(number);
  return plain ? signedLiteral(digits) : "cast(" + digits + " as bigint)";
}

std::string literal(double number) {
  if (!std::isfinite(number)) refuse("A parameter is no number.", "22003");
  std::array<char, 64> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), number, std::chars_format::scientific).ptr;
  return signedLiteral(std::string(digits.begin(), end));
}

std::string literal(basic::Date date) {
  constexpr std::int64_t thousandths = 1000;
  constexpr std::int64_t sixty = 60;
  const double whole = std::trunc(date.serial());
  const double part = std::abs(date.serial() - whole) * secondsOfDay * thousandths;
  const auto time = std::min(std::llround(part), std::llround(secondsOfDay) * thousandths - 1);
  std::string text = basic::formatDate(date, "yyyymmdd");
  if (time != 0) {
    std::array<char, 32> clock{};
    const auto seconds = time / thousandths;
    std::snprintf(clock.data(), clock.size(), " %02d:%02d:%02d.%03d",
                  static_cast<int>(seconds / sixty / sixty), static_cast<int>(seconds / sixty % sixty),
                  static_cast<int>(seconds % sixty), static_cast<int>(time % thousandths));
    text += clock.data();
  }
  return "cast('" + text + "' as datetime)";
}

}  // namespace

Parameter readParameter(Reader& call) {
  constexpr std::uint8_t outputFlag = 1;
  Parameter parameter;
  parameter.name = call.shortText();
  parameter.output = (call.u8() & outputFlag) != 0;
  const ParameterType type = readType(call);
  if (const std::optional<Bytes> octets = readOctets(type, call)) parameter.value = valueOf(*octets, type);
  return parameter;
}

std::string literalOf(const basic::Value& value) {
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "cast(1 as bit)" : "cast(0 as bit)";
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return literal(*whole);
  if (const auto* number = std::get_if<double>(&value)) return literal(*number);
  if (const auto* decimal = std::get_if<basic::Decimal>(&value)) return signedLiteral(decimal->text());
  if (const auto* date = std::get_if<basic::Date>(&value)) return literal(*date);
  if (const auto* text = std::get_if<std::string>(&value)) return quoted(*text);
  return "null";
}

}  // namespace payslate::tsqlserver
