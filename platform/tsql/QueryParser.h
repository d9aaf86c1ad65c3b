// Parses queries and expressions.
#pragma once

#include "platform/tsql/Parser.h"
#include "platform/tsql/TokenStream.h"

namespace payslate::tsql {

class QueryParser {
 public:
  QueryParser(TokenStream& tokens, Literals literals) : tokens_(tokens), literals_(literals) {}

  Query query();         ///< From "select" to the end of its order.
  ExprPtr expression();  ///< Values and conditions alike; the binder tells them apart.
  Type type();
  /// A literal with an optional sign, or null.
  ExprPtr literal();

 private:
  /// Counts the levels that are open; too many is an error, and never an exhausted stack.
  class Nesting {
   public:
    Nesting(int& depth, Position at) : depth_(depth) {
      if (depth_ >= maxNesting) {
        throw SqlError(state::syntax, at,
                       "The statement is nested more than " + std::to_string(maxNesting) + " levels deep.");
      }
      ++depth_;
    }
    ~Nesting() { --depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

   private:
    int& depth_;
  };

  SelectCore core();
  void selectList(SelectCore& core);
  SelectItem selectItem();
  std::unique_ptr<TableRef> joinedTable();
  std::unique_ptr<TableRef> tableSource();
  std::unique_ptr<TableRef> continueJoin(std::unique_ptr<TableRef> left);
  std::optional<JoinKind> joinKind();
  std::string optionalAlias(bool textAllowed);

  ExprPtr disjunction();
  ExprPtr conjunction();
  ExprPtr negation();
  ExprPtr predicate();
  ExprPtr inPredicate(ExprPtr left, bool negated);
  ExprPtr sum();
  ExprPtr product();
  ExprPtr unary();
  ExprPtr primary();
  ExprPtr wordExpression();
  bool isFunctionName() const;
  ExprPtr literalToken();
  ExprPtr variable();
  ExprPtr parenthesized();
  ExprPtr exists();
  ExprPtr subquery(ExprKind kind, Position at);
  ExprPtr caseExpression();
  ExprPtr convertCall();
  ExprPtr castCall();
  ExprPtr functionCall();
  ExprPtr columnName();

  ExprPtr node(ExprKind kind, Position at) const;
  ExprPtr binary(ExprKind kind, Position at, std::string name, ExprPtr left, ExprPtr right) const;
  void adopt(Expr& parent, ExprPtr child) const;

  TokenStream& tokens_;
  Literals literals_;
  int depth_ = 0;
};

}  // namespace payslate::tsql
