// What a connection and its recordsets share while the database is open. Not for callers of this layer.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/ado/Provider.h"

namespace payslate::ado {

/// A recordset's cursor, which the database takes away when it becomes invalid under it.
struct CursorSlot {
  std::unique_ptr<Cursor> cursor;
  std::string lostBy;  ///< Why there is no cursor any more; empty when it was read to its end.
};

/// Ends with the connection's Close: recordsets hold it weakly.
struct OpenDatabase {
  std::unique_ptr<Provider> provider;

  std::shared_ptr<CursorSlot> keep(std::unique_ptr<Cursor> cursor);
  /// Cursors outlive neither a rollback nor the provider.
  void dropCursors(const std::string& reason);

 private:
  std::vector<std::weak_ptr<CursorSlot>> slots_;
};

}  // namespace payslate::ado
