// Reading the rows of an entry.
#include "component/EntryRecord.h"

namespace payslate {

const std::string& cell(const ListRow& row, int column) {
  static const std::string none;
  const auto index = static_cast<std::size_t>(column);
  return index < row.size() ? row[index] : none;
}

}  // namespace payslate
