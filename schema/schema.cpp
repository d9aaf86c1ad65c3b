// Creating the payroll database, empty or filled, in one transaction.
#include "schema/schema.h"

#include <functional>
#include <string>

#include "platform/ado/Transaction.h"
#include "schema/demo.h"
#include "schema/script.h"

namespace payslate::schema {
namespace {

void allOrNothing(ado::Connection& connection, const std::string& whatFailed,
                  const std::function<void()>& work) {
  try {
    ado::Transaction transaction(connection);
    work();
    transaction.commit();
  } catch (ado::Error& error) {
    error.Description = whatFailed + ": " + error.Description;
    throw;
  }
}

}  // namespace

void create(ado::Connection& connection) {
  allOrNothing(connection, "The payroll tables were not created", [&] { run(connection, payroll()); });
}

void createDemo(ado::Connection& connection) {
  allOrNothing(connection, "The demo companies were not created", [&] {
    run(connection, payroll());
    run(connection, demo());
    fillPeople(connection);
    fillAttendance(connection);
    fillEntries(connection);
  });
}

}  // namespace payslate::schema
