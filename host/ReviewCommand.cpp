// payroll-host review: the month before the payroll run, for somebody who looks at it.
#include <ostream>

#include "host/Commands.h"
#include "host/ComponentStage.h"
#include "host/Database.h"
#include "platform/scripted/ScriptedDesktop.h"

namespace payslate::host {

namespace {

std::string joined(const std::vector<std::string>& texts, const char* between) {
  std::string line;
  for (const std::string& text : texts) line += (line.empty() ? "" : between) + text;
  for (char& character : line)
    if (character == '\n' || character == '\r') character = ' ';
  return line;
}

std::string listOf(const std::vector<std::int32_t>& numbers) {
  std::string list;
  for (const std::int32_t number : numbers) list += (list.empty() ? "" : " ") + std::to_string(number);
  return list;
}

ReportPart totalsPart(const char* name, const char* heading, const std::vector<ReviewTotal>& totals,
                      const char* allDepartments) {
  ReportPart part{name,
                  heading,
                  {"department", "currency", "employees", "basic", "allowances", "deductions", "net",
                   "before", "difference"},
                  {}};
  for (const ReviewTotal& total : totals)
    part.rows.push_back({allDepartments != nullptr ? allDepartments : total.department, total.currency,
                         std::to_string(total.employees), total.basicPay, total.allowances, total.deductions,
                         total.net, total.before, total.difference});
  return part;
}

ReportPart acceptancePart(const char* name, const char* heading, const ReviewAcceptance& acceptance) {
  return {name,
          heading,
          {"name", "user", "time", "hash"},
          {{acceptance.name, acceptance.user, acceptance.time, acceptance.hash}}};
}

// What is empty is left out: most months are looked at by somebody who accepts none.
void addAcceptances(Report& report, const MonthReview& review) {
  if (review.accepted) {
    report.parts.push_back(acceptancePart("accepted", "Accepted before:", *review.accepted));
    ReportPart changes{
        "changes", "Entries since then:", {"entry", "employee", "name", "done", "user", "time"}, {}};
    for (const ReviewChange& change : review.changes)
      changes.rows.push_back({change.entry, change.employeeId == 0 ? "" : std::to_string(change.employeeId),
                              change.name, change.done, change.user, change.time});
    report.parts.push_back(std::move(changes));
    ReportPart totals{
        "totals changed",
        "Totals since then:",
        {"department", "currency", "employees accepted", "employees", "net accepted", "net", "difference"},
        {}};
    for (const ReviewTotalChange& change : review.totalChanges)
      totals.rows.push_back({change.department, change.currency, std::to_string(change.employeesAccepted),
                             std::to_string(change.employees), change.accepted, change.net,
                             change.difference});
    report.parts.push_back(std::move(totals));
  }
  if (review.accepts) report.parts.push_back(acceptancePart("accepts", "Accepted now:", *review.accepts));
}

Report reportOf(const ReviewWish& wish, const MonthReview& review) {
  Report report{{"employee", "name", "department", "entry", "currency", "basic", "allowances", "deductions",
                 "net", "before", "difference", "flags", "remarks"},
                {},
                {}};
  report.options = {{"company", std::to_string(wish.session.company)},
                    {"date", basic::formatDate(wish.session.date, "yyyy/mm/dd")},
                    {"departments", listOf(wish.options.departments)},
                    {"percent", wish.options.percent.text()},
                    {"amount", wish.options.amount ? wish.options.amount->text() : ""}};
  report.facts = {{"employees", std::to_string(review.employees)},
                  {"statements", std::to_string(review.statements)}};
  for (const ReviewLine& line : review.lines)
    report.rows.push_back({std::to_string(line.employeeId), line.name, line.department, line.entry,
                           line.currency, line.basicPay, line.allowances, line.deductions, line.net,
                           line.before, line.difference, joined(line.flags, " "),
                           joined(line.remarks, "; ")});
  report.parts.push_back(totalsPart("totals", "Totals:", review.totals, nullptr));
  report.parts.push_back(totalsPart("sums", "All departments:", review.sums, "all"));
  addAcceptances(report, review);
  return report;
}

}  // namespace

ExitCode review(const ReviewWish& wish, std::ostream& out) {
  const SharedConnection connection = openPayroll(wish.connect);
  requireCompany(*connection, wish.session.company);
  scripted::ScriptedDesktop desktop;
  MonthReview review;
  try {
    review = makeComponent(desktop, connection, wish.session).ReviewMonth(wish.options);
  } catch (const MonthRefused& refused) {
    throw Refusal(refused.what());
  }
  write(out, reportOf(wish, review), wish.format);
  if (wish.format == ReportFormat::Table)
    out << review.employees << " employees, " << review.lines.size() << " lines, " << review.statements
        << " statements.\n";
  return ExitCode::Ok;
}

}  // namespace payslate::host
