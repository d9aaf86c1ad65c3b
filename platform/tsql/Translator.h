// From a Transact-SQL text to what the embedded database runs.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/tsql/Ast.h"
#include "platform/tsql/Catalog.h"
#include "platform/tsql/Parser.h"

namespace payslate::tsql {

/// What a statement does to the catalog.
struct SchemaChange {
  enum class Action {
    Add,
    Extend,
    Rekey,  ///< The table's primary key is another, or gone; `sql` leaves it to the database to make it so.
    Drop,
  } action = Action::Add;
  ObjectKind kind = ObjectKind::Table;
  std::string name;
  TableInfo table;   ///< As it is to be, unless it is dropped.
  std::string text;  ///< Of a view or procedure that is added.
};

struct Translation {
  std::vector<std::string> sql;  ///< One statement; those that change the schema may have several, or none.
  bool returnsRows = false;
  std::vector<OutputColumn> columns;  ///< Of the rows.
  std::vector<Cell> bindings;         ///< Values of ?1, ?2, …; of a procedure's parameters.
  /// Slots of the text's literals whose values are not in `sql`: the value of slot 0 is to be bound to ?1.
  /// All the others have been looked at.
  std::set<std::size_t> slots;
  /// Of an insert: the columns that each of these goes into.
  std::vector<AssignedLiteral> assigned;
  std::optional<std::string> baseTable;  ///< The table of "select * from TABLE [where …]".
  std::optional<SchemaChange> change;
};

/// Keeps the procedures it has translated, until told that the schema changed.
class Translator {
 public:
  explicit Translator(const Catalog& catalog) : catalog_(catalog) {}

  /// SqlError for what is not understood, or names what does not exist.
  Translation translate(std::string_view text, Literals literals = Literals::Settled);
  void schemaChanged() { procedures_.clear(); }

 private:
  struct Procedure {
    CreateProcedure definition;
    std::string sql;
  };

  Translation query(Query& query) const;
  Translation call(Call& call);
  Translation drop(const Drop& drop) const;
  Translation create(CreateView& view, std::string_view text) const;
  Translation create(CreateProcedure& procedure, std::string_view text) const;
  const Procedure& procedure(const Call& call);
  void requireFreeName(const std::string& name, Position at) const;

  const Catalog& catalog_;
  std::map<std::string, Procedure, std::less<>> procedures_;
};

}  // namespace payslate::tsql
