// The run-time library: what a generated statement calls, and what the binder folds constants with.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "platform/basic/Error.h"
#include "platform/tsql/Cell.h"

namespace payslate::tsql {

using Arguments = std::span<const CellView>;

/// What a call gives: a value of its own, or a part of an argument's text, kept where that is.
class Answer : public std::variant<std::monostate, std::int64_t, double, std::string, std::string_view> {
 public:
  using variant::variant;
  Answer(Cell cell) {
    if (const auto* whole = std::get_if<std::int64_t>(&cell)) emplace<std::int64_t>(*whole);
    if (const auto* number = std::get_if<double>(&cell)) emplace<double>(*number);
    if (auto* text = std::get_if<std::string>(&cell)) emplace<std::string>(std::move(*text));
  }
  Answer(const CellView& part) {
    if (const auto* whole = std::get_if<std::int64_t>(&part)) emplace<std::int64_t>(*whole);
    if (const auto* number = std::get_if<double>(&part)) emplace<double>(*number);
    if (const auto* text = std::get_if<std::string_view>(&part)) emplace<std::string_view>(*text);
  }
  [[nodiscard]] Cell cell() const;
  /// For as long as this is kept, and the argument.
  [[nodiscard]] CellView view() const {
    if (const auto* whole = std::get_if<std::int64_t>(this)) return *whole;
    if (const auto* number = std::get_if<double>(this)) return *number;
    if (const auto* text = std::get_if<std::string>(this)) return std::string_view(*text);
    if (const auto* part = std::get_if<std::string_view>(this)) return *part;
    return {};
  }
};

using RuntimeCall = Answer (*)(Arguments);

struct RuntimeFunction {
  std::string_view name;
  int arguments = 0;  ///< -1 for any number.
  RuntimeCall call = nullptr;
  bool nullIfAnyNull = true;  ///< Not called when an argument is Null: the result is Null.
  bool constant = true;       ///< The same arguments give the same result: may be folded.
};

/// All of them. A call throws SqlError.
std::span<const RuntimeFunction> runtimeFunctions();
/// Null when there is none of that name.
const RuntimeFunction* findRuntimeFunction(std::string_view name);
[[noreturn]] void throwAsSqlError(const basic::ValueError& error);
/// Calls it, with its rule about Null.
inline Answer callRuntime(const RuntimeFunction& function, Arguments arguments) {
  if (function.nullIfAnyNull) {
    for (const CellView& argument : arguments)
      if (isNull(argument)) return {};
  }
  try {
    return function.call(arguments);
  } catch (const basic::ValueError& error) {
    throwAsSqlError(error);
  }
}
Cell callRuntime(const RuntimeFunction& function, std::span<const Cell> arguments);

/// Parts of the library, by subject.
std::span<const RuntimeFunction> numberFunctions();
std::span<const RuntimeFunction> textFunctions();
std::span<const RuntimeFunction> dateFunctions();

/// Folds the rows of a group one by one; Null never reaches it.
class Accumulator {
 public:
  virtual ~Accumulator() = default;
  virtual void add(const CellView& value) = 0;
  [[nodiscard]] virtual Cell result() const = 0;
};

struct RuntimeAggregate {
  std::string_view name;
  bool takesNull = false;
  std::unique_ptr<Accumulator> (*create)() = nullptr;
};

std::span<const RuntimeAggregate> runtimeAggregates();

}  // namespace payslate::tsql
