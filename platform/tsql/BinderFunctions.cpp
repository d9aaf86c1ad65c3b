// Functions: what each takes and gives, as tables; the few with rules of their own have a handler.
#include <algorithm>
#include <map>

#include "platform/tsql/Binder.h"
#include "platform/tsql/Convert.h"
#include "platform/tsql/DateTime.h"
#include "platform/tsql/Runtime.h"
#include "platform/tsql/TokenStream.h"

namespace payslate::tsql {

/// Arguments by letter: t text, i whole number, f floating number, d date. Those behind `least` may be left
/// out; str fills them in.
struct Binder::SimpleFunction {
  const char* name;
  const char* call;
  const char* arguments;
  std::size_t least;
  enum Result { Int, Float, Moment, Text, SameText } result;
};

struct Binder::SpecialFunction {
  const char* name;
  Handler handler;
  std::size_t least;
  std::size_t most;
};

namespace {

constexpr std::size_t manyArguments = 100;

void countArguments(const Expr& call, std::size_t least, std::size_t most) {
  if (call.args.size() >= least && call.args.size() <= most && !call.star) return;
  const std::string wanted =
      least == most ? std::to_string(least) : std::to_string(least) + " to " + std::to_string(most);
  throw SqlError(state::syntax, call.at,
                 "The function '" + call.name + "' takes " + wanted + " argument(s).");
}

bool isAggregateName(const std::string& name) {
  return name == "count" || name == "sum" || name == "avg" || name == "min" || name == "max";
}

std::string aggregateSuffix(const Type& type) {
  if (type.isFloating()) return "float";
  if (type.isExact()) return "decimal";
  return type.kind == Kind::BigInt ? "bigint" : "int";
}

// Depth of the innermost query that a column of the expression belongs to; 0 when it has none.
int innermostColumn(const Expr& expr) {
  int depth = expr.kind == ExprKind::Column ? expr.sourceDepth : 0;
  for (const ExprPtr& arg : expr.args) depth = std::max(depth, innermostColumn(*arg));
  return depth;
}

DatePart requireDatePart(const Expr& call) {
  DatePart part = DatePart::Day;
  const Expr& name = *call.args[0];
  if (name.kind != ExprKind::Column || !name.qualifier.empty() || !datePartNamed(name.name, part)) {
    throw SqlError(state::syntax, name.at,
                   "'" + name.name + "' is not a part of a date that '" + call.name + "' knows.");
  }
  return part;
}

void toDate(ExprPtr& expr) {
  if (expr->type.isDate()) return;
  convertTo(expr, Type::of(Kind::DateTime));
}

void toText(ExprPtr& expr) {
  if (!expr->type.isText()) convertTo(expr, Type::varchar());
}

}  // namespace

void Binder::bindFunction(ExprPtr& expr, Scope& scope) {
  using F = SimpleFunction;
  static constexpr F simple[] = {
      {"len", "ts_len", "t", 1, F::Int},
      {"datalength", "ts_datalength", "t", 1, F::Int},
      {"upper", "ts_upper", "t", 1, F::SameText},
      {"lower", "ts_lower", "t", 1, F::SameText},
      {"ltrim", "ts_ltrim", "t", 1, F::SameText},
      {"rtrim", "ts_rtrim", "t", 1, F::SameText},
      {"reverse", "ts_reverse", "t", 1, F::SameText},
      {"left", "ts_left", "ti", 2, F::SameText},
      {"right", "ts_right", "ti", 2, F::SameText},
      {"substring", "ts_substring", "tii", 3, F::SameText},
      {"replace", "ts_replace", "ttt", 3, F::Text},
      {"charindex", "ts_charindex", "tti", 2, F::Int},
      {"replicate", "ts_replicate", "ti", 2, F::Text},
      {"space", "ts_space", "i", 1, F::Text},
      {"stuff", "ts_stuff", "tiit", 4, F::Text},
      {"ascii", "ts_ascii", "t", 1, F::Int},
      {"char", "ts_char", "i", 1, F::Text},
      {"str", "ts_str", "fii", 1, F::Text},
      {"isdate", "ts_isdate", "t", 1, F::Int},
      {"getdate", "ts_getdate", "", 0, F::Moment},
      {"sqrt", "ts_sqrt", "f", 1, F::Float},
      {"square", "ts_square", "f", 1, F::Float},
      {"exp", "ts_exp", "f", 1, F::Float},
      {"log", "ts_log", "f", 1, F::Float},
      {"log10", "ts_log10", "f", 1, F::Float},
      {"pi", "ts_pi", "", 0, F::Float},
  };
  static const SpecialFunction special[] = {
      {"isnull", &Binder::bindIsNull, 2, 2},
      {"coalesce", &Binder::bindCoalesce, 2, manyArguments},
      {"nullif", &Binder::bindNullIf, 2, 2},
      {"iif", &Binder::bindIif, 3, 3},
      {"concat", &Binder::bindConcat, 2, manyArguments},
      {"isnumeric", &Binder::bindIsNumeric, 1, 1},
      {"datediff", &Binder::bindDatePartCall, 3, 3},
      {"dateadd", &Binder::bindDatePartCall, 3, 3},
      {"datepart", &Binder::bindDatePartCall, 2, 2},
      {"datename", &Binder::bindDatePartCall, 2, 2},
      {"year", &Binder::bindDateField, 1, 1},
      {"month", &Binder::bindDateField, 1, 1},
      {"day", &Binder::bindDateField, 1, 1},
      {"abs", &Binder::bindNumeric, 1, 1},
      {"sign", &Binder::bindNumeric, 1, 1},
      {"floor", &Binder::bindNumeric, 1, 1},
      {"ceiling", &Binder::bindNumeric, 1, 1},
      {"round", &Binder::bindNumeric, 2, 3},
      {"power", &Binder::bindNumeric, 2, 2},
  };
  if (isAggregateName(expr->name)) return bindAggregate(expr, scope);
  if (expr->distinct)
    throw SqlError(state::syntax, expr->at, "'distinct' has no meaning in '" + expr->name + "'.");
  for (const SpecialFunction& function : special) {
    if (expr->name != function.name) continue;
    countArguments(*expr, function.least, function.most);
    return (this->*function.handler)(expr, scope);
  }
  for (const F& function : simple) {
    if (expr->name == function.name) return bindSimple(expr, scope, function);
  }
  throw SqlError(state::syntax, expr->at, "The function '" + expr->name + "' is not supported.");
}

void Binder::bindSimple(ExprPtr& expr, Scope& scope, const SimpleFunction& function) {
  const std::string_view letters = function.arguments;
  countArguments(*expr, function.least, letters.size());
  for (std::size_t i = 0; i < expr->args.size(); ++i) {
    ExprPtr& arg = expr->args[i];
    bindValue(arg, scope);
    switch (letters[i]) {
      case 't':
        toText(arg);
        break;
      case 'd':
        toDate(arg);
        break;
      case 'f':
        convertTo(arg, Type::of(Kind::Float));
        break;
      default:
        if (arg->type.isDate()) refuseOperand(*arg, arg->type, "'" + expr->name + "'");
        if (!arg->type.isWhole()) convertTo(arg, Type::of(Kind::Int));
        break;
    }
  }
  if (expr->name == "str") {
    constexpr std::int64_t defaultWidth = 10;
    if (expr->args.size() < 2) expr->args.push_back(wholeLiteral(defaultWidth, expr->at));
    if (expr->args.size() < 3) expr->args.push_back(wholeLiteral(0, expr->at));
  }
  switch (function.result) {
    case SimpleFunction::Int:
      expr->type = Type::of(Kind::Int);
      break;
    case SimpleFunction::Float:
      expr->type = Type::of(Kind::Float);
      break;
    case SimpleFunction::Moment:
      expr->type = Type::of(Kind::DateTime);
      break;
    case SimpleFunction::Text:
      expr->type = Type::varchar();
      break;
    case SimpleFunction::SameText:
      expr->type = Type::varchar(expr->args[0]->type.length);
      break;
  }
  expr->kind = ExprKind::Runtime;
  expr->name = function.call;
  fold(expr);
}

void Binder::bindAggregate(ExprPtr& expr, Scope& scope) {
  if (scope.aggregates == Aggregates::Forbidden) {
    throw SqlError(state::syntax, expr->at,
                   "An aggregate function ('" + expr->name + "') cannot stand in " + scope.place + ".");
  }
  scope.sawAggregate = true;
  expr->aggregate = true;
  expr->kind = ExprKind::Native;
  if (expr->star) {
    if (expr->name != "count")
      throw SqlError(state::syntax, expr->at, "'" + expr->name + "(*)' has no meaning.");
    expr->type = Type::of(Kind::Int);
    return;
  }
  countArguments(*expr, 1, 1);
  const char* place = scope.place;
  scope.aggregates = Aggregates::Forbidden;
  scope.place = "another one";
  bindValue(expr->args[0], scope);
  scope.aggregates = Aggregates::Allowed;
  scope.place = place;
  const ExprPtr& arg = expr->args[0];
  if (arg->kind == ExprKind::Subquery)
    throw SqlError(state::syntax, arg->at, "An aggregate function cannot fold a subquery.");
  if (innermostColumn(*arg) < scope.depth && innermostColumn(*arg) > 0) {
    throw SqlError(state::syntax, expr->at,
                   "An aggregate function over columns of the surrounding query is not supported.");
  }
  if (expr->name == "count") {
    expr->type = Type::of(Kind::Int);
    return;
  }
  if (arg->type.isNull()) arg->type = Type::of(Kind::Int);
  if (arg->type.kind == Kind::Bit) refuseOperand(*arg, arg->type, "'" + expr->name + "'");
  expr->type = arg->type;
  if (expr->name == "min" || expr->name == "max") return;
  if (!arg->type.isNumber()) refuseOperand(*arg, arg->type, "'" + expr->name + "'");
  const bool average = expr->name == "avg";
  const bool money = arg->type.kind == Kind::Money;
  expr->name = (average ? "ts_avg_" : "ts_sum_") + aggregateSuffix(arg->type);
  if (average && money) {
    expr->type = averageType(asDecimal(arg->type));
    convertTo(expr, Type::money());
  } else {
    expr->type = average ? averageType(arg->type) : sumType(arg->type);
  }
}

void Binder::bindDatePartCall(ExprPtr& expr, Scope& scope) {
  const DatePart part = requireDatePart(*expr);
  expr->args[0] = wholeLiteral(static_cast<std::int64_t>(part), expr->at);
  for (std::size_t i = 1; i < expr->args.size(); ++i) bindValue(expr->args[i], scope);
  if (expr->name == "dateadd") {
    if (part == DatePart::Weekday)
      expr->args[0] = wholeLiteral(static_cast<std::int64_t>(DatePart::Day), expr->at);
    if (expr->args[1]->type.isDate()) refuseOperand(*expr->args[1], expr->args[1]->type, "'dateadd'");
    if (!expr->args[1]->type.isWhole()) convertTo(expr->args[1], Type::of(Kind::Int));
    toDate(expr->args[2]);
    expr->type = expr->args[2]->type;
    expr->args.push_back(wholeLiteral(expr->type.packed(), expr->at));
  } else {
    for (std::size_t i = 1; i < expr->args.size(); ++i) toDate(expr->args[i]);
    expr->type = expr->name == "datename" ? Type::varchar() : Type::of(Kind::Int);
  }
  expr->kind = ExprKind::Runtime;
  expr->name = "ts_" + expr->name;
  fold(expr);
}

void Binder::bindDateField(ExprPtr& expr, Scope& scope) {
  bindValue(expr->args[0], scope);
  toDate(expr->args[0]);
  DatePart part = DatePart::Day;
  datePartNamed(expr->name, part);
  expr->args.insert(expr->args.begin(), wholeLiteral(static_cast<std::int64_t>(part), expr->at));
  expr->kind = ExprKind::Runtime;
  expr->name = "ts_datepart";
  expr->type = Type::of(Kind::Int);
  fold(expr);
}

// The first argument gives the type; the last one of the call says it.
void Binder::bindNumeric(ExprPtr& expr, Scope& scope) {
  for (ExprPtr& arg : expr->args) bindValue(arg, scope);
  ExprPtr& number = expr->args[0];
  if (number->type.isNull()) number->type = Type::of(Kind::Int);
  if (number->type.isText()) convertTo(number, Type::of(Kind::Float));
  if (!number->type.isNumber()) refuseOperand(*number, number->type, "'" + expr->name + "'");
  Type type = number->type;
  if (type.isWhole() && type.kind < Kind::Int) type = Type::of(Kind::Int);
  if (type.kind == Kind::Real) type = Type::of(Kind::Float);
  const bool bound = expr->name == "floor" || expr->name == "ceiling";
  if (bound && type.kind == Kind::Decimal) {
    type = Type::decimal(std::min(maxPrecision, type.precision - type.scale + 1), 0);
  }
  if (expr->name == "power") {
    if (type.kind == Kind::Decimal) type.precision = maxPrecision;
    convertTo(expr->args[1], Type::of(Kind::Float));
  }
  if (expr->name == "round") {
    for (std::size_t i = 1; i < expr->args.size(); ++i) convertTo(expr->args[i], Type::of(Kind::Int));
    if (expr->args.size() < 3) expr->args.push_back(wholeLiteral(0, expr->at));
  }
  expr->args.push_back(wholeLiteral(type.packed(), expr->at));
  expr->kind = ExprKind::Runtime;
  expr->name = "ts_" + expr->name;
  expr->type = type;
  fold(expr);
}

// The first argument gives the type, whatever the second is.
void Binder::bindIsNull(ExprPtr& expr, Scope& scope) {
  for (ExprPtr& arg : expr->args) bindValue(arg, scope);
  if (expr->args[0]->type.isNull()) {
    ExprPtr second = std::move(expr->args[1]);
    if (second->type.isNull()) second->type = Type::of(Kind::Int);
    expr = std::move(second);
    return;
  }
  expr->type = expr->args[0]->type;
  convertTo(expr->args[1], expr->type);
  expr->kind = ExprKind::Native;
  expr->name = "coalesce";
}

void Binder::bindCoalesce(ExprPtr& expr, Scope& scope) {
  Type type;
  for (ExprPtr& arg : expr->args) {
    bindValue(arg, scope);
    type = commonType(type, arg->type);
  }
  if (type.isNull())
    throw SqlError(state::syntax, expr->at, "At least one argument of 'coalesce' must not be null.");
  for (ExprPtr& arg : expr->args) convertTo(arg, type);
  expr->kind = ExprKind::Native;
  expr->type = type;
}

void Binder::bindNullIf(ExprPtr& expr, Scope& scope) {
  for (ExprPtr& arg : expr->args) bindValue(arg, scope);
  if (expr->args[0]->type.isNull()) {
    throw SqlError(state::syntax, expr->at, "The first argument of 'nullif' must not be null.");
  }
  Type type = commonType(expr->args[0]->type, expr->args[1]->type);
  const Type first = expr->args[0]->type;
  for (ExprPtr& arg : expr->args) convertForComparison(arg, type);
  expr->type = expr->args[0]->type;
  expr->kind = ExprKind::Native;
  convertTo(expr, first);
}

void Binder::bindIif(ExprPtr& expr, Scope& scope) {
  expr->kind = ExprKind::Case;
  expr->name.clear();
  expr->hasElse = true;
  bindCase(*expr, scope);
}

void Binder::bindConcat(ExprPtr& expr, Scope& scope) {
  for (ExprPtr& arg : expr->args) {
    bindValue(arg, scope);
    toText(arg);
  }
  expr->kind = ExprKind::Runtime;
  expr->name = "ts_concat";
  expr->type = Type::varchar();
  fold(expr);
}

void Binder::bindIsNumeric(ExprPtr& expr, Scope& scope) {
  bindValue(expr->args[0], scope);
  if (expr->args[0]->type.isDate()) toText(expr->args[0]);  // A date is no number.
  expr->kind = ExprKind::Runtime;
  expr->name = "ts_isnumeric";
  expr->type = Type::of(Kind::Int);
  fold(expr);
}

}  // namespace payslate::tsql
