// What the database holds, as far as a statement can name it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/tsql/Type.h"

namespace payslate::tsql {

struct ColumnInfo {
  std::string name;
  Type type;
  bool notNull = false;
  int keyPosition = 0;      ///< 1 for the first column of the primary key; 0 for none.
  bool leadsIndex = false;  ///< An index over all rows begins with it, or the key does.
};

struct TableInfo {
  std::string name;
  std::vector<ColumnInfo> columns;

  /// Null when there is none; names without regard to case.
  [[nodiscard]] const ColumnInfo* column(std::string_view columnName) const;
};

/// Names without regard to case. Only a query names what INFORMATION_SCHEMA and sys hold, and so in full;
/// elsewhere what stands before the last point of a name is left out. What a function returns stays valid
/// until the schema changes.
class Catalog {
 public:
  virtual ~Catalog() = default;
  [[nodiscard]] virtual const TableInfo* table(std::string_view name) const = 0;
  /// The statement that created the view or the procedure; null when there is none.
  [[nodiscard]] virtual const std::string* viewText(std::string_view name) const = 0;
  [[nodiscard]] virtual const std::string* procedureText(std::string_view name) const = 0;
};

}  // namespace payslate::tsql
