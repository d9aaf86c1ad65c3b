// Finding the first row whose cell starts with a text.
#pragma once

#include <optional>
#include <string>

namespace payslate {

namespace ui {
class Grid;
}

/// Binary search over a column that is sorted ascending. The first middle cell decides whether the search
/// compares numbers or texts (without regard to case). What it misses, as a 7 before 12, is looked for from
/// the first row on. Rows count as the grid's own properties do.
std::optional<int> firstRowStartingWith(const ui::Grid& grid, int column, const std::string& searchText);

}  // namespace payslate
