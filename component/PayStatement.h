// The statement of pay per currency, as plain data.
#pragma once

#include <cstddef>
#include <string>

namespace payslate {

enum class StatementPart { Heading, BasicPay, Allowance, Deduction, Total };

struct StatementRow {
  StatementPart part = StatementPart::Heading;
  std::size_t row = 0;  ///< Of an allowance or deduction: in its list.
  std::string symbol;
  std::string details;  ///< Without the blanks before it.
  std::string amount;
};

}  // namespace payslate
