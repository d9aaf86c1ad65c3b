// Choosing, storing, and telling what became of everybody.
#include "months/MonthRun.h"

#include <algorithm>
#include <utility>

#include "component/FunctionRights.h"
#include "persistence/EntryNumbers.h"
#include "persistence/EntryReader.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

constexpr std::size_t entriesOfATransaction = 50;
constexpr int notOffered = -1;

std::string listOf(const std::vector<std::int32_t>& numbers) {
  std::string list;
  for (const std::int32_t number : numbers) list += (list.empty() ? "" : ", ") + std::to_string(number);
  return list;
}

bool isOfClass(const ado::Error& error, std::string_view sqlClass) {
  return std::string_view(error.SQLState).starts_with(sqlClass);
}

/// The database's doing, and nothing about the employee: a lost connection, a time-out, a transaction given
/// up.
bool isFailureOfDatabase(const ado::Error& error) {
  return isOfClass(error, "08") || isOfClass(error, "HYT") || isOfClass(error, "40") || error.gaveWay();
}

}  // namespace

MonthRun::MonthRun(BasPaySlate& bas, MonthOptions options) : bas_(bas), options_(std::move(options)) {
  bas_.desktop(desktop_);
  bas_.TableLinks.load(*bas_.adocon());
  bas_.TableLinks.loadJournal(*bas_.adocon());
  helpers_.create(bas_);
}

MonthReport MonthRun::enter(const MonthProgress& progress) {
  refuseForAll();
  listEmployees();
  refuseWithoutNumbers();
  const std::size_t total = report_.lines.size();
  for (std::size_t line = 0; line < total && !connectionLost_; ++line) {
    if (progress && !progress(line, total)) break;
    chooseEmployee(line);
    if (waiting_.size() == entriesOfATransaction) storeWaiting();
  }
  if (!connectionLost_) storeWaiting();
  return std::move(report_);
}

void MonthRun::refuseForAll() {
  FunctionRights rights;
  // A user without a row keeps what the list of entries starts with, where New can be pressed.
  if (rights.load(bas_) && !rights.holds(Right::New))
    throw MonthRefused("This user has no right to make new entries (N).");
  bas_.strMode = EntryMode::New;
  form_ = std::make_shared<frmpayslate>(bas_);
  form_->load();
  const std::vector<std::string> messages = desktop_.takeMessages();
  if (form_->hasPeriod()) return;
  throw MonthRefused(messages.empty() ? "The month has no pay period: have the pay months completed."
                                      : messages.front());
}

