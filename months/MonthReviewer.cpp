// From stored rows to lines, totals and what changed since somebody accepted them.
#include "months/MonthReviewer.h"

#include <algorithm>
#include <functional>
#include <set>

#include "component/DatabaseValues.h"
#include "component/StoredState.h"
#include "entry/Attendance.h"
#include "months/MonthReport.h"
#include "persistence/JournalRow.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

/// Counts what a connection sends as long as it lives; whoever listened before goes on listening.
class StatementCount {
 public:
  StatementCount(ado::Connection& connection, std::size_t& count)
      : connection_(connection), before_(connection.StatementSent) {
    connection.StatementSent = [this, &count](std::string_view statement) {
      ++count;
      if (before_) before_(statement);
    };
  }
  ~StatementCount() { connection_.StatementSent = before_; }
  StatementCount(const StatementCount&) = delete;
  StatementCount& operator=(const StatementCount&) = delete;

 private:
  ado::Connection& connection_;
  std::function<void(std::string_view)> before_;
};

std::string numbersOf(const std::vector<LoadedMonth>& entries) {
  std::string numbers;
  for (const LoadedMonth& one : entries) numbers += (numbers.empty() ? "" : " ") + one.entry.number;
  return numbers;
}

/// In the order of their lines: what is paid now, what was paid before. Whoever has nothing gets his own.
std::vector<std::string> currenciesOf(const EmployeeMonth& employee, const PayBySymbol& now,
                                      const PayBySymbol& before) {
  std::vector<std::string> symbols;
  const auto add = [&symbols](const PayBySymbol& pay) {
    for (const auto& [symbol, sums] : pay)
      if (std::find(symbols.begin(), symbols.end(), symbol) == symbols.end()) symbols.push_back(symbol);
  };
  add(now);
  add(before);
  if (symbols.empty() && (employee.active || !employee.cancelled.empty()))
    symbols.push_back(basic::Trim(employee.symbol));
  return symbols;
}

std::string doneSince(const LastChange& change, const MonthAcceptance& accepted) {
  if (change.action == JournalAction::Cancel) return "cancelled";
  return accepted.ends.contains(change.entryId) ? "changed" : "entered";
}

}  // namespace

MonthReviewer::MonthReviewer(Session& session, ReviewOptions options)
    : session_(session), options_(std::move(options)) {
  options_.acceptAs = basic::Trim(options_.acceptAs);
}

MonthReview MonthReviewer::review() {
  const StatementCount counting(*session_.adocon(), review_.statements);
  session_.TableLinks.load(*session_.adocon());
  session_.TableLinks.loadJournal(*session_.adocon());
  refuse();
  readPeriod();
  std::optional<MonthAcceptance> accepted;
  if (session_.keepsJournal()) accepted = lastAcceptance(session_, scope_);
  // Before the entries: what is stored meanwhile counts as stored later.
  if (accepted || !options_.acceptAs.empty()) lastChanges_ = lastChanges(session_, scope_);
  MonthRows rows = readMonth(session_, scope_);
  addLines(rows);
  addTotals();
  if (accepted) compare(*accepted, rows);
  if (!options_.acceptAs.empty()) accept(rows);
  return std::move(review_);
}

void MonthReviewer::refuse() const {
  if (options_.acceptAs.empty()) return;
  if (!session_.keepsJournal())
    throw MonthRefused(
        "No journal of entries is kept in this database (linkTable has no pEntryJournal): a month can be "
        "looked at, but not accepted.");
  if (!options_.departments.empty())
    throw MonthRefused("A month is accepted as a whole: do not choose departments.");
}

