// Values from one type into another, as convert, comparisons and assignments do it.
#pragma once

#include <string>

#include "platform/basic/Decimal.h"
#include "platform/tsql/Cell.h"
#include "platform/tsql/Type.h"

namespace payslate::tsql {

/// Text is cut to the target's length. `style` as convert takes it. SqlError when the value has no
/// counterpart or does not fit.
Cell convertCell(const CellView& value, const Type& from, const Type& to, int style = 0);

/// The same for a value that is to be stored: text that is too long is refused too. `column` is for messages.
Cell assignCell(const CellView& value, const Type& from, const Type& to, const std::string& column);

/// Checks that a whole number fits its kind.
std::int64_t checkedWhole(std::int64_t number, Kind kind);
/// Rounds to the scale of `type` and checks the precision; as it is stored.
std::string checkedDecimal(const basic::Decimal& number, const Type& type);
double checkedDouble(double number);

double doubleOf(const CellView& value);
basic::Decimal decimalOf(const CellView& value);
/// A whole number as stored; floats and decimals are cut.
std::int64_t cutToWhole(const CellView& value);
inline std::int64_t wholeOf(const CellView& value) {
  const auto* whole = std::get_if<std::int64_t>(&value);
  return whole != nullptr ? *whole : cutToWhole(value);
}
/// Numbers as text without a type: for text functions that are given one.
std::string textOf(const CellView& value);

/// Does the text count as a number?
bool isNumericText(std::string_view text);

}  // namespace payslate::tsql
