// What a database implements to stand behind a Connection.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/basic/Value.h"

namespace payslate::ado {

enum class ColumnType { Boolean, Integer, Decimal, Double, Date, Text };

struct Column {
  std::string name;  ///< As the statement or the table names it; empty for an expression without alias.
  ColumnType type = ColumnType::Text;
};

/// Rows of one statement, fetched one at a time when asked: creating a cursor checks the statement and reads
/// nothing. Values come in the kind of their column (Null whatever the kind). A cursor outlives neither its
/// provider nor a rollback.
class Cursor {
 public:
  virtual ~Cursor() = default;
  [[nodiscard]] virtual const std::vector<Column>& columns() const = 0;
  /// Moves to the next row; false behind the last one, and from then on.
  virtual bool next() = 0;
  /// Value of the current row. Only after next() returned true.
  [[nodiscard]] virtual basic::Value value(std::size_t column) const = 0;
};

struct Assignment {
  std::string column;
  basic::Value value;
};

/// One open database. Every failure is an ado::Error, after which the provider stays usable; in a transaction
/// that the failure ended, or may have ended, for a rollback alone: all else repeats the failure.
class Provider {
 public:
  virtual ~Provider() = default;

  /// Runs a statement. One that returns rows yields its cursor (nothing read yet); any other has run when
  /// this returns, and yields null. One statement a text: a second one behind a select, insert,
  /// update or delete is an error.
  virtual std::unique_ptr<Cursor> execute(std::string_view statement) = 0;
  /// How many rows the insert, update or delete changed that `execute` ran last; nothing when the database
  /// does not tell.
  [[nodiscard]] virtual std::optional<std::uint64_t> changedRows() const { return std::nullopt; }

  virtual void begin() = 0;   ///< Error when a transaction is open already; likewise below when none is.
  virtual void commit() = 0;  ///< When it fails, the transaction is still open.
  /// A database that has rolled back by itself, or cannot be reached any more: no error.
  virtual void rollback() = 0;
  /// From begin to commit or rollback, whatever the database did meanwhile.
  [[nodiscard]] virtual bool inTransaction() const = 0;

  /// The table behind a statement of the form "select * from TABLE [where …]", whose rows a recordset may add
  /// and rewrite; nothing when `statement` does not read all columns of exactly one table. Reads no row.
  virtual std::optional<std::string> baseTable(std::string_view statement) = 0;
  /// Columns of the table's primary key, in order; none when it has no key.
  virtual std::vector<std::string> key(const std::string& table) = 0;
  /// Inserts one row with the assigned columns only. Values are converted to the column's type or refused.
  virtual void insert(const std::string& table, const std::vector<Assignment>& row) = 0;
  /// Rewrites the one row whose key columns have these values. Refused when it is not there any more.
  virtual void update(const std::string& table, const std::vector<Assignment>& key,
                      const std::vector<Assignment>& row) = 0;
};

/// One kind of database: which connection strings are for it, and how it is opened.
struct ProviderEntry {
  std::string name;                                          ///< For messages.
  std::function<bool(std::string_view connection)> accepts;  ///< Is this connection string for it?
  std::function<std::unique_ptr<Provider>(const std::string& connection)> open;
};

/// Who is asked first whether a connection string is for it.
enum class ProviderRank {
  Program,  ///< What a program puts in the place of others: asked first, the latest first.
  BuiltIn,  ///< What it was built with: asked after those, in the order in which they registered.
};

/// May be called while static objects are made.
void registerProvider(ProviderEntry entry, ProviderRank rank = ProviderRank::Program);
/// Opens through the first provider that accepts the string; ado::Error when none does, or when the program
/// knows no database at all.
std::unique_ptr<Provider> openProvider(const std::string& connection);

}  // namespace payslate::ado
