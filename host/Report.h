// Rows for people and for programs.
#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace payslate::host {

enum class ReportFormat { Table, Csv, Json };

/// The formats by the names that the command line gives them.
const std::map<std::string, ReportFormat>& reportFormats();

/// More rows behind those of a report.
struct ReportPart {
  std::string name;   ///< Of the member in JSON.
  std::string title;  ///< Above the table.
  std::vector<std::string> headings;
  std::vector<std::vector<std::string>> rows;
};

/// Texts in rows, each with as many as there are headings.
struct Report {
  std::vector<std::string> headings;
  std::vector<std::vector<std::string>> rows;
  /// What was asked for, where a reader should know. JSON alone has it, and is then an object of "options"
  /// and "rows".
  std::vector<std::pair<std::string, std::string>> options = {};
  /// Further members of that object: texts, and arrays like the rows.
  std::vector<std::pair<std::string, std::string>> facts = {};
  std::vector<ReportPart> parts = {};  ///< A table has them below its rows, CSV has none.
};

/// A table is aligned, columns of numbers to the right. CSV goes by RFC 4180, its lines end in \n. JSON is an
/// array of objects whose members are the headings and whose values are texts.
void write(std::ostream& out, const Report& report, ReportFormat format);

}  // namespace payslate::host
