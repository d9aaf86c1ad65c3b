// The sum, row by row.
#include "platform/sqlite/CatalogSeal.h"

namespace payslate::sqlite {

namespace {

constexpr std::size_t sealedColumns = 7;

// Statistics and what others may have added beside our tables are not sealed; our indexes have a point in
// their names.
constexpr const char* sealedRows =
    "SELECT 1, key, kind, name, text, NULL, NULL FROM catalog_objects "
    "UNION ALL SELECT 2, object, ordinal, name, type, not_null, key_position FROM catalog_columns "
    "UNION ALL SELECT 3, type, name, tbl_name, sql, NULL, NULL FROM sqlite_schema WHERE sql IS NOT NULL "
    "AND lower(tbl_name) IN (SELECT key FROM catalog_objects) AND (type = 'table' OR instr(name, '.') > 0)";

constexpr const char* sealTable =
    "CREATE TABLE IF NOT EXISTS catalog_seal (version INT NOT NULL, sum INT NOT NULL) STRICT";
// One statement, so that it all is of one moment.
constexpr std::int64_t sealRow = 4;
constexpr const char* keptSeal =
    "UNION ALL SELECT 4, sum, version = (SELECT user_version FROM pragma_user_version), NULL, NULL, NULL, "
    "NULL FROM catalog_seal";

// Each step is a bijection: two texts that differ in one byte never have the same sum.
void addByte(std::uint64_t& sum, unsigned char byte) {
  constexpr std::uint64_t prime = 0x100000001b3;
  sum = (sum ^ byte) * prime;
}

// Nothing is converted: what is damaged may be of any type.
std::string bytesOf(const tsql::Cell& cell) {
  if (const auto* text = std::get_if<std::string>(&cell)) return "t" + *text;
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return "w" + std::to_string(*whole);
  if (const auto* number = std::get_if<double>(&cell)) return "n" + std::to_string(*number);
  return {};
}

std::uint64_t rowSum(const Statement& row) {
  std::uint64_t sum = 0xcbf29ce484222325;
  for (std::size_t column = 0; column < sealedColumns; ++column) {
    for (const char byte : bytesOf(row.column(column))) addByte(sum, static_cast<unsigned char>(byte));
    addByte(sum, '\0');
  }
  return sum;
}

}  // namespace

void sealCatalog(DatabaseFile& file) {
  std::uint64_t sum = 0;
  const auto rows = file.prepare(sealedRows);
  while (rows->step()) sum += rowSum(*rows);
  file.run(sealTable);
  file.run("DELETE FROM catalog_seal");
  file.run("INSERT INTO catalog_seal SELECT user_version, ?1 FROM pragma_user_version",
           {static_cast<std::int64_t>(sum)});
}

void requireSeal(DatabaseFile& file) {
  if (file.number("SELECT count(*) FROM sqlite_schema WHERE name = 'catalog_seal'") == 0) return;
  std::uint64_t sum = 0;
  const auto rows = file.prepare(std::string(sealedRows) + ' ' + keptSeal);
  std::optional<tsql::Cell> kept;
  while (rows->step()) {
    if (rows->column(0) != tsql::Cell(sealRow)) {
      sum += rowSum(*rows);
    } else if (rows->column(2) == tsql::Cell(std::int64_t{1})) {
      kept = rows->column(1);
    }
  }
  if (kept && *kept != tsql::Cell(static_cast<std::int64_t>(sum))) throw file.damage("its catalog");
}

}  // namespace payslate::sqlite
