// The rows of one statement, stepped one at a time.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/ado/Provider.h"
#include "platform/ado/ReadAhead.h"
#include "platform/sqlite/DatabaseFile.h"
#include "platform/sqlite/Plans.h"

namespace payslate::sqlite {

/// A query, ready to run.
struct PreparedQuery {
  std::shared_ptr<const Plan> plan;
  std::unique_ptr<Statement> statement;
};

/// Prepares queries by the catalog as it is.
class QueryPreparer {
 public:
  virtual ~QueryPreparer() = default;
  virtual PreparedQuery prepareAgain(const std::string& text) = 0;
};

class RowCursor : public ado::Cursor {
 public:
  /// The preparer, which is asked where the tables change before the first row, must outlive the file.
  RowCursor(DatabaseFile& file, QueryPreparer& preparer, std::string_view text, PreparedQuery query);
  ~RowCursor() override;
  RowCursor(const RowCursor&) = delete;
  RowCursor& operator=(const RowCursor&) = delete;

  [[nodiscard]] const std::vector<ado::Column>& columns() const override { return plan_->columns; }
  bool next() override;
  [[nodiscard]] basic::Value value(std::size_t column) const override;

  /// Reads the remaining rows into memory and lets go of the database. Nothing to do before the first row.
  void settle();
  /// Its database goes away.
  void detach();

 private:
  enum class State { Fresh, Stepping, Settled, Done, Detached };

  bool firstStep();
  [[nodiscard]] basic::Value stored(std::size_t column) const;
  [[nodiscard]] ado::ReadAhead::Row readRow() const;

  DatabaseFile* file_;
  QueryPreparer& preparer_;
  std::string text_;
  std::shared_ptr<const Plan> plan_;
  std::unique_ptr<Statement> statement_;
  State state_ = State::Fresh;
  std::optional<ado::ReadAhead::Row> current_;  // Settled cursors only.
  ado::ReadAhead pending_;                      // Likewise.
};

}  // namespace payslate::sqlite
