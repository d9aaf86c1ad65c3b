// Currency symbols as the database knows them: every statement that asks for one.
#pragma once

#include <cstdint>
#include <string>

#include "platform/basic/Value.h"

namespace payslate {

struct Session;

namespace common {
class CommonDB;
}

enum class PayKind { Allowance, Deduction };

/// The look-ups differ in blanks and in the case of letters only, and stay as they are: hosts may know them
/// by their text. What is not found, and Null for an identifier, gives an empty symbol.
class CurrencySymbols {
 public:
  CurrencySymbols(const Session& session, common::CommonDB& database)
      : session_(session), database_(database) {}

  /// One of the company's currencies, for a row of a month that is entered.
  [[nodiscard]] std::string ofCurrency(const basic::Value& currencyId);
  /// The same for a deduction of a stored entry, and for a recovery in one.
  [[nodiscard]] std::string ofStoredDeduction(const std::string& currencyId);
  [[nodiscard]] std::string ofStoredRecovery(const std::string& currencyId);
  /// The currency of an allowance in a stored entry.
  [[nodiscard]] std::string ofStoredAllowance(const std::string& allowanceId);
  /// The currency of a type of allowance or deduction that is chosen or booked.
  [[nodiscard]] std::string ofComponent(PayKind kind, std::int32_t componentId);
  /// What the employee is paid in, for rows that are carried forward.
  [[nodiscard]] std::string ofEmployee(std::int32_t employeeId);
  /// The same beside the basic pay of a stored entry.
  [[nodiscard]] std::string ofStoredBasicPay(std::int32_t employeeId);

 private:
  [[nodiscard]] std::string look(const std::string& table, const char* field,
                                 const std::string& condition = {});

  const Session& session_;
  common::CommonDB& database_;
};

}  // namespace payslate