std::optional<std::set<std::int32_t>> MonthRun::inDepartments() {
  if (options_.departments.empty()) return {};
  ado::Recordset rows;
  rows.Open("select eEmpID from " + bas_.TableLinks["pemployee"] + " where eCompanyID = " +
                bas_.companyText() + " and eDeptID in (" + listOf(options_.departments) + ")",
            *bas_.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
  std::set<std::int32_t> employees;
  for (; !rows.Eof(); rows.MoveNext()) employees.insert(basic::CLng(rows.Fields(0).Value()));
  return employees;
}

void MonthRun::listEmployees() {
  const auto departments = inDepartments();
  const std::set<std::int32_t> named(options_.employees.begin(), options_.employees.end());
  for (int index = 0; index < form_->cboEmpname.ListCount(); ++index) {
    const std::int32_t employeeId = form_->cboEmpname.ItemData(index);
    if (departments && !departments->contains(employeeId)) continue;
    if (!named.empty() && !named.contains(employeeId)) continue;
    MonthLine line;
    line.employeeId = employeeId;
    line.name = basic::Trim(form_->cboEmpname.List(index));
    report_.lines.push_back(std::move(line));
    comboIndex_.push_back(index);
  }
  addMissing();
}

// Whoever is named gets an answer.
void MonthRun::addMissing() {
  std::set<std::int32_t> known;
  for (const MonthLine& line : report_.lines) known.insert(line.employeeId);
  for (const std::int32_t employeeId : options_.employees) {
    if (!known.insert(employeeId).second) continue;
    MonthLine line;
    line.employeeId = employeeId;
    line.result = MonthResult::LeftOut;
    line.reasons = {
        "A new entry does not offer this employee: not active, entered already, not of the "
        "departments, or not of this company."};
    report_.lines.push_back(std::move(line));
    comboIndex_.push_back(notOffered);
  }
}

void MonthRun::refuseWithoutNumbers() {
  StoredEntryNumbers numbers(bas_, *helpers_.objCommonDB);
  const double left = largestEntryNumber - numbers.largestRunningNumber(numbers.entryPrefix());
  const auto wanted = static_cast<double>(
      std::count_if(comboIndex_.begin(), comboIndex_.end(), [](int index) { return index != notOffered; }));
  if (wanted <= left) return;
  throw MonthRefused("Entry numbers end at " + std::to_string(largestEntryNumber) + ": " +
                     basic::numberText(std::max(0.0, left)) + " are left for " + basic::numberText(wanted) +
                     " employees. Give the screen another prefix.");
}

bool MonthRun::isLoaded(MonthLine& line) {
  if (form_->monthIsWhole()) return true;
  line.result = MonthResult::LeftOut;
  line.reasons = {form_->whyNotWhole()};
  return false;
}

void MonthRun::chooseEmployee(std::size_t index) {
  MonthLine& line = report_.lines[index];
  if (comboIndex_[index] == notOffered) return;
  try {
    bas_.strMode = EntryMode::New;
    form_->cboEmpname.setListIndex(comboIndex_[index]);
    if (!isLoaded(line)) return;
    if (options_.facilities) form_->takeRecoveries();
    if (!options_.balance) form_->leaveBalance();
    desktop_.takeMessages();
    if (options_.explanations) line.explanations = form_->knownExplanations();
    auto month = form_->offeredMonth();
    for (const NetPay& net : form_->netPay()) line.pay.push_back({net.symbol, net.amount});
    if (month) return settle(index, *std::move(month));
    line.result = MonthResult::LeftOut;
    line.reasons = desktop_.takeMessages();
  } catch (const std::exception& error) {
    fail(line, error);
  }
}

void MonthRun::settle(std::size_t index, OfferedMonth month) {
  MonthLine& line = report_.lines[index];
  for (const Finding& finding : month.findings) line.reasons.push_back(finding.line);
  if (!month.findings.empty() && !options_.withFindings) {
    line.result = MonthResult::ToLookAt;
  } else if (options_.dryRun) {
    line.result = MonthResult::WouldStore;
  } else {
    waiting_.push_back({index, {std::move(month.entry), std::move(month.loaded)}});
  }
}

void MonthRun::storeWaiting() {
  const std::vector<Waiting> waiting = std::exchange(waiting_, {});
  if (waiting.empty()) return;
  std::vector<NewEntry> months;
  months.reserve(waiting.size());
  for (const Waiting& one : waiting) months.push_back(one.month);
  try {
    const std::vector<StoredEntry> stored = storeTogether(bas_, *helpers_.objCommonDB, months);
    for (std::size_t i = 0; i < waiting.size(); ++i) {
      MonthLine& line = report_.lines[waiting[i].line];
      line.result = MonthResult::Stored;
      line.entry = stored[i].number;
    }
    return;
  } catch (const std::exception&) {
    // Which of them it was shows when each is stored alone.
  }
  for (const Waiting& one : waiting)
    if (!connectionLost_) storeAlone(one);
}

void MonthRun::storeAlone(const Waiting& waiting) {
  MonthLine& line = report_.lines[waiting.line];
  try {
    const std::int32_t id =
        storeEntry(bas_, *helpers_.objCommonDB, waiting.month.entry, waiting.month.loaded);
    line.result = MonthResult::Stored;
    line.entry = numberOfEntry(bas_, id);
  } catch (const std::exception& error) {
    fail(line, error);
  }
}

void MonthRun::fail(MonthLine& line, const std::exception& error) {
  if (line.result == MonthResult::Stored) return;  // Only its number could not be read.
  line.reasons = {error.what()};
  const auto* ofDatabase = dynamic_cast<const ado::Error*>(&error);
  const bool failed = ofDatabase != nullptr && isFailureOfDatabase(*ofDatabase);
  line.result = failed ? MonthResult::Failed : MonthResult::LeftOut;
  if (failed && isOfClass(*ofDatabase, "08")) connectionLost_ = true;
}

}  // namespace payslate
