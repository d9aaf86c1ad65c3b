// Calendar arithmetic on milliseconds.
#include "platform/tsql/DateTime.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <map>

#include "platform/tsql/SqlError.h"
#include "platform/tsql/TokenStream.h"

namespace payslate::tsql {

namespace {

namespace chr = std::chrono;

constexpr chr::sys_days zeroDay{chr::year{1900} / 1 / 1};
constexpr std::int64_t msPerSecond = 1000;
constexpr std::int64_t msPerMinute = 60 * msPerSecond;
constexpr std::int64_t msPerHour = 60 * msPerMinute;
constexpr int monthsPerYear = 12;
constexpr int monthsPerQuarter = 3;
constexpr int daysPerWeek = 7;
constexpr int zeroWeekday = 1;  // 1900-01-01 is a Monday; Sunday is 0.

std::int64_t floorDivide(std::int64_t number, std::int64_t by) {
  const std::int64_t quotient = number / by;
  return number % by < 0 ? quotient - 1 : quotient;
}

[[noreturn]] void outOfRange(Kind kind = Kind::DateTime) {
  const std::string years = std::to_string(earliestYear) + " to " + std::to_string(latestYear);
  throw SqlError("22008", kind == Kind::SmallDateTime
                              ? "The date lies outside the days of smalldatetime, 1900/01/01 to 2079/06/06."
                              : "The date lies outside the years " + years + ".");
}

std::int64_t dayOf(int year, int month, int day) {
  const chr::year_month_day date{chr::year{year}, chr::month{static_cast<unsigned>(month)},
                                 chr::day{static_cast<unsigned>(day)}};
  return (chr::sys_days{date} - zeroDay).count();
}

std::int64_t plusMonths(std::int64_t moment, std::int64_t months) {
  CivilTime time = civilTime(moment);
  const std::int64_t month = std::int64_t{time.year} * monthsPerYear + (time.month - 1) + months;
  const std::int64_t year = floorDivide(month, monthsPerYear);
  if (year < earliestYear || year > latestYear) outOfRange();
  time.year = static_cast<int>(year);
  time.month = static_cast<int>(month - year * monthsPerYear) + 1;
  const chr::year_month_day_last last{chr::year{time.year},
                                      chr::month_day_last{chr::month{static_cast<unsigned>(time.month)}}};
  time.day = std::min(time.day, static_cast<int>(static_cast<unsigned>(last.day())));
  return momentOf(time);
}

std::int64_t weekOf(std::int64_t day) {
  return floorDivide(day + zeroWeekday, daysPerWeek);
}

std::int64_t unitOf(DatePart part) {
  switch (part) {
    case DatePart::Week:
      return daysPerWeek * millisecondsPerDay;
    case DatePart::Hour:
      return msPerHour;
    case DatePart::Minute:
      return msPerMinute;
    case DatePart::Second:
      return msPerSecond;
    case DatePart::Millisecond:
      return 1;
    default:
      return millisecondsPerDay;
  }
}

}  // namespace

bool datePartNamed(std::string_view name, DatePart& part) {
  static const std::map<std::string, DatePart, std::less<>> names = {
      {"year", DatePart::Year},       {"yy", DatePart::Year},
      {"yyyy", DatePart::Year},       {"quarter", DatePart::Quarter},
      {"qq", DatePart::Quarter},      {"q", DatePart::Quarter},
      {"month", DatePart::Month},     {"mm", DatePart::Month},
      {"m", DatePart::Month},         {"dayofyear", DatePart::DayOfYear},
      {"dy", DatePart::DayOfYear},    {"y", DatePart::DayOfYear},
      {"day", DatePart::Day},         {"dd", DatePart::Day},
      {"d", DatePart::Day},           {"week", DatePart::Week},
      {"wk", DatePart::Week},         {"ww", DatePart::Week},
      {"weekday", DatePart::Weekday}, {"dw", DatePart::Weekday},
      {"w", DatePart::Weekday},       {"hour", DatePart::Hour},
      {"hh", DatePart::Hour},         {"minute", DatePart::Minute},
      {"mi", DatePart::Minute},       {"n", DatePart::Minute},
      {"second", DatePart::Second},   {"ss", DatePart::Second},
      {"s", DatePart::Second},        {"millisecond", DatePart::Millisecond},
      {"ms", DatePart::Millisecond}};
  const auto found = names.find(lowerWord(name));
  if (found == names.end()) return false;
  part = found->second;
  return true;
}

std::int64_t dayNumber(std::int64_t moment) {
  return floorDivide(moment, millisecondsPerDay);
}

CivilTime civilTime(std::int64_t moment) {
  const std::int64_t day = dayNumber(moment);
  const chr::year_month_day date{zeroDay + chr::days{day}};
  std::int64_t rest = moment - day * millisecondsPerDay;
  CivilTime time;
  time.year = static_cast<int>(date.year());
  time.month = static_cast<int>(static_cast<unsigned>(date.month()));
  time.day = static_cast<int>(static_cast<unsigned>(date.day()));
  time.hour = static_cast<int>(rest / msPerHour);
  rest %= msPerHour;
  time.minute = static_cast<int>(rest / msPerMinute);
  rest %= msPerMinute;
  time.second = static_cast<int>(rest / msPerSecond);
  time.millisecond = static_cast<int>(rest % msPerSecond);
  return time;
}

std::int64_t momentOf(const CivilTime& time) {
  if (time.year < earliestYear || time.year > latestYear) outOfRange();
  const chr::year_month_day date{chr::year{time.year}, chr::month{static_cast<unsigned>(time.month)},
                                 chr::day{static_cast<unsigned>(time.day)}};
  constexpr int hoursPerDay = 24;
  constexpr int sixty = 60;
  if (time.month < 1 || time.day < 1 || !date.ok() || time.hour >= hoursPerDay || time.minute >= sixty ||
      time.second >= sixty || time.millisecond >= msPerSecond) {
    throw SqlError(state::badDate, "There is no such day or time of day.");
  }
  return dayOf(time.year, time.month, time.day) * millisecondsPerDay + time.hour * msPerHour +
         time.minute * msPerMinute + time.second * msPerSecond + time.millisecond;
}

std::int64_t roundedMoment(std::int64_t moment, Kind kind) {
  static const std::int64_t earliest = dayOf(earliestYear, 1, 1) * millisecondsPerDay;
  static const std::int64_t behind = dayOf(latestYear + 1, 1, 1) * millisecondsPerDay;
  if (moment < earliest || moment >= behind) outOfRange();
  if (kind == Kind::Date) return dayNumber(moment) * millisecondsPerDay;
  if (kind == Kind::SmallDateTime) {
    static const std::int64_t behindSmall = dayOf(2079, 6, 7) * millisecondsPerDay;
    const std::int64_t rounded = floorDivide(moment + msPerMinute / 2, msPerMinute) * msPerMinute;
    if (rounded < 0 || rounded >= behindSmall) outOfRange(kind);
    return rounded;
  }
  // 300ths of a second, shown as .000, .003 and .007.
  static constexpr std::array<int, 10> lastDigit = {0, 0, 3, 3, 3, 7, 7, 7, 7, 10};
  const std::int64_t tens = floorDivide(moment, 10) * 10;
  const std::int64_t rounded = tens + lastDigit[static_cast<std::size_t>(moment - tens)];
  if (rounded >= behind) outOfRange();
  return rounded;
}

std::int64_t addToMoment(DatePart part, std::int64_t number, std::int64_t moment) {
  constexpr std::int64_t mostMonths = std::int64_t{latestYear} * monthsPerYear;
  constexpr std::int64_t mostMilliseconds = std::int64_t{latestYear} * 366 * millisecondsPerDay;
  const bool byMonth = part == DatePart::Year || part == DatePart::Quarter || part == DatePart::Month;
  const std::int64_t unit = unitOf(part);
  const std::int64_t most = byMonth ? mostMonths : mostMilliseconds / unit;
  if (number < -most || number > most) outOfRange();
  if (!byMonth) return moment + number * unit;
  const int months = part == DatePart::Year      ? monthsPerYear
                     : part == DatePart::Quarter ? monthsPerQuarter
                                                 : 1;
  return plusMonths(moment, number * months);
}

std::int64_t momentDifference(DatePart part, std::int64_t from, std::int64_t to) {
  const CivilTime start = civilTime(from);
  const CivilTime end = civilTime(to);
  const int years = end.year - start.year;
  switch (part) {
    case DatePart::Year:
      return years;
    case DatePart::Quarter:
      return years * (monthsPerYear / monthsPerQuarter) + (end.month - 1) / monthsPerQuarter -
             (start.month - 1) / monthsPerQuarter;
    case DatePart::Month:
      return years * monthsPerYear + end.month - start.month;
    case DatePart::Week:
      return weekOf(dayNumber(to)) - weekOf(dayNumber(from));
    default: {
      const std::int64_t unit = unitOf(part);
      return floorDivide(to, unit) - floorDivide(from, unit);
    }
  }
}

std::int64_t partOf(DatePart part, std::int64_t moment) {
  const CivilTime time = civilTime(moment);
  const std::int64_t day = dayNumber(moment);
  const std::int64_t newYear = dayOf(time.year, 1, 1);
  switch (part) {
    case DatePart::Year:
      return time.year;
    case DatePart::Quarter:
      return (time.month - 1) / monthsPerQuarter + 1;
    case DatePart::Month:
      return time.month;
    case DatePart::DayOfYear:
      return day - newYear + 1;
    case DatePart::Day:
      return time.day;
    case DatePart::Week:
      return weekOf(day) - weekOf(newYear) + 1;
    case DatePart::Weekday:
      return day + zeroWeekday - weekOf(day) * daysPerWeek + 1;
    case DatePart::Hour:
      return time.hour;
    case DatePart::Minute:
      return time.minute;
    case DatePart::Second:
      return time.second;
    case DatePart::Millisecond:
      return time.millisecond;
  }
  return 0;
}

std::string partName(DatePart part, std::int64_t moment) {
  static constexpr std::array<const char*, 12> months = {"January",   "February", "March",    "April",
                                                         "May",       "June",     "July",     "August",
                                                         "September", "October",  "November", "December"};
  static constexpr std::array<const char*, 7> days = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                      "Thursday", "Friday", "Saturday"};
  const std::int64_t number = partOf(part, moment);
  if (part == DatePart::Month) return months[static_cast<std::size_t>(number - 1)];
  if (part == DatePart::Weekday) return days[static_cast<std::size_t>(number - 1)];
  return std::to_string(number);
}

}  // namespace payslate::tsql
