// Statements that make and change tables and indexes.
#pragma once

#include "platform/tsql/Translator.h"

namespace payslate::tsql {

Translation translateTable(CreateTable& table, const Catalog& catalog);
Translation translateColumn(AddColumn& addition, const Catalog& catalog);
Translation translateKey(AddKey& addition, const Catalog& catalog);
Translation translateConstraint(const DropConstraint& drop, const Catalog& catalog);
Translation translateIndex(CreateIndex& index, const Catalog& catalog);

/// What the statement that made a table would have been had the table had this key; empty when it is none of
/// `translateTable` and `translateColumn`.
std::string withKeyOf(std::string createStatement, const TableInfo& table);
/// A primary key's constraint is called this and the table's name, whatever name it was given.
inline constexpr const char* keyPrefix = "PK_";
inline constexpr const char* nullIndexSuffix = ".null";
/// The names under which an index of a table is kept; the second one holds rows with a Null.
std::pair<std::string, std::string> indexNames(const std::string& table, const std::string& index);

}  // namespace payslate::tsql
