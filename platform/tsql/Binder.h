// Gives the tree its meaning: names become columns, values get types, conversions become explicit.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/tsql/Ast.h"
#include "platform/tsql/Catalog.h"

namespace payslate::tsql {

/// Views may stand on views this deep.
inline constexpr int maxViewDepth = 32;

class Binder {
 public:
  /// `parameters` are those of the procedure whose body is bound; null elsewhere.
  explicit Binder(const Catalog& catalog, const std::vector<Parameter>* parameters = nullptr)
      : catalog_(catalog), parameters_(parameters) {}

  void bind(Query& query);
  void bind(Insert& insert);
  void bind(Update& update);
  void bind(Delete& deletion);
  void bind(CreateView& view);
  /// A condition over one table's columns, named without a source: checks and filtered indexes.
  void bindRowCondition(ExprPtr& condition, const TableInfo& table);
  /// A default: a value without columns, converted to the column's type.
  void bindDefault(ColumnDefinition& column, const std::string& table);

  const TableInfo& requireTable(const std::string& name, Position at) const;
  static const ColumnInfo& requireColumn(const TableInfo& table, const std::string& name, Position at);

 private:
  struct Source {
    std::string alias;
    std::string sql;  ///< Generated name.
    std::vector<OutputColumn> columns;
    const TableInfo* table = nullptr;  ///< Null for a query.
    bool mayBeMissing = false;         ///< On the side of an outer join that gives Nulls.
  };
  enum class Aggregates { Allowed, Forbidden };
  struct Scope {
    Scope* parent = nullptr;
    int depth = 0;
    std::vector<Source> sources;
    Aggregates aggregates = Aggregates::Forbidden;
    const char* place = "";  ///< For the message about a forbidden aggregate.
    bool sawAggregate = false;
  };
  using Handler = void (Binder::*)(ExprPtr&, Scope&);
  struct SimpleFunction;
  struct SpecialFunction;

  // Queries
  void bindQuery(Query& query, Scope* outer, bool nested);
  void bindCore(SelectCore& core, Scope& scope);
  void bindItems(SelectCore& core, Scope& scope);
  void expandStar(const SelectItem& star, const Scope& scope, std::vector<SelectItem>& items) const;
  void bindGrouping(SelectCore& core, Scope& scope);
  void checkGrouping(const SelectCore& core, const Query& query, const Scope& scope) const;
  void bindOrder(Query& query, Scope& scope);
  void uniteColumns(Query& query);
  void bindSource(TableRef& ref, Scope& scope);
  void bindJoin(TableRef& ref, Scope& scope);
  void bindTable(TableRef& ref, Scope& scope);
  void bindDerived(TableRef& ref, Scope& scope, Scope* outer);
  static std::vector<OutputColumn> namedColumns(const TableRef& ref);
  /// Converts one column of a bound query.
  void convertColumn(Query& query, std::size_t column, const Type& type);

  // Expressions
  void bindExpression(ExprPtr& expr, Scope& scope);
  void bindValue(ExprPtr& expr, Scope& scope);
  void bindCondition(ExprPtr& expr, Scope& scope);
  void bindColumn(Expr& expr, Scope& scope) const;
  void bindVariable(Expr& expr) const;
  void bindSign(ExprPtr& expr);
  void bindArithmetic(ExprPtr& expr, Scope& scope);
  void bindDateArithmetic(ExprPtr& expr);
  void bindComparison(Expr& expr, Scope& scope);
  void bindIn(Expr& expr, Scope& scope);
  void narrowList(Expr& in, const Scope& scope) const;
  static bool isNeverNull(const Expr& column, const Scope& scope);
  void bindLike(ExprPtr& expr, Scope& scope);
  void bindCase(Expr& expr, Scope& scope);
  void bindConvert(ExprPtr& expr, Scope& scope);
  void bindSubquery(Expr& expr, Scope& scope);
  void meet(std::vector<ExprPtr>& args, std::size_t first, std::size_t step);

  // Functions
  void bindFunction(ExprPtr& expr, Scope& scope);
  void bindSimple(ExprPtr& expr, Scope& scope, const SimpleFunction& function);
  void bindAggregate(ExprPtr& expr, Scope& scope);
  void bindDatePartCall(ExprPtr& expr, Scope& scope);
  void bindDateField(ExprPtr& expr, Scope& scope);
  void bindNumeric(ExprPtr& expr, Scope& scope);
  void bindIsNull(ExprPtr& expr, Scope& scope);
  void bindCoalesce(ExprPtr& expr, Scope& scope);
  void bindNullIf(ExprPtr& expr, Scope& scope);
  void bindIif(ExprPtr& expr, Scope& scope);
  void bindConcat(ExprPtr& expr, Scope& scope);
  void bindIsNumeric(ExprPtr& expr, Scope& scope);

  // Assignments
  void assign(ExprPtr& value, const TableInfo& table, const ColumnInfo& column) const;
  Scope rowScope(const TableInfo& table) const;

  const Catalog& catalog_;
  const std::vector<Parameter>* parameters_;
  int nextSource_ = 1;
  int viewDepth_ = 0;
};

// Building blocks that the binder's parts share.
ExprPtr makeLiteral(Cell value, const Type& type, Position at);
ExprPtr makeRuntime(std::string function, const Type& type, Position at);
ExprPtr wholeLiteral(std::int64_t number, Position at);
/// Another mention of a bound column.
ExprPtr columnAgain(const Expr& column);
ExprPtr makeComparison(ExprPtr left, const char* sign, ExprPtr right);
/// Replaces a call whose arguments are literals by its result; one that fails, by a call that fails.
void fold(ExprPtr& call);
/// Converts to `type` unless the value is one already.
void convertTo(ExprPtr& expr, const Type& type, int style = 0);
/// Converts only when values of both types are stored differently.
void convertForComparison(ExprPtr& expr, const Type& type);
/// Values of both kinds are stored in a way that compares without a conversion.
bool comparesAsStored(const Type& left, const Type& right);
bool sameExpression(const Expr& left, const Expr& right);
/// Is it the same for every row, without a look at any?
bool isConstant(const Expr& expr);
[[noreturn]] void refuseOperand(const Expr& expr, const Type& type, const std::string& operation);

}  // namespace payslate::tsql
