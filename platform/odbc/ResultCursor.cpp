// Describing, fetching and reading ahead.
#include "platform/odbc/ResultCursor.h"

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <cmath>
#include <utility>

#include "platform/basic/Error.h"
#include "platform/odbc/Moments.h"
#include "platform/odbc/SelectedTable.h"
#include "platform/odbc/WideText.h"

namespace payslate::odbc {
namespace {

constexpr const char* source = "payslate.odbc";
constexpr SQLSMALLINT longestName = 256;
constexpr std::size_t textPiece = 4096;
constexpr std::size_t mostTextBytes = 1 << 24;  // Some drivers find no end of a text.

[[noreturn]] void refuseValue(const char* why) {
  throw basic::ValueError(basic::ErrorKind::TypeMismatch, why);
}

ado::ColumnType columnType(SQLSMALLINT type) {
  switch (type) {
    case SQL_BIT:
      return ado::ColumnType::Boolean;
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return ado::ColumnType::Integer;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return ado::ColumnType::Decimal;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return ado::ColumnType::Double;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return ado::ColumnType::Date;
    default:
      return ado::ColumnType::Text;
  }
}

}  // namespace

ResultCursor::ResultCursor(ServerSession& session, ServerSession::Result result, std::string statement)
    : session_(&session), handle_(std::move(result.statement)), statement_(std::move(statement)) {
  describe(result.columns);
  session.enter(*this);
}

ResultCursor::~ResultCursor() {
  if (session_ != nullptr) session_->leave(*this);
}

void ResultCursor::describe(std::int16_t count) {
  for (SQLUSMALLINT number = 1; number <= static_cast<SQLUSMALLINT>(count); ++number) {
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    SQLULEN size = 0;
    std::string name;
    if (session_->isWide()) {
      std::array<SQLWCHAR, longestName> text{};
      session_->check(SQLDescribeColW(handle_->get(), number, text.data(), longestName, &length, &type, &size,
                                      &digits, &nullable),
                      *handle_);
      name = textIn(text, length);
    } else {
      std::array<SQLCHAR, longestName> text{};
      session_->check(SQLDescribeCol(handle_->get(), number, text.data(), longestName, &length, &type, &size,
                                     &digits, &nullable),
                      *handle_);
      name = textIn(text, length);
    }
    columns_.push_back({std::move(name), columnType(type)});
  }
}

bool ResultCursor::next() {
  if (state_ == State::Detached) throw ado::Error("The connection of these rows is closed.", "08003", source);
  if (state_ == State::Done) return false;
  if (state_ == State::GivenUp) handle_ = session_->run(statement_).statement;
  const State reading = state_ == State::Settled ? State::Settled : State::Reading;
  state_ = State::Done;  // Where an error leaves it.
  current_.reset();
  current_ = reading == State::Settled ? pending_.take() : fetch();
  if (current_) state_ = reading;
  return current_.has_value();
}

// Columns are read once and from the left: not every driver can do it another way.
std::optional<ado::ReadAhead::Row> ResultCursor::fetch() {
  const SQLRETURN code = SQLFetch(handle_->get());
  session_->check(code, *handle_);
  if (code == SQL_NO_DATA) {
    std::int16_t columns = 0;
    // An error behind the rows is one of this statement; rows behind them are another statement's.
    while (columns == 0 && session_->nextResult(*handle_)) columns = session_->columnCount(*handle_);
    handle_.reset();
    if (columns > 0)
      throw ado::Error("The text holds more than one statement that gives rows.", "42000", source);
    return std::nullopt;
  }
  ado::ReadAhead::Row row(columns_.size());
  for (std::size_t column = 0; column < row.size(); ++column) {
    try {
      row[column] = read(column);
    } catch (const basic::ValueError& error) {
      throw ado::Error("The column " + columns_[column].name + " cannot be read: " + error.what(), "22018",
                       source);
    }
  }
  return row;
}

basic::Value ResultCursor::value(std::size_t column) const {
  if (column >= columns_.size() || !current_)
    throw ado::Error("There is no current row to read from.", "HY000", source);
  return (*current_)[column];
}

basic::Value ResultCursor::read(std::size_t column) const {
  const auto number = static_cast<SQLUSMALLINT>(column + 1);
  SQLLEN length = 0;
  const auto get = [&](SQLSMALLINT as, auto& target) {
    const SQLRETURN code = SQLGetData(handle_->get(), number, as, &target, sizeof target, &length);
    session_->check(code, *handle_);
    if (code == SQL_NO_DATA || (length < 0 && length != SQL_NULL_DATA))
      refuseValue("the driver gives no value");
    return length != SQL_NULL_DATA;
  };
  switch (columns_[column].type) {
    case ado::ColumnType::Boolean: {
      unsigned char flag = 0;
      return get(SQL_C_BIT, flag) ? basic::Value(flag != 0) : basic::Null{};
    }
    case ado::ColumnType::Integer: {
      std::int64_t whole = 0;
      return get(SQL_C_SBIGINT, whole) ? basic::Value(whole) : basic::Null{};
    }
    case ado::ColumnType::Double: {
      double figure = 0;
      if (!get(SQL_C_DOUBLE, figure)) return basic::Null{};
      if (!std::isfinite(figure)) refuseValue("it is no number");
      return figure;
    }
    case ado::ColumnType::Date: {
      SQL_TIMESTAMP_STRUCT moment{};
      return get(SQL_C_TYPE_TIMESTAMP, moment) ? basic::Value(dateOf(moment)) : basic::Null{};
    }
    case ado::ColumnType::Decimal:
    case ado::ColumnType::Text:
      break;
  }
  bool isNull = false;
  std::string text = readText(column, isNull);
  if (isNull) return basic::Null{};
  if (columns_[column].type == ado::ColumnType::Text) return text;
  return basic::Decimal::parse(text);
}

// Long texts come in pieces; each ends with a zero that belongs to nobody.
std::string ResultCursor::readText(std::size_t column, bool& isNull) const {
  const auto number = static_cast<SQLUSMALLINT>(column + 1);
  const bool wide = session_->isWide() && columns_[column].type == ado::ColumnType::Text;
  const std::size_t unit = wide ? sizeof(SQLWCHAR) : 1;
  std::string narrowText;
  std::u16string wideText;
  alignas(char16_t) std::array<char, textPiece> piece{};
  for (;;) {
    SQLLEN length = 0;
    const SQLRETURN code = SQLGetData(handle_->get(), number, wide ? SQL_C_WCHAR : SQL_C_CHAR, piece.data(),
                                      static_cast<SQLLEN>(piece.size()), &length);
    session_->check(code, *handle_);
    if (code == SQL_NO_DATA) break;
    isNull = length == SQL_NULL_DATA && narrowText.empty() && wideText.empty();
    if (isNull) break;
    if (length < 0 && length != SQL_NO_TOTAL) refuseValue("the driver gives its text no length");
    const std::size_t room = piece.size() - unit;
    const bool more = length == SQL_NO_TOTAL || static_cast<std::size_t>(length) > room;
    const std::size_t count = (more ? room : static_cast<std::size_t>(length)) / unit;
    if (wide) {
      const auto* units = reinterpret_cast<const char16_t*>(piece.data());
      wideText.append(units, count);
    } else {
      narrowText.append(piece.data(), count);
    }
    if (!more) break;
    if (narrowText.size() + wideText.size() > mostTextBytes) refuseValue("the text has no end");
  }
  return wide ? fromWide(wideText) : narrowText;
}

void ResultCursor::settle() {
  if (state_ == State::Fresh && !statement_.empty()) {
    // What has ended a transaction must not be dropped with the rows.
    if (session_->inTransaction()) findFailure();
    handle_.reset();
    state_ = State::GivenUp;
    return;
  }
  if (state_ != State::Fresh && state_ != State::Reading) return;
  pending_.fill([this] { return fetch(); });
  handle_.reset();
  state_ = State::Settled;
}

// A server reports it with the first rows. The session keeps it; the cursor asks anew.
void ResultCursor::findFailure() {
  try {
    fetch();
  } catch (const ado::Error&) {
    return;
  }
}

void ResultCursor::detach() {
  handle_.reset();
  current_.reset();
  session_ = nullptr;
  state_ = State::Detached;
}

}  // namespace payslate::odbc
