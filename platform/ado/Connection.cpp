// Connections: state, statements, transactions.
#include "platform/ado/Connection.h"

#include "platform/ado/OpenDatabase.h"
#include "platform/ado/Provider.h"
#include "platform/ado/Recordset.h"

namespace payslate::ado {

Connection::Connection() = default;

Connection::~Connection() {
  try {
    Close();
  } catch (const Error&) {
    // A rollback that fails here changes nothing: what was not committed ends with the provider.
  }
}

void Connection::Open(const std::string& connectionString) {
  if (database_) throw Error("The connection is open already", "08002");
  auto opened = std::make_shared<OpenDatabase>();
  opened->provider = openProvider(connectionString);
  database_ = std::move(opened);
}

void Connection::Close() {
  if (!database_) return;
  const std::shared_ptr<OpenDatabase> closing = std::move(database_);
  database_.reset();
  closing->dropCursors("the connection was closed");
  if (closing->provider->inTransaction()) closing->provider->rollback();
}

ObjectState Connection::State() const {
  return database_ ? ObjectState::Open : ObjectState::Closed;
}

OpenDatabase& Connection::database(std::string_view forWhat) const {
  if (!database_) throw Error("The connection is closed: cannot " + std::string(forWhat), "08003");
  return *database_;
}

Recordset Connection::Execute(const std::string& commandText) {
  database("run a statement");  // the message names the caller
  Recordset result;
  result.send(commandText, *this, CursorType::ForwardOnly, LockType::ReadOnly);
  return result;
}

void Connection::BeginTrans() {
  database("begin a transaction").provider->begin();
}

void Connection::CommitTrans() {
  database("commit").provider->commit();
}

void Connection::RollbackTrans() {
  OpenDatabase& open = database("roll back");
  if (open.provider->inTransaction()) open.dropCursors("the transaction was rolled back");
  open.provider->rollback();
}

bool Connection::InTransaction() const {
  return database_ && database_->provider->inTransaction();
}

}  // namespace payslate::ado
