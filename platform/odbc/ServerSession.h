// One session on a server: its statements, its transaction, and who is reading from it.
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/Error.h"
#include "platform/ado/TransactionState.h"
#include "platform/basic/Value.h"
#include "platform/odbc/Link.h"

namespace payslate::odbc {

class Parameters;
class ResultCursor;

/// Not for several threads at once.
class ServerSession {
 public:
  /// ado::Error where the connection cannot be opened.
  explicit ServerSession(const ado::ConnectionString& connection);
  ~ServerSession();
  ServerSession(const ServerSession&) = delete;
  ServerSession& operator=(const ServerSession&) = delete;

  /// Runs a statement. The handle stands on the first result that has columns; on none when it has none.
  struct Result {
    std::unique_ptr<Handle> statement;
    std::int16_t columns = 0;
  };
  Result run(std::string_view text);
  /// Runs an insert, update or delete, with `parameters` for its question marks, to its end, whatever the
  /// table's triggers answer. How many rows it changed; -1 when the server does not say.
  std::int64_t change(std::string_view text, const std::vector<basic::Value>& parameters = {});
  /// Moves to the statement's next result; false when there is none. Reports what failed behind the first
  /// one.
  bool nextResult(const Handle& statement);
  /// Columns of a table's primary key, in their order.
  std::vector<std::string> keyColumns(const std::string& table);

  /// A server may have ended the transaction by any failure other than of a key or a name.
  void begin();
  void commit();
  void rollback();  ///< A lost connection, or a server that has done it already, is no error.
  [[nodiscard]] bool inTransaction() const { return transaction_.isOpen(); }

  [[nodiscard]] bool isWide() const { return link_.isWide(); }
  [[nodiscard]] std::string quoted(const std::string& name) const { return link_.quoted(name); }

  void enter(ResultCursor& cursor) { cursors_.insert(&cursor); }
  void leave(ResultCursor& cursor) { cursors_.erase(&cursor); }

  /// How many columns the result has on which the statement stands.
  std::int16_t columnCount(const Handle& statement);
  /// Throws what `code`, the answer of a call on this handle, stands for; does nothing for success.
  void check(std::int16_t code, const Handle& handle);

 private:
  std::unique_ptr<Handle> newStatement();
  [[nodiscard]] std::unique_ptr<Parameters> parametersOf(const std::vector<basic::Value>& values) const;
  std::int16_t send(const Handle& statement, std::string_view text) const;
  void settleCursors();
  void returnToAutoCommit();
  void leaveTransaction();

  Link link_;
  std::set<ResultCursor*> cursors_;
  ado::TransactionState transaction_;
  bool autoCommit_ = true;  ///< Of the driver; outside of transactions it must be.
};

}  // namespace payslate::odbc
