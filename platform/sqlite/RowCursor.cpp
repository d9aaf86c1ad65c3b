// Stepping and reading ahead.
#include "platform/sqlite/RowCursor.h"

#include "platform/basic/Error.h"
#include "platform/sqlite/Values.h"

namespace payslate::sqlite {

RowCursor::RowCursor(DatabaseFile& file, std::unique_ptr<Statement> statement,
                     const std::vector<tsql::OutputColumn>& columns)
    : file_(&file), statement_(std::move(statement)) {
  columns_.reserve(columns.size());
  for (const tsql::OutputColumn& column : columns) columns_.push_back({column.name, columnType(column.type)});
  file.enter(*this);
}

RowCursor::~RowCursor() {
  if (file_ != nullptr) file_->leave(*this);
}

bool RowCursor::next() {
  switch (state_) {
    case State::Detached:
      throw ado::Error("The connection of these rows is closed.", "08003", "payslate.sqlite");
    case State::Done:
      return false;
    case State::Settled:
      state_ = State::Done;  // Where an error leaves it.
      current_.reset();
      current_ = pending_.take();
      if (current_) state_ = State::Settled;
      return current_.has_value();
    case State::Fresh:
    case State::Stepping:
      break;
  }
  state_ = State::Done;
  if (!statement_->step()) {
    statement_.reset();
    return false;
  }
  state_ = State::Stepping;
  return true;
}

basic::Value RowCursor::value(std::size_t column) const {
  if (column >= columns_.size() || (state_ != State::Stepping && state_ != State::Settled)) {
    throw ado::Error("There is no current row to read from.", tsql::state::general, "payslate.sqlite");
  }
  if (state_ == State::Settled) return (*current_)[column];
  return stored(column);
}

basic::Value RowCursor::stored(std::size_t column) const {
  try {
    return toValue(statement_->column(column), columns_[column].type);
  } catch (const basic::ValueError&) {
    throw file_->damage("a stored value");
  }
}

ado::ReadAhead::Row RowCursor::readRow() const {
  ado::ReadAhead::Row row;
  row.reserve(columns_.size());
  for (std::size_t i = 0; i < columns_.size(); ++i) row.push_back(stored(i));
  return row;
}

void RowCursor::settle() {
  if (state_ != State::Stepping) return;
  current_ = readRow();
  pending_.fill([this] { return statement_->step() ? std::optional(readRow()) : std::nullopt; });
  statement_.reset();
  state_ = State::Settled;
}

void RowCursor::detach() {
  statement_.reset();
  file_ = nullptr;
  state_ = State::Detached;
}

}  // namespace payslate::sqlite
