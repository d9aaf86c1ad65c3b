// payroll-host journal: the journal of an entry, sealing the journal, proving it.
#include <ostream>

#include "host/Commands.h"
#include "host/Database.h"
#include "host/Report.h"
#include "payslate/EntryJournals.h"

namespace payslate::host {

namespace {

// A table is for people: it leaves the hashes out.
Report entryReport(const std::vector<JournalLine>& lines, ReportFormat format) {
  const bool withHashes = format != ReportFormat::Table;
  Report report{{"sequence", "time", "user", "done", "what", "before", "after"}, {}};
  if (withHashes) report.headings.emplace_back("hash");
  for (const JournalLine& line : lines) {
    report.rows.push_back({std::to_string(line.row.sequence), line.row.time, line.user, line.done, line.what,
                           line.before, line.after});
    if (withHashes) report.rows.back().push_back(line.row.hash);
  }
  return report;
}

std::string whose(EntryJournals& journals, const JournalFault& fault) {
  if (fault.entryId == companyChain) return "company";
  const std::string number = journals.numberOf(fault.entryId);
  return number.empty() ? "identifier " + std::to_string(fault.entryId) : number;
}

Report proofReport(EntryJournals& journals, const JournalProof& proof) {
  Report report{{"entry", "fault", "what"}, {}};
  const auto add = [&](const std::vector<JournalFault>& faults, const char* kind) {
    for (const JournalFault& fault : faults)
      report.rows.push_back({whose(journals, fault), kind, fault.what});
  };
  add(proof.broken, "journal");
  add(proof.foreign, "entry");
  return report;
}

void printSummary(std::ostream& out, const JournalProof& proof) {
  out << proof.rows << " rows of " << proof.entries << " entries, " << proof.seals << " seals; "
      << proof.older << " entries are older than the journal.\n";
  out << (proof.broken.empty()
              ? "The journal is as it was written.\n"
              : "The journal was changed: its faults are those of the kind \"journal\" above.\n");
  if (!proof.foreign.empty())
    out << "Entries were changed by something else than the monthly entry: the kind \"entry\" above.\n";
}

ExitCode verify(EntryJournals& journals, const JournalWish& wish, std::ostream& out) {
  const JournalProof proof = journals.prove(wish.seal);
  const Report report = proofReport(journals, proof);
  if (wish.format != ReportFormat::Table || !report.rows.empty()) write(out, report, wish.format);
  if (wish.format == ReportFormat::Table) printSummary(out, proof);
  return proof.broken.empty() ? ExitCode::Ok : ExitCode::Failed;
}

}  // namespace

ExitCode journal(const JournalWish& wish, std::ostream& out) {
  const SharedConnection connection = openPayroll(wish.connect);
  requireCompany(*connection, wish.company);
  EntryJournals journals(connection, wish.company, wish.user);
  if (wish.verifies) return verify(journals, wish, out);
  if (wish.seals) {
    out << journals.seal() << '\n';
    return ExitCode::Ok;
  }
  if (wish.entry.empty())
    throw Refusal("Say what to do with the journal: --entry NUMBER, --seal, or --verify.");
  write(out, entryReport(journals.ofEntry(wish.entry), wish.format), wish.format);
  return ExitCode::Ok;
}

}  // namespace payslate::host
