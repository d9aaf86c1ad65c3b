// The database helper of the component's own.
#pragma once

#include "platform/common/CommonDB.h"

namespace payslate::common {

class clsCommonDB : public CommonDB {
 public:
  void adocon(std::shared_ptr<ado::Connection> connection) override { connection_ = std::move(connection); }
  void strTableName(std::string table) override { table_ = std::move(table); }
  basic::Value fnreturnfield(const std::string& field, const std::string& condition) override;
  void populateComboorList(ui::ComboBox& combo, const std::string& keyColumn, const std::string& textColumn,
                           const std::string& condition) override;
  std::int32_t fnGetNextMaxNo(const std::string& column) override;
  void fnInsertListview(ui::ListView& list, int position, std::vector<std::string> cells) override;
  void fnDeleteListview(bool selectedRow, ui::ListView& list, bool moreRows) override;

 private:
  [[nodiscard]] ado::Connection& connection() const;

  std::shared_ptr<ado::Connection> connection_;
  std::string table_;
};

}  // namespace payslate::common
