// Queries: sources, select lists, grouping, order and unions.
#include <algorithm>

#include "platform/tsql/Binder.h"
#include "platform/tsql/Parser.h"
#include "platform/tsql/Ranges.h"
#include "platform/tsql/TokenStream.h"

namespace payslate::tsql {

namespace {

bool constantPosition(const Expr& expr) {
  return expr.isLiteral() && expr.type.kind == Kind::Int && !isNull(expr.literal);
}

// The database puts what a derived column stands for in the place of its name, as often as it is named.
constexpr int mostExpansion = 100'000;
int expansionOf(const Expr& expr) {
  int operations = expr.expansion;
  for (const ExprPtr& arg : expr.args)
    operations = std::min(mostExpansion + 1, operations + expansionOf(*arg));
  return operations;
}

std::string itemName(const SelectItem& item) {
  if (!item.alias.empty()) return item.alias;
  return item.expr->kind == ExprKind::Column ? item.expr->name : "";
}

}  // namespace

void Binder::bind(Query& query) {
  bindQuery(query, nullptr, false);
}

void Binder::bindQuery(Query& query, Scope* outer, bool nested) {
  std::vector<Scope> scopes(query.cores.size());
  for (std::size_t i = 0; i < query.cores.size(); ++i) {
    scopes[i].parent = outer;
    scopes[i].depth = outer == nullptr ? 1 : outer->depth + 1;
    bindCore(query.cores[i], scopes[i]);
  }
  const SelectCore& first = query.cores.front();
  for (const SelectItem& item : first.items) {
    const int expansion = expansionOf(*item.expr);
    if (expansion > mostExpansion)
      throw SqlError(state::syntax, item.expr->at,
                     "The statement is too large: a column stands for more than " +
                         std::to_string(mostExpansion) + " operations.");
    query.columns.push_back({itemName(item), item.expr->type, item.expr->storedColumn, expansion});
  }
  if (query.cores.size() > 1) uniteColumns(query);
  if (nested && !query.order.empty() && !first.top) {
    throw SqlError(
        state::syntax, query.order.front().expr->at,
        "'order by' is only allowed in a subquery, a derived table or a view together with 'top'.");
  }
  bindOrder(query, scopes.front());
  for (std::size_t i = 0; i < query.cores.size(); ++i) checkGrouping(query.cores[i], query, scopes[i]);
  const bool folded = first.groupBy.empty() && (scopes.front().sawAggregate || first.having);
  query.single = query.cores.size() == 1 && (folded || first.from.empty() || (first.top && *first.top <= 1));
}

void Binder::bindCore(SelectCore& core, Scope& scope) {
  for (const auto& ref : core.from) bindSource(*ref, scope);
  if (core.where) {
    scope.place = "a 'where' condition";
    bindCondition(core.where, scope);
    addRanges(core.where);
  }
  bindGrouping(core, scope);
  scope.aggregates = Aggregates::Allowed;
  bindItems(core, scope);
  if (core.having) bindCondition(core.having, scope);
}

void Binder::bindItems(SelectCore& core, Scope& scope) {
  std::vector<SelectItem> items;
  for (SelectItem& item : core.items) {
    if (item.star) {
      expandStar(item, scope, items);
    } else {
      bindValue(item.expr, scope);
      items.push_back(std::move(item));
    }
  }
  core.items = std::move(items);
}

void Binder::expandStar(const SelectItem& star, const Scope& scope, std::vector<SelectItem>& items) const {
  if (scope.sources.empty()) throw SqlError(state::syntax, star.at, "'*' needs a table to select from.");
  bool found = false;
  for (const Source& source : scope.sources) {
    if (!star.starQualifier.empty() && !sameWord(source.alias, star.starQualifier)) continue;
    found = true;
    for (const OutputColumn& column : source.columns) {
      SelectItem item;
      item.at = star.at;
      item.expr = std::make_unique<Expr>();
      item.expr->kind = ExprKind::Column;
      item.expr->at = star.at;
      item.expr->name = column.name;
      item.expr->type = column.type;
      item.expr->source = source.sql;
      item.expr->sourceDepth = scope.depth;
      item.expr->storedColumn = column.storedColumn;
      item.expr->expansion = column.expansion;
      items.push_back(std::move(item));
    }
  }
  if (!found)
    throw SqlError(state::noSuchTable, star.at, "There is no table '" + star.starQualifier + "' in 'from'.");
}

void Binder::bindGrouping(SelectCore& core, Scope& scope) {
  scope.place = "a 'group by' list";
  for (ExprPtr& expr : core.groupBy) {
    bindValue(expr, scope);
    if (isConstant(*expr)) {
      throw SqlError(state::syntax, expr->at, "An expression of 'group by' must name a column.");
    }
    if (expr->kind == ExprKind::Subquery) {
      throw SqlError(state::syntax, expr->at, "A subquery in 'group by' is not supported.");
    }
  }
}

namespace {

/// Refuses columns of the grouped rows that are neither grouped nor folded.
class GroupingCheck {
 public:
  GroupingCheck(const SelectCore& core, int depth) : core_(core), depth_(depth) {}