void MonthReviewer::readPeriod() {
  scope_.date = session_.ProcessDate;
  scope_.departments = options_.departments;
  const std::string month = std::to_string(scope_.date.month());
  ado::Recordset start;
  start.Open("select startdate from vwPaymonthvsdate where companyid = " + session_.companyText() +
                 " and paymonth = " + month,
             *session_.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
  const basic::Date first = start.Eof() ? basic::Date() : dateOf(start.Fields(0).Value());
  if (first == basic::Date())
    throw MonthRefused(
        "Pay month " + month +
        " of this company has no start date: have the pay months (vwPaymonthvsdate) completed.");
  scope_.period.first = nearestYear(first, scope_.date);
  scope_.period.last = scope_.period.first.plusMonths(1).plusDays(-1);
}

void MonthReviewer::addLines(MonthRows& rows) {
  const MonthGround ground{scope_.period, rows.calendars, options_.percent, options_.amount, *rows.stored};
  for (const EmployeeMonth& employee : rows.employees) {
    const PayBySymbol now = payOf(employee.now, employee.symbol);
    const PayBySymbol before = payOf(employee.before, employee.symbol);
    const std::vector<std::string> symbols = currenciesOf(employee, now, before);
    for (const std::string& symbol : symbols)
      addLine({employee, symbol, symbol == symbols.front(), paidIn(now, symbol), paidIn(before, symbol)},
              ground);
    review_.employees += symbols.empty() ? 0 : 1;
  }
}

void MonthReviewer::addLine(const CurrencyPay& pay, const MonthGround& ground) {
  const EmployeeMonth& employee = pay.employee;
  ReviewLine line;
  line.employeeId = employee.employeeId;
  line.name = employee.name;
  line.department = employee.department;
  line.entry = numbersOf(employee.now);
  line.currency = pay.symbol;
  if (pay.now != nullptr || pay.before != nullptr) addAmounts(line, pay);
  for (RaisedFlag& flag : flagsOf(pay, ground)) {
    line.flags.emplace_back(flag.word);
    std::move(flag.remarks.begin(), flag.remarks.end(), std::back_inserter(line.remarks));
  }
  review_.lines.push_back(std::move(line));
}

void MonthReviewer::addAmounts(ReviewLine& line, const CurrencyPay& pay) {
  Total& total = totals_[{pay.employee.departmentId, pay.symbol}];
  total.department = pay.employee.department;
  basic::Decimal difference = noMoney();
  if (pay.now != nullptr) {
    line.basicPay = pay.now->basicPay.text();
    line.allowances = pay.now->allowances.text();
    line.deductions = pay.now->deductions.text();
    line.net = pay.now->net().text();
    difference = pay.now->net();
    total.now += *pay.now;
    ++total.employees;
  }
  if (pay.before != nullptr) {
    line.before = pay.before->net().text();
    difference = difference - pay.before->net();
    total.before = total.before + pay.before->net();
  }
  line.difference = difference.text();
}

ReviewTotal MonthReviewer::shown(const std::string& currency, const Total& total) {
  return {total.department,
          currency,
          total.employees,
          total.now.basicPay.text(),
          total.now.allowances.text(),
          total.now.deductions.text(),
          total.now.net().text(),
          total.before.text(),
          (total.now.net() - total.before).text()};
}

void MonthReviewer::addTotals() {
  std::map<std::string, Total> sums;
  for (const auto& [key, total] : totals_) {
    review_.totals.push_back(shown(key.second, total));
    Total& sum = sums[key.second];
    sum.employees += total.employees;
    sum.now += total.now;
    sum.before = sum.before + total.before;
  }
  for (const auto& [symbol, sum] : sums) review_.sums.push_back(shown(symbol, sum));
}

AcceptedTotals MonthReviewer::totalsToAccept() const {
  AcceptedTotals totals;
  for (const auto& [key, total] : totals_)
    if (total.employees > 0)
      totals[key] = {total.employees, total.now.basicPay.text(), total.now.allowances.text(),
                     total.now.deductions.text(), total.now.net().text()};
  return totals;
}

std::string MonthReviewer::userName(std::int16_t userId) {
  if (!users_) users_ = userNames(session_);
  const auto name = users_->find(userId);
  return name == users_->end() || name->second.empty() ? std::to_string(userId) : name->second;
}

ReviewAcceptance MonthReviewer::shown(const MonthAcceptance& acceptance) {
  return {acceptance.name, userName(acceptance.userId), acceptance.time, acceptance.hash};
}

void MonthReviewer::compare(const MonthAcceptance& accepted, const MonthRows& rows) {
  review_.accepted = shown(accepted);
  std::map<std::int32_t, std::string> names;
  std::set<std::int32_t> present;
  for (const EmployeeMonth& employee : rows.employees) {
    names[employee.employeeId] = employee.name;
    for (const LoadedMonth& one : employee.now) present.insert(one.entry.id);
  }
  for (const LastChange& change : lastChanges_) {
    present.insert(change.entryId);
    const auto end = accepted.ends.find(change.entryId);
    if (end != accepted.ends.end() && end->second >= change.sequence) continue;
    review_.changes.push_back({change.number, change.employeeId, names[change.employeeId],
                               doneSince(change, accepted), userName(change.userId), change.time});
  }
  if (options_.departments.empty())
    for (const auto& [entryId, sequence] : accepted.ends)
      if (!present.contains(entryId))
        review_.changes.push_back({"identifier " + std::to_string(entryId), 0, {}, "removed", {}, {}});
  compareTotals(accepted);
}

void MonthReviewer::compareTotals(const MonthAcceptance& accepted) {
  const AcceptedTotals now = totalsToAccept();
  const std::set<std::int32_t> chosen(options_.departments.begin(), options_.departments.end());
  std::set<AcceptedTotals::key_type> keys;
  for (const AcceptedTotals* totals : {&accepted.totals, &now})
    for (const auto& [key, total] : *totals)
      if (chosen.empty() || chosen.contains(key.first)) keys.insert(key);
  const auto of = [](const AcceptedTotals& totals, const AcceptedTotals::key_type& key) {
    const std::string none = noMoney().text();
    const auto found = totals.find(key);
    return found != totals.end() ? found->second : AcceptedTotal{0, none, none, none, none};
  };
  for (const auto& key : keys) {
    const AcceptedTotal before = of(accepted.totals, key);
    const AcceptedTotal after = of(now, key);
    if (before == after) continue;
    const auto known = totals_.find(key);
    const basic::Decimal difference = basic::Decimal::parse(after.net) - basic::Decimal::parse(before.net);
    review_.totalChanges.push_back(
        {known != totals_.end() ? known->second.department : std::to_string(key.first), key.second,
         before.employees, after.employees, before.net, after.net, difference.text()});
  }
}

void MonthReviewer::accept(const MonthRows& rows) {
  MonthAcceptance acceptance;
  acceptance.name = options_.acceptAs;
  acceptance.totals = totalsToAccept();
  for (const EmployeeMonth& employee : rows.employees)
    for (const LoadedMonth& one : employee.now) acceptance.ends[one.entry.id] = 0;
  for (const LastChange& change : lastChanges_) acceptance.ends[change.entryId] = change.sequence;
  review_.accepts = shown(acceptMonth(session_, scope_, std::move(acceptance)));
}

}  // namespace payslate
