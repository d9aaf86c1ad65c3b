// Lists that a query makes: what can be looked for in an index is not collected first.
#include <algorithm>

#include "platform/tsql/Binder.h"

namespace payslate::tsql {

namespace {

bool isStoredNumber(const Expr& expr) {
  return expr.kind == ExprKind::Column && expr.storedColumn && expr.type.isWhole();
}

/// Nothing but columns that are equal to one value each, such as the company's.
bool onlyComparesWithConstants(const Expr& condition) {
  const std::vector<ExprPtr>& args = condition.args;
  if (condition.kind == ExprKind::And)
    return std::all_of(args.begin(), args.end(),
                       [](const ExprPtr& arg) { return onlyComparesWithConstants(*arg); });
  return condition.kind == ExprKind::Compare && condition.name == "=" && args[0]->kind == ExprKind::Column &&
         isConstant(*args[1]);
}

/// The plain select of one column of one table; null for any other query.
SelectCore* plainSelect(Query& query) {
  SelectCore& core = query.cores.front();
  const bool plain = query.cores.size() == 1 && !core.top && core.groupBy.empty() && !core.having &&
                     core.from.size() == 1 && core.from.front()->kind == SourceKind::Table &&
                     isStoredNumber(*core.items.front().expr);
  return plain ? &core : nullptr;
}

}  // namespace

bool Binder::isNeverNull(const Expr& column, const Scope& scope) {
  for (const Scope* level = &scope; level != nullptr; level = level->parent) {
    for (const Source& source : level->sources) {
      if (source.sql != column.source || source.table == nullptr) continue;
      return source.table->column(column.name)->notNull && !source.mayBeMissing;
    }
  }
  return false;
}

// What is "not in" all of a company's rows of a table that grows: the database would collect them anew for
// every statement. Beside the conditions of the list stands that its value is the one looked for, which an
// index finds. With Nulls on either side the answer would be another.
void Binder::narrowList(Expr& in, const Scope& scope) const {
  SelectCore* core = plainSelect(*in.query);
  const Expr& wanted = *in.args[0];
  if (!in.negated || core == nullptr || !core->where || !isStoredNumber(wanted)) return;
  if (!isNeverNull(wanted, scope) || !onlyComparesWithConstants(*core->where)) return;
  const Expr& listed = *core->items.front().expr;
  const TableRef& from = *core->from.front();
  if (listed.source != from.source) return;
  const ColumnInfo* column = catalog_.table(from.name)->column(listed.name);
  if (!column->notNull || !column->leadsIndex) return;
  auto both = std::make_unique<Expr>();
  both->kind = ExprKind::And;
  both->at = in.at;
  both->type = Type::of(Kind::Predicate);
  both->args.push_back(makeComparison(columnAgain(listed), "=", columnAgain(wanted)));
  both->args.push_back(std::move(core->where));
  core->where = std::move(both);
}

}  // namespace payslate::tsql