  void check(const Expr& expr) const {
    for (const ExprPtr& grouped : core_.groupBy) {
      if (sameExpression(*grouped, expr)) return;
    }
    if (expr.aggregate) return;
    if (expr.kind == ExprKind::Column && expr.sourceDepth == depth_) {
      throw SqlError(state::syntax, expr.at,
                     "Column '" + expr.name + "' is neither in 'group by' nor inside an aggregate function.");
    }
    for (const ExprPtr& arg : expr.args) check(*arg);
    if (expr.query) check(*expr.query);
  }

 private:
  void check(const Query& query) const {
    for (const SelectCore& core : query.cores) {
      for (const SelectItem& item : core.items) check(*item.expr);
      for (const ExprPtr& expr : core.groupBy) check(*expr);
      if (core.where) check(*core.where);
      if (core.having) check(*core.having);
    }
  }

  const SelectCore& core_;
  int depth_;
};

}  // namespace

void Binder::checkGrouping(const SelectCore& core, const Query& query, const Scope& scope) const {
  if (core.groupBy.empty() && !scope.sawAggregate && !core.having) return;
  const GroupingCheck check(core, scope.depth);
  for (const SelectItem& item : core.items) check.check(*item.expr);
  if (core.having) check.check(*core.having);
  if (query.cores.size() > 1) return;
  for (const OrderItem& item : query.order) {
    if (!item.position) check.check(*item.expr);
  }
}

void Binder::bindOrder(Query& query, Scope& scope) {
  SelectCore& core = query.cores.front();
  const bool bound = query.cores.size() > 1 || core.distinct;
  for (OrderItem& item : query.order) {
    Expr& expr = *item.expr;
    expr.settle();
    if (constantPosition(expr)) {
      const std::int64_t position = std::get<std::int64_t>(expr.literal);
      if (position < 1 || position > static_cast<std::int64_t>(query.columns.size())) {
        throw SqlError(state::syntax, expr.at,
                       "'order by' position " + std::to_string(position) + " is not in the select list.");
      }
      item.position = static_cast<std::size_t>(position - 1);
      continue;
    }
    if (expr.kind == ExprKind::Column && expr.qualifier.empty()) {
      for (std::size_t i = 0; i < query.columns.size() && !item.position; ++i) {
        if (sameWord(query.columns[i].name, expr.name)) item.position = i;
      }
      if (item.position) continue;
    }
    if (query.cores.size() == 1) {
      bindValue(item.expr, scope);
      if (isConstant(*item.expr))
        throw SqlError(state::syntax, item.expr->at, "An expression of 'order by' must name a column.");
      for (std::size_t i = 0; i < core.items.size() && !item.position; ++i) {
        if (sameExpression(*core.items[i].expr, *item.expr)) item.position = i;
      }
    }
    if (bound && !item.position) {
      throw SqlError(state::syntax, item.expr->at,
                     "What a distinct select or a union is ordered by must be in its select list.");
    }
  }
}

void Binder::uniteColumns(Query& query) {
  for (const SelectCore& core : query.cores) {
    if (core.items.size() != query.columns.size()) {
      throw SqlError(state::syntax, core.at, "All selects of a union must have the same number of columns.");
    }
  }
  for (std::size_t i = 0; i < query.columns.size(); ++i) {
    Type type;
    for (const SelectCore& core : query.cores) type = commonType(type, core.items[i].expr->type);
    convertColumn(query, i, type);
  }
}

void Binder::convertColumn(Query& query, std::size_t column, const Type& type) {
  for (SelectCore& core : query.cores) convertTo(core.items[column].expr, type);
  query.columns[column].type = type;
  query.columns[column].storedColumn = query.columns[column].storedColumn && query.cores.size() == 1 &&
                                       query.cores.front().items[column].expr->storedColumn;
}

void Binder::bindSource(TableRef& ref, Scope& scope) {
  switch (ref.kind) {
    case SourceKind::Table:
      bindTable(ref, scope);
      break;
    case SourceKind::Derived:
      bindDerived(ref, scope, scope.parent);
      break;
    case SourceKind::Join:
      bindJoin(ref, scope);
      break;
  }
}

// The condition sees the two sides of its join, and what surrounds the query; not its neighbours between
// commas.
void Binder::bindJoin(TableRef& ref, Scope& scope) {
  const std::size_t first = scope.sources.size();
  bindSource(*ref.left, scope);
  const std::size_t second = scope.sources.size();
  bindSource(*ref.right, scope);
  const bool all = ref.join == JoinKind::Full;
  for (std::size_t i = first; i < scope.sources.size(); ++i) {
    const bool given = i < second ? ref.join == JoinKind::Right : ref.join == JoinKind::Left;
    if (all || given) scope.sources[i].mayBeMissing = true;
  }
  if (!ref.on) return;
  Scope sides;
  sides.parent = scope.parent;
  sides.depth = scope.depth;
  sides.place = "a join's condition";
  sides.sources.assign(scope.sources.begin() + static_cast<std::ptrdiff_t>(first), scope.sources.end());
  bindCondition(ref.on, sides);
  if (ref.join == JoinKind::Inner) addRanges(ref.on);
}

void Binder::bindTable(TableRef& ref, Scope& scope) {
  if (const TableInfo* table = catalog_.table(ref.name)) {
    ref.name = table->name;
    Source source;
    source.alias = ref.alias;
    source.sql = "t" + std::to_string(nextSource_++);
    source.table = table;
    for (const ColumnInfo& column : table->columns)
      source.columns.push_back({column.name, column.type, true});
    ref.source = source.sql;
    for (const Source& other : scope.sources) {
      if (sameWord(other.alias, source.alias)) {
        throw SqlError(state::syntax, ref.at, "Two tables of 'from' have the name '" + ref.alias + "'.");
      }
    }
    scope.sources.push_back(std::move(source));
    return;
  }
  const std::string* text = catalog_.viewText(ref.name);
  if (text == nullptr)
    throw SqlError(state::noSuchTable, ref.at, "There is no table or view '" + ref.name + "'.");
  if (viewDepth_ >= maxViewDepth) {
    throw SqlError(state::syntax, ref.at,
                   "Views stand on views more than " + std::to_string(maxViewDepth) + " deep.");
  }
  ++viewDepth_;
  try {
    Statement statement = parseStatement(*text);
    auto* view = std::get_if<CreateView>(&statement);
    if (view == nullptr) throw SqlError(state::general, "The stored text is damaged.");
    ref.query = std::move(view->query);
    ref.columnNames = std::move(view->columnNames);
    bindDerived(ref, scope, nullptr);
  } catch (const SqlError& error) {  // Its positions are those of another text.
    throw SqlError(error.sqlState(), ref.at, "In the view '" + ref.name + "': " + error.what());
  }
  --viewDepth_;
}

void Binder::bindDerived(TableRef& ref, Scope& scope, Scope* outer) {
  ref.kind = SourceKind::Derived;
  bindQuery(*ref.query, outer, true);
  Source source;
  source.alias = ref.alias;
  source.sql = "t" + std::to_string(nextSource_++);
  source.columns = namedColumns(ref);
  for (std::size_t i = 0; i < source.columns.size(); ++i) {
    for (SelectCore& core : ref.query->cores) core.items[i].alias = source.columns[i].name;
    source.columns[i].storedColumn = false;
  }
  ref.source = source.sql;
  for (const Source& other : scope.sources) {
    if (sameWord(other.alias, source.alias)) {
      throw SqlError(state::syntax, ref.at, "Two tables of 'from' have the name '" + ref.alias + "'.");
    }
  }
  scope.sources.push_back(std::move(source));
}

std::vector<OutputColumn> Binder::namedColumns(const TableRef& ref) {
  std::vector<OutputColumn> columns = ref.query->columns;
  if (!ref.columnNames.empty() && ref.columnNames.size() != columns.size()) {
    throw SqlError(state::syntax, ref.at,
                   "'" + ref.alias + "' names another number of columns than its query has.");
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (!ref.columnNames.empty()) columns[i].name = ref.columnNames[i];
    if (columns[i].name.empty()) {
      throw SqlError(state::syntax, ref.at,
                     "Column " + std::to_string(i + 1) + " of '" + ref.alias + "' has no name.");
    }
    for (std::size_t other = 0; other < i; ++other) {
      if (sameWord(columns[other].name, columns[i].name)) {
        throw SqlError(state::syntax, ref.at,
                       "'" + ref.alias + "' has two columns '" + columns[i].name + "'.");
      }
    }
  }
  return columns;
}

void Binder::bind(CreateView& view) {
  bindQuery(*view.query, nullptr, true);
  TableRef ref;
  ref.at = view.at;
  ref.alias = view.name;
  ref.columnNames = view.columnNames;
  ref.query = std::move(view.query);
  namedColumns(ref);
  view.query = std::move(ref.query);
}

}  // namespace payslate::tsql
