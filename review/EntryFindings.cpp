// Findings about an entry as a whole: rows, period, days.
#include "component/Amounts.h"
#include "platform/basic/Numbers.h"
#include "review/Findings.h"

namespace payslate {

namespace {

std::string written(basic::Date from, basic::Date to) {
  const auto day = [](basic::Date date) { return basic::formatDate(date, "dd/mm/yyyy"); };
  return day(from) + " - " + day(to);
}

}  // namespace

void rowsThatCannotBeShown(Reviewed& month, Findings& findings) {
  if (!month.rewrites() || month.loaded.hiddenRows == 0) return;
  findings.push_back({"Rows of this entry that cannot be shown and would be deleted: " +
                      std::to_string(month.loaded.hiddenRows)});
}

void movedPeriod(Reviewed& month, Findings& findings) {
  const EntryRecord& stored = month.loaded.entry;
  // Another program's entry that lacks a date is given one, which moves nothing.
  const auto moved = [](basic::Date from, basic::Date to) {
    return from != basic::Date() && basic::daysBetween(from, to) != 0;
  };
  if (!month.rewrites() || (!moved(stored.periodStart, month.entry.periodStart) &&
                            !moved(stored.periodEnd, month.entry.periodEnd)))
    return;
  findings.push_back({"The stored period " + written(stored.periodStart, stored.periodEnd) + " becomes " +
                      written(month.entry.periodStart, month.entry.periodEnd)});
}

void daysThatDoNotAddUp(Reviewed& month, Findings& findings) {
  const double now = month.entry.days.sum();
  const double before = month.loaded.entry.days.sum();
  if (wholeCents(now) == wholeCents(before)) return;
  findings.push_back(
      {"The day counts add up to " + basic::numberText(now) + " of " + basic::numberText(before) + " days",
       ReviewPage::DayCounts});
}

}  // namespace payslate
