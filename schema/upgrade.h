// The version of a payroll database, and taking an earlier one to the present schema.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/Connection.h"

namespace payslate::schema {

/// The version that `create` makes.
int presentVersion();

/// That of a database: 0 where it names none, as those from before there were versions. ado::Error when it
/// cannot be read.
int version(ado::Connection& connection);

/// The physical name of a table, as the database links it.
std::string linkedTable(ado::Connection& connection, std::string_view logical);

struct UpgradeReport {
  int from = 0;                        ///< The version that was found.
  std::vector<std::string> forbidden;  ///< Sentences; when there are any, nothing was changed.
  std::vector<std::string> made;  ///< "the table x", "the unique index x on t", "the primary key (a, b) on t"
};

/// Takes a payroll database of an earlier version to the present one, in a transaction of its own; one of the
/// present or a later version stays as it is. When it fails, with ado::Error, nothing was changed.
UpgradeReport upgrade(ado::Connection& connection);

}  // namespace payslate::schema
