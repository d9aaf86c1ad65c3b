// The rows of a cursor as the wire knows them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/ado/Provider.h"
#include "tools/tsqlserver/Tokens.h"

namespace payslate::tsqlserver {

/// Describes the columns and streams the rows, each as it is read; returns how many there were. ado::Error
/// when the reading fails, which may be behind some rows.
///
/// A provider's columns tell neither scale nor length, so the first rows decide: decimals are numeric(38)
/// with the scale of the first among a thousand rows (2 where there is none), to which others are rounded;
/// texts are nvarchar(4000), or nvarchar(max) when the first row's is longer. A longer one behind it is an
/// error, as a text that does not fit.
std::uint64_t sendRows(ado::Cursor& cursor, Reply& reply);

/// Describes the columns only.
void sendColumns(const std::vector<ado::Column>& columns, Reply& reply);

/// Rows that the server itself makes up.
class MadeRows : public ado::Cursor {
 public:
  MadeRows(std::vector<ado::Column> columns, std::vector<std::vector<basic::Value>> rows)
      : columns_(std::move(columns)), rows_(std::move(rows)) {}

  [[nodiscard]] const std::vector<ado::Column>& columns() const override { return columns_; }
  bool next() override { return ++read_ <= rows_.size(); }
  [[nodiscard]] basic::Value value(std::size_t column) const override { return rows_[read_ - 1][column]; }

 private:
  std::vector<ado::Column> columns_;
  std::vector<std::vector<basic::Value>> rows_;
  std::size_t read_ = 0;
};

}  // namespace payslate::tsqlserver
