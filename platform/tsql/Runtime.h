// The run-time library: what a generated statement calls, and what the binder folds constants with.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "platform/tsql/Cell.h"

namespace payslate::tsql {

using Arguments = std::span<const Cell>;
using RuntimeCall = Cell (*)(Arguments);

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
/// Calls it, with its rule about Null.
Cell callRuntime(const RuntimeFunction& function, Arguments arguments);

/// Parts of the library, by subject.
std::span<const RuntimeFunction> numberFunctions();
std::span<const RuntimeFunction> textFunctions();
std::span<const RuntimeFunction> dateFunctions();

/// Folds the rows of a group one by one; Null never reaches it.
class Accumulator {
 public:
  virtual ~Accumulator() = default;
  virtual void add(const Cell& value) = 0;
  [[nodiscard]] virtual Cell result() const = 0;
};

struct RuntimeAggregate {
  std::string_view name;
  bool takesNull = false;
  std::unique_ptr<Accumulator> (*create)() = nullptr;
};

std::span<const RuntimeAggregate> runtimeAggregates();

}  // namespace payslate::tsql
