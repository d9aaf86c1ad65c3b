// Calendar arithmetic over the day count.
#include "platform/basic/Date.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <optional>

#include "platform/basic/Error.h"

namespace payslate::basic {
namespace {

namespace chrono = std::chrono;

constexpr int minYear = 100;
constexpr int maxYear = 9999;
constexpr int monthsPerYear = 12;
constexpr int daysPerWeek = 7;

constexpr chrono::sys_days zeroDay{chrono::year{1899} / 12 / 30};

constexpr chrono::sys_days dayOf(int year, int month, int day) {
  return chrono::sys_days{chrono::year{year} / month / day};
}

constexpr long serialOf(chrono::sys_days day) {
  return static_cast<long>((day - zeroDay).count());
}

constexpr long firstSerial = serialOf(dayOf(minYear, 1, 1));
constexpr long lastSerial = serialOf(dayOf(maxYear, 12, 31));

[[noreturn]] void refuse(const std::string& what) {
  throw ValueError(ErrorKind::InvalidDate, what);
}

/// The whole days, checked for range.
long wholeDays(double serial) {
  const double whole = std::trunc(serial);
  if (!(whole >= static_cast<double>(firstSerial) && whole <= static_cast<double>(lastSerial)))
    refuse("The date is outside the years 100 to 9999");
  return static_cast<long>(whole);
}

double timeOfDay(double serial) {
  return std::abs(serial - std::trunc(serial));
}

/// Joins days and the time that counts forwards from midnight, whatever the sign of the day.
Date joined(double whole, double time) {
  double serial = whole < 0 ? whole - time : whole + time;
  // Far from the zero date the last moment of a day would be rounded into the next one.
  if (std::trunc(serial) != whole) serial = std::nextafter(serial, 0);
  wholeDays(serial);
  return Date(serial);
}

enum class PartKind { Year, ShortYear, Month, Day, Literal };

struct PatternPart {
  PartKind kind;
  std::size_t width;  // letters of the pattern
};

constexpr char lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The part that starts at `at`; longer runs first, so that "yyyy" is not read as two short years.
PatternPart partAt(std::string_view pattern, std::size_t at) {
  struct Known {
    char letter;
    PatternPart part;
  };
  static constexpr std::array<Known, 6> known{{{'y', {PartKind::Year, 4}},
                                               {'y', {PartKind::ShortYear, 2}},
                                               {'m', {PartKind::Month, 2}},
                                               {'m', {PartKind::Month, 1}},
                                               {'d', {PartKind::Day, 2}},
                                               {'d', {PartKind::Day, 1}}}};
  for (const Known& candidate : known) {
    std::size_t run = 0;
    while (at + run < pattern.size() && lowered(pattern[at + run]) == candidate.letter) ++run;
    if (run >= candidate.part.width) return candidate.part;
  }
  return {PartKind::Literal, 1};
}

std::string padded(int number, std::size_t width) {
  std::string digits = std::to_string(number);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

/// Up to `most` digits from `text` at `at`, which moves behind them; nothing when fewer than `least` stand
/// there.
std::optional<int> readNumber(std::string_view text, std::size_t& at, std::size_t least, std::size_t most) {
  int number = 0;
  std::size_t count = 0;
  while (count < most && at < text.size() && isDigit(text[at])) {
    number = number * 10 + (text[at] - '0');
    ++at;
    ++count;
  }
  return count >= least ? std::optional(number) : std::nullopt;
}

/// Year, month and day where the pattern has them; nothing when the text does not follow the pattern.
std::optional<CalendarDay> readParts(std::string_view text, std::string_view pattern) {
  CalendarDay found{0, 0, 0};
  std::size_t at = 0;
  for (std::size_t p = 0; p < pattern.size();) {
    const PatternPart part = partAt(pattern, p);
    if (part.kind == PartKind::Literal) {
      if (at >= text.size() || text[at] != pattern[p]) return std::nullopt;
      ++at;
    } else {
      const std::size_t most = part.width == 1 ? 2 : part.width;
      const std::optional<int> number = readNumber(text, at, part.width, most);
      if (!number || part.kind == PartKind::ShortYear) return std::nullopt;
      (part.kind == PartKind::Year    ? found.year
       : part.kind == PartKind::Month ? found.month
                                      : found.day) = *number;
    }
    p += part.width;
  }
  return at == text.size() ? std::optional(found) : std::nullopt;
}

bool exists(int year, int month, int day) {
  return year >= minYear && year <= maxYear && month >= 1 && month <= monthsPerYear && day >= 1 &&
         day <= daysInMonth(year, month);
}

}  // namespace

Date Date::fromCalendar(int year, int month, int day) {
  if (!exists(year, month, day))
    refuse("There is no day " + padded(year, 4) + "/" + padded(month, 2) + "/" + padded(day, 2));
  return Date(static_cast<double>(serialOf(dayOf(year, month, day))));
}

CalendarDay Date::calendar() const {
  const chrono::year_month_day parts(zeroDay + chrono::days{wholeDays(serial_)});
  return {static_cast<int>(parts.year()), static_cast<int>(static_cast<unsigned>(parts.month())),
          static_cast<int>(static_cast<unsigned>(parts.day()))};
}

int Date::weekday() const {
  constexpr long zeroDayFromSunday = 6;  // the zero date was a Saturday
  const long fromSunday = (wholeDays(serial_) + zeroDayFromSunday) % daysPerWeek;
  return static_cast<int>((fromSunday + daysPerWeek) % daysPerWeek) + 1;
}

Date Date::plusDays(double days) const {
  const double linear = std::trunc(serial_) + timeOfDay(serial_) + days;
  const double whole = std::floor(linear);
  return joined(whole, linear - whole);
}

Date Date::plusMonths(int months) const {
  const CalendarDay from = calendar();
  const long long index = static_cast<long long>(from.year) * monthsPerYear + (from.month - 1) + months;
  if (index < static_cast<long long>(minYear) * monthsPerYear ||
      index >= static_cast<long long>(maxYear + 1) * monthsPerYear)
    refuse("The date is outside the years 100 to 9999");
  const int year = static_cast<int>(index / monthsPerYear);
  const int month = static_cast<int>(index % monthsPerYear) + 1;
  const int day = std::min(from.day, daysInMonth(year, month));
  return joined(static_cast<double>(serialOf(dayOf(year, month, day))), timeOfDay(serial_));
}

Date Date::plusYears(int years) const {
  if (years > maxYear || years < -maxYear) refuse("The date is outside the years 100 to 9999");
  return plusMonths(years * monthsPerYear);
}

long daysBetween(Date from, Date to) {
  return wholeDays(to.serial()) - wholeDays(from.serial());
}

bool isLeapYear(int year) {
  return chrono::year{year}.is_leap();
}

int daysInMonth(int year, int month) {
  if (month < 1 || month > monthsPerYear) refuse("There is no month " + std::to_string(month));
  const auto last = chrono::year{year} / month / chrono::last;
  return static_cast<int>(static_cast<unsigned>(last.day()));
}

std::string formatDate(Date date, std::string_view pattern) {
  constexpr int yearsPerCentury = 100;
  const CalendarDay day = date.calendar();
  std::string text;
  for (std::size_t p = 0; p < pattern.size();) {
    const PatternPart part = partAt(pattern, p);
    switch (part.kind) {
      case PartKind::Year:
        text += padded(day.year, part.width);
        break;
      case PartKind::ShortYear:
        text += padded(day.year % yearsPerCentury, part.width);
        break;
      case PartKind::Month:
        text += padded(day.month, part.width);
        break;
      case PartKind::Day:
        text += padded(day.day, part.width);
        break;
      case PartKind::Literal:
        text += pattern[p];
        break;
    }
    p += part.width;
  }
  return text;
}

Date parseDate(std::string_view text, std::string_view pattern) {
  std::string_view core = text;
  while (!core.empty() && core.front() == ' ') core.remove_prefix(1);
  while (!core.empty() && core.back() == ' ') core.remove_suffix(1);
  const std::optional<CalendarDay> day = readParts(core, pattern);
  if (!day || !exists(day->year, day->month, day->day))
    refuse("\"" + std::string(text) + "\" is not a date of the form " + std::string(pattern));
  return Date::fromCalendar(day->year, day->month, day->day);
}

}  // namespace payslate::basic
