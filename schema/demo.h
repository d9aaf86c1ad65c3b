// The people of the demo companies and what their months hold. Not for callers of this layer.
#pragma once

#include <string_view>
#include <vector>

#include "platform/ado/Connection.h"
#include "platform/basic/Value.h"

namespace payslate::schema {

/// Which attendance sheets an employee hands in.
enum class Sheets {
  Monthly,
  Split,        ///< two a month
  Gap,          ///< April's second half is missing
  Overlapping,  ///< a second sheet on top of April's
  Withdrawn,    ///< a cancelled sheet beside April's
  None,
};

struct Person {
  int company;
  int id;
  const char* name;
  int department;
  int currency;
  double basic;  ///< a month
  const char* joined = "2018/01/01";
  Sheets sheets = Sheets::Monthly;
  bool active = true;
  double hours = 8;  ///< a day
  basic::Value allowanceRate = basic::Null{};
  basic::Value deductionRate = basic::Null{};
};

struct PayMonth {
  basic::Date first;
  basic::Date last;
};

constexpr int demoYear = 2026;

const std::vector<Person>& people();
PayMonth payMonth(int company, int month);  ///< month 1..12 of the demo year
basic::Date dateOf(std::string_view text);  ///< yyyy/mm/dd
basic::Value money(double amount);

void fillPeople(ado::Connection& connection);
void fillAttendance(ado::Connection& connection);
void fillEntries(ado::Connection& connection);

}  // namespace payslate::schema
