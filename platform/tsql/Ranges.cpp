// What a conjunct says about a column, as the least value that can meet it and the first behind all that can.
#include "platform/tsql/Ranges.h"

#include <algorithm>

#include "platform/basic/Unicode.h"
#include "platform/tsql/Binder.h"
#include "platform/tsql/DateTime.h"
#include "platform/tsql/Text.h"

namespace payslate::tsql {

namespace {

constexpr std::size_t mostRanges = 16;  // The database nests conditions only so deep.

struct Range {
  const Expr* column;
  Cell low;
  std::optional<Cell> behind;  ///< None where no value is larger.
};

struct Period {
  const Expr* column;
  std::optional<std::int64_t> year;
  std::optional<std::int64_t> month;
};

std::optional<std::int64_t> wholeNumber(const Expr& expr) {
  const auto* number = expr.isLiteral() ? std::get_if<std::int64_t>(&expr.literal) : nullptr;
  return number == nullptr ? std::nullopt : std::optional(*number);
}

/// The characters of a column that `left` or `substring` from 1 takes; none of another call.
std::optional<std::int64_t> prefixLength(const Expr& call) {
  if (call.name == "ts_left") return wholeNumber(*call.args[1]);
  if (call.name != "ts_substring" || wholeNumber(*call.args[1]) != 1) return std::nullopt;
  return wholeNumber(*call.args[2]);
}

/// Blanks at the end of a text are as good as none, so the text without them is the least.
std::optional<Range> prefixRange(const Expr& call, const Expr& value) {
  const std::optional<std::int64_t> length = prefixLength(call);
  const auto* text = std::get_if<std::string>(&value.literal);
  if (!length || text == nullptr || !call.args[0]->type.isText()) return std::nullopt;
  const std::string_view prefix = withoutTrailingBlanks(*text);
  if (prefix.empty() || *length < static_cast<std::int64_t>(basic::characterCount(prefix)))
    return std::nullopt;
  return Range{call.args[0].get(), std::string(prefix), firstBehind(prefix)};
}

std::optional<Range> periodRange(const Period& period) {
  if (!period.year || *period.year < earliestYear || *period.year > latestYear) return std::nullopt;
  CivilTime first{static_cast<int>(*period.year)};
  CivilTime behind = first;
  if (period.month) {
    first.month = behind.month = static_cast<int>(*period.month);
    ++behind.month;
  }
  constexpr int monthsPerYear = 12;
  if (!period.month || behind.month > monthsPerYear) {
    ++behind.year;
    behind.month = 1;
  }
  if (behind.year > latestYear) return Range{period.column, momentOf(first), {}};
  return Range{period.column, momentOf(first), momentOf(behind)};
}

class Conjuncts {
 public:
  explicit Conjuncts(const Expr& condition) { look(condition); }

  [[nodiscard]] std::vector<Range> ranges() const {
    std::vector<Range> all = prefixes_;
    for (const Period& period : periods_) {
      if (const std::optional<Range> range = periodRange(period)) all.push_back(*range);
    }
    if (all.size() > mostRanges) all.resize(mostRanges);
    return all;
  }

 private:
  void look(const Expr& condition) {
    if (condition.kind == ExprKind::And) {
      for (const ExprPtr& arg : condition.args) look(*arg);
    } else if (condition.kind == ExprKind::Compare && condition.name == "=") {
      lookAtCall(*condition.args[0], *condition.args[1]);
      lookAtCall(*condition.args[1], *condition.args[0]);
    }
  }

  void lookAtCall(const Expr& call, const Expr& value) {
    if (call.kind != ExprKind::Runtime || !value.isLiteral()) return;
    const auto stored = [](const ExprPtr& arg) { return arg->kind == ExprKind::Column && arg->storedColumn; };
    if (call.name == "ts_datepart" && stored(call.args[1])) {
      lookAtDate(call, wholeNumber(value));
    } else if (!call.args.empty() && stored(call.args[0])) {
      if (const std::optional<Range> range = prefixRange(call, value)) add(prefixes_, *range);
    }
  }

  void lookAtDate(const Expr& call, std::optional<std::int64_t> value) {
    const std::optional<std::int64_t> part = wholeNumber(*call.args[0]);
    constexpr int monthsPerYear = 12;
    if (part == static_cast<std::int64_t>(DatePart::Year) && value) {
      std::optional<std::int64_t>& year = add(periods_, Period{call.args[1].get(), {}, {}}).year;
      if (!year) year = value;
    } else if (part == static_cast<std::int64_t>(DatePart::Month) && value >= 1 && value <= monthsPerYear) {
      std::optional<std::int64_t>& month = add(periods_, Period{call.args[1].get(), {}, {}}).month;
      if (!month) month = value;
    }
  }

  /// One a column: another that says less or more changes nothing about the rows.
  template <typename One>
  static One& add(std::vector<One>& all, const One& one) {
    const auto known = std::find_if(
        all.begin(), all.end(), [&](const One& other) { return sameExpression(*other.column, *one.column); });
    return known == all.end() ? all.emplace_back(one) : *known;
  }

  std::vector<Range> prefixes_;
  std::vector<Period> periods_;
};

ExprPtr comparison(const Expr& column, const char* sign, Cell value) {
  return makeComparison(columnAgain(column), sign, makeLiteral(std::move(value), column.type, column.at));
}

}  // namespace

// In front of the condition they cost least: a row that they exclude is asked nothing else.
void addRanges(ExprPtr& condition) {
  const std::vector<Range> ranges = Conjuncts(*condition).ranges();
  if (ranges.empty()) return;
  auto all = std::make_unique<Expr>();
  all->kind = ExprKind::And;
  all->at = condition->at;
  all->type = Type::of(Kind::Predicate);
  for (const Range& range : ranges) {
    all->args.push_back(comparison(*range.column, ">=", range.low));
    if (range.behind) all->args.push_back(comparison(*range.column, "<", *range.behind));
  }
  all->args.push_back(std::move(condition));
  condition = std::move(all);
}

}  // namespace payslate::tsql
