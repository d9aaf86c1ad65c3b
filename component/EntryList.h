// The list of entries: what it hands to the entry form, and what the form asks of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/basic/Date.h"

namespace payslate {

/// A stored entry as the list shows it.
struct ListedEntry {
  std::int32_t id = 0;              ///< emhID
  std::optional<basic::Date> date;  ///< Without the time of day; none where the entry has none.
  bool shownAsCancelled = false;
};

class EntryList {
 public:
  virtual ~EntryList() = default;
  /// Shows the stored state of one entry: a new row, or the current one written again, as the mode says.
  virtual void RefreshBrowseRow(const std::string& condition, std::int32_t entryId) = 0;
};

/// The condition that names one entry to RefreshBrowseRow.
inline std::string entryCondition(std::int32_t entryId) {
  return "emhID = " + std::to_string(entryId);
}

}  // namespace payslate
