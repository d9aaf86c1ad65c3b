// What an explanation asks of the database, at the moment it is asked for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "component/CurrencySymbols.h"
#include "component/Origins.h"
#include "component/StoredState.h"
#include "platform/basic/Date.h"

namespace payslate {

/// A loan or savings account.
struct AccountFact {
  double balance = 0;
  double instalment = 0;
};

struct BookedHours {
  std::int32_t sheet = 0;
  basic::Date date;
  double hours = 0;
};

struct SheetFact {
  std::int32_t id = 0;
  basic::Date first;
  basic::Date last;
};

/// A day of a sheet, with its code as it was entered.
struct DayFact {
  std::int32_t sheet = 0;
  basic::Date date;
  std::string code;
};

struct AttendanceFact {
  std::vector<SheetFact> sheets;  ///< The live ones that reach into the period.
  std::vector<DayFact> days;      ///< Of live sheets, by date.
};

/// What the employee master says today.
struct EmployeeFact {
  double basicPay = 0;
  basic::Date joined;
  bool lossThroughDeductions = false;
  std::optional<double> whenStored;  ///< The basic pay in the master when the entry was stored.
};

/// About the employee and the pay period of the entry at hand. Each question is a statement or a few.
class PayFacts {
 public:
  virtual ~PayFacts() = default;

  /// The formula of a type of allowance or deduction; below 1 when it has none.
  virtual std::int32_t formulaOf(PayKind kind, std::int32_t componentId) = 0;
  virtual std::string formulaCode(std::int32_t formulaId) = 0;
  /// Computed now, by these day counts. Throws what the computation throws.
  virtual FormulaOrigin formula(std::int32_t formulaId, const FormulaDays& days) = 0;

  /// The amount in the employee's standing pay, if the type is among it.
  virtual std::optional<double> standing(PayKind kind, std::int32_t componentId) = 0;
  virtual std::optional<AccountFact> loan(std::int32_t issue) = 0;
  virtual std::optional<AccountFact> savings(std::int32_t account) = 0;

  virtual std::vector<BookedHours> bookedHours(PayKind kind, std::int32_t componentId) = 0;
  /// The rate alone, as a new entry would price hours.
  virtual HoursOrigin rate(PayKind kind) = 0;

  /// The employee's other live entries that kept back or paid out, by date.
  virtual std::vector<EntryMovements> movements() = 0;
  virtual EmployeeFact employee() = 0;
  virtual AttendanceFact attendance() = 0;
};

}  // namespace payslate
