// Asking the catalog what is there, the rows what they forbid, and then making what is missing.
#include "schema/upgrade.h"

#include <algorithm>

#include "platform/ado/Literal.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/Transaction.h"
#include "platform/basic/Numbers.h"
#include "schema/steps.h"

namespace payslate::schema {

namespace {

constexpr std::size_t mostKeysNamed = 3;
constexpr std::string_view versionTable = "pSchemaVersion";

// A link may name the schema too: dbo.t_header, [dbo].[t_header]. The catalog keeps the last part.
std::string catalogName(std::string_view physical) {
  std::string name(physical.substr(physical.rfind('.') + 1));
  std::erase_if(name,
                [](char character) { return character == '[' || character == ']' || character == '"'; });
  return "lower(" + ado::literal(name) + ")";
}

bool hasRow(ado::Connection& connection, const std::string& statement) {
  return !connection.Execute(statement).Eof();
}

bool hasTable(ado::Connection& connection, std::string_view physical) {
  return hasRow(connection, "select TABLE_NAME from INFORMATION_SCHEMA.TABLES where lower(TABLE_NAME) = " +
                                catalogName(physical));
}

bool hasIndex(ado::Connection& connection, std::string_view index, std::string_view physical) {
  return hasRow(
      connection,
      "select i.name from sys.indexes i, sys.tables t where i.object_id = t.object_id and i.is_unique = 1"
      " and lower(t.name) = " +
          catalogName(physical) + " and lower(i.name) = " + catalogName(index));
}

struct StoredKey {
  std::string constraint;  ///< Its name; empty where the table has no primary key.
  std::vector<std::string> columns;
};

StoredKey keyOf(ado::Connection& connection, std::string_view physical) {
  ado::Recordset rows = connection.Execute(
      "select k.name, u.COLUMN_NAME from sys.key_constraints k, sys.tables t, INFORMATION_SCHEMA.KEY_COLUMN_USAGE u"
      " where k.type = 'PK' and k.parent_object_id = t.object_id and u.TABLE_NAME = t.name"
      " and u.CONSTRAINT_NAME = k.name and lower(t.name) = " +
      catalogName(physical) + " order by u.ORDINAL_POSITION");
  StoredKey key;
  for (; !rows.Eof(); rows.MoveNext()) {
    key.constraint = rows.Fields(0).Text();
    key.columns.push_back(rows.Fields(1).Text());
  }
  return key;
}

bool sameName(const std::string& left, const std::string& right) {
  return basic::lower(left) == basic::lower(right);
}

bool hasKey(const StoredKey& stored, const PrimaryKey& key) {
  return std::equal(stored.columns.begin(), stored.columns.end(), key.columns.begin(), key.columns.end(),
                    sameName);
}

std::string listed(const PrimaryKey& key) {
  std::string list;
  for (const std::string& column : key.columns) list += (list.empty() ? "" : ", ") + column;
  return list;
}

// "[PK__pLoansIs__1A2B]", whatever characters the name has.
std::string bracketed(const std::string& name) {
  std::string quoted = "[";
  for (const char character : name) quoted.append(character == ']' ? 2 : 1, character);
  return quoted + ']';
}

// Every {name} becomes that table's physical name.
std::string withLinks(ado::Connection& connection, std::string_view text) {
  std::string linked;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t open = std::min(text.find('{', at), text.size());
    linked += text.substr(at, open - at);
    if (open == text.size()) break;
    const std::size_t close = text.find('}', open);
    linked += linkedTable(connection, text.substr(open + 1, close - open - 1));
    at = close + 1;
  }
  return linked;
}

// "emhempID 101, emhstartdate 2026/04/01 (2 rows)", of a row whose last field is their number.
std::string namedKey(ado::Recordset& row) {
  const std::size_t rows = row.FieldCount() - 1;
  std::string key;
  for (std::size_t field = 0; field < rows; ++field) {
    const basic::Value value = row.Fields(field).Value();
    key += (field > 0 ? ", " : "") + row.Fields(field).Name() + ' ' +
           (basic::isNull(value) ? "Null" : basic::textOf(value, "yyyy/mm/dd"));
  }
  return key + " (" + row.Fields(rows).Text() + " rows)";
}

/// One run from the version that is found to the last of the steps, inside a transaction.
class Upgrading {
 public:
  Upgrading(ado::Connection& connection, const std::vector<Step>& steps) : connection_(connection) {
    report_.from = version(connection);
    for (const Step& step : steps)
      if (step.version > report_.from) due_.push_back(&step);
  }

  [[nodiscard]] bool isDue() const { return !due_.empty(); }

  void look() {
    for (const Step* step : due_) {
      for (const UniqueIndex& index : step->indexes) look(index);
      for (const PrimaryKey& key : step->keys) look(key);
    }
  }

  void work() {
    for (const Step* step : due_) {
      for (const NewTable& table : step->tables) make(table);
      for (const UniqueIndex& index : step->indexes) make(index);
      for (const PrimaryKey& key : step->keys) make(key);
      for (const std::string_view statement : step->statements)
        connection_.Execute(withLinks(connection_, statement));
    }
    connection_.Execute("delete from " + std::string(versionTable));
    connection_.Execute("insert into " + std::string(versionTable) + " (svVersion) values (" +
                        std::to_string(due_.back()->version) + ")");
  }

  UpgradeReport& report() { return report_; }

 private:
  void look(const UniqueIndex& index) {
    const std::string physical = linkedTable(connection_, index.table);
    const std::string place =
        "The unique index " + std::string(index.name) + " cannot be made on " + physical + ": ";
    if (!isTable(place, physical) || hasIndex(connection_, index.name, physical)) return;
    lookForTwins(place, std::string(index.columns), physical + condition(index));
  }

