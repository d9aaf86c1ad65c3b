// A value in the form in which it is stored and computed with.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace payslate::tsql {

/// Null · whole numbers, flags, and dates (milliseconds since 1900-01-01) · floating numbers · text, and
/// exact decimals as text with exactly the decimals of their type.
using Cell = std::variant<std::monostate, std::int64_t, double, std::string>;

inline bool isNull(const Cell& cell) {
  return std::holds_alternative<std::monostate>(cell);
}

}  // namespace payslate::tsql
