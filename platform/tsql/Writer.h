// Writes bound expressions and queries, piece by piece, for the generator.
#pragma once

#include <set>
#include <string>

#include "platform/tsql/Ast.h"

namespace payslate::tsql {

class Writer {
 public:
  std::string text;
  std::set<std::size_t> bound;  ///< Slots of the literals that stand in the text as parameters.

  void write(const Expr& expr);
  void write(const Query& query);
  void where(const ExprPtr& condition);  ///< Nothing for none.

 private:
  // Expressions
  void literal(const Expr& expr);
  void column(const Expr& expr);
  void variable(const Expr& expr);
  void comparison(const Expr& expr);
  void logical(const Expr& expr);
  void concatenation(const Expr& expr);
  void negation(const Expr& expr);
  void nullTest(const Expr& expr);
  void between(const Expr& expr);
  void in(const Expr& expr);
  void exists(const Expr& expr);
  void subquery(const Expr& expr);
  void caseOf(const Expr& expr);
  void runtimeCall(const Expr& expr);
  void call(const Expr& expr);
  [[noreturn]] static void unbound(const Expr& expr);

  /// As the left side of a comparison, or as a key of an order or a group.
  void compared(const Expr& expr);
  /// As a value of a list that the database keys by its values.
  void keyed(const Expr& expr);
  void collate(const Type& type, bool storedColumn);
  void flat(const Expr& expr, const char* sign);
  void flatArguments(const Expr& expr, ExprKind kind, const char* sign);
  void list(const Expr& expr, std::size_t first);
  bool arithmeticChain(const Expr& expr);

  // Queries
  void write(const SelectCore& core, bool distinct);
  void items(const SelectCore& core, bool distinct);
  void from(const SelectCore& core);
  void write(const TableRef& ref);
  void join(const TableRef& ref);
  void clause(const char* word, const Expr& condition);
  void order(const Query& query);

  std::string outputName_;  ///< Given to the next select's only column.
  bool keyed_ = false;      ///< The only column of the next query keys a list.
};

}  // namespace payslate::tsql
