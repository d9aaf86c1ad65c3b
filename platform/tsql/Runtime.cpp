// The library's index and its aggregates.
#include "platform/tsql/Runtime.h"

#include <array>
#include <map>
#include <vector>

#include "platform/basic/Error.h"
#include "platform/tsql/Arithmetic.h"
#include "platform/tsql/Convert.h"
#include "platform/tsql/SqlError.h"
#include "platform/tsql/Type.h"

namespace payslate::tsql {

namespace {

const std::vector<RuntimeFunction>& allFunctions() {
  static const std::vector<RuntimeFunction> all = [] {
    std::vector<RuntimeFunction> functions;
    for (const auto& part : {numberFunctions(), textFunctions(), dateFunctions()}) {
      functions.insert(functions.end(), part.begin(), part.end());
    }
    return functions;
  }();
  return all;
}

enum class Result { Sum, Average };

/// Whole numbers: summed wide, and checked against the result's type at the end.
template <Kind kind, Result wanted>
class WholeFold : public Accumulator {
 public:
  void add(const CellView& value) override {
    sum_ = std::get<std::int64_t>(compute('+', sum_, value, Type::of(Kind::BigInt)));
    ++count_;
  }
  [[nodiscard]] Cell result() const override {
    if (count_ == 0) return {};
    return checkedWhole(wanted == Result::Sum ? sum_ : sum_ / count_, kind);
  }

 private:
  std::int64_t sum_ = 0;
  std::int64_t count_ = 0;
};

template <Result wanted>
class DecimalFold : public Accumulator {
 public:
  void add(const CellView& value) override {
    try {
      sum_ = sum_ + decimalOf(value);
    } catch (const basic::ValueError&) {
      throw SqlError(state::overflow, "Arithmetic overflow: the sum has too many digits.");
    }
    ++count_;
  }
  [[nodiscard]] Cell result() const override {
    if (count_ == 0) return {};
    if (wanted == Result::Sum) return sum_.text();
    const int scale = averageType(Type::decimal(maxPrecision, sum_.scale())).scale;
    return basic::Decimal::divide(sum_, basic::Decimal::fromInteger(count_), scale).text();
  }

 private:
  basic::Decimal sum_;
  std::int64_t count_ = 0;
};

template <Result wanted>
class FloatFold : public Accumulator {
 public:
  void add(const CellView& value) override {
    sum_ = checkedDouble(sum_ + doubleOf(value));
    ++count_;
  }
  [[nodiscard]] Cell result() const override {
    if (count_ == 0) return {};
    return wanted == Result::Sum ? sum_ : sum_ / static_cast<double>(count_);
  }

 private:
  double sum_ = 0;
  std::int64_t count_ = 0;
};

/// The value of a subquery that stands for one value.
class OnlyRow : public Accumulator {
 public:
  void add(const CellView& value) override {
    if (seen_)
      throw SqlError(state::cardinality, "A subquery that stands for one value gave more than one row.");
    seen_ = true;
    value_ = value.cell();
  }
  [[nodiscard]] Cell result() const override { return value_; }

 private:
  Cell value_;
  bool seen_ = false;
};

template <typename Fold>
std::unique_ptr<Accumulator> make() {
  return std::make_unique<Fold>();
}

constexpr std::array aggregates = {
    RuntimeAggregate{"ts_sum_int", false, make<WholeFold<Kind::Int, Result::Sum>>},
    RuntimeAggregate{"ts_sum_bigint", false, make<WholeFold<Kind::BigInt, Result::Sum>>},
    RuntimeAggregate{"ts_sum_decimal", false, make<DecimalFold<Result::Sum>>},
    RuntimeAggregate{"ts_sum_float", false, make<FloatFold<Result::Sum>>},
    RuntimeAggregate{"ts_avg_int", false, make<WholeFold<Kind::Int, Result::Average>>},
    RuntimeAggregate{"ts_avg_bigint", false, make<WholeFold<Kind::BigInt, Result::Average>>},
    RuntimeAggregate{"ts_avg_decimal", false, make<DecimalFold<Result::Average>>},
    RuntimeAggregate{"ts_avg_float", false, make<FloatFold<Result::Average>>},
    RuntimeAggregate{"ts_only", true, make<OnlyRow>},
};

}  // namespace

std::span<const RuntimeFunction> runtimeFunctions() {
  return allFunctions();
}

const RuntimeFunction* findRuntimeFunction(std::string_view name) {
  static const std::map<std::string_view, const RuntimeFunction*> index = [] {
    std::map<std::string_view, const RuntimeFunction*> byName;
    for (const RuntimeFunction& function : allFunctions()) byName.emplace(function.name, &function);
    return byName;
  }();
  const auto found = index.find(name);
  return found == index.end() ? nullptr : found->second;
}

Cell Answer::cell() const {
  if (const auto* text = std::get_if<std::string>(this)) return *text;
  if (const auto* part = std::get_if<std::string_view>(this)) return std::string(*part);
  if (const auto* whole = std::get_if<std::int64_t>(this)) return *whole;
  if (const auto* number = std::get_if<double>(this)) return *number;
  return {};
}

void throwAsSqlError(const basic::ValueError& error) {
  const bool overflow = error.kind() == basic::ErrorKind::Overflow;
  throw SqlError(overflow ? state::overflow : state::badCast, error.what());
}

Cell callRuntime(const RuntimeFunction& function, std::span<const Cell> arguments) {
  const std::vector<CellView> views(arguments.begin(), arguments.end());
  return callRuntime(function, views).cell();
}

std::span<const RuntimeAggregate> runtimeAggregates() {
  return aggregates;
}

}  // namespace payslate::tsql
