// Expressions: one ladder of precedence from "or" down to literals and names.
#include <algorithm>

#include "platform/tsql/Parser.h"
#include "platform/tsql/QueryParser.h"
#include "platform/tsql/Shape.h"
#include "platform/tsql/TypeNames.h"

namespace payslate::tsql {

namespace {

constexpr std::string_view anExpression = "an expression";

}  // namespace

ExprPtr QueryParser::node(ExprKind kind, Position at) const {
  auto expr = std::make_unique<Expr>();
  expr->kind = kind;
  expr->at = at;
  return expr;
}

void QueryParser::adopt(Expr& parent, ExprPtr child) const {
  parent.height = std::max(parent.height, child->height + 1);
  if (parent.height > maxHeight) {
    throw SqlError(state::syntax, child->at,
                   "The expression chains more than " + std::to_string(maxHeight) + " operations.");
  }
  parent.args.push_back(std::move(child));
}

ExprPtr QueryParser::binary(ExprKind kind, Position at, std::string name, ExprPtr left, ExprPtr right) const {
  ExprPtr expr = node(kind, at);
  expr->name = std::move(name);
  adopt(*expr, std::move(left));
  adopt(*expr, std::move(right));
  return expr;
}

ExprPtr QueryParser::expression() {
  const Nesting nesting(depth_, tokens_.at());
  return disjunction();
}

ExprPtr QueryParser::disjunction() {
  ExprPtr left = conjunction();
  while (tokens_.isWord("or")) {
    const Position at = tokens_.take().at;
    left = binary(ExprKind::Or, at, "or", std::move(left), conjunction());
  }
  return left;
}

ExprPtr QueryParser::conjunction() {
  ExprPtr left = negation();
  while (tokens_.isWord("and")) {
    const Position at = tokens_.take().at;
    left = binary(ExprKind::And, at, "and", std::move(left), negation());
  }
  return left;
}

ExprPtr QueryParser::negation() {
  if (!tokens_.isWord("not")) return predicate();
  const Nesting nesting(depth_, tokens_.at());
  ExprPtr expr = node(ExprKind::Not, tokens_.take().at);
  adopt(*expr, negation());
  return expr;
}

ExprPtr QueryParser::predicate() {
  ExprPtr left = sum();
  static constexpr std::string_view comparisons[] = {"=", "<>", "!=", "<=", ">=", "<", ">", "!<", "!>"};
  for (const std::string_view sign : comparisons) {
    if (!tokens_.isSign(sign)) continue;
    const Position at = tokens_.take().at;
    if (tokens_.isWord("all") || tokens_.isWord("any") || tokens_.isWord("some")) {
      tokens_.unsupported("A comparison with '" + tokens_.peek().text + "'");
    }
    const std::string name = sign == "!="   ? "<>"
                             : sign == "!<" ? ">="
                             : sign == "!>" ? "<="
                                            : std::string(sign);
    return binary(ExprKind::Compare, at, name, std::move(left), sum());
  }
  const Position at = tokens_.at();
  if (tokens_.acceptWord("is")) {
    ExprPtr expr = node(ExprKind::IsNull, at);
    expr->negated = tokens_.acceptWord("not");
    tokens_.expectWord("null");
    adopt(*expr, std::move(left));
    return expr;
  }
  const bool negated = tokens_.isWord("not") &&
                       (tokens_.isWord("in", 1) || tokens_.isWord("like", 1) || tokens_.isWord("between", 1));
  if (negated) tokens_.take();
  if (tokens_.acceptWord("between")) {
    ExprPtr expr = node(ExprKind::Between, at);
    expr->negated = negated;
    adopt(*expr, std::move(left));
    adopt(*expr, sum());
    tokens_.expectWord("and");
    adopt(*expr, sum());
    return expr;
  }
  if (tokens_.acceptWord("like")) {
    ExprPtr expr = binary(ExprKind::Like, at, "like", std::move(left), sum());
    expr->negated = negated;
    if (tokens_.acceptWord("escape")) adopt(*expr, sum());
    return expr;
  }
  if (tokens_.acceptWord("in")) return inPredicate(std::move(left), negated);
  return left;
}

ExprPtr QueryParser::inPredicate(ExprPtr left, bool negated) {
  ExprPtr expr = node(ExprKind::InList, left->at);
  expr->negated = negated;
  adopt(*expr, std::move(left));
  tokens_.expectSign("(");
  if (tokens_.isWord("select")) {
    const Nesting nesting(depth_, tokens_.at());
    expr->kind = ExprKind::InQuery;
    expr->query = std::make_unique<Query>(query());
  } else {
    do {
      adopt(*expr, expression());
    } while (tokens_.acceptSign(","));
  }
  tokens_.expectSign(")");
  return expr;
}

ExprPtr QueryParser::sum() {
  ExprPtr left = product();
  while (tokens_.isSign("+") || tokens_.isSign("-")) {
    const Token sign = tokens_.take();
    left = binary(ExprKind::Arithmetic, sign.at, sign.text, std::move(left), product());
  }
  return left;
}

ExprPtr QueryParser::product() {
  ExprPtr left = unary();
  while (tokens_.isSign("*") || tokens_.isSign("/") || tokens_.isSign("%")) {
    const Token sign = tokens_.take();
    left = binary(ExprKind::Arithmetic, sign.at, sign.text, std::move(left), unary());
  }
  return left;
}

// A sign stands below the products: -a * b is -(a * b), and a / -b * c is a / -(b * c).
ExprPtr QueryParser::unary() {
  if (!tokens_.isSign("-") && !tokens_.isSign("+")) return primary();
  const Nesting nesting(depth_, tokens_.at());
  const Token sign = tokens_.take();
  ExprPtr expr = node(ExprKind::Arithmetic, sign.at);
  expr->name = sign.text;
  adopt(*expr, product());
  return expr;
}

ExprPtr QueryParser::primary() {
  switch (tokens_.peek().kind) {
    case TokenKind::Text:
    case TokenKind::WholeNumber:
    case TokenKind::DecimalNumber:
    case TokenKind::FloatNumber:
      return literalToken();
    case TokenKind::Variable:
      return variable();
    case TokenKind::Sign:
      return parenthesized();
    case TokenKind::Word:
      return wordExpression();
    case TokenKind::QuotedName:
      return columnName();
    case TokenKind::End:
      break;
  }
  tokens_.unexpected(anExpression);
}

ExprPtr QueryParser::wordExpression() {
  if (tokens_.isWord("null")) return node(ExprKind::Literal, tokens_.take().at);
  if (tokens_.isWord("case")) return caseExpression();
  if (tokens_.isWord("exists")) return exists();
  if (tokens_.isWord("convert") && tokens_.isSign("(", 1)) return convertCall();
  if (tokens_.isWord("cast") && tokens_.isSign("(", 1)) return castCall();
  if (isFunctionName() && tokens_.isSign("(", 1)) return functionCall();
  if (tokens_.isName()) return columnName();
  tokens_.unexpected(anExpression);
}

// Some functions have the names of keywords.
bool QueryParser::isFunctionName() const {
  return tokens_.isName() || tokens_.isWord("left") || tokens_.isWord("right") ||
         tokens_.isWord("coalesce") || tokens_.isWord("nullif");
}

ExprPtr QueryParser::variable() {
  const Token token = tokens_.peek();
  if (token.text.starts_with("@@")) tokens_.unsupported("The variable '" + token.text + "'");
  ExprPtr expr = node(ExprKind::Variable, tokens_.take().at);
  expr->name = token.text;
  return expr;
}

ExprPtr QueryParser::parenthesized() {
  if (!tokens_.isSign("(")) tokens_.unexpected(anExpression);
  const Position at = tokens_.take().at;
  ExprPtr expr = tokens_.isWord("select") ? subquery(ExprKind::Subquery, at) : expression();
  tokens_.expectSign(")");
  return expr;
}

ExprPtr QueryParser::exists() {
  const Position at = tokens_.take().at;
  tokens_.expectSign("(");
  ExprPtr expr = subquery(ExprKind::Exists, at);
  tokens_.expectSign(")");
  return expr;
}

ExprPtr QueryParser::subquery(ExprKind kind, Position at) {
  const Nesting nesting(depth_, at);
  ExprPtr expr = node(kind, at);
  expr->query = std::make_unique<Query>(query());
  return expr;
}

ExprPtr QueryParser::literalToken() {
  const Token& token = tokens_.peek();
  ExprPtr expr = node(ExprKind::Literal, token.at);
  Literal literal = literalOf(token.kind, token.text, token.at);
  expr->literal = std::move(literal.value);
  expr->type = literal.type;
  if (literals_ == Literals::Bound) expr->slot = token.slot;
  tokens_.take();
  return expr;
}

ExprPtr QueryParser::columnName() {
  ExprPtr expr = node(ExprKind::Column, tokens_.at());
  expr->name = tokens_.expectName("a column");
  while (tokens_.isSign(".")) {
    tokens_.take();
    expr->qualifier = std::move(expr->name);
    if (tokens_.isSign("*")) tokens_.unexpected("a column");
    expr->name = tokens_.expectName("a column");
  }
  return expr;
}

ExprPtr QueryParser::caseExpression() {
  ExprPtr expr = node(ExprKind::Case, tokens_.take().at);
  if (!tokens_.isWord("when")) {
    expr->hasOperand = true;
    adopt(*expr, expression());
  }
  if (!tokens_.isWord("when")) tokens_.unexpected("'when'");
  while (tokens_.acceptWord("when")) {
    adopt(*expr, expression());
    tokens_.expectWord("then");
    adopt(*expr, expression());
  }
  if (tokens_.acceptWord("else")) {
    expr->hasElse = true;
    adopt(*expr, expression());
  }
  tokens_.expectWord("end");
  return expr;
}

ExprPtr QueryParser::convertCall() {
  ExprPtr expr = node(ExprKind::Convert, tokens_.take().at);
  expr->name = "convert";
  tokens_.expectSign("(");
  expr->type = type();
  tokens_.expectSign(",");
  adopt(*expr, expression());
  if (tokens_.acceptSign(",")) adopt(*expr, expression());
  tokens_.expectSign(")");
  return expr;
}

ExprPtr QueryParser::castCall() {
  ExprPtr expr = node(ExprKind::Convert, tokens_.take().at);
  expr->name = "cast";
  tokens_.expectSign("(");
  adopt(*expr, expression());
  tokens_.expectWord("as");
  expr->type = type();
  tokens_.expectSign(")");
  return expr;
}

ExprPtr QueryParser::functionCall() {
  ExprPtr expr = node(ExprKind::Function, tokens_.at());
  expr->name = lowerWord(tokens_.take().text);
  tokens_.expectSign("(");
  if (tokens_.acceptSign(")")) return expr;
  if (tokens_.acceptSign("*")) {
    expr->star = true;
  } else {
    expr->distinct = tokens_.acceptWord("distinct");
    if (!expr->distinct) tokens_.acceptWord("all");
    do {
      adopt(*expr, expression());
    } while (tokens_.acceptSign(","));
  }
  tokens_.expectSign(")");
  if (tokens_.isWord("over") && tokens_.isSign("(", 1)) tokens_.unsupported("A window ('over')");
  return expr;
}

ExprPtr QueryParser::literal() {
  const bool negative = tokens_.isSign("-");
  if (negative || tokens_.isSign("+")) return unary();
  const Token& token = tokens_.peek();
  const bool isLiteral = token.kind == TokenKind::Text || token.kind == TokenKind::WholeNumber ||
                         token.kind == TokenKind::DecimalNumber || token.kind == TokenKind::FloatNumber ||
                         tokens_.isWord("null");
  if (!isLiteral) tokens_.unexpected("a literal value");
  return primary();
}

Type QueryParser::type() {
  const Position at = tokens_.at();
  const std::string name = lowerWord(tokens_.expectName("a type"));
  std::vector<int> sizes;
  bool unlimited = false;
  if (tokens_.acceptSign("(")) {
    if (tokens_.acceptWord("max")) {
      unlimited = true;
    } else {
      do {
        constexpr std::int64_t largest = 8000;
        const std::int64_t size = tokens_.expectWhole("a length");
        if (size > largest)
          throw SqlError(state::syntax, at, "The size given to the type '" + name + "' is too large.");
        sizes.push_back(static_cast<int>(size));
      } while (tokens_.acceptSign(","));
    }
    tokens_.expectSign(")");
  }
  return namedType(name, sizes, unlimited, at);
}

}  // namespace payslate::tsql
