// The provider: statements go to the server as they are; rows of a table through parameters.
#include "platform/odbc/OdbcProvider.h"

#include <algorithm>
#include <map>

#include "platform/odbc/DriverString.h"
#include "platform/odbc/ResultCursor.h"
#include "platform/odbc/SelectedTable.h"
#include "platform/odbc/ServerSession.h"

namespace payslate::odbc {
namespace {

constexpr const char* source = "payslate.odbc";
constexpr const char* changing[] = {"insert", "update", "delete"};

[[noreturn]] void refuse(const std::string& sentence, const char* sqlState) {
  throw ado::Error(sentence, sqlState, source);
}

class OdbcProvider final : public ado::Provider {
 public:
  explicit OdbcProvider(const ado::ConnectionString& connection) : session_(connection) {}

  std::unique_ptr<ado::Cursor> execute(std::string_view statement) override {
    const bool query = beginsWith(statement, "select");
    const bool changes = std::any_of(std::begin(changing), std::end(changing),
                                     [&](const char* verb) { return beginsWith(statement, verb); });
    // Whoever computes with a query must not change anything by it.
    if ((query || changes) && holdsSecondStatement(statement))
      refuse("The text holds a second statement behind its semicolon; it was not sent.", "42000");
    if (changes) {  // Rows that triggers give are nobody's answer.
      session_.change(statement);
      return nullptr;
    }
    ServerSession::Result result = session_.run(statement);
    if (result.columns == 0) return nullptr;
    return std::make_unique<ResultCursor>(session_, std::move(result), query ? std::string(statement) : "");
  }

  void begin() override { session_.begin(); }
  void commit() override { session_.commit(); }
  void rollback() override { session_.rollback(); }
  [[nodiscard]] bool inTransaction() const override { return session_.inTransaction(); }

  std::optional<std::string> baseTable(std::string_view statement) override {
    return selectedTable(statement);
  }

  std::vector<std::string> key(const std::string& table) override {
    const auto known = keys_.find(table);
    if (known != keys_.end()) return known->second;
    return keys_[table] = session_.keyColumns(table);
  }

  void insert(const std::string& table, const std::vector<ado::Assignment>& row) override {
    std::string names;
    std::string places;
    for (const ado::Assignment& assignment : row) {
      names += (names.empty() ? "" : ", ") + session_.quoted(assignment.column);
      places += places.empty() ? "?" : ", ?";
    }
    session_.change(row.empty() ? "insert into " + table + " default values"
                                : "insert into " + table + " (" + names + ") values (" + places + ")",
                    valuesOf(row));
  }

  void update(const std::string& table, const std::vector<ado::Assignment>& key,
              const std::vector<ado::Assignment>& row) override {
    if (key.empty()) refuse("The table " + table + " has no primary key to find the row by.", "HY000");
    if (row.empty()) return;
    std::vector<basic::Value> values = valuesOf(row);
    const std::vector<basic::Value> place = valuesOf(key);
    values.insert(values.end(), place.begin(), place.end());
    const std::int64_t changed = session_.change(
        "update " + table + " set " + listed(row, ", ") + " where " + listed(key, " and "), values);
    if (changed == 0)
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

  ServerSession session_;
  std::map<std::string, std::vector<std::string>> keys_;
};

}  // namespace

ado::ProviderEntry providerEntry() {
  ado::ProviderEntry entry;
  entry.name = "ODBC (Driver=, DSN= or Server=)";
  entry.accepts = [](std::string_view connection) {
    return isForDriver(ado::ConnectionString(std::string(connection)));
  };
  entry.open = [](const std::string& connection) -> std::unique_ptr<ado::Provider> {
    return std::make_unique<OdbcProvider>(ado::ConnectionString(connection));
  };
  return entry;
}

}  // namespace payslate::odbc