  void look(const PrimaryKey& key) {
    const std::string physical = linkedTable(connection_, key.table);
    const std::string place = "The primary key (" + listed(key) + ") cannot be made on " + physical + ": ";
    if (!isTable(place, physical) || hasKey(keyOf(connection_, physical), key)) return;
    if (const std::string wrong = unfitColumns(key, physical); !wrong.empty()) {
      report_.forbidden.push_back(place + wrong + '.');
      return;
    }
    lookForTwins(place, listed(key), physical);
  }

  bool isTable(const std::string& place, const std::string& physical) {
    const bool is =
        hasRow(connection_, "select name from sys.tables where lower(name) = " + catalogName(physical));
    if (!is) report_.forbidden.push_back(place + "it is no table of this database.");
    return is;
  }

  // "the column liID allows Null, the column x is missing"
  std::string unfitColumns(const PrimaryKey& key, const std::string& physical) {
    std::string wrong;
    for (const std::string& column : key.columns) {
      ado::Recordset row = connection_.Execute(
          "select IS_NULLABLE from INFORMATION_SCHEMA.COLUMNS where lower(TABLE_NAME) = " +
          catalogName(physical) + " and lower(COLUMN_NAME) = lower(" + ado::literal(column) + ")");
      const bool missing = row.Eof();
      if (!missing && row.Fields(0).Text() == "NO") continue;
      wrong += (wrong.empty() ? "the column " : ", the column ") + column +
               (missing ? " is missing" : " allows Null");
    }
    return wrong;
  }

  // Rows with the same values in these columns.
  void lookForTwins(const std::string& place, const std::string& columns, const std::string& rows) {
    ado::Recordset twice =
        connection_.Execute("select " + columns + ", count(*) from " + rows + " group by " + columns +
                            " having count(*) > 1 order by " + columns);
    std::size_t keys = 0;
    std::string named;
    for (; !twice.Eof(); twice.MoveNext())
      if (++keys <= mostKeysNamed) named += (keys > 1 ? "; " : "") + namedKey(twice);
    if (keys == 0) return;
    if (keys > mostKeysNamed) named += "; and " + std::to_string(keys - mostKeysNamed) + " more";
    report_.forbidden.push_back(place + std::to_string(keys) + (keys == 1 ? " key is" : " keys are") +
                                " there more than once: " + named + ".");
  }

  static std::string condition(const UniqueIndex& index) {
    return index.where.empty() ? "" : " where " + std::string(index.where);
  }

  void make(const NewTable& table) {
    const bool linked = table.name == NewTable::Name::Linked;
    const std::string physical = linked ? linkedTable(connection_, table.table) : std::string(table.table);
    if (linked && !hasRow(connection_,
                          "select tablename from linkTable where tablename = " + ado::literal(table.table))) {
      connection_.Execute("insert into linkTable (tablename, linktablename) values (" +
                          ado::literal(table.table) + ", " + ado::literal(physical) + ")");
    }
    if (hasTable(connection_, physical)) return;
    connection_.Execute("create table " + physical + " (" + std::string(table.definition) + ")");
    report_.made.push_back("the table " + physical);
  }

  void make(const UniqueIndex& index) {
    const std::string physical = linkedTable(connection_, index.table);
    if (hasIndex(connection_, index.name, physical)) return;
    connection_.Execute("create unique index " + std::string(index.name) + " on " + physical + " (" +
                        std::string(index.columns) + ")" + condition(index));
    report_.made.push_back("the unique index " + std::string(index.name) + " on " + physical);
  }

  void make(const PrimaryKey& key) {
    const std::string physical = linkedTable(connection_, key.table);
    const StoredKey stored = keyOf(connection_, physical);
    if (hasKey(stored, key)) return;
    const std::string change = "alter table " + physical;
    if (!stored.constraint.empty())
      connection_.Execute(change + " drop constraint " + bracketed(stored.constraint));
    connection_.Execute(change + " add primary key (" + listed(key) + ")");
    report_.made.push_back("the primary key (" + listed(key) + ") on " + physical);
  }

  ado::Connection& connection_;
  std::vector<const Step*> due_;
  UpgradeReport report_;
};

}  // namespace

int presentVersion() {
  return steps().back().version;
}

int version(ado::Connection& connection) {
  if (!hasTable(connection, versionTable)) return 0;
  ado::Recordset row = connection.Execute("select max(svVersion) from " + std::string(versionTable));
  const basic::Value number = row.Fields(0).Value();
  return basic::isNull(number) ? 0 : static_cast<int>(basic::CLng(number));
}

std::string linkedTable(ado::Connection& connection, std::string_view logical) {
  ado::Recordset rows =
      connection.Execute("select linktablename from linkTable where tablename = " + ado::literal(logical));
  const std::string physical = rows.Eof() ? "" : basic::Trim(rows.Fields(0).Text());
  return physical.empty() ? std::string(logical) : physical;
}

UpgradeReport upgradeBy(const std::vector<Step>& steps, ado::Connection& connection) {
  ado::Transaction transaction(connection);
  Upgrading upgrading(connection, steps);
  if (!upgrading.isDue()) return upgrading.report();
  upgrading.look();
  if (!upgrading.report().forbidden.empty()) return upgrading.report();
  upgrading.work();
  transaction.commit();
  return upgrading.report();
}

UpgradeReport upgrade(ado::Connection& connection) {
  return upgradeBy(steps(), connection);
}

}  // namespace payslate::schema
