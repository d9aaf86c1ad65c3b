// Stepping and reading ahead.
#include "platform/sqlite/RowCursor.h"

#include <algorithm>
#include <utility>

#include "platform/basic/Error.h"
#include "platform/sqlite/Values.h"

namespace payslate::sqlite {

RowCursor::RowCursor(DatabaseFile& file, QueryPreparer& preparer, std::string_view text, PreparedQuery query)
    : file_(&file),
      preparer_(preparer),
      text_(text),
      plan_(std::move(query.plan)),
      statement_(std::move(query.statement)) {
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
  const bool first = state_ == State::Fresh;
  state_ = State::Done;
  if (!(first ? firstStep() : statement_->step())) {
    statement_.reset();
    return false;
  }
  state_ = State::Stepping;
  return true;
}

// Between the query and its first row another program may have changed the tables.
bool RowCursor::firstStep() {
  constexpr int mostTries = 10;
  for (int tries = 1;; ++tries) {
    try {
      return statement_->step();
    } catch (const CatalogChanged&) {
      PreparedQuery again = preparer_.prepareAgain(text_);
      const bool same = again.plan && std::equal(again.plan->columns.begin(), again.plan->columns.end(),
                                                 plan_->columns.begin(), plan_->columns.end(),
                                                 [](const ado::Column& left, const ado::Column& right) {
                                                   return left.name == right.name && left.type == right.type;
                                                 });
      if (!same || tries == mostTries)
        throw ado::Error("The tables were changed by another program while they were read: ask again.",
                         "40001", "payslate.sqlite");
      plan_ = std::move(again.plan);
      statement_ = std::move(again.statement);
    }
  }
}

basic::Value RowCursor::value(std::size_t column) const {
  if (column >= plan_->columns.size() || (state_ != State::Stepping && state_ != State::Settled)) {
    throw ado::Error("There is no current row to read from.", tsql::state::general, "payslate.sqlite");
  }
  if (state_ == State::Settled) return (*current_)[column];
  return stored(column);
}

basic::Value RowCursor::stored(std::size_t column) const {
  try {
    return toValue(statement_->column(column), plan_->columns[column].type);
  } catch (const basic::ValueError&) {
    throw file_->damage("a stored value");
  }
}

ado::ReadAhead::Row RowCursor::readRow() const {
  ado::ReadAhead::Row row;
  row.reserve(plan_->columns.size());
  for (std::size_t i = 0; i < plan_->columns.size(); ++i) row.push_back(stored(i));
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
