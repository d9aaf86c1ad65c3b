// Precedence and precision rules of Transact-SQL types.
#include "platform/tsql/Type.h"

#include <algorithm>

namespace payslate::tsql {

namespace {

constexpr int averageScale = 6;      // What a division or an average shows at least.
constexpr int keptWholeDigits = 32;  // Whole digits that a reduced scale makes room for.
constexpr int byteBits = 8;

constexpr int digitsOfBit = 1;
constexpr int digitsOfTinyInt = 3;
constexpr int digitsOfSmallInt = 5;
constexpr int digitsOfInt = 10;
constexpr int digitsOfBigInt = 19;

const char* plainName(Kind kind) {
  switch (kind) {
    case Kind::Null:
      return "null";
    case Kind::Predicate:
      return "condition";
    case Kind::Char:
      return "char";
    case Kind::VarChar:
      return "varchar";
    case Kind::Bit:
      return "bit";
    case Kind::TinyInt:
      return "tinyint";
    case Kind::SmallInt:
      return "smallint";
    case Kind::Int:
      return "int";
    case Kind::BigInt:
      return "bigint";
    case Kind::Money:
      return "money";
    case Kind::Decimal:
      return "decimal";
    case Kind::Real:
      return "real";
    case Kind::Float:
      return "float";
    case Kind::Date:
      return "date";
    case Kind::SmallDateTime:
      return "smalldatetime";
    case Kind::DateTime:
      return "datetime";
  }
  return "";
}

// Products and quotients give up decimals before whole digits; sums keep the whole digits.
Type fitted(int precision, int scale, bool additive, int wholeDigits) {
  if (precision <= maxPrecision) return Type::decimal(precision, scale);
  if (additive) return Type::decimal(maxPrecision, std::clamp(maxPrecision - wholeDigits, 0, scale));
  const int whole = precision - scale;
  if (whole < keptWholeDigits) return Type::decimal(maxPrecision, std::min(scale, maxPrecision - whole));
  return Type::decimal(maxPrecision, std::min(scale, averageScale));
}

}  // namespace

std::int64_t Type::packed() const {
  std::int64_t code = length;
  code = (code << byteBits) | scale;
  code = (code << byteBits) | precision;
  return (code << byteBits) | static_cast<std::int64_t>(kind);
}

Type Type::unpacked(std::int64_t code) {
  constexpr std::int64_t byteMask = 0xff;
  Type type;
  type.kind = static_cast<Kind>(code & byteMask);
  type.precision = static_cast<int>((code >> byteBits) & byteMask);
  type.scale = static_cast<int>((code >> (2 * byteBits)) & byteMask);
  type.length = static_cast<int>(code >> (3 * byteBits));
  return type;
}

std::string Type::text() const {
  std::string name = plainName(kind);
  if (kind == Kind::Decimal)
    return name + "(" + std::to_string(precision) + "," + std::to_string(scale) + ")";
  if (isText()) return name + (length == unlimitedLength ? "(max)" : "(" + std::to_string(length) + ")");
  return name;
}

Type asDecimal(const Type& type) {
  switch (type.kind) {
    case Kind::Bit:
      return Type::decimal(digitsOfBit, 0);
    case Kind::TinyInt:
      return Type::decimal(digitsOfTinyInt, 0);
    case Kind::SmallInt:
      return Type::decimal(digitsOfSmallInt, 0);
    case Kind::Int:
      return Type::decimal(digitsOfInt, 0);
    case Kind::BigInt:
      return Type::decimal(digitsOfBigInt, 0);
    case Kind::Money:
      return Type::decimal(moneyPrecision, moneyScale);
    default:
      return type;
  }
}

Type commonType(const Type& left, const Type& right) {
  if (left.isNull()) return right;
  if (right.isNull()) return left;
  const Kind kind = std::max(left.kind, right.kind);
  if (kind == Kind::Decimal) {
    const Type& higher = left.kind == Kind::Decimal ? left : right;
    const Type& lower = left.kind == Kind::Decimal ? right : left;
    if (lower.isText()) return higher;
    const Type other = asDecimal(lower);
    const int scale = std::max(higher.scale, other.scale);
    const int whole = std::max(higher.precision - higher.scale, other.precision - other.scale);
    return Type::decimal(std::min(maxPrecision, whole + scale),
                         whole + scale > maxPrecision ? std::max(0, maxPrecision - whole) : scale);
  }
  if (left.isText() && right.isText()) {
    const bool unlimited = left.length == unlimitedLength || right.length == unlimitedLength;
    Type type = Type::of(kind);
    type.length = unlimited ? unlimitedLength : std::max(left.length, right.length);
    if (left.kind != right.kind || left.length != right.length) type.kind = Kind::VarChar;
    return type;
  }
  return left.kind == kind ? left : right;
}

Type arithmeticType(char op, const Type& leftType, const Type& rightType) {
  const Kind kind = std::max(leftType.kind, rightType.kind);
  if (kind == Kind::Money) return Type::money();
  if (kind != Kind::Decimal) return Type::of(kind == Kind::Bit ? Kind::Int : kind);
  const Type left = asDecimal(leftType);
  const Type right = asDecimal(rightType);
  const int leftWhole = left.precision - left.scale;
  const int rightWhole = right.precision - right.scale;
  const int wider = std::max(leftWhole, rightWhole);
  switch (op) {
    case '*':
      return fitted(left.precision + right.precision + 1, left.scale + right.scale, false, 0);
    case '/': {
      const int scale = std::max(averageScale, left.scale + right.precision + 1);
      return fitted(leftWhole + right.scale + scale, scale, false, 0);
    }
    case '%': {
      const int scale = std::max(left.scale, right.scale);
      return fitted(std::min(leftWhole, rightWhole) + scale, scale, true, std::min(leftWhole, rightWhole));
    }
    default: {
      const int scale = std::max(left.scale, right.scale);
      return fitted(wider + scale + 1, scale, true, wider);
    }
  }
}

Type sumType(const Type& type) {
  if (type.kind == Kind::Decimal) return Type::decimal(maxPrecision, type.scale);
  if (type.isFloating()) return Type::of(Kind::Float);
  if (type.kind == Kind::BigInt || type.kind == Kind::Money) return type;
  return Type::of(Kind::Int);
}

Type averageType(const Type& type) {
  if (type.kind == Kind::Decimal) return Type::decimal(maxPrecision, std::max(averageScale, type.scale));
  return sumType(type);
}

}  // namespace payslate::tsql
