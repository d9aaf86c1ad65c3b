// An entry for the demo company that is not stored yet.
#pragma once

#include "component/EntryRecord.h"
#include "component/PayRows.h"

namespace payslate {

constexpr std::int32_t employee = 101;

/// One row of every kind, numbered as lists number theirs, in the order in which they are read again.
inline EntryRecord everyKind() {
  EntryRecord entry;
  entry.date = basic::Date::fromCalendar(2026, 4, 30);
  entry.employeeId = employee;
  entry.paidCash = PaidCash::OnHold;
  entry.basicPay = "28000.5";
  entry.periodStart = basic::Date::fromCalendar(2026, 4, 1);
  entry.periodEnd = basic::Date::fromCalendar(2026, 4, 30);
  entry.allowances = {{"1", "House rent", "3000.00", "1", AllowKind::Standing, "Rs"},
                      {"2", "Travel", "12.34", "4", AllowKind::Added, "$"},
                      {"3", balanceDescription, "500.00", "500.00", AllowKind::CarriedForward, "Rs"}};
  entry.deductions = {{"1", "Canteen", "300.25", "2", DeductKind::Standing, "Rs", ""},
                      {"2", "House loan", "3500.50", "2", DeductKind::Loan, "Rs", "2"},
                      {"3", "Thrift", "250.00", "1", DeductKind::Savings, "Rs", "1"},
                      {"4", "Vehicle recovery", "700.75", "3", DeductKind::Facility, "Rs", ""},
                      {"5", "Late hours", "125.00", "4", DeductKind::Hourly, "Rs", ""},
                      {"6", "Union fee", "0.05", "7", DeductKind::Added, "Rs", ""},
                      {"7", carryForwardDescription, "100.00", "100.00", DeductKind::CarriedForward, "Rs"}};
  entry.facilities = {{1, "1", "FT-1", "Motor cycle", "500", "450", "450", "3", "Rs"},
                      {2, "2", "FT-2", "Motor cycle", "250.75", "250.75", "250.75", "3", "Rs"}};
  return entry;
}

}  // namespace payslate
