// Number rules: reading numbers out of text, narrowing them, and writing them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/basic/Value.h"

namespace payslate::basic {

/// The number at the start of `text` (blanks are skipped, sign, digits, one period, exponent), else 0.
double Val(std::string_view text);

/// True when the whole text is one number (sign, digits, one period, exponent, blanks around); "" is not.
bool IsNumeric(std::string_view text);

/// `text` without leading and trailing blanks (blanks only, no tabs).
std::string Trim(std::string_view text);

/// Whole numbers: text must be numeric, Null is an error; rounding takes halves to the even neighbour.
/// ValueError: TypeMismatch for what is no number (named), Overflow outside the range.
std::int16_t CInt(const Value& value);
std::int32_t CLng(const Value& value);
double CDbl(const Value& value);
/// Numbers are true unless 0; "True"/"False" in any case and numeric text are read; Null and other text are
/// errors.
bool CBool(const Value& value);

/// Like CInt and friends, but empty or non-numeric text and Null count as 0 (a cell that may be blank).
std::int32_t numberOrZero(std::string_view text);

/// `number` in one of the patterns in use: "0.00", "#0.00", "########0.00" and others made of '#', '0' and
/// one period. Decimals come from the 15-significant-digit decimal form, halves away from zero (1.005 →
/// "1.01"); always a period; a result that rounds to zero has no sign.
std::string Format(double number, std::string_view pattern);

/// General decimal text: up to 15 significant digits, no forced decimals, no grouping (24000,
/// 866.666666666667). Very large or small magnitudes (below 1e-4 beyond 15 digits, from 1e15) use an
/// exponent: "1E+15".
std::string numberText(double number);

/// ASCII-insensitive comparison of names.
bool sameName(std::string_view left, std::string_view right);
/// Latin, Greek and Cyrillic letters change; all else stays.
std::string upper(std::string_view text);
std::string lower(std::string_view text);

}  // namespace payslate::basic
