// Writes a bound tree as a statement of the embedded database.
#pragma once

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
std::string writtenQuery(const Query& query);
std::string writtenInsert(const Insert& insert);
std::string writtenUpdate(const Update& update);
std::string writtenDelete(const Delete& deletion);
/// The column's storage class, with its collation.
std::string storageOfColumn(const Type& type);

}  // namespace payslate::tsql
