// Date functions. A part of a date arrives as the number of its enumerator.
#include <array>
#include <chrono>
#include <ctime>

#include "platform/tsql/Convert.h"
#include "platform/tsql/DateTime.h"
#include "platform/tsql/Runtime.h"
#include "platform/tsql/SqlError.h"
#include "platform/tsql/Type.h"

namespace payslate::tsql {

namespace {

DatePart part(const CellView& code) {
  return static_cast<DatePart>(std::get<std::int64_t>(code));
}
std::int64_t moment(const CellView& value) {
  return std::get<std::int64_t>(value);
}

Answer dateAdd(Arguments args) {
  const Type type = Type::unpacked(std::get<std::int64_t>(args[3]));
  return roundedMoment(addToMoment(part(args[0]), wholeOf(args[1]), moment(args[2])), type.kind);
}

Answer dateDifference(Arguments args) {
  return checkedWhole(momentDifference(part(args[0]), moment(args[1]), moment(args[2])), Kind::Int);
}

Answer datePart(Arguments args) {
  return partOf(part(args[0]), moment(args[1]));
}
Answer dateName(Arguments args) {
  return partName(part(args[0]), moment(args[1]));
}

// Days may be fractions: a date plus 0.5 is noon.
Answer plusDays(Arguments args) {
  return convertCell(
      doubleOf(args[0]) / static_cast<double>(millisecondsPerDay) + doubleOf(args[1]) * doubleOf(args[2]),
      Type::of(Kind::Float), Type::of(Kind::DateTime));
}

// The server's clock is local time.
Answer now(Arguments) {
  namespace chr = std::chrono;
  const auto since = chr::system_clock::now();
  const std::time_t seconds = chr::system_clock::to_time_t(since);
  const std::tm* local = std::localtime(&seconds);
  constexpr int yearBase = 1900;
  CivilTime time{local->tm_year + yearBase,
                 local->tm_mon + 1,
                 local->tm_mday,
                 local->tm_hour,
                 local->tm_min,
                 std::min(local->tm_sec, 59),
                 0};
  time.millisecond =
      static_cast<int>(chr::duration_cast<chr::milliseconds>(since.time_since_epoch()).count() % 1000);
  return roundedMoment(momentOf(time), Kind::DateTime);
}

Answer isDate(Arguments args) {
  if (isNull(args[0])) return std::int64_t{0};
  const auto text = std::get<std::string_view>(args[0]);
  if (text.find_first_not_of(' ') == std::string_view::npos) return std::int64_t{0};
  try {
    readMoment(text, 0);
    return std::int64_t{1};
  } catch (const SqlError&) {  // The answer to the question, not a failure.
    return std::int64_t{0};
  }
}

constexpr std::array functions = {
    RuntimeFunction{"ts_dateadd", 4, dateAdd},      RuntimeFunction{"ts_datediff", 3, dateDifference},
    RuntimeFunction{"ts_datepart", 2, datePart},    RuntimeFunction{"ts_datename", 2, dateName},
    RuntimeFunction{"ts_plusdays", 3, plusDays},    RuntimeFunction{"ts_getdate", 0, now, false, false},
    RuntimeFunction{"ts_isdate", 1, isDate, false},
};

}  // namespace

std::span<const RuntimeFunction> dateFunctions() {
  return functions;
}

}  // namespace payslate::tsql
