// The database helper that forms create by name.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/ado/Connection.h"
#include "platform/basic/Value.h"
#include "platform/common/ObjectRegistry.h"

namespace payslate::ui {
class ComboBox;
class ListView;
}  // namespace payslate::ui

namespace payslate::common {

class CommonDB : public Object {
 public:
  static constexpr const char* registeredName = "CommonModule.clsCommonDB";

  /// The connection that the next calls use.
  virtual void adocon(std::shared_ptr<ado::Connection> connection) = 0;
  /// The table that the next calls read: a name, several with a comma, or a join with its own where-clause.
  virtual void strTableName(std::string table) = 0;

  /// The field in the first row of the table under the condition (a where-clause without the word). Null when
  /// no row matches.
  virtual basic::Value fnreturnfield(const std::string& field, const std::string& condition = {}) = 0;

  /// Fills the combo from the table, in the server's order: text column as item text, key column as item
  /// data.
  virtual void populateComboorList(ui::ComboBox& combo, const std::string& keyColumn,
                                   const std::string& textColumn, const std::string& condition) = 0;

  /// The largest stored value of the column in the table, plus 1; 1 in an empty table.
  virtual std::int32_t fnGetNextMaxNo(const std::string& column) = 0;

  /// Appends a row of item text and sub-items; callers pass 0 as position.
  virtual void fnInsertListview(ui::ListView& list, int position, std::vector<std::string> cells) = 0;
  /// Removes the selected row and renumbers the serial numbers of the others; callers pass true as
  /// `selectedRow`, and `moreRows` says whether rows remain.
  virtual void fnDeleteListview(bool selectedRow, ui::ListView& list, bool moreRows) = 0;
};

}  // namespace payslate::common
