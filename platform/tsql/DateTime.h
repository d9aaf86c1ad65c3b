// Moments as milliseconds since 1900-01-01, read from and written as text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/tsql/Type.h"

namespace payslate::tsql {

inline constexpr std::int64_t millisecondsPerDay = 86'400'000;
inline constexpr int earliestYear = 1753;
inline constexpr int latestYear = 9999;

struct CivilTime {
  int year = 1900;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
  int millisecond = 0;
};

enum class DatePart {
  Year,
  Quarter,
  Month,
  DayOfYear,
  Day,
  Week,
  Weekday,
  Hour,
  Minute,
  Second,
  Millisecond
};

/// False when there is no part of that name; "d", "dd" and "day" are the same.
bool datePartNamed(std::string_view name, DatePart& part);

CivilTime civilTime(std::int64_t moment);
/// SqlError when the day does not exist or lies outside years 1753 to 9999.
std::int64_t momentOf(const CivilTime& time);
/// Whole days since 1900-01-01, rounded down.
std::int64_t dayNumber(std::int64_t moment);
/// Checks the range, and rounds to what the kind can hold: a day, a minute, or a 300th of a second.
std::int64_t roundedMoment(std::int64_t moment, Kind kind);

/// yyyy/mm/dd, yyyy-mm-dd, yyyymmdd, mm/dd/yyyy, month names, each with an optional time of day; blanks
/// around are allowed and "" is the zero date. `style` as in convert (103 is dd/mm/yyyy). SqlError otherwise.
std::int64_t readMoment(std::string_view text, int style);
/// SqlError for a style that is not known.
std::string writeMoment(std::int64_t moment, int style, Kind kind);

std::int64_t addToMoment(DatePart part, std::int64_t number, std::int64_t moment);
std::int64_t momentDifference(DatePart part, std::int64_t from, std::int64_t to);
std::int64_t partOf(DatePart part, std::int64_t moment);
std::string partName(DatePart part, std::int64_t moment);

}  // namespace payslate::tsql
