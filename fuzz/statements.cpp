// Fuzz target: one Transact-SQL text, run by the embedded engine on the payroll database.
#include "fuzz/PayrollDatabase.h"
#include "fuzz/Rows.h"
#include "fuzz/Target.h"
#include "platform/ado/ConnectionString.h"
#include "platform/sqlite/SqliteProvider.h"

using namespace payslate;

namespace {

struct Payroll {
  ado::Connection connection;

  Payroll() {
    ado::registerProvider(sqlite::providerEntry());
    connection.Open(ado::inMemory + std::string(";StatementTimeout=500"));
    fuzz::createPayroll(connection);
  }
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Payroll payroll;
  ado::Connection& connection = payroll.connection;
  connection.BeginTrans();
  try {
    ado::Recordset rows = connection.Execute(fuzz::textOf(data, size));
    if (rows.State() == ado::ObjectState::Open) fuzz::readRows(rows);
  } catch (const ado::Error& error) {
    fuzz::requireTold(error);
  }
  // Whatever it did, the next one finds what it found.
  connection.RollbackTrans();
  return 0;
}
