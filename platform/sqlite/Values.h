// Between stored cells and the values that a program sees.
#pragma once

#include "platform/ado/Provider.h"
#include "platform/basic/Value.h"
#include "platform/tsql/Catalog.h"
#include "platform/tsql/Cell.h"

namespace payslate::sqlite {

ado::ColumnType columnType(const tsql::Type& type);
/// basic::ValueError for a cell that a column of this type cannot have.
basic::Value toValue(const tsql::Cell& cell, ado::ColumnType type);
/// As an insert stores it. tsql::SqlError when the column's type refuses it; `table` is for the message.
tsql::Cell toStored(const basic::Value& value, const tsql::ColumnInfo& column, const std::string& table);

}  // namespace payslate::sqlite
