// Transact-SQL types: precedence, common types, and the type rules of arithmetic.
#pragma once

#include <cstdint>
#include <string>

namespace payslate::tsql {

/// In ascending order of precedence, so that the larger kind wins where two meet.
enum class Kind : std::uint8_t {
  Null,  ///< The literal null before anything gave it a type.
  Predicate,
  Char,
  VarChar,
  Bit,
  TinyInt,
  SmallInt,
  Int,
  BigInt,
  Money,
  Decimal,
  Real,
  Float,
  Date,
  SmallDateTime,
  DateTime,
};

inline constexpr int maxPrecision = 38;
inline constexpr int unlimitedLength = 0;
inline constexpr int moneyPrecision = 19;
inline constexpr int moneyScale = 4;

struct Type {
  Kind kind = Kind::Null;
  int precision = 0;             ///< Decimal only: digits in all.
  int scale = 0;                 ///< Decimal only: digits behind the period.
  int length = unlimitedLength;  ///< Text only: characters.

  static Type of(Kind kind) { return Type{kind, 0, 0, 0}; }
  static Type decimal(int precision, int scale) { return Type{Kind::Decimal, precision, scale, 0}; }
  static Type varchar(int length = unlimitedLength) { return Type{Kind::VarChar, 0, 0, length}; }
  static Type money() { return Type{Kind::Money, moneyPrecision, moneyScale, 0}; }

  [[nodiscard]] bool isNull() const { return kind == Kind::Null; }
  [[nodiscard]] bool isText() const { return kind == Kind::Char || kind == Kind::VarChar; }
  [[nodiscard]] bool isWhole() const { return kind >= Kind::Bit && kind <= Kind::BigInt; }
  [[nodiscard]] bool isExact() const { return kind == Kind::Decimal || kind == Kind::Money; }
  [[nodiscard]] bool isFloating() const { return kind == Kind::Real || kind == Kind::Float; }
  [[nodiscard]] bool isNumber() const { return isWhole() || isExact() || isFloating(); }
  [[nodiscard]] bool isDate() const { return kind >= Kind::Date; }
  friend bool operator==(const Type&, const Type&) = default;

  /// One whole number that carries the type into a run-time function, and back.
  [[nodiscard]] std::int64_t packed() const;
  static Type unpacked(std::int64_t code);
  /// As it is declared: "decimal(18,2)", "varchar(60)", "int".
  [[nodiscard]] std::string text() const;
};

/// Whole numbers as decimals: int is decimal(10,0). Decimals come back as they are.
Type asDecimal(const Type& type);
/// The type in which values of both meet: the kind of higher precedence, wide enough for both.
Type commonType(const Type& left, const Type& right);
/// Result of `left op right` (+ - * / %) for two numbers.
Type arithmeticType(char op, const Type& left, const Type& right);
/// Sum and average of a column of numbers.
Type sumType(const Type& type);
Type averageType(const Type& type);

}  // namespace payslate::tsql
