// The flags, and what is remarked with them.
#include "review/MonthFlags.h"

#include <algorithm>

#include "component/StoredState.h"
#include "platform/basic/Numbers.h"
#include "review/Findings.h"

namespace payslate {

namespace {

using Remarks = std::vector<std::string>;

std::string written(basic::Date date) {
  return basic::formatDate(date, "yyyy/mm/dd");
}

/// In every month that a new entry needs.
bool hasCalendars(const EmployeeMonth& employee, const MonthGround& ground) {
  return ground.calendars.has(employee, ground.period.first.year()) &&
         ground.calendars.has(employee, ground.period.last.year());
}

bool joinedAfter(const EmployeeMonth& employee, basic::Date day) {
  return basic::daysBetween(day, employee.joined) > 0;
}

/// What keeps the sheets from proving the month; nothing where they do. Sheets on top of each other count
/// twice, as they do when the month is entered.
const char* faultOfSheets(const EmployeeMonth& employee, DaySpan period) {
  if (joinedAfter(employee, period.first)) period.first = employee.joined;
  long covered = 0;
  bool any = false;
  for (const DaySpan& sheet : employee.sheets) {
    const basic::Date first = std::max(sheet.first, period.first);
    const long days = basic::daysBetween(first, std::min(sheet.last, period.last)) + 1;
    if (days <= 0) continue;
    any = true;
    covered += days;
  }
  const long needed = basic::daysBetween(period.first, period.last) + 1;
  if (!any) return "no sheets";
  if (covered < needed) return "incomplete sheets";
  return covered > needed ? "overlapping sheets" : nullptr;
}

std::string whatANewEntryMeets(const EmployeeMonth& employee, const MonthGround& ground) {
  if (joinedAfter(employee, ground.period.last)) return "joins later, " + written(employee.joined);
  if (!hasCalendars(employee, ground)) return "no calendar";
  const char* fault = faultOfSheets(employee, ground.period);
  return fault != nullptr ? fault : "try a dry run";
}

std::string daysAbsent(double days) {
  return basic::numberText(days) + (days == 1 ? " day absent" : " days absent");
}

double absentIn(const std::vector<LoadedMonth>& entries) {
  double days = 0;
  for (const LoadedMonth& one : entries) days += one.entry.days.absent;
  return days;
}

/// ", 2 days absent" and ", 1 day absent before", if there were any.
std::string absence(const EmployeeMonth& employee) {
  const double now = absentIn(employee.now);
  const double before = absentIn(employee.before);
  return (now > 0 ? ", " + daysAbsent(now) : "") + (before > 0 ? ", " + daysAbsent(before) + " before" : "");
}

/// "Overtime 0.00 → 687.50; basic pay 30000.00 → 28000.00, 2 days absent": what differs most, the basic pay
/// with its reason behind the others.
std::string whereItDiffers(const CurrencyPay& pay) {
  constexpr std::size_t mostElements = 3;
  std::vector<PayElement> elements = differingElements(pay.employee, pay.symbol);
  const std::size_t others = elements.size() - std::min(elements.size(), mostElements);
  elements.resize(elements.size() - others);
  std::stable_partition(elements.begin(), elements.end(),
                        [](const PayElement& element) { return !element.isBasicPay; });
  std::string remark;
  for (const PayElement& element : elements)
    remark += (remark.empty() ? "" : "; ") + element.what + " " + element.before.text() + " → " +
              element.now.text() + (element.isBasicPay ? absence(pay.employee) : "");
  return others == 0 ? remark : remark + "; and " + std::to_string(others) + " more";
}

bool hasNoEntry(const CurrencyPay& pay, const MonthGround& ground, Remarks& remarks) {
  if (!pay.isFirst || !pay.employee.active || !pay.employee.now.empty()) return false;
  remarks.push_back(whatANewEntryMeets(pay.employee, ground));
  return true;
}

bool isMissing(const CurrencyPay& pay, const MonthGround&, Remarks& remarks) {
  if (pay.before == nullptr || pay.now != nullptr) return false;
  if (!pay.employee.now.empty()) remarks.push_back(whereItDiffers(pay));  // Paid in another currency alone.
  return true;
}

bool hasLeft(const CurrencyPay& pay, const MonthGround&, Remarks& remarks) {
  if (pay.employee.active) return false;
  if (pay.isFirst && !pay.employee.isKnown) remarks.emplace_back("not among the employees");
  return true;
}

bool isNew(const CurrencyPay& pay, const MonthGround& ground, Remarks& remarks) {
  if (pay.now == nullptr || pay.before != nullptr) return false;
  if (!pay.employee.before.empty()) {
    remarks.push_back(whereItDiffers(pay));
  } else if (pay.isFirst && joinedAfter(pay.employee, ground.period.first.plusDays(-1))) {
    remarks.push_back("joined " + written(pay.employee.joined));
  }
  return true;
}

bool anyEntryIs(PaidCash paid, const CurrencyPay& pay) {
  return std::any_of(pay.employee.now.begin(), pay.employee.now.end(),
                     [paid](const LoadedMonth& one) { return one.entry.paidCash == paid; });
}

bool isHeld(const CurrencyPay& pay, const MonthGround&, Remarks&) {
  return pay.now != nullptr && anyEntryIs(PaidCash::OnHold, pay);
}

bool isPaidInCash(const CurrencyPay& pay, const MonthGround&, Remarks&) {
  return pay.now != nullptr && anyEntryIs(PaidCash::PaidInCash, pay);
}

bool isNegative(const CurrencyPay& pay, const MonthGround&, Remarks&) {
  return pay.now != nullptr && pay.now->net().isNegative() && !pay.now->net().isZero();
}

bool hasChanged(const CurrencyPay& pay, const MonthGround& ground, Remarks& remarks) {
  if (pay.now == nullptr || pay.before == nullptr) return false;
  constexpr int whole = 100;
  const basic::Decimal before = pay.before->net();
  const basic::Decimal difference = withoutSign(pay.now->net() - before);
  const bool byPercent =
      difference * basic::Decimal::fromInteger(whole) > withoutSign(before) * ground.percent;
  if (!byPercent && !(ground.amount && difference > *ground.amount)) return false;
  remarks.push_back(whereItDiffers(pay));
  return true;
}

bool wasCancelled(const CurrencyPay& pay, const MonthGround&, Remarks& remarks) {
  if (!pay.isFirst || !pay.employee.now.empty() || pay.employee.cancelled.empty()) return false;
  for (const CancelledEntry& entry : pay.employee.cancelled) {
    std::string why = entry.remark;
    if (const std::size_t name = why.find(':'); name != std::string::npos) why.insert(name + 1, " ");
    remarks.push_back(entry.number + " cancelled" + (why.empty() ? "" : " by " + why));
  }
  return true;
}

bool hasFindings(const CurrencyPay& pay, const MonthGround& ground, Remarks& remarks) {
  if (!pay.isFirst) return false;
  Findings findings;
  for (const LoadedMonth& one : pay.employee.now) {
    Reviewed entry(one.entry, one, ground.stored);
    // The payroll run has taken the instalments of a processed entry off their balances.
    if (!one.entry.processed) rowsAboveTheirBalance(entry, findings);
    for (const auto look : {deductionsThatAreNotTheRecoveries, payingOutWhatIsNotLeft, keepingBackTooLittle,
                            rowsThatCannotBeShown})
      look(entry, findings);
  }
  for (Finding& finding : findings) remarks.push_back(std::move(finding.line));
  return !findings.empty();
}

struct Flag {
  const char* word;
  bool (*isRaised)(const CurrencyPay& pay, const MonthGround& ground, Remarks& remarks);
};

constexpr Flag flags[] = {
    {"no-entry", hasNoEntry}, {"missing", isMissing},  {"left", hasLeft},
    {"new", isNew},           {"hold", isHeld},        {"cash", isPaidInCash},
    {"negative", isNegative}, {"changed", hasChanged}, {"cancelled", wasCancelled},
    {"finding", hasFindings},
};

}  // namespace

std::vector<RaisedFlag> flagsOf(const CurrencyPay& pay, const MonthGround& ground) {
  std::vector<RaisedFlag> raised;
  for (const Flag& flag : flags) {
    Remarks remarks;
    if (flag.isRaised(pay, ground, remarks)) raised.push_back({flag.word, std::move(remarks)});
  }
  return raised;
}

}  // namespace payslate
