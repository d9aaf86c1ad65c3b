// Running the embedded statements, and appending rows.
#include "schema/script.h"

#include <utility>

namespace payslate::schema {

void run(ado::Connection& connection, const std::vector<std::string_view>& statements) {
  for (const std::string_view statement : statements) connection.Execute(std::string(statement));
}

TableWriter::TableWriter(ado::Connection& connection, const std::string& table,
                         std::vector<std::string> columns)
    : columns_(std::move(columns)) {
  rows_.Open("select * from " + table + " where 1=2", connection, ado::CursorType::Keyset,
             ado::LockType::Optimistic);
}

void TableWriter::add(std::initializer_list<basic::Value> values) {
  rows_.AddNew();
  auto column = columns_.begin();
  for (const basic::Value& value : values) rows_.Fields(*column++) = value;
  rows_.Update();
}

}  // namespace payslate::schema
