// Origins of the rows of the entry form's lists, wherever the rows stand by now.
#pragma once

#include <string>
#include <vector>

#include "component/Origins.h"

namespace payslate {

namespace ui {
class ListView;
}

/// A row's tag leads to its origin; a row without one came from a stored entry, or from somewhere unknown.
class RowOrigins {
 public:
  /// The list's last row was just added.
  void added(ui::ListView& list, Origin origin);
  /// The row shows something else now.
  void replaced(ui::ListView& list, int row, Origin origin);
  /// The clerk typed an amount. The same amount again is no change.
  void typed(ui::ListView& list, int row, const std::string& before, const std::string& after);
  /// Refresh computed it.
  void refreshed(ui::ListView& list, int row, const std::string& before, FormulaOrigin formula);

  void clear() { kept_.clear(); }
  /// Of every row of the list.
  [[nodiscard]] std::vector<Origin> of(const ui::ListView& list) const;

 private:
  Origin& at(ui::ListView& list, int row);

  std::vector<Origin> kept_;  ///< By tag, which counts from 1.
};

}  // namespace payslate
