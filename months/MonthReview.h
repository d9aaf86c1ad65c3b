// The review of a month: what is wanted, and what somebody who looks at it is shown.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/basic/Decimal.h"

namespace payslate {

struct ReviewOptions {
  std::vector<std::int32_t> departments;  ///< Empty: all.
  /// A net pay has changed that differs from the month before by more percent, or by a larger amount.
  basic::Decimal percent = basic::Decimal::fromInteger(25);
  std::optional<basic::Decimal> amount;  ///< In units of each currency; none: only the percents count.
  std::string acceptAs;                  ///< What the month is closed as; empty: it is only looked at.
};

/// An employee in one currency. Amounts have two decimals; empty where the month has none in the currency.
struct ReviewLine {
  std::int32_t employeeId = 0;
  std::string name;
  std::string department;
  std::string entry;  ///< Its number; several stand with blanks between them.
  std::string currency;
  std::string basicPay;
  std::string allowances;
  std::string deductions;
  std::string net;
  std::string before;      ///< The net pay of the month before.
  std::string difference;  ///< From before to now, where either has an amount.
  std::vector<std::string> flags;
  std::vector<std::string> remarks;
};

struct ReviewTotal {
  std::string department;  ///< Empty in sums over all departments.
  std::string currency;
  std::size_t employees = 0;  ///< With an entry in the month.
  std::string basicPay;
  std::string allowances;
  std::string deductions;
  std::string net;
  std::string before;
  std::string difference;
};

/// Times are the database's, yyyy/mm/dd hh:mm:ss.
struct ReviewAcceptance {
  std::string name;
  std::string user;
  std::string time;
  std::string hash;  ///< Of the totals.
};

/// What was done since to an entry of an accepted month.
struct ReviewChange {
  std::string entry;
  std::int32_t employeeId = 0;
  std::string name;
  std::string done;  ///< "entered", "changed", "cancelled"; "removed" when another program has removed it.
  std::string user;
  std::string time;
};

/// A total that is another than was accepted.
struct ReviewTotalChange {
  std::string department;
  std::string currency;
  std::size_t employeesAccepted = 0;
  std::size_t employees = 0;
  std::string accepted;  ///< The net pay.
  std::string net;
  std::string difference;
};

struct MonthReview {
  std::vector<ReviewLine> lines;    ///< By the employees' numbers, the currency of basic pay first.
  std::vector<ReviewTotal> totals;  ///< By department and currency.
  std::vector<ReviewTotal> sums;    ///< By currency.
  std::size_t employees = 0;        ///< In the lines.
  std::size_t statements = 0;       ///< That were sent for all this.

  std::optional<ReviewAcceptance> accepted;  ///< The last before this review.
  std::vector<ReviewChange> changes;         ///< Since then.
  std::vector<ReviewTotalChange> totalChanges;
  std::optional<ReviewAcceptance> accepts;  ///< By this review.
};

}  // namespace payslate
