// Finding the first row whose cell starts with a text.
#include "browser/GridSearch.h"

#include <compare>

#include "platform/basic/Numbers.h"
#include "platform/basic/Unicode.h"
#include "platform/ui/Grid.h"

namespace payslate {

using basic::Trim;
using basic::upper;
using basic::Val;

namespace {

// The cell cut to the length of the text as typed, blanks around it included.
std::string cutTo(const std::string& cell, const std::string& typed) {
  return basic::encoded(basic::characters(Trim(cell)).substr(0, basic::characters(typed).size()));
}

std::partial_ordering compare(const std::string& cut, const std::string& wanted, bool asNumbers) {
  if (asNumbers) return Val(cut) <=> Val(wanted);
  return upper(cut) <=> upper(wanted);
}

// Of numbers the binary search finds those alone whose beginnings stand in order.
std::optional<int> firstRowInOrder(const ui::Grid& grid, int column, const std::string& wanted) {
  for (int row = 1; row < grid.Rows(); ++row)
    if (upper(cutTo(grid.TextMatrix(row, column), wanted)) == upper(wanted)) return row;
  return {};
}

}  // namespace

std::optional<int> firstRowStartingWith(const ui::Grid& grid, int column, const std::string& searchText) {
  const std::string wanted = Trim(searchText);
  int low = 1;
  int high = grid.Rows() - 1;
  const bool asNumbers = basic::IsNumeric(grid.TextMatrix((low + high) / 2, column));
  std::optional<int> found;
  while (low <= high) {
    const int middle = (low + high) / 2;
    const auto order = compare(cutTo(grid.TextMatrix(middle, column), searchText), wanted, asNumbers);
    if (order < 0) {
      low = middle + 1;
      continue;
    }
    if (order == 0) found = middle;  // An earlier row may match too.
    high = middle - 1;
  }
  return found ? found : firstRowInOrder(grid, column, wanted);
}

}  // namespace payslate
