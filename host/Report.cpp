// Aligning, quoting.
#include "host/Report.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

#include "platform/basic/Numbers.h"
#include "platform/basic/Unicode.h"

namespace payslate::host {

namespace {

struct Column {
  std::size_t width = 0;
  bool toTheRight = true;  ///< It holds numbers, or nothing.
};

using Row = std::vector<std::string>;

std::vector<Column> columnsOf(const Row& headings, const std::vector<Row>& rows) {
  std::vector<Column> columns;
  for (const std::string& heading : headings) columns.push_back({basic::characterCount(heading)});
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      columns[i].width = std::max(columns[i].width, basic::characterCount(row[i]));
      if (!basic::IsNumeric(row[i]) && row[i] != "-" && !row[i].empty()) columns[i].toTheRight = false;
    }
  }
  return columns;
}

void writeTable(std::ostream& out, const Row& headings, const std::vector<Row>& rows) {
  const std::vector<Column> columns = columnsOf(headings, rows);
  const auto writeLine = [&](const Row& cells, bool isHeading) {
    std::string line;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const std::string blanks(columns[i].width - basic::characterCount(cells[i]), ' ');
      line += "  " + (columns[i].toTheRight && !isHeading ? blanks + cells[i] : cells[i] + blanks);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
  };
  writeLine(headings, true);
  for (const Row& row : rows) writeLine(row, false);
  if (rows.empty()) out << "  no rows\n";
}

void writeTables(std::ostream& out, const Report& report) {
  writeTable(out, report.headings, report.rows);
  for (const ReportPart& part : report.parts) {
    out << '\n' << part.title << '\n';
    writeTable(out, part.headings, part.rows);
  }
}

std::string csvText(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char character : text) quoted.append(character == '"' ? 2 : 1, character);
  return quoted + '"';
}

void writeCsv(std::ostream& out, const Report& report) {
  const auto writeLine = [&out](const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) out << (i == 0 ? "" : ",") << csvText(cells[i]);
    out << '\n';
  };
  writeLine(report.headings);
  for (const auto& row : report.rows) writeLine(row);
}

nlohmann::ordered_json objectsOf(const Row& headings, const std::vector<Row>& rows) {
  auto objects = nlohmann::ordered_json::array();
  for (const Row& row : rows) {
    nlohmann::ordered_json object;
    for (std::size_t i = 0; i < row.size(); ++i) object[headings[i]] = row[i];
    objects.push_back(std::move(object));
  }
  return objects;
}

// Texts of a database need not be UTF-8 throughout.
void writeJson(std::ostream& out, const Report& report) {
  constexpr int indentation = 2;
  nlohmann::ordered_json document = objectsOf(report.headings, report.rows);
  if (!report.options.empty()) {
    nlohmann::ordered_json options;
    for (const auto& [name, value] : report.options) options[name] = value;
    document = {{"options", std::move(options)}, {"rows", std::move(document)}};
    for (const ReportPart& part : report.parts) document[part.name] = objectsOf(part.headings, part.rows);
    for (const auto& [name, value] : report.facts) document[name] = value;
  }
  out << document.dump(indentation, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

}  // namespace

const std::map<std::string, ReportFormat>& reportFormats() {
  static const std::map<std::string, ReportFormat> formats{
      {"table", ReportFormat::Table}, {"csv", ReportFormat::Csv}, {"json", ReportFormat::Json}};
  return formats;
}

void write(std::ostream& out, const Report& report, ReportFormat format) {
  switch (format) {
    case ReportFormat::Table:
      return writeTables(out, report);
    case ReportFormat::Csv:
      return writeCsv(out, report);
    case ReportFormat::Json:
      return writeJson(out, report);
  }
}

}  // namespace payslate::host
