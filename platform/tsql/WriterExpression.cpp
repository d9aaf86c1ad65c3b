// Expressions. Every comparison names its collation unless a stored column brings it along.
#include <map>
#include <string>
#include <vector>

#include "platform/tsql/Generator.h"
#include "platform/tsql/Writer.h"

namespace payslate::tsql {

namespace {

const std::map<std::string, char, std::less<>>& arithmeticCalls() {
  static const std::map<std::string, char, std::less<>> calls = {
      {"ts_add", '+'}, {"ts_sub", '-'}, {"ts_mul", '*'}, {"ts_div", '/'}, {"ts_mod", '%'}};
  return calls;
}

}  // namespace

void Writer::write(const Expr& expr) {
  switch (expr.kind) {
    case ExprKind::Literal:
      return literal(expr);
    case ExprKind::Column:
      return column(expr);
    case ExprKind::Variable:
      return variable(expr);
    case ExprKind::Compare:
      return comparison(expr);
    case ExprKind::And:
    case ExprKind::Or:
      return logical(expr);
    case ExprKind::Concat:
      return concatenation(expr);
    case ExprKind::Not:
      return negation(expr);
    case ExprKind::IsNull:
      return nullTest(expr);
    case ExprKind::Between:
      return between(expr);
    case ExprKind::InList:
    case ExprKind::InQuery:
      return in(expr);
    case ExprKind::Exists:
      return exists(expr);
    case ExprKind::Subquery:
      return subquery(expr);
    case ExprKind::Case:
      return caseOf(expr);
    case ExprKind::Runtime:
      return runtimeCall(expr);
    case ExprKind::Native:
      return call(expr);
    case ExprKind::Arithmetic:
    case ExprKind::Like:
    case ExprKind::Function:
    case ExprKind::Convert:
      return unbound(expr);
  }
}

void Writer::literal(const Expr& expr) {
  if (!expr.slot) {
    text += writtenLiteral(expr.literal);
    return;
  }
  bound.insert(*expr.slot);
  text += "?" + std::to_string(*expr.slot + 1);
}

void Writer::column(const Expr& expr) {
  if (!expr.source.empty()) text += quotedName(expr.source) + ".";
  text += quotedName(expr.name);
}

void Writer::variable(const Expr& expr) {
  text += "?" + std::to_string(std::get<std::int64_t>(expr.literal));
}

void Writer::comparison(const Expr& expr) {
  text += "(";
  compared(*expr.args[0]);
  text += " " + expr.name + " ";
  const Expr& right = *expr.args[1];
  right.kind == ExprKind::Literal ? keyed(right)
                                  : write(right);  // Comparisons between "or" may become a list.
  text += ")";
}

void Writer::logical(const Expr& expr) {
  flat(expr, expr.kind == ExprKind::And ? " AND " : " OR ");
}

void Writer::concatenation(const Expr& expr) {
  flat(expr, " || ");
}

// Chains of one operator are written flat: the database counts parentheses.
void Writer::flat(const Expr& expr, const char* sign) {
  text += "(";
  flatArguments(expr, expr.kind, sign);
  text += ")";
}

void Writer::flatArguments(const Expr& expr, ExprKind kind, const char* sign) {
  for (std::size_t i = 0; i < expr.args.size(); ++i) {
    if (i > 0) text += sign;
    if (expr.args[i]->kind == kind) {
      flatArguments(*expr.args[i], kind, sign);
    } else {
      write(*expr.args[i]);
    }
  }
}

void Writer::negation(const Expr& expr) {
  text += "(NOT ";
  write(*expr.args[0]);
  text += ")";
}

void Writer::nullTest(const Expr& expr) {
  text += "(";
  write(*expr.args[0]);
  text += expr.negated ? " IS NOT NULL)" : " IS NULL)";
}

void Writer::between(const Expr& expr) {
  text += "(";
  compared(*expr.args[0]);
  text += expr.negated ? " NOT BETWEEN " : " BETWEEN ";
  write(*expr.args[1]);
  text += " AND ";
  write(*expr.args[2]);
  text += ")";
}

void Writer::in(const Expr& expr) {
  text += "(";
  compared(*expr.args[0]);
  text += expr.negated ? " NOT IN (" : " IN (";
  if (expr.query) {
    keyed_ = true;
    write(*expr.query);
  } else {
    for (std::size_t i = 1; i < expr.args.size(); ++i) {
      if (i > 1) text += ", ";
      keyed(*expr.args[i]);
    }
  }
  text += "))";
}

void Writer::exists(const Expr& expr) {
  text += "EXISTS (";
  write(*expr.query);
  text += ")";
}

// More than one row is an error there, and not the first one's value.
void Writer::subquery(const Expr& expr) {
  text += "(";
  if (expr.query->single) {
    write(*expr.query);
  } else {
    text += "SELECT ts_only(\"value\") FROM (";
    outputName_ = "value";
    write(*expr.query);
    text += ")";
  }
  text += ")";
}

void Writer::caseOf(const Expr& expr) {
  const std::size_t first = expr.hasOperand ? 1 : 0;
  const std::size_t end = expr.args.size() - (expr.hasElse ? 1 : 0);
  text += "CASE";
  if (expr.hasOperand) {
    text += " ";
    compared(*expr.args[0]);
  }
  for (std::size_t i = first; i < end; i += 2) {
    text += " WHEN ";
    write(*expr.args[i]);
    text += " THEN ";
    write(*expr.args[i + 1]);
  }
  if (expr.hasElse) {
    text += " ELSE ";
    write(*expr.args[end]);
  }
  text += " END";
}

void Writer::runtimeCall(const Expr& expr) {
  if (!arithmeticChain(expr)) call(expr);
}

// a + b - c … as one call: the database's own parser nests only so deep.
bool Writer::arithmeticChain(const Expr& expr) {
  constexpr std::size_t mostSteps = 40;  // Three arguments each, and a call takes 127.
  std::vector<const Expr*> steps;
  const Expr* step = &expr;
  while (step->kind == ExprKind::Runtime && arithmeticCalls().contains(step->name) &&
         steps.size() < mostSteps) {
    steps.push_back(step);
    step = step->args[0].get();
  }
  if (steps.size() < 2) return false;
  text += "ts_chain(";
  write(*step);
  for (auto it = steps.rbegin(); it != steps.rend(); ++it) {
    text += ", " + std::to_string(static_cast<int>(arithmeticCalls().at((*it)->name))) + ", ";
    write(*(*it)->args[1]);
    text += ", ";
    write(*(*it)->args[2]);
  }
  text += ")";
  return true;
}

void Writer::call(const Expr& expr) {
  text += expr.name + "(";
  if (expr.star) text += "*";
  if (expr.distinct) text += "DISTINCT ";
  const bool compares = expr.kind == ExprKind::Native && (expr.aggregate || expr.name == "nullif");
  if (compares && !expr.args.empty()) {
    compared(*expr.args[0]);
    if (expr.args.size() > 1) text += ", ";
    list(expr, 1);
  } else {
    list(expr, 0);
  }
  text += ")";
}

void Writer::list(const Expr& expr, std::size_t first) {
  for (std::size_t i = first; i < expr.args.size(); ++i) {
    if (i > first) text += ", ";
    write(*expr.args[i]);
  }
}

// The binder turns each of these into another kind.
void Writer::unbound(const Expr& expr) {
  throw SqlError(state::general, expr.at, "The expression '" + expr.name + "' was not given a meaning.");
}

void Writer::compared(const Expr& expr) {
  write(expr);
  collate(expr.type, expr.storedColumn);
}

// The database may keep one text of a list with the length of another, where they are equal and no longer
// than a blank: of the two that there are, one is not let in.
void Writer::keyed(const Expr& expr) {
  if (!expr.type.isText()) return write(expr);
  if (expr.isBound()) return write(expr);  // It is no blank.
  if (expr.isLiteral()) {
    text += expr.literal == Cell(" ") ? "''" : writtenLiteral(expr.literal);
    return;
  }
  text += "ts_emptied(";
  write(expr);
  text += ")";
}

void Writer::collate(const Type& type, bool storedColumn) {
  const char* collation = collationOf(type);
  if (collation != nullptr && !storedColumn) text += std::string(" COLLATE ") + collation;
}

}  // namespace payslate::tsql
