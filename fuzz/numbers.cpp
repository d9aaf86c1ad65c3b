// Fuzz target: numbers, dates, texts and formats. The first line is what is read; behind it stand a pattern
// and numbers of any bits.
#include "platform/basic/Numbers.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <stdexcept>
#include <string>

#include "fuzz/Bytes.h"
#include "fuzz/Target.h"
#include "platform/basic/Date.h"
#include "platform/basic/Decimal.h"
#include "platform/basic/Error.h"
#include "platform/basic/Unicode.h"
#include "platform/basic/Value.h"

using namespace payslate;
using basic::Date;
using basic::Decimal;
using fuzz::require;

namespace {

/// Runs what may be refused with a ValueError, and with nothing else. Was it done?
bool tried(const std::function<void()>& work) {
  try {
    work();
    return true;
  } catch (const basic::ValueError& error) {
    require(*error.what() != '\0', "a refusal says why");
    return false;
  }
}

/// With its 15 digits a number reads back as itself.
void writeAndRead(double number) {
  constexpr double leastExact = 1e-290;
  tried([&] {
    const std::string text = basic::numberText(number);
    require(basic::IsNumeric(text), "a written number is one");
    if (number != 0 && std::abs(number) < leastExact) return;
    require(basic::numberText(basic::CDbl(text)) == text, "a number keeps its digits");
  });
}

void narrow(const basic::Value& value) {
  std::int32_t whole = 0;
  std::int16_t small = 0;
  const bool fits = tried([&] { whole = basic::CLng(value); });
  const bool isSmall = tried([&] { small = basic::CInt(value); });
  require(!isSmall || (fits && small == whole), "16 bits are some of 32");
  tried([&] {
    const double number = basic::CDbl(value);
    require(!fits || std::abs(number - whole) <= 0.5, "rounding goes to the nearest");
  });
  tried([&] { basic::CBool(value); });
  tried([&] { basic::textOf(value); });
}

void readNumber(const std::string& text) {
  narrow(text);
  tried([&] { basic::numberOrZero(text); });
  tried([&] {
    const double number = basic::Val(text);
    require(!basic::IsNumeric(text) || number == basic::CDbl(text), "numeric text has one value");
    writeAndRead(number);
  });
}

void format(double number, const std::string& pattern) {
  tried([&] {
    require(!basic::Format(number, pattern).empty() || pattern.find('0') == std::string::npos,
            "0 asks for a digit");
  });
  if (!(std::abs(number) < 1e12)) return;
  const std::string amount = basic::Format(number, "0.00");
  // What is rounded is the number with its 15 digits.
  const double most = 0.0050001 + std::abs(number) * 1e-14;
  require(std::abs(basic::CDbl(amount) - number) <= most, "an amount is the nearest");
  require(basic::Format(basic::CDbl(amount), "########0.00") == amount, "an amount stays what it is");
}

void compute(const Decimal& a, const Decimal& b) {
  require(Decimal::parse(a.text()) == a && Decimal::parse(a.text()).scale() == a.scale(),
          "decimals read back");
  require((a < b) == (b > a) && (a == b) == (b == a), "decimals have one order");
  require(!(a < b) || a.toDouble() <= b.toDouble(), "doubles keep their order");
  tried([&] { require(a + b == b + a && (a + b) - b == a, "sums can be undone"); });
  tried([&] { require(a * b == b * a, "factors change places"); });
  tried([&] {
    const Decimal quotient = Decimal::divide(a * b, b, a.scale());
    require(quotient == a, "products can be undone");
  });
  tried([&] {
    const int scale = std::abs(b.scale());
    const Decimal off = a.rounded(scale) - a;
    const Decimal most = Decimal::divide(Decimal::fromInteger(1), Decimal::fromInteger(2), 1);
    require((off.isNegative() ? off.negated() : off) <= most, "rounding goes to the nearest");
    require(a.truncated(scale).scale() == scale, "a scale is what was asked for");
  });
  tried([&] { require(Decimal::fromInteger(a.toInteger()) == a.truncated(0), "whole numbers are exact"); });
  narrow(a);
}

void readDecimals(const std::string& first, const std::string& second) {
  tried([&] {
    const Decimal a = Decimal::parse(first);
    const Decimal b = Decimal::parse(second);
    try {
      compute(a, b);
    } catch (const std::domain_error&) {
      require(b.isZero(), "only a division by zero fails");
    }
  });
}

void walkDates(Date date, int months, double days, const std::string& pattern) {
  tried([&] {
    const basic::CalendarDay day = date.calendar();
    const Date midnight = Date::fromCalendar(day.year, day.month, day.day);
    require(midnight.serial() == std::trunc(date.serial()), "a day is its calendar's");
    require(date.weekday() >= 1 && date.weekday() <= 7, "a week has seven days");
    basic::formatDate(date, pattern);
    for (const char* const whole : {"yyyy/mm/dd", "dd/MM/yyyy", "yyyymmdd", "m-d-yyyy"})
      require(basic::parseDate(basic::formatDate(date, whole), whole) == midnight,
              "a written date reads back");
    require(basic::daysBetween(midnight, date) == 0, "the time of day is no day");
    basic::textOf(date);
  });
  tried([&] { require(date.plusMonths(months).day() <= date.day(), "a month clips"); });
  tried([&] { require(date.plusYears(months % 100).month() == date.month(), "a year keeps the month"); });
  tried([&] { basic::daysBetween(date, date.plusDays(days)); });
}

void fold(const std::string& text) {
  require(basic::encoded(basic::characters(text)) == text, "no byte is lost");
  require(basic::characterCount(text) == basic::characters(text).size(), "characters are counted alike");
  require(basic::lower(basic::lower(text)) == basic::lower(text), "small letters stay small");
  require(basic::upper(basic::upper(text)) == basic::upper(text), "capitals stay capitals");
  require(basic::sameName(text, basic::Trim(text)) || text.starts_with(' ') || text.ends_with(' '),
          "trimming");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string all = fuzz::textOf(data, size);
  const std::size_t end = std::min(all.find('\n'), all.size());
  const std::string text = all.substr(0, end);
  fuzz::Bytes rest(std::string_view(all).substr(std::min(end + 1, all.size())));
  const std::string pattern(rest.text());
  const auto number = rest.number<double>();
  const auto whole = rest.number<std::int64_t>();
  const auto months = rest.number<std::int32_t>();

  fold(text);
  readNumber(text);
  readDecimals(text, pattern);
  writeAndRead(number);
  for (const basic::Value& value : {basic::Value(number), basic::Value(whole), basic::Value(Date(number))})
    narrow(value);
  format(number, pattern);
  tried([&] { require(Decimal::fromDouble(number, months % 40).scale() == months % 40, "a scale is kept"); });
  tried([&] {
    require(basic::formatDate(basic::parseDate(text, pattern), pattern).size() >= 4, "a date has a year");
  });
  walkDates(Date(number), months, number, text);
  return 0;
}
