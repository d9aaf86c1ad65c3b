// The steps from one version of the schema to the next. Not for callers of this layer.
#pragma once

#include <string_view>
#include <vector>

#include "platform/ado/Connection.h"
#include "schema/upgrade.h"

namespace payslate::schema {

/// A table that a step brings. One that is there already stays as it is.
struct NewTable {
  enum class Name { Fixed, Linked } name;  ///< Linked: by way of linkTable, where it gets its row.
  std::string_view table;
  std::string_view definition;  ///< What stands between the brackets.
};

/// A unique index that a step brings where the table has none of that name. Rows that it forbids forbid the
/// step.
struct UniqueIndex {
  std::string_view name;
  std::string_view table;    ///< Its logical name.
  std::string_view columns;  ///< With commas between them.
  std::string_view where;    ///< Of a filtered one; otherwise empty.
};

/// A primary key that a step gives to a table in the place of whatever key it has.
struct PrimaryKey {
  std::string_view table;  ///< Its logical name.
  std::vector<std::string> columns;
};

/// What leads to a version from the one before: the tables, then the indexes, the keys, the statements.
struct Step {
  int version = 0;
  std::vector<NewTable> tables = {};
  std::vector<UniqueIndex> indexes = {};
  std::vector<PrimaryKey> keys = {};
  /// Run once. "{pemployee}" stands for the physical name of that table.
  std::vector<std::string_view> statements = {};
};

/// All steps, the earliest first. A step stays as it was written, whatever comes after it.
const std::vector<Step>& steps();

/// `upgrade` by way of these steps.
UpgradeReport upgradeBy(const std::vector<Step>& steps, ado::Connection& connection);

}  // namespace payslate::schema
