// What the collaborators of the entry form share about the entry being worked on.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "component/LoadedMonth.h"
#include "component/RowOrigins.h"
#include "platform/basic/Date.h"

namespace payslate {

/// What the entry form holds of the selected employee's month.
enum class HeldMonth {
  Nothing,        ///< Nobody is selected, or the month could not be loaded whole.
  StoredAlready,  ///< The employee has an entry for the month, which choosing does not open.
  Whole,
};

struct EntryState {
  /// The employee that the form's combo has selected, at every moment; none when none is.
  std::optional<std::int32_t> employeeId;

  HeldMonth month = HeldMonth::Nothing;
  std::string whyNotWhole;  ///< What stood in the way, as the clerk was told; empty when the month is whole.

  LoadedMonth loaded;  ///< The month as it was when it became whole.

  // Where its amounts come from.
  RowOrigins rowOrigins;
  BasicPayOrigin basicPayOrigin;
  DaysOrigin daysOrigin;

  std::int32_t lngEntryID = 0;  ///< emhID of the entry opened or saved last; 0 before.
  double dblBasic = 0;          ///< The employee's basic pay as stored, before any reduction.
  double dblHolidays = 0;       ///< Holidays in the employee's attendance of the period.
  double dblPeriodDays = 0;     ///< Days of the period on which the employee is employed.
  double dblAbsentDays = 0;     ///< Absent days of the period, half days included.
  basic::Date dtDateOfJoin;     ///< Zero date when not known.
  std::string strCurSymbol;     ///< The currency symbol last looked up.
  std::string
      strDeptCondition;  ///< Narrows the calendar check to a department; empty for a company-wide calendar.
  std::string strDeptName;  ///< For the calendar message; empty when not known.
};

}  // namespace payslate
