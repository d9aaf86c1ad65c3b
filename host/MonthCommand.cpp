// payroll-host month: the month of every employee, entered at once.
#include <csignal>
#include <map>
#include <ostream>

#include "host/Commands.h"
#include "host/ComponentStage.h"
#include "host/Database.h"
#include "host/Terminal.h"
#include "platform/scripted/ScriptedDesktop.h"

namespace payslate::host {

namespace {

volatile std::sig_atomic_t stopWanted = 0;

/// Ctrl+C asks the run to stop, as long as this lives.
class StopKey {
 public:
  StopKey() : before_(std::signal(SIGINT, [](int) { stopWanted = 1; })) { stopWanted = 0; }
  ~StopKey() { std::signal(SIGINT, before_ == SIG_ERR ? SIG_DFL : before_); }
  StopKey(const StopKey&) = delete;
  StopKey& operator=(const StopKey&) = delete;

 private:
  void (*before_)(int);
};

const std::map<MonthResult, std::string>& resultNames() {
  static const std::map<MonthResult, std::string> names{
      {MonthResult::Stored, "stored"},    {MonthResult::WouldStore, "would store"},
      {MonthResult::LeftOut, "left out"}, {MonthResult::ToLookAt, "to look at"},
      {MonthResult::Failed, "failed"},    {MonthResult::NotReached, "not reached"}};
  return names;
}

std::string onOneLine(const std::vector<std::string>& reasons) {
  std::string line;
  for (const std::string& reason : reasons) line += (line.empty() ? "" : "; ") + reason;
  for (char& character : line)
    if (character == '\n' || character == '\r') character = ' ';
  return line;
}

std::string listOf(const std::vector<std::int32_t>& numbers) {
  std::string list;
  for (const std::int32_t number : numbers) list += (list.empty() ? "" : " ") + std::to_string(number);
  return list;
}

std::vector<std::string> textsOf(const std::vector<Explanation>& explanations) {
  std::vector<std::string> texts;
  for (const Explanation& one : explanations) {
    std::string& text = texts.emplace_back(textOf(one));
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at))
      text.replace(at, 1, ", ");
  }
  return texts;
}

Report reportOf(const MonthWish& wish, const MonthReport& month) {
  Report report{{"employee", "name", "result", "entry", "currency", "net", "reason"}, {}, {}};
  if (wish.options.explanations) report.headings.emplace_back("explanation");
  const auto flag = [](bool set) { return std::string(set ? "true" : "false"); };
  report.options = {{"company", std::to_string(wish.session.company)},
                    {"date", basic::formatDate(wish.session.date, "yyyy/mm/dd")},
                    {"departments", listOf(wish.options.departments)},
                    {"employees", listOf(wish.options.employees)},
                    {"facilities", flag(wish.options.facilities)},
                    {"balance", flag(wish.options.balance)},
                    {"with findings", flag(wish.options.withFindings)},
                    {"dry run", flag(wish.options.dryRun)}};
  for (const MonthLine& line : month.lines) {
    std::vector<MonthPay> pay = line.pay;
    if (pay.empty()) pay.emplace_back();
    for (const MonthPay& one : pay) {
      report.rows.push_back({std::to_string(line.employeeId), line.name, resultNames().at(line.result),
                             line.entry, one.currency, one.net, onOneLine(line.reasons)});
      if (wish.options.explanations) report.rows.back().push_back(onOneLine(textsOf(line.explanations)));
    }
  }
  return report;
}

void printCounts(std::ostream& out, const MonthReport& month) {
  out << month.lines.size() << " employees";
  for (const auto& [result, name] : resultNames())
    if (const std::size_t count = month.count(result); count > 0) out << ", " << count << ' ' << name;
  out << ".\n";
}

}  // namespace

ExitCode month(const MonthWish& wish, std::ostream& out, std::ostream& err) {
  const SharedConnection connection = openPayroll(wish.connect);
  requireCompany(*connection, wish.session.company);
  scripted::ScriptedDesktop desktop;
  const StopKey stopKey;
  const bool watched = errorsAreSeen();
  const auto progress = [&](std::size_t done, std::size_t total) {
    if (watched) err << '\r' << done << " of " << total << std::flush;
    return stopWanted == 0;
  };
  MonthReport report;
  try {
    report = makeComponent(desktop, connection, wish.session).EnterMonth(wish.options, progress);
  } catch (const MonthRefused& refused) {
    throw Refusal(refused.what());
  }
  if (watched) err << '\r' << report.lines.size() << " employees.  \n";
  write(out, reportOf(wish, report), wish.format);
  if (wish.format == ReportFormat::Table) printCounts(out, report);
  return report.isComplete() ? ExitCode::Ok : ExitCode::Failed;
}

}  // namespace payslate::host
