// A connection to one database.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/ado/Error.h"

namespace payslate::ado {

class Recordset;
struct OpenDatabase;

enum class ObjectState { Closed = 0, Open = 1 };

/// Created closed. Not copyable; shared between a host and the component by std::shared_ptr.
class Connection {
 public:
  Connection();
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// `:memory:` or a file path opens the embedded engine (an existing file; "PATH;Create=True" also makes a
  /// new one); other strings are for the provider that accepts them. Error when already open, when no
  /// provider accepts the string, or when the database cannot be opened.
  void Open(const std::string& connectionString);
  /// Rolls back an open transaction. Recordsets still open on it keep the rows they have read and fail where
  /// they need another. Closing a closed connection does nothing.
  void Close();
  [[nodiscard]] ObjectState State() const;

  /// Runs one statement; a closed recordset comes back when it returns no rows.
  Recordset Execute(const std::string& commandText);

  void BeginTrans();   ///< Error when one is open already: transactions do not nest.
  void CommitTrans();  ///< When it fails, the transaction is still open: roll it back.
  /// Recordsets open on the connection keep the rows they have read and fail where they need another.
  void RollbackTrans();
  /// Also when a failure made the database end the transaction by itself: until RollbackTrans, everything
  /// that is asked for repeats that failure, so that nobody carries on and stores the half.
  [[nodiscard]] bool InTransaction() const;

  /// Told of every statement that is sent, before it is: texts, and "insert TABLE" or "update TABLE" for rows
  /// written through a recordset. Transaction commands are not statements;
  /// what a provider sends once more for its driver's sake is not told again.
  std::function<void(std::string_view statement)> StatementSent;

 private:
  friend class Recordset;
  OpenDatabase& database(std::string_view forWhat) const;  // Error when closed.
  std::shared_ptr<OpenDatabase> database_;
};

}  // namespace payslate::ado
