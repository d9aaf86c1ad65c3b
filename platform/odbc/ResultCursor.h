// The rows of one statement, fetched one at a time.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/ado/Provider.h"
#include "platform/ado/ReadAhead.h"
#include "platform/odbc/ServerSession.h"

namespace payslate::odbc {

class ResultCursor : public ado::Cursor {
 public:
  /// `statement` is kept when the rows can be asked for again: a query that nobody has read from makes room
  /// for other statements, and is sent once more when somebody does.
  ResultCursor(ServerSession& session, ServerSession::Result result, std::string statement);
  ~ResultCursor() override;
  ResultCursor(const ResultCursor&) = delete;
  ResultCursor& operator=(const ResultCursor&) = delete;

  [[nodiscard]] const std::vector<ado::Column>& columns() const override { return columns_; }
  bool next() override;
  [[nodiscard]] basic::Value value(std::size_t column) const override;

  /// Lets go of the connection: remaining rows are read into memory, a query not read from is given up for
  /// now. An error among the rows is kept for their reader; the session hears of it at once.
  void settle();
  /// Its connection goes away.
  void detach();

 private:
  enum class State { Fresh, GivenUp, Reading, Settled, Done, Detached };

  void describe(std::int16_t count);
  std::optional<ado::ReadAhead::Row> fetch();
  void findFailure();
  [[nodiscard]] basic::Value read(std::size_t column) const;
  [[nodiscard]] std::string readText(std::size_t column, bool& isNull) const;

  ServerSession* session_;
  std::unique_ptr<Handle> handle_;
  std::string statement_;
  std::vector<ado::Column> columns_;
  State state_ = State::Fresh;
  std::optional<ado::ReadAhead::Row> current_;
  ado::ReadAhead pending_;  // of settled cursors
};

}  // namespace payslate::odbc
