// Logical table names and the physical names that statements use.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace payslate {

namespace ado {
class Connection;
}

/// One slot for each logical name, empty until a row of linkTable fills it. Slots are never emptied, but for
/// the journal's: a name that a later load does not return keeps the value it had.
class TableLinkMap {
 public:
  TableLinkMap();

  /// Reads linkTable (LoadTableLinks). ado::Error when that fails.
  void load(ado::Connection& connection);
  /// Reads whether entries are journalled, and where: pEntryJournal is empty when they are not. ado::Error
  /// also when the table it names cannot be read.
  void loadJournal(ado::Connection& connection);

  /// Physical name by logical name in any letter case; empty while it is not known. std::out_of_range for a
  /// name that has no slot, ado::Error where it links to what is no name and would change a statement.
  [[nodiscard]] const std::string& operator[](std::string_view logicalName) const;

 private:
  void take(const std::string& statement, ado::Connection& connection);
  void assign(std::string_view logicalName, const std::string& physicalName);

  std::vector<std::pair<std::string_view, std::string>> slots_;
};

}  // namespace payslate
