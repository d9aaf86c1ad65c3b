// payroll-host upgrade: an earlier payroll database taken to the present schema.
#include <ostream>

#include "host/Commands.h"
#include "host/Database.h"
#include "schema/upgrade.h"

namespace payslate::host {

namespace {

schema::UpgradeReport upgraded(const std::string& connect) {
  const SharedConnection connection = openPayroll(connect);
  try {
    return schema::upgrade(*connection);
  } catch (const ado::Error& error) {
    throw Refusal(databaseName(connect) + " was not upgraded: " + error.Description);
  }
}

}  // namespace

ExitCode upgrade(const std::string& connect, std::ostream& out) {
  const schema::UpgradeReport report = upgraded(connect);
  const std::string present = std::to_string(schema::presentVersion());
  if (!report.forbidden.empty()) {
    for (const std::string& sentence : report.forbidden) out << sentence << '\n';
    throw Refusal(databaseName(connect) + " stays at schema version " + std::to_string(report.from) +
                  " as long as this is so; nothing in it was changed.");
  }
  if (report.from == schema::presentVersion()) {
    out << databaseName(connect) << " has schema version " << present
        << " already: there is nothing to do.\n";
    return ExitCode::Ok;
  }
  for (const std::string& what : report.made) out << "Made: " << what << ".\n";
  out << databaseName(connect) << " is upgraded from schema version " << report.from << " to " << present
      << ".\n";
  return ExitCode::Ok;
}

}  // namespace payslate::host
