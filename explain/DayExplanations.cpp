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

/// A code of a day, and what of the day it makes present and absent. The rest is leave.
struct DayCode {
  const char* code;
  double present;
  double absent;

  [[nodiscard]] bool isHalf() const { return present == half || absent == half; }
  [[nodiscard]] bool isHoliday() const { return basic::sameName(code, "h"); }
  [[nodiscard]] bool leavesLeave() const { return present + absent < 1; }

  static constexpr double half = 0.5;
};

constexpr std::array<DayCode, 6> codes{{{"p", 1, 0},
                                        {"h", 1, 0},
                                        {"a", 0, 1},
                                        {"HL", DayCode::half, 0},
                                        {"HA", DayCode::half, DayCode::half},
                                        {"AL", 0, DayCode::half}}};

const DayCode* codeNamed(const std::string& code) {
  const auto same = [&](const DayCode& one) { return basic::sameName(one.code, basic::Trim(code)); };
  const auto found = std::find_if(codes.begin(), codes.end(), same);
  return found == codes.end() ? nullptr : &*found;
}

/// A date counts once in each count, however often sheets name it: what of a day is new.
class NewDays {
 public:
  double present(const DayCode& code, basic::Date date) {
    return code.present > 0 && isFirst(code.isHalf() ? "half present" : "present", date) ? code.present : 0;
  }
  double absent(const DayCode& code, basic::Date date) {
    return code.absent > 0 && isFirst(code.isHalf() ? "half absent" : "absent", date) ? code.absent : 0;
  }
  bool holiday(const DayCode& code, basic::Date date) { return code.isHoliday() && isFirst("holiday", date); }
  bool leave(const DayCode& code, basic::Date date) { return code.leavesLeave() && isFirst("leave", date); }

 private:
  bool isFirst(const char* count, basic::Date date) { return counted_.emplace(count, date.serial()).second; }

  std::set<std::pair<std::string, double>> counted_;
};

std::string countsAs(const DayFact& day, bool halvesCount, NewDays& days) {
  const DayCode* code = codeNamed(day.code);
  if (code == nullptr) return "leave";
  if (code->isHalf() && !halvesCount) return "leave, half days do not count in a stored entry";
  const std::string share = code->isHalf() ? "half " : "";
  std::string counts;
  const auto add = [&](bool isNew, const std::string& what) {
    if (isNew) counts += (counts.empty() ? "" : ", ") + what;
  };
  add(days.present(*code, day.date) > 0, share + "present");
  add(days.absent(*code, day.date) > 0, share + "absent");
  add(days.holiday(*code, day.date), "holiday");
  add(days.leave(*code, day.date), share + "leave");
  return counts.empty() ? "counted already" : counts;
}

/// The days of the period as they count when a month is entered.
struct EnteredDays {
  double present = 0;
  double absent = 0;
  double holidays = 0;

  EnteredDays(const AttendanceFact& attendance, basic::Date first, basic::Date last) {
    NewDays days;
    for (const DayFact& day : attendance.days) {
      const DayCode* code = codeNamed(day.code);
      if (code == nullptr || day.date < first || day.date > last) continue;
      present += days.present(*code, day.date);
      absent += days.absent(*code, day.date);
      holidays += days.holiday(*code, day.date) ? 1 : 0;
    }
  }
};

/// Days one behind the other that counted in the same way.
struct DaySpan {
  basic::Date first;
  basic::Date last;
  std::string text;
};

void join(std::vector<DaySpan>& spans, basic::Date date, const std::string& text) {
  if (!spans.empty() && spans.back().text == text && spans.back().last.plusDays(1) == date)
    spans.back().last = date;
  else
    spans.push_back({date, date, text});
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
  std::map<double, std::vector<const DayFact*>> facts;
  for (const DayFact& day : attendance.days) facts[day.date.serial()].push_back(&day);
  const basic::Date joined = entry.periodEnd.plusDays(1 - days.employedDays);
  NewDays counted;
  std::vector<DaySpan> spans;
  for (basic::Date date = entry.periodStart; date <= entry.periodEnd; date = date.plusDays(1)) {
    const auto found = facts.find(date.serial());
    if (found == facts.end()) {
      join(spans, date, days.known && date < joined ? "before joining" : "no code, leave");
      continue;
    }
    for (const DayFact* day : found->second)
      join(spans, date, basic::Trim(day->code) + ", " + countsAs(*day, days.halvesCount, counted));
  }
  for (const DaySpan& span : spans)
    lines.push_back(
        {span.first == span.last ? dateText(span.first) : dateText(span.first) + " to " + dateText(span.last),
         span.text});
}

FormulaDays Explainer::enteredDays() const {
  const basic::Date first = month_.entry.periodStart;
  const basic::Date last = month_.entry.periodEnd;
  const EnteredDays days(facts_->attendance(), first, last);
  const basic::Date from = std::max(first, facts_->employee().joined);
  const auto employed = static_cast<double>(basic::daysBetween(from, last) + 1);
  return {days.present - days.holidays, days.absent, employed - days.present - days.absent, days.holidays};
}

// As a new entry of the period would have it.
BasicPayOrigin Explainer::basicPayToday(const EmployeeFact& employee) const {
  const basic::Date first = month_.entry.periodStart;
  const basic::Date last = month_.entry.periodEnd;
  BasicPayOrigin origin;
  origin.known = true;
  origin.master = employee.basicPay;
  origin.totalDays = static_cast<double>(basic::daysBetween(first, last) + 1);
  origin.absentDays = EnteredDays(facts_->attendance(), first, last).absent;
  origin.daysBeforeJoining = std::max(0L, basic::daysBetween(first, employee.joined));
  origin.lossThroughDeductions = employee.lossThroughDeductions;
  return origin;
}

}  // namespace payslate
