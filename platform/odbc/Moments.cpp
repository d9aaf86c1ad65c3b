// Whole days by the calendar, the time of day by milliseconds.
#include "platform/odbc/Moments.h"

#include <cmath>
#include <cstdint>

#include "platform/basic/Error.h"

namespace payslate::odbc {
namespace {

constexpr std::int64_t perSecond = 1000;
constexpr std::int64_t perMinute = 60 * perSecond;
constexpr std::int64_t perHour = 60 * perMinute;
constexpr std::int64_t perDay = 24 * perHour;
constexpr std::int64_t nanosecondsPerMillisecond = 1'000'000;

}  // namespace

SQL_TIMESTAMP_STRUCT timestampOf(basic::Date date) {
  const double whole = std::trunc(date.serial());
  std::int64_t time = std::llround(std::abs(date.serial() - whole) * static_cast<double>(perDay));
  basic::Date day(whole);
  if (time == perDay) {  // Less than half a millisecond before midnight.
    time = 0;
    day = day.plusDays(1);
  }
  const basic::CalendarDay calendar = day.calendar();
  SQL_TIMESTAMP_STRUCT moment{};
  moment.year = static_cast<SQLSMALLINT>(calendar.year);
  moment.month = static_cast<SQLUSMALLINT>(calendar.month);
  moment.day = static_cast<SQLUSMALLINT>(calendar.day);
  moment.hour = static_cast<SQLUSMALLINT>(time / perHour);
  moment.minute = static_cast<SQLUSMALLINT>(time % perHour / perMinute);
  moment.second = static_cast<SQLUSMALLINT>(time % perMinute / perSecond);
  moment.fraction = static_cast<SQLUINTEGER>(time % perSecond * nanosecondsPerMillisecond);
  return moment;
}

basic::Date dateOf(const SQL_TIMESTAMP_STRUCT& moment) {
  const basic::Date day = basic::Date::fromCalendar(moment.year, moment.month, moment.day);
  if (moment.hour >= 24 || moment.minute >= 60 || moment.second >= 60 ||
      moment.fraction >= nanosecondsPerMillisecond * perSecond)
    throw basic::ValueError(basic::ErrorKind::InvalidDate, "There is no such time of day");
  const std::int64_t time = moment.hour * perHour + moment.minute * perMinute + moment.second * perSecond +
                            moment.fraction / nanosecondsPerMillisecond;
  const double fraction = static_cast<double>(time) / static_cast<double>(perDay);
  // Before the zero date days count backwards, and the time of day still forwards.
  return basic::Date(day.serial() < 0 ? day.serial() - fraction : day.serial() + fraction);
}

}  // namespace payslate::odbc
