// Calendar dates with a time of day, as a count of days.
#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace payslate::basic {

/// Proleptic Gregorian calendar date. month 1..12, day 1..31.
struct CalendarDay {
  int year = 1899;
  int month = 12;
  int day = 30;
  friend bool operator==(const CalendarDay&, const CalendarDay&) = default;
};

/// A moment as days since 1899-12-30 (the zero date); the fraction is the time of day. Before the zero
/// date the whole part counts backwards and the fraction still counts forwards from midnight.
/// Range: years 100 to 9999; anything outside throws ValueError(InvalidDate).
class Date {
 public:
  constexpr Date() = default;
  explicit constexpr Date(double serial) : serial_(serial) {}
  static Date fromCalendar(int year, int month,
                           int day);  ///< Throws ValueError for a day that does not exist.

  [[nodiscard]] constexpr double serial() const { return serial_; }
  [[nodiscard]] CalendarDay calendar() const;
  [[nodiscard]] int year() const { return calendar().year; }
  [[nodiscard]] int month() const { return calendar().month; }
  [[nodiscard]] int day() const { return calendar().day; }
  [[nodiscard]] int weekday() const;  ///< 1 = Sunday to 7 = Saturday.

  [[nodiscard]] Date plusDays(double days) const;
  [[nodiscard]] Date plusMonths(
      int months) const;  ///< Clips to the month's last day: 31 January + 1 = 28 or 29 February.
  [[nodiscard]] Date plusYears(int years) const;  ///< 29 February + 1 year = 28 February.

  friend constexpr auto operator<=>(const Date&, const Date&) = default;

 private:
  double serial_ = 0;
};

/// Whole days from midnight of `from` to midnight of `to`; negative when `to` is earlier.
long daysBetween(Date from, Date to);
bool isLeapYear(int year);
int daysInMonth(int year, int month);

/// `date` written by a pattern of yyyy, yy, mm (or MM), m, dd, d with anything else taken as it stands
/// (letters in any case): formatDate(d, "yyyy/mm/dd"), "yyyymmdd", "dd/MM/yyyy".
std::string formatDate(Date date, std::string_view pattern);

/// Reads text written by `formatDate` with a pattern that has day, month and a four-digit year.
/// Surrounding blanks are allowed. Throws ValueError(InvalidDate) naming the text.
Date parseDate(std::string_view text, std::string_view pattern);

}  // namespace payslate::basic
