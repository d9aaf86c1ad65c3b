// Rows of a statement for people to read.
#pragma once

#include <iosfwd>
#include <string>

#include "platform/ado/Connection.h"

namespace payslate::host {

/// Writes a title, the columns' names and the rows, one a line, numbers to the right.
void printRows(std::ostream& out, const std::string& title, ado::Connection& connection,
               const std::string& statement);

}  // namespace payslate::host
