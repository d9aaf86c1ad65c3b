// From a statement to a table.
#include "host/TablePrint.h"

#include <ostream>

#include "host/Report.h"
#include "platform/ado/Recordset.h"

namespace payslate::host {

namespace {

std::string cellOf(const basic::Value& value) {
  if (basic::isNull(value)) return "-";
  if (const auto* amount = std::get_if<basic::Decimal>(&value)) return amount->text();
  return basic::textOf(value, "yyyy/mm/dd");
}

}  // namespace

void printRows(std::ostream& out, const std::string& title, ado::Connection& connection,
               const std::string& statement) {
  ado::Recordset answer = connection.Execute(statement);
  const std::size_t columns = answer.FieldCount();
  Report report;
  for (std::size_t column = 0; column < columns; ++column)
    report.headings.push_back(answer.Fields(column).Name());
  for (; !answer.Eof(); answer.MoveNext()) {
    auto& row = report.rows.emplace_back();
    for (std::size_t column = 0; column < columns; ++column)
      row.push_back(cellOf(answer.Fields(column).Value()));
  }
  out << title << '\n';
  write(out, report, ReportFormat::Table);
}

}  // namespace payslate::host
