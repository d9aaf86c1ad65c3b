// What statements become: translated once a shape, with the values of each in their places.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/ado/Provider.h"
#include "platform/sqlite/DatabaseFile.h"
#include "platform/tsql/Shape.h"
#include "platform/tsql/Translator.h"

namespace payslate::sqlite {

/// A translation, and where its prepared statements lie.
struct Plan {
  tsql::Translation translation;
  std::vector<ado::Column> columns;     ///< Of the rows.
  std::shared_ptr<StatementPool> pool;  ///< None for a change of the schema.
};

/// A plan and the values of one text.
struct PlannedStatement {
  std::shared_ptr<const Plan> plan;
  std::vector<tsql::Literal> literals;  ///< By slot.

  void bind(Statement& statement) const;
};

/// Plans by the shape of a text. Of a shape's literals some may have been looked at by its translations: each
/// set of their values has a plan of its own.
class Plans {
 public:
  Plans(tsql::Translator& translator, DatabaseFile& file) : translator_(translator), file_(file) {}

  /// The plan of a text that is known; null otherwise.
  PlannedStatement find(std::string_view statement);
  /// SqlError for what the translator refuses.
  PlannedStatement make(std::string_view statement);
  void clear();

 private:
  struct Shape {
    std::vector<std::size_t> lookedAt;  ///< Slots.
    std::unordered_map<std::string, std::shared_ptr<const Plan>> byValues;
  };

  static std::string valuesOf(const std::vector<std::size_t>& slots,
                              const std::vector<tsql::Literal>& literals);
  std::shared_ptr<const Plan> planOf(tsql::Translation translation);

  tsql::Translator& translator_;
  DatabaseFile& file_;
  std::unordered_map<std::string, Shape> shapes_;
  std::size_t plans_ = 0;
};

}  // namespace payslate::sqlite
