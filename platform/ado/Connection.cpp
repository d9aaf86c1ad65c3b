// Connections: state, statements, transactions.
#include "platform/ado/Connection.h"

#include <algorithm>

#include "platform/ado/Provider.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/Session.h"

namespace payslate::ado {

std::shared_ptr<CursorSlot> Session::keep(std::unique_ptr<Cursor> cursor) {
  std::erase_if(slots_, [](const std::weak_ptr<CursorSlot>& slot) { return slot.expired(); });
  auto slot = std::make_shared<CursorSlot>();
  slot->cursor = std::move(cursor);
  slots_.push_back(slot);
  return slot;
}

void Session::dropCursors(const std::string& reason) {
  for (const std::weak_ptr<CursorSlot>& weak : slots_) {
    const std::shared_ptr<CursorSlot> slot = weak.lock();
    if (!slot || !slot->cursor) continue;
    slot->cursor.reset();
    slot->lostBy = reason;
  }
  slots_.clear();
}

Connection::Connection() = default;

Connection::~Connection() {
  try {
    Close();
  } catch (const Error&) {
    // A rollback that fails here changes nothing: what was not committed ends with the provider.
  }
}

void Connection::Open(const std::string& connectionString) {
  if (session_) throw Error("The connection is open already", "08002");
  auto session = std::make_shared<Session>();
  session->provider = openProvider(connectionString);
  session_ = std::move(session);
}

void Connection::Close() {
  if (!session_) return;
  const std::shared_ptr<Session> closing = std::move(session_);
  session_.reset();
  closing->dropCursors("the connection was closed");
  if (closing->inTransaction) closing->provider->rollback();
}

ObjectState Connection::State() const {
  return session_ ? ObjectState::Open : ObjectState::Closed;
}

Session& Connection::session(std::string_view forWhat) const {
  if (!session_) throw Error("The connection is closed: cannot " + std::string(forWhat), "08003");
  return *session_;
}

Recordset Connection::Execute(const std::string& commandText) {
  session("run a statement");  // the message names the caller
  Recordset result;
  result.send(commandText, *this, CursorType::ForwardOnly, LockType::ReadOnly);
  return result;
}

void Connection::BeginTrans() {
  Session& open = session("begin a transaction");
  if (open.inTransaction) throw Error("A transaction is open already", "25001");
  open.provider->begin();
  open.inTransaction = true;
}

void Connection::CommitTrans() {
  Session& open = session("commit");
  if (!open.inTransaction) throw Error("There is no transaction to commit", "25000");
  open.provider->commit();
  open.inTransaction = false;
}

void Connection::RollbackTrans() {
  Session& open = session("roll back");
  if (!open.inTransaction) throw Error("There is no transaction to roll back", "25000");
  open.dropCursors("the transaction was rolled back");
  open.provider->rollback();
  open.inTransaction = false;
}

bool Connection::InTransaction() const {
  return session_ && session_->inTransaction;
}

}  // namespace payslate::ado
