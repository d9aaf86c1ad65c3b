// Creating the payroll database, empty or filled, in one transaction.
#include "schema/schema.h"

#include <functional>
#include <string>

#include "schema/demo.h"
#include "schema/script.h"

namespace payslate::schema {
namespace {

/// Rolls back when it goes out of scope before commit().
class Transaction {
 public:
  explicit Transaction(ado::Connection& connection) : connection_(connection) { connection_.BeginTrans(); }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction() {
    try {
      if (connection_.InTransaction()) connection_.RollbackTrans();
    } catch (const ado::Error&) {
      // The error on its way to the caller says what went wrong first.
    }
  }
  void commit() { connection_.CommitTrans(); }

 private:
  ado::Connection& connection_;
};

void allOrNothing(ado::Connection& connection, const std::string& whatFailed,
                  const std::function<void()>& work) {
  try {
    Transaction transaction(connection);
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
