// Values as text.
#include "platform/basic/Value.h"

#include <array>
#include <cmath>

#include "platform/basic/Numbers.h"

namespace payslate::basic {
namespace {

std::string textOfDecimal(const Decimal& number) {
  std::string text = number.text();
  if (number.scale() == 0) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string textOfDate(Date date, std::string_view pattern) {
  constexpr long secondsPerDay = 86400;
  constexpr long secondsPerHour = 3600;
  constexpr long secondsPerMinute = 60;
  const double whole = std::trunc(date.serial());
  const long seconds = std::lround(std::abs(date.serial() - whole) * static_cast<double>(secondsPerDay));
  if (seconds == 0) return formatDate(Date(whole), pattern);
  if (seconds == secondsPerDay) return formatDate(Date(whole + 1), pattern);
  const std::array<long, 3> parts{seconds / secondsPerHour, seconds % secondsPerHour / secondsPerMinute,
                                  seconds % secondsPerMinute};
  std::string text = formatDate(date, pattern);
  char before = ' ';
  for (const long part : parts) {
    text += before;
    if (part < 10) text += '0';
    text += std::to_string(part);
    before = ':';
  }
  return text;
}

struct Writer {
  std::string_view datePattern;
  std::string operator()(Null) const { return ""; }
  std::string operator()(bool flag) const { return flag ? "True" : "False"; }
  std::string operator()(std::int64_t number) const { return std::to_string(number); }
  std::string operator()(double number) const { return numberText(number); }
  std::string operator()(const Decimal& number) const { return textOfDecimal(number); }
  std::string operator()(Date date) const { return textOfDate(date, datePattern); }
  std::string operator()(const std::string& text) const { return text; }
};

}  // namespace

std::string textOf(const Value& value, std::string_view datePattern) {
  return std::visit(Writer{datePattern}, value);
}

}  // namespace payslate::basic
