// The provider: statements go to the server as they are; rows of a table through parameters.
#include "platform/odbc/OdbcProvider.h"

#include <algorithm>
#include <map>

#include "platform/odbc/ResultCursor.h"
#include "platform/odbc/SelectedTable.h"
#include "platform/odbc/Session.h"

namespace payslate::odbc {
namespace {

constexpr const char* source = "payslate.odbc";
constexpr std::int32_t noTransactionToRollBack = 3903;

[[noreturn]] void refuse(const std::string& sentence, const char* sqlState) {
  throw ado::Error(sentence, sqlState, source);
}

class OdbcProvider final : public ado::Provider {
 public:
  explicit OdbcProvider(const ConnectionString& connection) : session_(connection) {}

  ~OdbcProvider() override {
    try {
      if (inTransaction_) OdbcProvider::rollback();
    } catch (const ado::Error&) {
      // The server rolls back what a connection leaves open.
    }
  }
  OdbcProvider(const OdbcProvider&) = delete;
  OdbcProvider& operator=(const OdbcProvider&) = delete;

  std::unique_ptr<ado::Cursor> execute(std::string_view statement) override {
    returnToAutoCommit();
    const bool query = beginsWith(statement, "select");
    // Whoever computes with a query must not change anything by it.
    if (query && holdsSecondStatement(statement))
      refuse("The text holds a second statement behind its semicolon; it was not sent.", "42000");
    Session::Result result = session_.run(statement);
    if (result.columns == 0) return nullptr;
    return std::make_unique<ResultCursor>(session_, std::move(result), query ? std::string(statement) : "");
  }

  void begin() override {
    if (inTransaction_) refuse("A transaction is open already.", "25001");
    returnToAutoCommit();
    session_.settleCursors();
    session_.setAutoCommit(false);
    autoCommit_ = false;
    inTransaction_ = true;
  }

  void commit() override {
    if (!inTransaction_) refuse("There is no transaction to commit.", "25000");
    session_.settleCursors();
    session_.endTransaction(true);
    leaveTransaction();
  }

  void rollback() override {
    if (!inTransaction_) refuse("There is no transaction to roll back.", "25000");
    if (!session_.isLost()) {
      session_.settleCursors();
      try {
        session_.endTransaction(false);
      } catch (const ado::Error& error) {
        // A server that chose this transaction as its victim has rolled it back already.
        if (error.NativeError != noTransactionToRollBack && !session_.isLost()) throw;
      }
    }
    leaveTransaction();
  }

  std::optional<std::string> baseTable(std::string_view statement) override {
    return selectedTable(statement);
  }

  std::vector<std::string> key(const std::string& table) override {
    const auto known = keys_.find(table);
    if (known != keys_.end()) return known->second;
    returnToAutoCommit();
    return keys_[table] = session_.keyColumns(table);
  }

  void insert(const std::string& table, const std::vector<ado::Assignment>& row) override {
    returnToAutoCommit();
    std::string names;
    std::string places;
    for (const ado::Assignment& assignment : row) {
      names += (names.empty() ? "" : ", ") + session_.quoted(assignment.column);
      places += places.empty() ? "?" : ", ?";
    }
    session_.run(row.empty() ? "insert into " + table + " default values"
                             : "insert into " + table + " (" + names + ") values (" + places + ")",
                 valuesOf(row));
  }

  void update(const std::string& table, const std::vector<ado::Assignment>& key,
              const std::vector<ado::Assignment>& row) override {
    if (key.empty()) refuse("The table " + table + " has no primary key to find the row by.", "HY000");
    if (row.empty()) return;
    returnToAutoCommit();
    std::vector<basic::Value> values = valuesOf(row);
    const std::vector<basic::Value> place = valuesOf(key);
    values.insert(values.end(), place.begin(), place.end());
    const Session::Result result = session_.run(
        "update " + table + " set " + listed(row, ", ") + " where " + listed(key, " and "), values);
    if (result.changedRows == 0)
      refuse("The row of " + table + " is not there any more: another user has deleted it.", "HY000");
  }

 private:
  static std::vector<basic::Value> valuesOf(const std::vector<ado::Assignment>& assignments) {
    std::vector<basic::Value> values;
    values.reserve(assignments.size());
    for (const ado::Assignment& assignment : assignments) values.push_back(assignment.value);
    return values;
  }

  [[nodiscard]] std::string listed(const std::vector<ado::Assignment>& assignments,
                                   const char* between) const {
    std::string list;
    for (const ado::Assignment& assignment : assignments)
      list += (list.empty() ? "" : between) + session_.quoted(assignment.column) + " = ?";
    return list;
  }

  // The transaction has ended, whatever becomes of this: the next request tries again, and reports.
  void leaveTransaction() {
    inTransaction_ = false;
    try {
      returnToAutoCommit();
    } catch (const ado::Error&) {
      autoCommit_ = false;
    }
  }

  // On the way back drivers roll back what they take for open. Where the server has done it already they fail
  // and stay: they are given something to roll back.
  void returnToAutoCommit() {
    if (autoCommit_ || inTransaction_) return;
    try {
      session_.setAutoCommit(true);
    } catch (const ado::Error& error) {
      if (error.NativeError != noTransactionToRollBack) throw;
      session_.run("begin transaction");
      session_.setAutoCommit(true);
    }
    autoCommit_ = true;
  }

  Session session_;
  std::map<std::string, std::vector<std::string>> keys_;
  bool inTransaction_ = false;
  bool autoCommit_ = true;  ///< Of the driver; outside of transactions it must be.
};

}  // namespace

ado::ProviderEntry providerEntry() {
  ado::ProviderEntry entry;
  entry.name = "ODBC (Driver=, DSN= or Server=)";
  entry.accepts = [](std::string_view connection) {
    const ConnectionString parsed{std::string(connection)};
    return parsed.has("driver") || parsed.has("dsn") || parsed.has("filedsn") || parsed.has("server");
  };
  entry.open = [](const std::string& connection) -> std::unique_ptr<ado::Provider> {
    return std::make_unique<OdbcProvider>(ConnectionString(connection));
  };
  return entry;
}

}  // namespace payslate::odbc
