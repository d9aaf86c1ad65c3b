// Where amounts come from, as loading and the clerk's work leave it: plain data beside the rows (PayRows.h).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace payslate {

/// A code of a formula: its value, and how it was sent.
struct FormulaValue {
  std::string code;
  double value = 0;
  std::string sent;
};

/// A constant of a formula that is sent with fewer digits than it was written with.
struct LostDigits {
  std::string written;
  std::string counted;
};

struct FormulaOrigin {
  std::int32_t id = 0;  ///< 0: no formula.
  std::string text;     ///< As it is kept, without the blanks around it.
  std::vector<FormulaValue> values;
  std::vector<LostDigits> lost;
  std::string sent;  ///< Behind "select ".
  double answer = 0;
};

/// The day counts that formulas speak of.
struct FormulaDays {
  double present = 0;  ///< Without holidays.
  double absent = 0;
  double leave = 0;
  double holidays = 0;

  bool operator==(const FormulaDays&) const = default;
};

enum class RateSource { None, EmployeeMaster, BasicPay };

/// Hours of the sheets, and the rate that they are paid or docked at.
struct HoursOrigin {
  double hours = 0;
  double rate = 0;
  RateSource source = RateSource::None;
  // Of a rate out of the basic pay:
  double basicPay = 0;
  double dailyHours = 0;          ///< As the employee master has them.
  std::int32_t countedHours = 0;  ///< As they count: whole hours.
  long days = 0;
};

/// Who changed an amount behind the rule that it came with.
enum class ChangedBy { Nobody, Clerk, Refresh };

/// The origin of one row's amount. Which rule it is, the row's kind tells: a formula or hours are filled in
/// where they were the rule.
struct Origin {
  bool known = false;  ///< Else the row was read from a stored entry.
  std::string amount;  ///< What the rule gave.
  FormulaOrigin formula;
  HoursOrigin hours;
  ChangedBy change = ChangedBy::Nobody;
  std::string before;  ///< The change; empty where there was nothing.
};

/// The basic pay of a new month.
struct BasicPayOrigin {
  bool known = false;
  double master = 0;  ///< The employee's basic pay before any cut.
  double totalDays = 0;
  double absentDays = 0;
  long daysBeforeJoining = 0;
  bool lossThroughDeductions = false;  ///< The company cuts no basic pay.

  /// Days that are not paid.
  [[nodiscard]] double lostDays() const;
  [[nodiscard]] double reduced() const;
};

/// Day counts as the sheets gave them.
struct DaysOrigin {
  bool known = false;
  bool halvesCount = false;  ///< Half days count half when a month is entered, and not in a stored one.
  double totalDays = 0;      ///< Of the period.
  double employedDays = 0;
  double present = 0;
  double halvesPresent = 0;
  double absent = 0;
  double halvesAbsent = 0;
  double leave = 0;
  double working = 0;
};

/// Of everything that an entry holds; rows in the order of its lists.
struct EntryOrigins {
  std::vector<Origin> allowances;
  std::vector<Origin> deductions;
  BasicPayOrigin basicPay;
  DaysOrigin days;
};

}  // namespace payslate
