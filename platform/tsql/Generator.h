// Writes a bound tree as a statement of the embedded database.
#pragma once

#include <set>
#include <string>

#include "platform/tsql/Ast.h"
#include "platform/tsql/Catalog.h"

namespace payslate::tsql {

/// Collations that the database must have: text as Transact-SQL compares it, and decimals by number.
inline constexpr const char* textCollation = "ts_text";
inline constexpr const char* decimalCollation = "ts_number";

/// The collation that values of the type compare with; null for the database's own.
const char* collationOf(const Type& type);
std::string quotedName(const std::string& name);
std::string writtenLiteral(const Cell& value);
std::string writtenExpression(const Expr& expr);

struct WrittenStatement {
  std::string sql;
  std::set<std::size_t> bound;  ///< Slots of the literals that are parameters in it: slot 0 is ?1.
};

WrittenStatement writtenQuery(const Query& query);
WrittenStatement writtenInsert(const Insert& insert);
WrittenStatement writtenUpdate(const Update& update);
WrittenStatement writtenDelete(const Delete& deletion);
/// The column's storage class, with its collation.
std::string storageOfColumn(const Type& type);

}  // namespace payslate::tsql
