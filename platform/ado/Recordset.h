// Rows of a statement: read, added, rewritten.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "platform/ado/Connection.h"
#include "platform/basic/Value.h"

namespace payslate::ado {

enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
enum class LockType { ReadOnly = 1, Pessimistic = 2, Optimistic = 3 };

class Recordset;

/// One column of the current row. Valid while its recordset is open.
class Field {
 public:
  [[nodiscard]] const std::string& Name() const;
  /// Error when there is no current row.
  [[nodiscard]] basic::Value Value() const;
  /// Value joined to empty text (Null is ""), dates as yyyy/mm/dd.
  [[nodiscard]] std::string Text() const;
  /// Assigns to the row being added, or edits the current row; sent by Update. Error when the recordset is
  /// read-only, has no current row, or does not stand on exactly one table, and for text that is no number in
  /// a column of numbers, a number that is none, and a date outside the calendar; a refused assignment begins
  /// no edit.
  Field& operator=(basic::Value value);
  Field(const Field&) = default;
  /// Assigns the other's value, which may be its own.
  Field& operator=(const Field& other) {  // NOLINT(bugprone-unhandled-self-assignment)
    return *this = other.Value();
  }

 private:
  friend class Recordset;
  Field(Recordset& recordset, std::size_t index) : recordset_(&recordset), index_(index) {}
  Recordset* recordset_;
  std::size_t index_;
};

/// Movable. Rows are fetched when they are read, never before: opening "select * from" a large table to
/// append one row reads nothing. Closed by its destructor, where an unsent edit is dropped.
class Recordset {
 public:
  Recordset();
  ~Recordset();
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) noexcept;

  /// Checks and sends `source`. Error when the statement fails or returns no rows by its kind.
  void Open(const std::string& source, Connection& connection, CursorType cursor, LockType lock);
  void Close();
  [[nodiscard]] ObjectState State() const;

  [[nodiscard]] bool Bof();
  [[nodiscard]] bool Eof();
  /// Error when there are no rows, on a forward-only cursor that has moved on, and while an edit is not sent.
  void MoveFirst();
  void MoveNext();  ///< Error when Eof already, and while an edit is not sent.
  /// Rows in all on keyset and static cursors (reads them to the end), -1 on forward-only ones.
  [[nodiscard]] long RecordCount();

  [[nodiscard]] std::size_t FieldCount() const;
  /// By name in any letter case, or by index from 0. Error that names the field and the statement's fields.
  Field Fields(std::string_view name);
  Field Fields(std::size_t index);

  /// Starts a row of the table behind the statement; Fields are Null until assigned. Reads no row of the
  /// table. Error when the recordset is read-only or does not stand on exactly one table.
  void AddNew();
  /// Inserts the assigned columns of the added row, or rewrites the current row by its key; without an edit
  /// it does nothing. Afterwards the current row is the one from before AddNew, its values as they were
  /// assigned; rows that were added do not appear among those of an open recordset. When it fails, the edit
  /// stays: change it and send it again, or CancelUpdate.
  void Update();
  void CancelUpdate();  ///< Drops an edit that was not sent.

 private:
  friend class Field;
  friend class Connection;
  struct Rows;
  Rows& rows(std::string_view forWhat) const;  // Error when closed.
  // Stays closed when the statement returns no rows.
  void send(const std::string& source, Connection& connection, CursorType cursor, LockType lock);
  std::unique_ptr<Rows> rows_;  // Null when closed.
};

}  // namespace payslate::ado
