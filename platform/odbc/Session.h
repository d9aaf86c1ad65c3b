// One open connection to a server: what its driver can do, its statements, and who is reading from it.
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/Error.h"
#include "platform/basic/Value.h"
#include "platform/odbc/ConnectionString.h"
#include "platform/odbc/Handle.h"

namespace payslate::odbc {

class ResultCursor;

/// Not for several threads at once.
class Session {
 public:
  /// ado::Error that names what the server or the driver manager refused, and never a password.
  explicit Session(const ConnectionString& connection);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Runs a statement, with `parameters` for its question marks. The handle stands on the first result that
  /// has columns; on none when it has none.
  struct Result {
    std::unique_ptr<Handle> statement;
    std::int16_t columns = 0;
    std::int64_t changedRows = -1;  ///< Of a statement without columns; -1 when the server does not say.
  };
  Result run(std::string_view text, const std::vector<basic::Value>& parameters = {});
  /// Moves to the statement's next result; false when there is none. Reports what failed behind the first
  /// one.
  bool nextResult(const Handle& statement) const;
  /// Columns of a table's primary key, in their order.
  std::vector<std::string> keyColumns(const std::string& table);

  void setAutoCommit(bool on);
  void endTransaction(bool commit);
  [[nodiscard]] bool isLost() const;

  /// Does the driver take and give UTF-16? One that does not gets UTF-8.
  [[nodiscard]] bool isWide() const { return wide_; }
  /// Between its letters and the brackets of a name.
  [[nodiscard]] std::string quoted(const std::string& name) const;

  /// The rows that open cursors have not read are read into memory, or their statements given up until they
  /// are asked for: for what the driver cannot do beside them.
  void settleCursors();
  void enter(ResultCursor& cursor) { cursors_.insert(&cursor); }
  void leave(ResultCursor& cursor) { cursors_.erase(&cursor); }

  /// Throws what `code`, the answer of a call on this handle, stands for; does nothing for success.
  void check(std::int16_t code, const Handle& handle) const;

 private:
  void connect(const ConnectionString& connection);
  void askDriver();
  [[nodiscard]] bool keepsWideText() const;
  [[nodiscard]] ado::Error error(const Handle& handle) const;
  std::unique_ptr<Handle> newStatement();

  ConnectionString connection_;
  Handle environment_;
  Handle handle_;
  std::set<ResultCursor*> cursors_;
  std::string quote_ = "\"";
  bool connected_ = false;
  bool wide_ = true;
  bool oneStatementAtATime_ = false;
};

}  // namespace payslate::odbc
