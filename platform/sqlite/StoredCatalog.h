// The catalog, kept in the database itself so that every process sees the same.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/sqlite/DatabaseFile.h"
#include "platform/tsql/Catalog.h"
#include "platform/tsql/Translator.h"

namespace payslate::sqlite {

class StoredCatalog : public tsql::Catalog {
 public:
  [[nodiscard]] const tsql::TableInfo* table(std::string_view name) const override;
  [[nodiscard]] const std::string* viewText(std::string_view name) const override;
  [[nodiscard]] const std::string* procedureText(std::string_view name) const override;

  /// Makes the tables it is kept in when they are not there; ado::Error for a database that was made by
  /// others, or whose format is newer than this program.
  static void prepare(DatabaseFile& file);
  /// Makes the views for this connection in which statements read what tables and views there are.
  static void describe(DatabaseFile& file);
  /// Another number whenever somebody changed the catalog: load anew.
  static std::int64_t version(DatabaseFile& file);
  void load(DatabaseFile& file);
  /// Writes a change; load afterwards. A file without a number of its format gets it here.
  static void record(DatabaseFile& file, const tsql::SchemaChange& change);

 private:
  void loadObjects(DatabaseFile& file);
  static void recordObject(DatabaseFile& file, const tsql::SchemaChange& change);

  std::map<std::string, tsql::TableInfo, std::less<>> tables_;  // By lower-case name; likewise below.
  std::map<std::string, std::string, std::less<>> views_;
  std::map<std::string, std::string, std::less<>> procedures_;
};

}  // namespace payslate::sqlite
