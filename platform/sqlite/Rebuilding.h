// Tables made anew, since SQLite cannot change a table's key.
#pragma once

#include "platform/sqlite/DatabaseFile.h"
#include "platform/tsql/Catalog.h"

namespace payslate::sqlite {

/// Gives the table the primary key of `table`, or none; all else of it stays. Inside a transaction, which has
/// to be undone where it fails: ado::Error where rows have the same key. The catalog is left to the caller.
void rebuildWithKey(DatabaseFile& file, const tsql::TableInfo& table);

}  // namespace payslate::sqlite
