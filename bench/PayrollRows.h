// The rows of a payroll, as statements of SQLite.
#pragma once

#include <string>
#include <vector>

namespace payslate::bench {

/// Inserts for empty tables of the schema, in their order; with :headers, :employees (of company 1), :chosen
/// (how many of them are chosen) and :step (every how many there is one).
std::vector<std::string> rowStatements();

}  // namespace payslate::bench
