// The tree of a statement: what the parser builds, the binder types, and the generator writes out.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/tsql/Cell.h"
#include "platform/tsql/SqlError.h"
#include "platform/tsql/Type.h"

namespace payslate::tsql {

struct Expr;
struct Query;
using ExprPtr = std::unique_ptr<Expr>;

enum class ExprKind {
  Literal,
  Column,
  Variable,
  Arithmetic,  ///< name is the operator; one argument when it is a sign.
  Compare,     ///< name is the operator.
  And,
  Or,
  Not,
  IsNull,   ///< negated for "is not null"; likewise below.
  Between,  ///< args: value, low, high.
  InList,   ///< args: value, then the list.
  InQuery,  ///< args: value.
  Like,     ///< args: text, pattern[, escape].
  Exists,
  Subquery,
  Case,      ///< args: [operand,] when, then, …[, else].
  Function,  ///< A call as written. The binder turns it into one of those below, or a Convert.
  Convert,   ///< convert and cast; type is the target.
  Runtime,   ///< A function of the run-time library, arguments already of its types.
  Native,    ///< A function of the database's own: coalesce, count, min, max and the like.
  Concat,    ///< Text joined to text.
};

struct Expr {
  ExprKind kind = ExprKind::Literal;
  Position at;
  int height = 1;         ///< Levels below and including this one.
  std::string name;       ///< Column, variable, function or operator; the label of a convert's length.
  std::string qualifier;  ///< What stood before the column's name.
  std::vector<ExprPtr> args;
  std::unique_ptr<Query> query;
  Cell literal;
  /// Of a literal whose value may be another when the translation is used again: who looks at the value, for
  /// more than its type, settles it first.
  mutable std::optional<std::size_t> slot;
  Type type;
  bool negated = false;
  bool distinct = false;    ///< aggregate(distinct …)
  bool star = false;        ///< count(*)
  bool hasOperand = false;  ///< case with an operand
  bool hasElse = false;

  // Filled by the binder.
  std::string source;         ///< Generated name of the table the column belongs to.
  int sourceDepth = 0;        ///< Nesting level of the query that reads that table.
  bool storedColumn = false;  ///< A column of a table itself, which carries its collation.
  int expansion = 1;          ///< Operations that a derived column stands for.
  bool aggregate = false;     ///< This call folds rows.

  /// A literal whose value is settled.
  [[nodiscard]] bool isLiteral() const { return kind == ExprKind::Literal && !slot; }
  [[nodiscard]] bool isBound() const { return kind == ExprKind::Literal && slot; }
  /// From now on the value belongs to the statement.
  void settle() const { slot.reset(); }
};

struct SelectItem {
  ExprPtr expr;       ///< Null for a star.
  std::string alias;  ///< Empty when it has none.
  bool star = false;
  std::string starQualifier;  ///< t in t.*
  Position at;
};

enum class JoinKind { Inner, Left, Right, Full, Cross };
enum class SourceKind { Table, Derived, Join };

struct TableRef {
  SourceKind kind = SourceKind::Table;
  Position at;
  std::string name;
  std::string alias;
  std::unique_ptr<Query> query;          ///< Derived tables, and views once they are bound.
  std::vector<std::string> columnNames;  ///< Names given to a derived table's columns.
  JoinKind join = JoinKind::Inner;
  std::unique_ptr<TableRef> left;
  std::unique_ptr<TableRef> right;
  ExprPtr on;
  std::string source;  ///< Generated name; filled by the binder.
};

struct SelectCore {
  Position at;
  bool distinct = false;
  std::optional<std::int64_t> top;
  std::vector<SelectItem> items;
  std::vector<std::unique_ptr<TableRef>> from;  ///< The parts between commas.
  ExprPtr where;
  std::vector<ExprPtr> groupBy;
  ExprPtr having;
};

struct OrderItem {
  ExprPtr expr;
  bool descending = false;
  std::optional<std::size_t> position;  ///< Index of the select item it stands for; filled by the binder.
};

struct OutputColumn {
  std::string name;
  Type type;
  bool storedColumn = false;
  int expansion = 1;  ///< Operations behind it.
};

/// One select, or several joined by union; the order belongs to the whole.
struct Query {
  std::vector<SelectCore> cores;
  std::vector<bool> all;  ///< Between cores n and n+1: union all?
  std::vector<OrderItem> order;
  std::vector<OutputColumn> columns;  ///< Filled by the binder.
  bool single = false;  ///< The query has at most one row, whatever the data; filled by the binder.
};

/// A bound literal that goes into a column.
struct AssignedLiteral {
  std::size_t slot = 0;
  Type type;
  std::string name;  ///< Of the column, for messages.
};

struct Insert {
  Position at;
  std::string table;
  std::vector<std::string> columns;
  std::vector<Position> columnsAt;
  std::vector<std::vector<ExprPtr>> rows;
  std::unique_ptr<Query> query;
  std::vector<AssignedLiteral> assigned;  ///< Filled by the binder.
};

struct Update {
  Position at;
  std::string table;
  std::vector<std::pair<std::string, ExprPtr>> assignments;
  ExprPtr where;
};

struct Delete {
  Position at;
  std::string table;
  ExprPtr where;
};

struct ColumnDefinition {
  Position at;
  std::string name;
  Type type;
  bool notNull = false;
  ExprPtr defaultValue;
  std::string defaultText;
};

struct KeyDefinition {
  bool primary = false;
  std::vector<std::string> columns;
};

struct CreateTable {
  Position at;
  std::string name;
  std::vector<ColumnDefinition> columns;
  std::vector<KeyDefinition> keys;
  std::vector<ExprPtr> checks;
};

struct AddColumn {
  Position at;
  std::string table;
  ColumnDefinition column;
};

struct AddKey {
  Position at;
  std::string table;
  std::vector<std::string> columns;
};

struct DropConstraint {
  Position at;
  std::string table;
  std::string name;
};

struct CreateIndex {
  Position at;
  bool unique = false;
  std::string name;
  std::string table;
  std::vector<std::pair<std::string, bool>> columns;  ///< Name, descending.
  ExprPtr where;
};

struct CreateView {
  Position at;
  std::string name;
  std::vector<std::string> columnNames;
  std::unique_ptr<Query> query;
};

struct Parameter {
  std::string name;  ///< With the sign.
  Type type;
  ExprPtr defaultValue;
};

struct CreateProcedure {
  Position at;
  std::string name;
  std::vector<Parameter> parameters;
  std::unique_ptr<Query> query;
};

enum class ObjectKind { Table, View, Procedure, Index };

struct Drop {
  Position at;
  ObjectKind kind = ObjectKind::Table;
  std::string name;
  std::string table;  ///< Of an index.
};

struct Call {
  Position at;
  std::string name;
  std::vector<std::pair<std::string, ExprPtr>> arguments;  ///< Parameter name (or empty) and a literal.
};

using Statement = std::variant<Query, Insert, Update, Delete, CreateTable, AddColumn, AddKey, DropConstraint,
                               CreateIndex, CreateView, CreateProcedure, Drop, Call>;

}  // namespace payslate::tsql
