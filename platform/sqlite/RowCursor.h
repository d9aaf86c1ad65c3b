// The rows of one statement, stepped one at a time.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/ado/Provider.h"
#include "platform/ado/ReadAhead.h"
#include "platform/sqlite/DatabaseFile.h"
#include "platform/tsql/Ast.h"

namespace payslate::sqlite {

class RowCursor : public ado::Cursor {
 public:
  RowCursor(DatabaseFile& file, std::unique_ptr<Statement> statement,
            const std::vector<tsql::OutputColumn>& columns);
  ~RowCursor() override;
  RowCursor(const RowCursor&) = delete;
  RowCursor& operator=(const RowCursor&) = delete;

  [[nodiscard]] const std::vector<ado::Column>& columns() const override { return columns_; }
  bool next() override;
  [[nodiscard]] basic::Value value(std::size_t column) const override;

  /// Reads the remaining rows into memory and lets go of the database. Nothing to do before the first row.
  void settle();
  /// Its database goes away.
  void detach();

 private:
  enum class State { Fresh, Stepping, Settled, Done, Detached };

  [[nodiscard]] basic::Value stored(std::size_t column) const;
  [[nodiscard]] ado::ReadAhead::Row readRow() const;

  DatabaseFile* file_;
  std::unique_ptr<Statement> statement_;
  std::vector<ado::Column> columns_;
  State state_ = State::Fresh;
  std::optional<ado::ReadAhead::Row> current_;  // Settled cursors only.
  ado::ReadAhead pending_;                      // Likewise.
};

}  // namespace payslate::sqlite
