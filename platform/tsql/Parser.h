// Parses one Transact-SQL statement.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/tsql/Ast.h"
#include "platform/tsql/Lexer.h"

namespace payslate::tsql {

/// How deep parentheses, subqueries and operator chains may nest.
inline constexpr int maxNesting = 150;
inline constexpr int maxHeight = 400;

/// May the values of literals be others when the statement's translation is used again?
enum class Literals { Settled, Bound };

/// The statement's tree, or SqlError with the position of what is not understood. A text holds one statement;
/// a semicolon may close it.
Statement parseStatement(std::string_view text, Literals literals = Literals::Settled);

/// A type as it is declared in a statement: "decimal(18,2)".
Type parseType(std::string_view text);

}  // namespace payslate::tsql
