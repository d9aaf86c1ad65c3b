// Value conversions at the provider's edge.
#include "platform/sqlite/Values.h"

#include <cmath>

#include "platform/ado/Error.h"
#include "platform/basic/Error.h"
#include "platform/basic/Numbers.h"
#include "platform/tsql/Convert.h"
#include "platform/tsql/DateTime.h"
#include "platform/tsql/SqlError.h"

namespace payslate::sqlite {

namespace {

constexpr std::int64_t zeroDayOffset = 2;  // From 1899-12-30 to 1900-01-01.
constexpr auto day = static_cast<double>(tsql::millisecondsPerDay);

// Before the zero date the whole part counts backwards, and the fraction still counts forwards from midnight.
basic::Date toDate(std::int64_t moment) {
  const std::int64_t days = tsql::dayNumber(moment);
  const double fraction = static_cast<double>(moment - days * tsql::millisecondsPerDay) / day;
  const auto whole = static_cast<double>(days + zeroDayOffset);
  return basic::Date(whole < 0 ? whole - fraction : whole + fraction);
}

std::int64_t toMoment(basic::Date date) {
  const double whole = std::trunc(date.serial());
  const double fraction = std::abs(date.serial() - whole);
  return (static_cast<std::int64_t>(whole) - zeroDayOffset) * tsql::millisecondsPerDay +
         static_cast<std::int64_t>(std::llround(fraction * day));
}

basic::Value valueOf(const tsql::Cell& cell, ado::ColumnType type) {
  switch (type) {
    case ado::ColumnType::Boolean:
      return tsql::wholeOf(cell) != 0;
    case ado::ColumnType::Integer:
      return tsql::wholeOf(cell);
    case ado::ColumnType::Decimal:
      return tsql::decimalOf(cell);
    case ado::ColumnType::Double:
      return tsql::doubleOf(cell);
    case ado::ColumnType::Date:
      return toDate(tsql::wholeOf(cell));
    case ado::ColumnType::Text:
      break;
  }
  return tsql::textOf(cell);
}

struct TypedCell {
  tsql::Cell cell;
  tsql::Type type;
};

TypedCell typed(const basic::Value& value) {
  using tsql::Kind;
  using tsql::Type;
  if (const auto* flag = std::get_if<bool>(&value)) return {std::int64_t{*flag}, Type::of(Kind::Bit)};
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return {*whole, Type::of(Kind::BigInt)};
  if (const auto* number = std::get_if<double>(&value)) return {*number, Type::of(Kind::Float)};
  if (const auto* exact = std::get_if<basic::Decimal>(&value)) {
    return {exact->text(), Type::decimal(tsql::maxPrecision, exact->scale())};
  }
  if (const auto* date = std::get_if<basic::Date>(&value)) {
    return {toMoment(*date), Type::of(Kind::DateTime)};
  }
  if (const auto* text = std::get_if<std::string>(&value)) return {*text, Type::varchar()};
  return {};
}

}  // namespace

ado::ColumnType columnType(const tsql::Type& type) {
  if (type.kind == tsql::Kind::Bit) return ado::ColumnType::Boolean;
  if (type.isWhole()) return ado::ColumnType::Integer;
  if (type.isExact()) return ado::ColumnType::Decimal;
  if (type.isFloating()) return ado::ColumnType::Double;
  return type.isDate() ? ado::ColumnType::Date : ado::ColumnType::Text;
}

basic::Value toValue(const tsql::Cell& cell, ado::ColumnType type) {
  return tsql::isNull(cell) ? basic::Value(basic::Null{}) : valueOf(cell, type);
}

tsql::Cell toStored(const basic::Value& value, const tsql::ColumnInfo& column, const std::string& table) {
  TypedCell given = typed(value);
  // No literal can hold one, so nothing could ask for such a text.
  if (const auto* text = std::get_if<std::string>(&value);
      text != nullptr && text->find('\0') != std::string::npos)
    throw tsql::SqlError(tsql::state::badCast,
                         "Column '" + table + "." + column.name + "': The text holds a zero character.");
  // A floating number becomes text with all its digits.
  if (column.type.isText() && std::holds_alternative<double>(given.cell)) {
    given = {basic::numberText(std::get<double>(given.cell)), tsql::Type::varchar()};
  }
  return tsql::assignCell(given.cell, given.type, column.type, table + "." + column.name);
}

}  // namespace payslate::sqlite
