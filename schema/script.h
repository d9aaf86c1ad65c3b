// The embedded statements, and appending rows. Not for callers of this layer.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/Recordset.h"

namespace payslate::schema {

std::vector<std::string_view> payroll();  ///< Statements of payroll.sql, in order.
std::vector<std::string_view> demo();     ///< Statements of demo.sql, in order.

void run(ado::Connection& connection, const std::vector<std::string_view>& statements);

/// Appends rows to one table.
class TableWriter {
 public:
  TableWriter(ado::Connection& connection, const std::string& table, std::vector<std::string> columns);
  void add(std::initializer_list<basic::Value> values);  ///< One value for each column, in their order.

 private:
  ado::Recordset rows_;
  std::vector<std::string> columns_;
};

}  // namespace payslate::schema
