// What somebody who looks at a month should know of an employee: a flag, a function each.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "review/MonthPay.h"

namespace payslate {

class StoredState;

/// What the month is held against.
struct MonthGround {
  DaySpan period;  ///< The pay period of a new entry.
  MonthCalendars calendars;
  basic::Decimal percent;                ///< A net pay that differs by more has changed,
  std::optional<basic::Decimal> amount;  ///< as has one that differs by more than this, if it is given.
  StoredState& stored;
};

/// An employee's pay in one currency; null in a month without any.
struct CurrencyPay {
  const EmployeeMonth& employee;
  std::string symbol;
  bool isFirst;  ///< What is about the employee, or a whole entry, is told once: here.
  const PaySums* now;
  const PaySums* before;
};

struct RaisedFlag {
  const char* word;
  std::vector<std::string> remarks;
};

/// In a fixed order:
///   no-entry   active, and no live entry in the month; the remark says what a new entry would meet
///   missing    paid in the month before, and not now
///   left       not active any more
///   new        no net pay in the month before
///   hold       on hold
///   cash       paid in cash
///   negative   a net pay below 0
///   changed    a net pay that differs by more than the ground allows; the remark says where most of it is
///   cancelled  an entry of the month was cancelled, and none made again
///   finding    what the review of an entry finds, of what stored rows show
std::vector<RaisedFlag> flagsOf(const CurrencyPay& pay, const MonthGround& ground);

}  // namespace payslate
