// The list of entries as the entry form sees it.
#pragma once

#include <cstdint>
#include <string>

namespace payslate {

class EntryList {
 public:
  virtual ~EntryList() = default;
  /// Text of the current row's entry identifier; empty when the list has no entry.
  [[nodiscard]] virtual std::string currentEntryIdText() const = 0;
  /// The current row's entry date in the short date format.
  [[nodiscard]] virtual std::string currentEntryDateText() const = 0;
  /// Shows the stored state of one entry: a new row, or the current one written again, as the mode says.
  virtual void RefreshBrowseRow(const std::string& condition, std::int32_t entryId) = 0;
};

}  // namespace payslate
