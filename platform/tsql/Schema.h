// Statements that make and change tables and indexes.
#pragma once

#include "platform/tsql/Translator.h"

namespace payslate::tsql {

Translation translateTable(CreateTable& table, const Catalog& catalog);
Translation translateColumn(AddColumn& addition, const Catalog& catalog);
Translation translateIndex(CreateIndex& index, const Catalog& catalog);
inline constexpr const char* nullIndexSuffix = ".null";
/// The names under which an index of a table is kept; the second one holds rows with a Null.
std::pair<std::string, std::string> indexNames(const std::string& table, const std::string& index);

}  // namespace payslate::tsql
