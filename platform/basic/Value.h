// One value as a database hands it over or a control's item carries it.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "platform/basic/Date.h"
#include "platform/basic/Decimal.h"

namespace payslate::basic {

struct Null {
  friend constexpr bool operator==(Null, Null) { return true; }
};

using Value = std::variant<Null, bool, std::int64_t, double, Decimal, Date, std::string>;

inline bool isNull(const Value& value) {
  return std::holds_alternative<Null>(value);
}

/// The value joined to empty text: Null is "", flags are "True" and "False", numbers are general decimal text
/// (no trailing zeros), dates are written with `datePattern` (a time of day that is not midnight follows as
/// " hh:mm:ss"), text as it stands.
std::string textOf(const Value& value, std::string_view datePattern = "dd/MM/yyyy");

}  // namespace payslate::basic
