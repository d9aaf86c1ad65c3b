// payroll-host explain: where every figure of an entry comes from.
#include <ostream>

#include "host/Commands.h"
#include "host/ComponentStage.h"
#include "host/Database.h"
#include "platform/scripted/ScriptedDesktop.h"

namespace payslate::host {

namespace {

// To be handed to the employee: the parts of the entry, their figures, and the lines behind each.
void writeText(std::ostream& out, const ExplainedEntry& entry) {
  out << "Entry " << entry.number << " of " << basic::formatDate(entry.date, "dd/mm/yyyy") << ", "
      << entry.employee << '\n';
  if (!entry.remark.empty()) out << entry.remark << '\n';
  std::string part;
  for (const Explanation& one : entry.explanations) {
    if (one.part != part) out << '\n' << one.part << '\n';
    part = one.part;
    std::string indent = "  ";
    out << indent;
    for (const char character : textOf(one)) {
      out << character;
      if (character == '\n') out << indent << indent;
    }
    out << '\n';
  }
}

Report reportOf(const ExplainedEntry& entry) {
  Report report{{"part", "figure", "amount", "currency", "label", "text"}, {}, {}};
  for (const Explanation& one : entry.explanations)
    for (const ExplanationLine& line : one.lines)
      report.rows.push_back({one.part, one.title, one.amount, one.symbol, line.label, line.text});
  return report;
}

}  // namespace

ExitCode explain(const ExplainWish& wish, std::ostream& out) {
  const SharedConnection connection = openPayroll(wish.connect);
  requireCompany(*connection, wish.session.company);
  scripted::ScriptedDesktop desktop;
  const ExplainedEntry entry = makeComponent(desktop, connection, wish.session).ExplainEntry(wish.entry);
  if (wish.format) {
    write(out, reportOf(entry), *wish.format);
  } else {
    writeText(out, entry);
  }
  return ExitCode::Ok;
}

}  // namespace payslate::host
