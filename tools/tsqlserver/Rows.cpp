// Column descriptions and row tokens.
#include "tools/tsqlserver/Rows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "platform/ado/Error.h"
#include "platform/basic/Error.h"

namespace payslate::tsqlserver {

namespace {

constexpr std::uint8_t columnsToken = 0x81;
constexpr std::uint8_t rowToken = 0xD1;
constexpr std::uint16_t nullable = 1;
constexpr int scaleWithoutValue = 2;
constexpr std::size_t mostRowsAhead = 1000;
constexpr std::size_t longestPlainText = 8000;  // In bytes: 4000 units.
constexpr std::uint64_t nullText = 0xFFFF;
constexpr std::uint64_t largeText = 0xFFFF;
constexpr std::uint64_t nullLargeText = 0xFFFFFFFFFFFFFFFF;
constexpr std::uint8_t flagSize = 1;
constexpr std::uint8_t numberSize = 8;
constexpr std::uint8_t decimalSize = 17;  // The sign and 128 bits.

namespace wire {
constexpr std::uint8_t whole = 0x26;
constexpr std::uint8_t flag = 0x68;
constexpr std::uint8_t decimal = 0x6C;
constexpr std::uint8_t floating = 0x6D;
constexpr std::uint8_t dateTime = 0x6F;
constexpr std::uint8_t text = 0xE7;
}  // namespace wire

struct WireColumn {
  ado::ColumnType type = ado::ColumnType::Text;
  int scale = scaleWithoutValue;
  bool large = false;
  bool decided = false;
};

using Row = std::vector<basic::Value>;

std::vector<WireColumn> undecided(const std::vector<ado::Column>& columns) {
  std::vector<WireColumn> described;
  described.reserve(columns.size());
  for (const ado::Column& column : columns) described.push_back({column.type});
  return described;
}

// Does the row leave nothing open?
bool decide(std::vector<WireColumn>& columns, const Row& row) {
  bool all = true;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    WireColumn& column = columns[i];
    if (column.decided) continue;
    column.decided = column.type != ado::ColumnType::Decimal || !basic::isNull(row[i]);
    all = all && column.decided;
    if (const auto* decimal = std::get_if<basic::Decimal>(&row[i])) column.scale = decimal->scale();
    if (const auto* text = std::get_if<std::string>(&row[i]))
      column.large = toUtf16(*text).size() > longestPlainText;
  }
  return all;
}

void describe(const WireColumn& column, Writer& out) {
  const auto sized = [&out](std::uint8_t type, std::uint8_t size) {
    out.u8(type);
    out.u8(size);
  };
  switch (column.type) {
    case ado::ColumnType::Boolean:
      return sized(wire::flag, flagSize);
    case ado::ColumnType::Integer:
      return sized(wire::whole, numberSize);
    case ado::ColumnType::Double:
      return sized(wire::floating, numberSize);
    case ado::ColumnType::Date:
      return sized(wire::dateTime, numberSize);
    case ado::ColumnType::Decimal:
      sized(wire::decimal, decimalSize);
      out.u8(basic::Decimal::maxDigits);
      return out.u8(static_cast<std::uint64_t>(column.scale));
    case ado::ColumnType::Text:
      out.u8(wire::text);
      out.u16(column.large ? largeText : longestPlainText);
      return out.raw(collation());
  }
}

void describeAll(const std::vector<ado::Column>& columns, const std::vector<WireColumn>& wired, Writer& out) {
  out.u8(columnsToken);
  out.u16(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    out.u32(0);  // No type of a user's.
    out.u16(nullable);
    describe(wired[i], out);
    out.shortText(columns[i].name);
  }
}

// Sign, then 128 bits, the lowest first.
void write(const basic::Decimal& decimal, Writer& out) {
  constexpr std::uint64_t base = 10;
  constexpr unsigned limbBits = 32;
  std::array<std::uint32_t, 4> limbs{};
  for (const char digit : decimal.text()) {
    if (digit < '0' || digit > '9') continue;
    std::uint64_t carry = static_cast<std::uint64_t>(digit - '0');
    for (std::uint32_t& limb : limbs) {
      carry += limb * base;
      limb = static_cast<std::uint32_t>(carry);
      carry >>= limbBits;
    }
  }
  out.u8(decimalSize);
  out.u8(decimal.isNegative() ? 0 : 1);
  for (const std::uint32_t limb : limbs) out.u32(limb);
}

// Days since 1900-01-01, then three-hundredths of a second since midnight.
void write(basic::Date date, Writer& out) {
  constexpr double ticksOfDay = 300.0 * 86400;
  constexpr std::int64_t zeroDay = 2;
  const double whole = std::trunc(date.serial());
  auto days = static_cast<std::int64_t>(whole) - zeroDay;
  auto ticks = std::llround(std::abs(date.serial() - whole) * ticksOfDay);
  if (ticks >= std::llround(ticksOfDay)) {
    ticks = 0;
    ++days;
  }
  out.u8(numberSize);
  out.u32(static_cast<std::uint64_t>(days));
  out.u32(static_cast<std::uint64_t>(ticks));
}

void write(double number, Writer& out) {
  std::uint64_t bits = 0;
  static_assert(sizeof bits == sizeof number);
  std::memcpy(&bits, &number, sizeof bits);
  out.u8(numberSize);
  out.u64(bits);
}

void writeText(const Bytes& units, bool large, Writer& out) {
  if (!large) {
    if (units.size() > longestPlainText)
      throw ado::Error("A text is longer than the 4000 characters of its column.", "22001", "tsqlserver");
    out.u16(units.size());
    return out.raw(units);
  }
  out.u64(units.size());
  if (!units.empty()) {  // One piece, and the mark behind the last.
    out.u32(units.size());
    out.raw(units);
  }
  out.u32(0);
}

void writeNull(const WireColumn& column, Writer& out) {
  if (column.type != ado::ColumnType::Text) return out.u8(0);
  if (column.large) return out.u64(nullLargeText);
  out.u16(nullText);
}

void write(const basic::Value& value, const WireColumn& column, Writer& out) {
  if (basic::isNull(value)) return writeNull(column, out);
  switch (column.type) {
    case ado::ColumnType::Boolean:
      out.u8(flagSize);
      return out.u8(std::get<bool>(value) ? 1 : 0);
    case ado::ColumnType::Integer:
      out.u8(numberSize);
      return out.u64(static_cast<std::uint64_t>(std::get<std::int64_t>(value)));
    case ado::ColumnType::Decimal:
      return write(std::get<basic::Decimal>(value).rounded(column.scale), out);
    case ado::ColumnType::Double:
      return write(std::get<double>(value), out);
    case ado::ColumnType::Date:
      return write(std::get<basic::Date>(value), out);
    case ado::ColumnType::Text:
      return writeText(toUtf16(std::get<std::string>(value)), column.large, out);
  }
}

Row currentRow(const ado::Cursor& cursor) {
  Row row;
  for (std::size_t i = 0; i < cursor.columns().size(); ++i) row.push_back(cursor.value(i));
  return row;
}

// Whole or not at all: an error behind half a row would be read as part of it.
void sendRow(const Row& row, const std::vector<WireColumn>& columns, Reply& reply) {
  Writer whole;
  whole.u8(rowToken);
  for (std::size_t i = 0; i < columns.size(); ++i) write(row[i], columns[i], whole);
  reply.out().raw(whole.bytes());
  reply.pass();
}

}  // namespace

std::uint64_t sendRows(ado::Cursor& cursor, Reply& reply) {
  std::vector<WireColumn> columns = undecided(cursor.columns());
  std::vector<Row> ahead;
  while (ahead.size() < mostRowsAhead && cursor.next()) {
    ahead.push_back(currentRow(cursor));
    if (decide(columns, ahead.back())) break;
  }
  describeAll(cursor.columns(), columns, reply.out());
  std::uint64_t rows = ahead.size();
  for (const Row& row : ahead) sendRow(row, columns, reply);
  for (; cursor.next(); ++rows) sendRow(currentRow(cursor), columns, reply);
  return rows;
}

void sendColumns(const std::vector<ado::Column>& columns, Reply& reply) {
  describeAll(columns, undecided(columns), reply.out());
}

}  // namespace payslate::tsqlserver
