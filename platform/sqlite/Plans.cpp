// The two steps from a text to its plan: the shape, and the values that count.
#include "platform/sqlite/Plans.h"

#include <algorithm>
#include <utility>

#include "platform/sqlite/Values.h"
#include "platform/tsql/Convert.h"
#include "platform/tsql/Generator.h"

namespace payslate::sqlite {

namespace {

constexpr std::size_t mostPlans = 2000;

}  // namespace

void PlannedStatement::bind(Statement& statement) const {
  const tsql::Translation& translation = plan->translation;
  statement.bind(translation.bindings);
  if (translation.assigned.empty()) {
    for (const std::size_t slot : translation.slots) statement.bind(slot + 1, literals[slot].value);
    return;
  }
  try {
    for (const tsql::AssignedLiteral& to : translation.assigned) {
      const tsql::Literal& literal = literals[to.slot];
      statement.bind(to.slot + 1, tsql::assignCell(literal.value, literal.type, to.type, to.name));
    }
  } catch (const tsql::SqlError& error) {
    throw toAdoError(error);
  }
}

PlannedStatement Plans::find(std::string_view statement) {
  tsql::Shape shape = tsql::shapeOf(statement);
  const auto known = shapes_.find(shape.key);
  if (known == shapes_.end()) return {};
  const auto& [lookedAt, byValues] = known->second;
  const auto plan = byValues.find(valuesOf(lookedAt, shape.literals));
  if (plan == byValues.end()) return {};
  return {plan->second, std::move(shape.literals)};
}

// A translation stands for all texts of its shape that agree in the literals it has looked at; so it does
// where others have looked at more.
PlannedStatement Plans::make(std::string_view statement) {
  tsql::Shape shape = tsql::shapeOf(statement);
  const std::shared_ptr<const Plan> plan = planOf(translator_.translate(
      statement, shape.literals.empty() ? tsql::Literals::Settled : tsql::Literals::Bound));
  if (plan->translation.change) return {plan, {}};
  if (++plans_ > mostPlans) clear();
  Shape& kept = shapes_[shape.key];
  std::vector<std::size_t> lookedAt;
  for (std::size_t slot = 0; slot < shape.literals.size(); ++slot) {
    const bool before = std::find(kept.lookedAt.begin(), kept.lookedAt.end(), slot) != kept.lookedAt.end();
    if (before || !plan->translation.slots.contains(slot)) lookedAt.push_back(slot);
  }
  if (lookedAt != kept.lookedAt) {
    kept.byValues.clear();
    kept.lookedAt = std::move(lookedAt);
  }
  kept.byValues[valuesOf(kept.lookedAt, shape.literals)] = plan;
  return {plan, std::move(shape.literals)};
}

void Plans::clear() {
  shapes_.clear();
  plans_ = 0;
}

// The types of an insert's literals are not in the shape's key.
std::string Plans::valuesOf(const std::vector<std::size_t>& slots,
                            const std::vector<tsql::Literal>& literals) {
  std::string values;
  for (const std::size_t slot : slots) {
    const std::string text = tsql::writtenLiteral(literals[slot].value);
    values += std::to_string(literals[slot].type.packed()) + ' ' + std::to_string(text.size()) + ' ' + text;
  }
  return values;
}

std::shared_ptr<const Plan> Plans::planOf(tsql::Translation translation) {
  auto plan = std::make_shared<Plan>();
  plan->columns.reserve(translation.columns.size());
  for (const tsql::OutputColumn& column : translation.columns)
    plan->columns.push_back({column.name, columnType(column.type)});
  if (!translation.change) plan->pool = file_.pool(translation.sql.front(), Schema::Known);
  plan->translation = std::move(translation);
  return plan;
}

}  // namespace payslate::sqlite
