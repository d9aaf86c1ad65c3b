// The words.
#include "explain/Sentences.h"

#include <algorithm>
#include <array>
#include <utility>

#include "component/Amounts.h"
#include "platform/basic/Numbers.h"

namespace payslate {

using basic::numberText;

namespace {

std::string meaningOf(const std::string& code) {
  static const std::array<std::pair<const char*, const char*>, 6> meanings{{{"BP", "basic pay"},
                                                                            {"PD", "present days"},
                                                                            {"AD", "absent days"},
                                                                            {"LD", "leave days"},
                                                                            {"MD", "days of the month"},
                                                                            {"HD", "holidays"}}};
  for (const auto& [known, meaning] : meanings)
    if (code == known) return code + ", " + meaning;
  return code + ", days of weekday " + code.substr(code.size() - 1);
}

std::string countedAs(const std::string& written, const std::string& counted) {
  return written + " counted as " + counted;
}

std::string rateText(const HoursOrigin& hours) {
  const std::string rate = numberText(hours.rate) + " an hour, ";
  if (hours.source == RateSource::EmployeeMaster) return rate + "from the employee master";
  return rate + "basic pay " + amountText(hours.basicPay) + " / (" + std::to_string(hours.countedHours) +
         " hours * " + std::to_string(hours.days) + " days)";
}

}  // namespace

std::string dateText(basic::Date date) {
  return basic::formatDate(date, "dd/mm/yyyy");
}

void explainFormula(Lines& lines, const FormulaOrigin& formula, const std::string& code) {
  lines.push_back({"Formula", code.empty() ? formula.text : code + ": " + formula.text});
  for (const FormulaValue& value : formula.values) {
    const bool lost = basic::Val(value.sent) != value.value;
    lines.push_back(
        {meaningOf(value.code), lost ? countedAs(numberText(value.value), value.sent) : value.sent});
  }
  for (const LostDigits& lost : formula.lost)
    lines.push_back({"Constant", countedAs(lost.written, lost.counted)});
  lines.push_back({"Sent", formula.sent});
  lines.push_back({"Answer", numberText(formula.answer)});
}

void explainHours(Lines& lines, const HoursOrigin& hours, const std::vector<BookedHours>& booked) {
  for (const BookedHours& one : booked)
    lines.push_back({"Hours", amountText(one.hours) + " on " + dateText(one.date) + ", sheet " +
                                  std::to_string(one.sheet)});
  lines.push_back({"Hours in all", amountText(hours.hours)});
  lines.push_back({"Rate", rateText(hours)});
  if (hours.source == RateSource::BasicPay && hours.dailyHours != hours.countedHours)
    lines.push_back(
        {"Hours of a day", countedAs(amountText(hours.dailyHours), std::to_string(hours.countedHours))});
  lines.push_back({"Hours times rate", amountText(hours.hours * hours.rate)});
}

double dueOf(const AccountFact& account) {
  return std::min(account.balance, account.instalment);
}

void explainAccount(Lines& lines, const char* kind, const std::string& account, const AccountFact& fact,
                    double taken, double takenAbove) {
  lines.push_back({kind, account});
  lines.push_back({"Balance", amountText(fact.balance)});
  lines.push_back({"Instalment", amountText(fact.instalment)});
  lines.push_back({"Due", fact.balance < fact.instalment
                              ? "the balance, " + amountText(fact.balance) + ", which is less"
                              : "the instalment, " + amountText(fact.instalment)});
  if (takenAbove != 0) lines.push_back({"Taken by rows above", amountText(takenAbove)});
  lines.push_back({"Remains", amountText(fact.balance - takenAbove - taken)});
}

double balanceOf(const std::vector<EntryMovements>& movements) {
  double balance = 0;
  for (const EntryMovements& one : movements) balance += one.keptBack - one.paidOut;
  return balance;
}

void explainBalance(Lines& lines, const std::vector<EntryMovements>& movements) {
  for (const EntryMovements& one : movements) {
    const std::string entry = one.number + " of " + dateText(one.date);
    if (one.keptBack > 0) lines.push_back({entry, "kept back " + amountText(one.keptBack)});
    if (one.paidOut > 0) lines.push_back({entry, "paid out " + amountText(one.paidOut)});
  }
  lines.push_back({"Balance", amountText(balanceOf(movements))});
}

void explainBasicPay(Lines& lines, const BasicPayOrigin& origin) {
  lines.push_back({"Basic pay in the employee master", amountText(origin.master)});
  lines.push_back({"Days of the period", numberText(origin.totalDays)});
  lines.push_back({"Absent days", numberText(origin.absentDays)});
  lines.push_back({"Days before joining", std::to_string(origin.daysBeforeJoining)});
  if (origin.lossThroughDeductions) {
    lines.push_back({"Cut", "none, loss of pay is taken through deductions"});
  } else {
    lines.push_back({"Cut", amountText(origin.master) + " / " + numberText(origin.totalDays) + " * " +
                                numberText(origin.lostDays()) + " = " +
                                amountText(origin.master - origin.reduced())});
  }
}

void explainTyping(Lines& lines, const std::string& amount, const std::string& before) {
  lines.push_back({"Typed", before.empty() ? amount : amount + ", before: " + before});
}

void explainChange(Lines& lines, const Origin& origin, const std::string& amount) {
  if (origin.change == ChangedBy::Clerk) explainTyping(lines, amount, origin.before);
  if (origin.change == ChangedBy::Refresh)
    lines.push_back({"By Refresh", amount + ", before: " + origin.before});
}

void explainLowering(Lines& lines, const std::string& actual, const std::string& settlement) {
  const double lowered = wholeCents(actual) - wholeCents(settlement);
  lines.push_back({"Actual amount", actual});
  lines.push_back(
      {"Lowered", lowered == 0 ? "not at all" : "by " + centsText(lowered) + ", to " + settlement});
}

}  // namespace payslate
