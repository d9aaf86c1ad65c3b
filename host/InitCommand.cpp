// payroll-host init: an empty payroll database.
#include <ostream>

#include "host/Commands.h"
#include "host/Database.h"
#include "schema/schema.h"

namespace payslate::host {

ExitCode init(const std::string& connect, std::ostream& out) {
  createPayroll(connect, schema::create);
  out << "The payroll tables are created.\n";
  return ExitCode::Ok;
}

}  // namespace payslate::host
