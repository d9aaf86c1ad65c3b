// Walking rows with keys.
#include "platform/ui/RowControl.h"

#include <algorithm>

#include "platform/basic/Numbers.h"

namespace payslate::ui {

namespace {
constexpr int rowsOfOnePage = 10;
}

std::optional<std::string> RowControl::propertyText(std::string_view property) const {
  if (basic::sameName(property, "ListCount")) return std::to_string(rowCount());
  return Control::propertyText(property);
}

int RowControl::columnNamed(std::string_view header) const {
  const std::string wanted = basic::Trim(header);
  const auto same = [&wanted](const ColumnLayout& column) {
    return basic::sameName(basic::Trim(column.header), wanted);
  };
  const auto found = std::find_if(columns().begin(), columns().end(), same);
  return found == columns().end() ? -1 : static_cast<int>(found - columns().begin());
}

bool RowControl::keyAction(const Key& key) {
  int to = currentRow();
  switch (key.code) {
    case KeyCode::Up:
      --to;
      break;
    case KeyCode::Down:
      ++to;
      break;
    case KeyCode::PageUp:
      to -= rowsOfOnePage;
      break;
    case KeyCode::PageDown:
      to += rowsOfOnePage;
      break;
    case KeyCode::Home:
      to = 0;
      break;
    case KeyCode::End:
      to = rowCount() - 1;
      break;
    default:
      return false;
  }
  if (rowCount() > 0) userSelects(std::clamp(to, 0, rowCount() - 1));
  return true;
}

}  // namespace payslate::ui
