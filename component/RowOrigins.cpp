// Finding the origin of a row by its tag.
#include "component/RowOrigins.h"

#include <utility>

#include "component/Amounts.h"
#include "platform/ui/ListView.h"

namespace payslate {

void RowOrigins::replaced(ui::ListView& list, int row, Origin origin) {
  kept_.push_back(std::move(origin));
  list.setTag(row, static_cast<int>(kept_.size()));
}

void RowOrigins::added(ui::ListView& list, Origin origin) {
  replaced(list, list.rowCount() - 1, std::move(origin));
}

Origin& RowOrigins::at(ui::ListView& list, int row) {
  if (list.tag(row) == 0) replaced(list, row, {});
  return kept_.at(static_cast<std::size_t>(list.tag(row)) - 1);
}

void RowOrigins::typed(ui::ListView& list, int row, const std::string& before, const std::string& after) {
  if (wholeCents(before) == wholeCents(after)) return;
  Origin& origin = at(list, row);
  origin.change = ChangedBy::Clerk;
  origin.before = before;
}

void RowOrigins::refreshed(ui::ListView& list, int row, const std::string& before, FormulaOrigin formula) {
  Origin& origin = at(list, row);
  origin.formula = std::move(formula);
  if (wholeCents(before) == wholeCents(origin.formula.answer)) return;
  origin.change = ChangedBy::Refresh;
  origin.before = before;
}

std::vector<Origin> RowOrigins::of(const ui::ListView& list) const {
  std::vector<Origin> origins;
  origins.reserve(list.rows().size());
  for (const ui::ListView::Row& row : list.rows())
    origins.push_back(row.tag == 0 ? Origin() : kept_.at(static_cast<std::size_t>(row.tag) - 1));
  return origins;
}

}  // namespace payslate
