// The table behind a statement, as far as a client can tell it from the text.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace payslate::odbc {

/// The table of "select * from TABLE [where …]", its name as the statement writes it; nothing for a statement
/// of any other form.
std::optional<std::string> selectedTable(std::string_view statement);

/// The parts of a name, outermost first, without brackets or quotes, at least one: [dbo].[Pay] gives dbo and
/// Pay, payroll..Pay gives payroll, an empty one and Pay.
std::vector<std::string> nameParts(std::string_view name);

/// Does the text begin with this word, whatever its letter case?
bool beginsWith(std::string_view statement, std::string_view word);

/// Is there anything but blanks and comments behind a semicolon outside of texts?
bool holdsSecondStatement(std::string_view statement);

}  // namespace payslate::odbc
