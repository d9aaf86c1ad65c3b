// Day counts: the sheets, each day's code, and how it counted.
#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "explain/Explainer.h"
#include "explain/Sentences.h"
#include "platform/basic/Numbers.h"

namespace payslate {

using basic::numberText;

namespace {

/// A code of a day, and what it counts as when a month is entered and in a stored one.
struct DayCode {
  const char* code;
  double present;
  double absent;
  bool half;
  const char* counts;
};

constexpr double half = 0.5;
constexpr std::array<DayCode, 6> codes{{{"p", 1, 0, false, "present"},
                                        {"h", 1, 0, false, "present, holiday"},
                                        {"a", 0, 1, false, "absent"},
                                        {"HL", half, 0, true, "half present, half leave"},
                                        {"HA", half, half, true, "half present, half absent"},
                                        {"AL", 0, half, true, "half absent, half leave"}}};

const DayCode* codeNamed(const std::string& code) {
  const auto same = [&](const DayCode& one) { return basic::sameName(one.code, basic::Trim(code)); };
  const auto found = std::find_if(codes.begin(), codes.end(), same);
  return found == codes.end() ? nullptr : &*found;
}

std::string countsAs(const std::string& written, bool halvesCount) {
  const DayCode* code = codeNamed(written);
  if (code == nullptr) return "leave";
  return code->half && !halvesCount ? "leave, half days do not count in a stored entry" : code->counts;
}

/// The distinct dates of each day code that takes part in a count.
double absentDays(const AttendanceFact& attendance, basic::Date first, basic::Date last) {
  std::set<std::pair<bool, double>> counted;  // half or whole, date
  double days = 0;
  for (const DayFact& day : attendance.days) {
    const DayCode* code = codeNamed(day.code);
    if (code == nullptr || code->absent == 0 || day.date < first || day.date > last) continue;
    if (counted.insert({code->half, day.date.serial()}).second) days += code->absent;
  }
  return days;
}

struct BoxName {
  const char* title;
  double DayCounts::*loaded;  ///< Null for what nobody types.
};

const BoxName& nameOf(DayBox box) {
  static const std::array<BoxName, dayBoxes> names{{{"Total days", nullptr},
                                                    {"Working days and holidays", nullptr},
                                                    {"Days present and holidays", &DayCounts::present},
                                                    {"Days of leave", &DayCounts::leave},
                                                    {"Days absent", &DayCounts::absent}}};
  return names.at(static_cast<std::size_t>(box));
}

void explainCount(Lines& lines, DayBox box, const ExplainedMonth& month) {
  const DaysOrigin& days = month.entry.origins.days;
  const auto wholeAndHalf = [&](double whole, double halves) {
    lines.push_back({"Whole days", numberText(whole)});
    lines.push_back(
        {"Half days", days.halvesCount ? numberText(halves) : "0, they do not count in a stored entry"});
  };
  switch (box) {
    case DayBox::Total:
      lines.push_back(
          {"Period", dateText(month.entry.periodStart) + " to " + dateText(month.entry.periodEnd)});
      return;
    case DayBox::Working:
      lines.push_back({"Total days", numberText(days.totalDays)});
      lines.push_back({"Before joining", numberText(days.totalDays - days.employedDays)});
      lines.push_back({"Leave", numberText(days.leave)});
      return;
    case DayBox::Present:
      return wholeAndHalf(days.present, days.halvesPresent);
    case DayBox::Leave:
      lines.push_back({"Employed days", numberText(days.employedDays)});
      lines.push_back({"Present", numberText(days.present + days.halvesPresent)});
      lines.push_back({"Absent", numberText(days.absent + days.halvesAbsent)});
      lines.push_back({"Left over as leave", numberText(days.leave)});
      return;
    case DayBox::Absent:
      return wholeAndHalf(days.absent, days.halvesAbsent);
  }
}

}  // namespace

Explanation Explainer::countOf(DayBox box) const {
  const BoxName& name = nameOf(box);
  const std::string& shown = month_.days.at(static_cast<std::size_t>(box));
  Explanation explanation{"Days", name.title, shown, {}, {}};
  if (month_.entry.origins.days.known) explainCount(explanation.lines, box, month_);
  if (name.loaded == nullptr) return explanation;
  const double loaded = month_.loadedDays.*name.loaded;
  if (basic::Val(shown) == loaded) return explanation;
  const bool follows = box == DayBox::Absent && month_.entry.days.present != month_.loadedDays.present;
  explanation.lines.push_back(
      {follows ? "Follows the present days" : "Typed", shown + ", before: " + numberText(loaded)});
  return explanation;
}

Explanation Explainer::dayCount(DayBox box) const {
  Explanation explanation = countOf(box);
  if (facts_ != nullptr && box != DayBox::Total) sheets(explanation.lines);
  return explanation;
}

void Explainer::sheets(Lines& lines) const {
  const AttendanceFact attendance = facts_->attendance();
  const EntryRecord& entry = month_.entry;
  const DaysOrigin& days = entry.origins.days;
  for (const SheetFact& sheet : attendance.sheets)
    lines.push_back(
        {"Sheet " + std::to_string(sheet.id), dateText(sheet.first) + " to " + dateText(sheet.last)});
  std::map<double, std::vector<std::string>> codesOf;
  for (const DayFact& day : attendance.days) codesOf[day.date.serial()].push_back(basic::Trim(day.code));
  const basic::Date joined = entry.periodEnd.plusDays(1 - days.employedDays);
  for (basic::Date date = entry.periodStart; date <= entry.periodEnd; date = date.plusDays(1)) {
    const auto found = codesOf.find(date.serial());
    if (found == codesOf.end()) {
      lines.push_back({dateText(date), days.known && date < joined ? "before joining" : "no code, leave"});
      continue;
    }
    for (const std::string& code : found->second)
      lines.push_back({dateText(date), code + ", " + countsAs(code, days.halvesCount)});
  }
}

// As a new entry of the period would have it.
BasicPayOrigin Explainer::basicPayToday(const EmployeeFact& employee) const {
  const basic::Date first = month_.entry.periodStart;
  const basic::Date last = month_.entry.periodEnd;
  BasicPayOrigin origin;
  origin.known = true;
  origin.master = employee.basicPay;
  origin.totalDays = static_cast<double>(basic::daysBetween(first, last) + 1);
  origin.absentDays = absentDays(facts_->attendance(), first, last);
  origin.daysBeforeJoining = std::max(0L, basic::daysBetween(first, employee.joined));
  origin.lossThroughDeductions = employee.lossThroughDeductions;
  return origin;
}

}  // namespace payslate
