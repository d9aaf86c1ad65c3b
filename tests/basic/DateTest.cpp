// Calendar arithmetic and date texts.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "platform/basic/Date.h"
#include "platform/basic/Error.h"
#include "platform/basic/Value.h"

namespace payslate::basic {
namespace {

std::string iso(Date date) {
  return formatDate(date, "yyyy/mm/dd");
}

TEST(Date, SerialsMeetTheCalendar) {
  struct Case {
    double serial;
    const char* day;
    int weekday;
  };
  for (const Case& c :
       {Case{0, "1899/12/30", 7}, Case{1, "1899/12/31", 1}, Case{2, "1900/01/01", 2},
        Case{61, "1900/03/01", 5}, Case{-1, "1899/12/29", 6}, Case{-1.25, "1899/12/29", 6},
        Case{-0.75, "1899/12/30", 7}, Case{36585, "2000/02/29", 3}, Case{38837.999, "2006/04/30", 1},
        Case{-657434, "0100/01/01", 6}, Case{2958465.75, "9999/12/31", 6}}) {
    const Date date(c.serial);
    EXPECT_EQ(iso(date), c.day) << c.serial;
    EXPECT_EQ(date.weekday(), c.weekday) << c.day;
    const CalendarDay day = date.calendar();
    EXPECT_EQ(Date::fromCalendar(day.year, day.month, day.day).serial(), std::trunc(c.serial)) << c.day;
  }
}

TEST(Date, DaysThatDoNotExistAreRefused) {
  for (const CalendarDay& day : {CalendarDay{1900, 2, 29}, CalendarDay{2005, 2, 29}, CalendarDay{2006, 4, 31},
                                 CalendarDay{2006, 13, 1}, CalendarDay{2006, 0, 1}, CalendarDay{2006, 1, 0},
                                 CalendarDay{99, 1, 1}, CalendarDay{10000, 1, 1}})
    EXPECT_THROW(Date::fromCalendar(day.year, day.month, day.day), ValueError)
        << day.year << '/' << day.month << '/' << day.day;
  EXPECT_THROW((void)Date(2958466).year(), ValueError);
  EXPECT_THROW((void)Date(-657435).weekday(), ValueError);
  EXPECT_THROW((void)Date(2958465).plusDays(1), ValueError);
  EXPECT_THROW((void)Date().plusYears(2147483647), ValueError);
}

TEST(Date, MonthsAndYearsClipToTheLastDay) {
  struct Case {
    CalendarDay from;
    int months;
    const char* to;
  };
  for (const Case& c : {Case{{2006, 1, 31}, 1, "2006/02/28"}, Case{{2004, 1, 31}, 1, "2004/02/29"},
                        Case{{2006, 3, 31}, -1, "2006/02/28"}, Case{{2005, 12, 26}, 1, "2006/01/26"},
                        Case{{2006, 1, 15}, -1, "2005/12/15"}, Case{{2006, 12, 31}, -13, "2005/11/30"},
                        Case{{1899, 12, 30}, 2, "1900/02/28"}})
    EXPECT_EQ(iso(Date::fromCalendar(c.from.year, c.from.month, c.from.day).plusMonths(c.months)), c.to);
  EXPECT_EQ(iso(Date::fromCalendar(2004, 2, 29).plusYears(1)), "2005/02/28");
  EXPECT_EQ(iso(Date::fromCalendar(2004, 2, 29).plusYears(-4)), "2000/02/29");
  EXPECT_DOUBLE_EQ(Date(38837.5).plusMonths(1).serial(), 38867.5);
}

TEST(Date, TimesCountForwardsBeforeTheZeroDateToo) {
  const Date sixInTheMorning(-1.25);
  EXPECT_DOUBLE_EQ(sixInTheMorning.plusDays(0.5).serial(), -1.75);
  EXPECT_DOUBLE_EQ(sixInTheMorning.plusDays(1).serial(), 0.25);
  EXPECT_DOUBLE_EQ(sixInTheMorning.plusDays(-0.5).serial(), -2.75);
  EXPECT_DOUBLE_EQ(sixInTheMorning.plusMonths(1).serial(), 30.25);
  EXPECT_EQ(textOf(Value(sixInTheMorning)), "29/12/1899 06:00:00");
  EXPECT_EQ(textOf(Value(Date(38837.9999999))), "01/05/2006");
  EXPECT_EQ(textOf(Value(Date(38837.75)), "yyyy-mm-dd"), "2006-04-30 18:00:00");
  EXPECT_EQ(daysBetween(Date(-1.25), Date(0.25)), 1);
  EXPECT_EQ(daysBetween(Date(38837.9), Date(38807.1)), -30);
}

TEST(Date, TextsFollowThePattern) {
  struct Case {
    const char* pattern;
    const char* text;
  };
  const Date date = Date::fromCalendar(2006, 4, 3);
  for (const Case& c : {Case{"yyyy/mm/dd", "2006/04/03"}, Case{"yyyymmdd", "20060403"},
                        Case{"dd/MM/yyyy", "03/04/2006"}, Case{"d.M.yyyy", "3.4.2006"},
                        Case{"MM-DD-YYYY", "04-03-2006"}, Case{"'x' d/m, yyyy", "'x' 3/4, 2006"}}) {
    EXPECT_EQ(formatDate(date, c.pattern), c.text);
    EXPECT_EQ(parseDate("  " + std::string(c.text) + " ", c.pattern), date) << c.pattern;
  }
  EXPECT_EQ(formatDate(date, "dd/mm/yy"), "03/04/06");
  EXPECT_EQ(iso(parseDate("31.12.9999", "d.m.yyyy")), "9999/12/31");
}

TEST(Date, TextsThatAreNoDatesAreNamed) {
  struct Case {
    const char* text;
    const char* pattern;
  };
  for (const Case& c :
       {Case{"", "dd/mm/yyyy"}, Case{"31/02/2006", "dd/mm/yyyy"}, Case{"1/02/2006", "dd/mm/yyyy"},
        Case{"2006/04/03", "dd/mm/yyyy"}, Case{"03/04/06", "dd/mm/yyyy"}, Case{"03/04/2006 x", "dd/mm/yyyy"},
        Case{"03/04/20061", "dd/mm/yyyy"}, Case{"03-04-2006", "dd/mm/yyyy"}, Case{"03/04", "dd/mm/yyyy"},
        Case{"-3/04/2006", "d/mm/yyyy"}, Case{"03/04/06", "dd/mm/yy"}, Case{"2006", "yyyy"}}) {
    try {
      parseDate(c.text, c.pattern);
      ADD_FAILURE() << c.text << " was read with " << c.pattern;
    } catch (const ValueError& error) {
      EXPECT_EQ(error.kind(), ErrorKind::InvalidDate);
      EXPECT_NE(std::string(error.what()).find("\"" + std::string(c.text) + "\""), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace payslate::basic
