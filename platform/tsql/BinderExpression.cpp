// Expressions: names, operators, and where types meet.
#include <algorithm>

#include "platform/tsql/Binder.h"
#include "platform/tsql/TokenStream.h"
#include "platform/tsql/TypeNames.h"

namespace payslate::tsql {

namespace {

Type nullAsInt(const Type& type) {
  return type.isNull() ? Type::of(Kind::Int) : type;
}

// The type a literal counts as beside a decimal: 2 has one digit, not ten.
Type operandType(const Expr& expr) {
  if (expr.kind != ExprKind::Literal || expr.type.kind != Kind::Int || isNull(expr.literal)) return expr.type;
  expr.settle();
  const auto digits = static_cast<int>(std::to_string(std::abs(std::get<std::int64_t>(expr.literal))).size());
  return Type::decimal(digits, 0);
}

// A range goes with such a comparison, from the values of its literals.
bool picksRange(const Expr& expr) {
  return expr.kind == ExprKind::Function &&
         (expr.name == "year" || expr.name == "month" || expr.name == "left" || expr.name == "substring");
}

void settleAll(const Expr& expr) {
  expr.settle();
  for (const ExprPtr& arg : expr.args) settleAll(*arg);
}

void requireValue(const Expr& expr) {
  if (expr.type.kind == Kind::Predicate) {
    throw SqlError(state::syntax, expr.at, "A condition stands where a value is expected.");
  }
}

}  // namespace

void Binder::bindValue(ExprPtr& expr, Scope& scope) {
  bindExpression(expr, scope);
  requireValue(*expr);
}

void Binder::bindCondition(ExprPtr& expr, Scope& scope) {
  bindExpression(expr, scope);
  if (expr->type.kind != Kind::Predicate) {
    throw SqlError(state::syntax, expr->at, "A value stands where a condition is expected.");
  }
}

void Binder::bindExpression(ExprPtr& expr, Scope& scope) {
  switch (expr->kind) {
    case ExprKind::Literal:
      return;
    case ExprKind::Column:
      return bindColumn(*expr, scope);
    case ExprKind::Variable:
      return bindVariable(*expr);
    case ExprKind::Arithmetic:
      return bindArithmetic(expr, scope);
    case ExprKind::Compare:
      return bindComparison(*expr, scope);
    case ExprKind::And:
    case ExprKind::Or:
    case ExprKind::Not:
      for (ExprPtr& arg : expr->args) bindCondition(arg, scope);
      break;
    case ExprKind::IsNull:
      bindValue(expr->args[0], scope);
      break;
    case ExprKind::Between:
      for (ExprPtr& arg : expr->args) bindValue(arg, scope);
      meet(expr->args, 0, 1);
      break;
    case ExprKind::InList:
    case ExprKind::InQuery:
      return bindIn(*expr, scope);
    case ExprKind::Like:
      return bindLike(expr, scope);
    case ExprKind::Exists:
      bindQuery(*expr->query, &scope, true);
      break;
    case ExprKind::Subquery:
      return bindSubquery(*expr, scope);
    case ExprKind::Case:
      return bindCase(*expr, scope);
    case ExprKind::Convert:
      return bindConvert(expr, scope);
    case ExprKind::Function:
      return bindFunction(expr, scope);
    case ExprKind::Runtime:
    case ExprKind::Native:
    case ExprKind::Concat:
      return;  // Bound already: made by the binder itself.
  }
  expr->type = Type::of(Kind::Predicate);
}

void Binder::bindColumn(Expr& expr, Scope& scope) const {
  for (Scope* level = &scope; level != nullptr; level = level->parent) {
    const Source* found = nullptr;
    const OutputColumn* foundColumn = nullptr;
    for (const Source& source : level->sources) {
      if (!expr.qualifier.empty() && !sameWord(source.alias, expr.qualifier)) continue;
      for (const OutputColumn& column : source.columns) {
        if (!sameWord(column.name, expr.name)) continue;
        if (found != nullptr) {
          throw SqlError(state::syntax, expr.at, "The column name '" + expr.name + "' is ambiguous.");
        }
        found = &source;
        foundColumn = &column;
      }
    }
    if (found == nullptr) continue;
    expr.source = found->sql;
    expr.sourceDepth = level->depth;
    expr.type = foundColumn->type;
    expr.storedColumn = foundColumn->storedColumn;
    expr.expansion = foundColumn->expansion;
    return;
  }
  const std::string name = expr.qualifier.empty() ? expr.name : expr.qualifier + "." + expr.name;
  throw SqlError(state::noSuchColumn, expr.at, "There is no column '" + name + "'.");
}

void Binder::bindVariable(Expr& expr) const {
  if (parameters_ != nullptr) {
    for (const Parameter& parameter : *parameters_) {
      if (!sameWord(parameter.name, expr.name)) continue;
      expr.type = parameter.type;
      expr.literal = static_cast<std::int64_t>(&parameter - parameters_->data()) + 1;
      return;
    }
  }
  throw SqlError(state::syntax, expr.at, "The variable '" + expr.name + "' is not declared.");
}

void Binder::bindSign(ExprPtr& expr) {
  ExprPtr operand = std::move(expr->args[0]);
  operand->type = nullAsInt(operand->type);
  if (!operand->type.isNumber() || operand->type.kind == Kind::Bit) {
    refuseOperand(*expr, operand->type, "the sign '" + expr->name + "'");
  }
  if (expr->name == "+") {
    expr = std::move(operand);
    return;
  }
  const Type type = operand->type.kind == Kind::TinyInt ? Type::of(Kind::SmallInt) : operand->type;
  ExprPtr call = makeRuntime("ts_neg", type, expr->at);
  call->args.push_back(std::move(operand));
  call->args.push_back(wholeLiteral(type.packed(), expr->at));
  expr = std::move(call);
  fold(expr);
}

void Binder::bindArithmetic(ExprPtr& expr, Scope& scope) {
  for (ExprPtr& arg : expr->args) bindValue(arg, scope);
  if (expr->args.size() == 1) return bindSign(expr);
  ExprPtr& left = expr->args[0];
  ExprPtr& right = expr->args[1];
  const char op = expr->name[0];
  if (left->type.isNull()) left->type = nullAsInt(right->type);
  if (right->type.isNull()) right->type = nullAsInt(left->type);
  if (left->type.isDate() || right->type.isDate()) return bindDateArithmetic(expr);
  if (left->type.isText() && right->type.isText()) {
    if (op != '+') refuseOperand(*expr, left->type, "'" + expr->name + "'");
    const bool unlimited = left->type.length <= 0 || right->type.length <= 0;
    expr->type = Type::varchar(unlimited ? unlimitedLength : left->type.length + right->type.length);
    expr->kind = ExprKind::Concat;
    return;
  }
  if (left->type.isText()) convertTo(left, right->type);
  if (right->type.isText()) convertTo(right, left->type);
  const bool bits = left->type.kind == Kind::Bit && right->type.kind == Kind::Bit;
  if (bits || (op == '%' && (left->type.isFloating() || right->type.isFloating()))) {
    refuseOperand(*expr, left->type.isFloating() || bits ? left->type : right->type, "'" + expr->name + "'");
  }
  const bool exact = left->type.kind == Kind::Decimal || right->type.kind == Kind::Decimal;
  const Type type = exact ? arithmeticType(op, operandType(*left), operandType(*right))
                          : arithmeticType(op, left->type, right->type);
  static constexpr std::pair<char, const char*> calls[] = {
      {'+', "ts_add"}, {'-', "ts_sub"}, {'*', "ts_mul"}, {'/', "ts_div"}, {'%', "ts_mod"}};
  const auto* call =
      std::find_if(std::begin(calls), std::end(calls), [&](const auto& c) { return c.first == op; });
  expr->kind = ExprKind::Runtime;
  expr->name = call->second;
  expr->type = type;
  expr->args.push_back(wholeLiteral(type.packed(), expr->at));
  fold(expr);
}

// A date takes days: plus and minus, a number or another date.
void Binder::bindDateArithmetic(ExprPtr& expr) {
  ExprPtr left = std::move(expr->args[0]);
  ExprPtr right = std::move(expr->args[1]);
  const bool plus = expr->name == "+";
  if (plus && !left->type.isDate()) std::swap(left, right);
  const bool known = plus || expr->name == "-";
  if (!known || left->type.kind == Kind::Date || right->type.kind == Kind::Date) {
    refuseOperand(*expr, left->type.isDate() ? left->type : right->type, "'" + expr->name + "'");
  }
  convertTo(left, Type::of(Kind::DateTime));
  if (right->type.isText()) convertTo(right, Type::of(Kind::DateTime));
  convertTo(right, Type::of(Kind::Float));
  ExprPtr call = makeRuntime("ts_plusdays", Type::of(Kind::DateTime), expr->at);
  call->args.push_back(std::move(left));
  call->args.push_back(std::move(right));
  call->args.push_back(wholeLiteral(plus ? 1 : -1, expr->at));
  expr = std::move(call);
  fold(expr);
}

void Binder::meet(std::vector<ExprPtr>& args, std::size_t first, std::size_t step) {
  Type type;
  for (std::size_t i = first; i < args.size(); i += step) type = commonType(type, args[i]->type);
  if (type.isNull()) return;
  for (std::size_t i = first; i < args.size(); i += step) convertForComparison(args[i], type);
}

void Binder::bindComparison(Expr& expr, Scope& scope) {
  if (std::any_of(expr.args.begin(), expr.args.end(), [](const ExprPtr& arg) { return picksRange(*arg); }))
    settleAll(expr);
  for (ExprPtr& arg : expr.args) bindValue(arg, scope);
  meet(expr.args, 0, 1);
  expr.type = Type::of(Kind::Predicate);
}

void Binder::bindIn(Expr& expr, Scope& scope) {
  for (ExprPtr& arg : expr.args) bindValue(arg, scope);
  expr.type = Type::of(Kind::Predicate);
  if (expr.kind == ExprKind::InList) return meet(expr.args, 0, 1);
  bindQuery(*expr.query, &scope, true);
  if (expr.query->columns.size() != 1) {
    throw SqlError(state::syntax, expr.at, "The select of 'in' must have exactly one column.");
  }
  const Type column = expr.query->columns.front().type;
  const Type type = commonType(expr.args[0]->type, column);
  convertForComparison(expr.args[0], type);
  if (!column.isNull() && !comparesAsStored(column, type)) {
    const bool whole = column.isWhole() && type.kind == Kind::Decimal;
    convertColumn(*expr.query, 0, whole ? asDecimal(column) : type);
  }
  narrowList(expr, scope);
}

void Binder::bindLike(ExprPtr& expr, Scope& scope) {
  ExprPtr call = makeRuntime("ts_like", Type::of(Kind::Predicate), expr->at);
  for (ExprPtr& arg : expr->args) {
    bindValue(arg, scope);
    if (!arg->type.isText()) convertTo(arg, Type::varchar());
    call->args.push_back(std::move(arg));
  }
  if (!expr->negated) {
    expr = std::move(call);
    return;
  }
  expr->kind = ExprKind::Not;
  expr->type = Type::of(Kind::Predicate);
  expr->args.clear();
  expr->args.push_back(std::move(call));
}

// Arguments: [operand] (when then)… [else]. The operand meets the whens, the results meet each other.
void Binder::bindCase(Expr& expr, Scope& scope) {
  const std::size_t first = expr.hasOperand ? 1 : 0;
  const std::size_t end = expr.args.size() - (expr.hasElse ? 1 : 0);
  if (expr.hasOperand) bindValue(expr.args[0], scope);
  Type type;
  for (std::size_t i = first; i < end; i += 2) {
    if (expr.hasOperand) {
      bindValue(expr.args[i], scope);
    } else {
      bindCondition(expr.args[i], scope);
    }
    bindValue(expr.args[i + 1], scope);
    type = commonType(type, expr.args[i + 1]->type);
  }
  if (expr.hasElse) {
    bindValue(expr.args[end], scope);
    type = commonType(type, expr.args[end]->type);
  }
  expr.type = nullAsInt(type);
  for (std::size_t i = first + 1; i < end; i += 2) convertTo(expr.args[i], expr.type);
  if (expr.hasElse) convertTo(expr.args[end], expr.type);
  if (!expr.hasOperand) return;
  std::vector<ExprPtr> compared;
  compared.push_back(std::move(expr.args[0]));
  for (std::size_t i = first; i < end; i += 2) compared.push_back(std::move(expr.args[i]));
  meet(compared, 0, 1);
  expr.args[0] = std::move(compared[0]);
  for (std::size_t i = first; i < end; i += 2) expr.args[i] = std::move(compared[1 + (i - first) / 2]);
}

void Binder::bindConvert(ExprPtr& expr, Scope& scope) {
  constexpr int defaultLength = 30;
  for (ExprPtr& arg : expr->args) bindValue(arg, scope);
  Type type = expr->type;
  if (type.isText() && type.length == unstatedLength) type.length = defaultLength;
  int style = 0;
  if (expr->args.size() > 1) {
    const Expr& given = *expr->args[1];
    given.settle();
    if (!given.isLiteral() || given.type.kind != Kind::Int || isNull(given.literal)) {
      throw SqlError(state::syntax, given.at, "The style of 'convert' must be a whole number.");
    }
    style = static_cast<int>(std::get<std::int64_t>(given.literal));
  }
  ExprPtr value = std::move(expr->args[0]);
  value->at = expr->at;
  const bool dateToExact = value->type.kind == Kind::Date && type.isNumber();
  if (dateToExact || (type.kind == Kind::Date && value->type.isNumber())) {
    refuseOperand(*value, value->type, "a conversion to " + type.text());
  }
  convertTo(value, type, style);
  value->storedColumn = value->storedColumn && value->kind == ExprKind::Column;
  expr = std::move(value);
}

void Binder::bindSubquery(Expr& expr, Scope& scope) {
  bindQuery(*expr.query, &scope, true);
  if (expr.query->columns.size() != 1) {
    throw SqlError(state::syntax, expr.at,
                   "A subquery that stands for a value must have exactly one column.");
  }
  expr.type = nullAsInt(expr.query->columns.front().type);
}

}  // namespace payslate::tsql
