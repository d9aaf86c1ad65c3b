// Building blocks of the binder: new nodes, folding, and conversions.
#include <algorithm>

#include "platform/tsql/Binder.h"
#include "platform/tsql/Runtime.h"
#include "platform/tsql/TokenStream.h"

namespace payslate::tsql {

namespace {

/// Kinds whose values compare as they are stored.
enum class Storage { Number, Exact, Text, Moment };
Storage storageOf(const Type& type) {
  if (type.isText()) return Storage::Text;
  if (type.isExact()) return Storage::Exact;
  return type.isDate() ? Storage::Moment : Storage::Number;
}

}  // namespace

bool comparesAsStored(const Type& left, const Type& right) {
  return storageOf(left) == storageOf(right);
}

void refuseOperand(const Expr& expr, const Type& type, const std::string& operation) {
  throw SqlError(state::syntax, expr.at,
                 "A value of type " + type.text() + " cannot be used with " + operation + ".");
}

ExprPtr makeLiteral(Cell value, const Type& type, Position at) {
  auto expr = std::make_unique<Expr>();
  expr->at = at;
  expr->literal = std::move(value);
  expr->type = type;
  return expr;
}

ExprPtr makeRuntime(std::string function, const Type& type, Position at) {
  auto expr = std::make_unique<Expr>();
  expr->kind = ExprKind::Runtime;
  expr->at = at;
  expr->name = std::move(function);
  expr->type = type;
  return expr;
}

ExprPtr wholeLiteral(std::int64_t number, Position at) {
  return makeLiteral(number, Type::of(Kind::BigInt), at);
}

ExprPtr columnAgain(const Expr& column) {
  auto again = std::make_unique<Expr>();
  again->kind = ExprKind::Column;
  again->at = column.at;
  again->name = column.name;
  again->qualifier = column.qualifier;
  again->type = column.type;
  again->source = column.source;
  again->sourceDepth = column.sourceDepth;
  again->storedColumn = column.storedColumn;
  again->expansion = column.expansion;
  return again;
}

ExprPtr makeComparison(ExprPtr left, const char* sign, ExprPtr right) {
  auto compare = std::make_unique<Expr>();
  compare->kind = ExprKind::Compare;
  compare->at = left->at;
  compare->name = sign;
  compare->type = Type::of(Kind::Predicate);
  compare->args.push_back(std::move(left));
  compare->args.push_back(std::move(right));
  return compare;
}

void fold(ExprPtr& call) {
  const RuntimeFunction* function = findRuntimeFunction(call->name);
  if (function == nullptr || !function->constant) return;
  std::vector<Cell> arguments;
  for (const ExprPtr& arg : call->args) {
    if (!arg->isLiteral()) return;
    arguments.push_back(arg->literal);
  }
  const Type type = call->type;
  const Position at = call->at;
  try {
    call = makeLiteral(callRuntime(*function, arguments), type, at);
  } catch (const SqlError& error) {
    // It may stand where no row ever asks for it, so it fails when it is asked for.
    call = makeRuntime("ts_raise", type, at);
    call->args.push_back(makeLiteral(error.sqlState(), Type::varchar(), at));
    call->args.push_back(makeLiteral(std::string(error.what()), Type::varchar(), at));
  }
}

void convertTo(ExprPtr& expr, const Type& type, int style) {
  if (expr->type.isNull()) {
    expr->type = type;
    return;
  }
  const Type from = expr->type;
  const bool widerText = from.isText() && type.kind == Kind::VarChar &&
                         (type.length == unlimitedLength || (from.length > 0 && from.length <= type.length));
  const bool widerWhole =
      from.isWhole() && type.isWhole() && type.kind != Kind::Bit && from.kind <= type.kind;
  const bool sameDecimal = from.isExact() && type.kind == Kind::Decimal && from.scale == type.scale &&
                           from.precision <= type.precision;
  if (from == type || widerText || widerWhole || sameDecimal) {
    expr->type = type;
    return;
  }
  const Position at = expr->at;
  ExprPtr call = makeRuntime("ts_convert", type, at);
  call->args.push_back(std::move(expr));
  call->args.push_back(wholeLiteral(from.packed(), at));
  call->args.push_back(wholeLiteral(type.packed(), at));
  call->args.push_back(wholeLiteral(style, at));
  expr = std::move(call);
  fold(expr);
}

void convertForComparison(ExprPtr& expr, const Type& type) {
  if (expr->type.isNull() || comparesAsStored(expr->type, type)) return;
  Type target = type;
  if (type.kind == Kind::Decimal && expr->type.isWhole()) target = asDecimal(expr->type);
  convertTo(expr, target);
}

bool isConstant(const Expr& expr) {
  if (expr.kind == ExprKind::Column || expr.query || expr.aggregate) return false;
  if (expr.kind == ExprKind::Runtime && expr.name != "ts_raise" && !findRuntimeFunction(expr.name)->constant)
    return false;
  return std::all_of(expr.args.begin(), expr.args.end(), [](const ExprPtr& arg) { return isConstant(*arg); });
}

bool sameExpression(const Expr& left, const Expr& right) {
  if (left.kind != right.kind || left.query || right.query || left.args.size() != right.args.size())
    return false;
  left.settle();
  right.settle();
  if (!sameWord(left.name, right.name) || left.source != right.source || left.literal != right.literal ||
      left.negated != right.negated || left.distinct != right.distinct ||
      left.hasOperand != right.hasOperand || left.hasElse != right.hasElse) {
    return false;
  }
  for (std::size_t i = 0; i < left.args.size(); ++i) {
    if (!sameExpression(*left.args[i], *right.args[i])) return false;
  }
  return true;
}

}  // namespace payslate::tsql
