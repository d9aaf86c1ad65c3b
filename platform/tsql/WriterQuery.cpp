// Queries: select lists, sources and joins, unions, orders.
#include <map>
#include <utility>

#include "platform/tsql/Generator.h"
#include "platform/tsql/Writer.h"

namespace payslate::tsql {

namespace {

// Outer joins to the right bind tighter than the comma before them.
bool keepsRight(const TableRef& ref) {
  return ref.kind == SourceKind::Join && (ref.join == JoinKind::Right || ref.join == JoinKind::Full ||
                                          keepsRight(*ref.left) || keepsRight(*ref.right));
}

}  // namespace

void Writer::write(const Query& query) {
  const bool several = query.cores.size() > 1;
  bool distinct = query.cores.front().distinct;
  for (const bool all : query.all) distinct = distinct || !all;
  const bool keys = (std::exchange(keyed_, false) || (several && distinct)) && query.columns.size() == 1;
  for (std::size_t i = 0; i < query.cores.size(); ++i) {
    if (i > 0) text += query.all[i - 1] ? " UNION ALL " : " UNION ";
    const SelectCore& core = query.cores[i];
    const bool wrapped = several && core.top;
    if (wrapped) text += "SELECT * FROM (";
    keyed_ = keys;
    write(core, distinct || core.distinct);
    if (several && core.top) text += " LIMIT " + std::to_string(*core.top);
    if (wrapped) text += ")";
  }
  order(query);
  if (!several && query.cores.front().top) text += " LIMIT " + std::to_string(*query.cores.front().top);
}

void Writer::write(const SelectCore& core, bool distinct) {
  text += core.distinct ? "SELECT DISTINCT " : "SELECT ";
  items(core, distinct);
  from(core);
  where(core.where);
  for (std::size_t i = 0; i < core.groupBy.size(); ++i) {
    text += i == 0 ? " GROUP BY " : ", ";
    compared(*core.groupBy[i]);
  }
  if (core.having) clause(" HAVING ", *core.having);
}

void Writer::items(const SelectCore& core, bool distinct) {
  const std::string outputName = std::exchange(outputName_, "");
  const bool keys = std::exchange(keyed_, false);
  for (std::size_t i = 0; i < core.items.size(); ++i) {
    if (i > 0) text += ", ";
    const SelectItem& item = core.items[i];
    // Under a bare "having" all rows are one group; the database wants to see something that folds them.
    const bool folds = i == 0 && core.having && core.groupBy.empty();
    if (folds) text += "CASE WHEN count(*) >= 0 THEN ";
    const Expr& expr = *item.expr;
    keys ? keyed(expr) : write(expr);
    if (distinct) collate(expr.type, expr.storedColumn && !keys);
    if (folds) text += " END";
    const std::string& name = outputName.empty() ? item.alias : outputName;
    if (!name.empty()) text += " AS " + quotedName(name);
  }
}

void Writer::from(const SelectCore& core) {
  for (std::size_t i = 0; i < core.from.size(); ++i) {
    text += i == 0 ? " FROM " : ", ";
    const bool grouped = i > 0 && keepsRight(*core.from[i]);
    if (grouped) text += "(";
    write(*core.from[i]);
    if (grouped) text += ")";
  }
}

void Writer::where(const ExprPtr& condition) {
  if (condition) clause(" WHERE ", *condition);
}

void Writer::clause(const char* word, const Expr& condition) {
  text += word;
  write(condition);
}

void Writer::write(const TableRef& ref) {
  switch (ref.kind) {
    case SourceKind::Table:
      text += quotedName(ref.name) + " AS " + quotedName(ref.source);
      break;
    case SourceKind::Derived:
      text += "(";
      write(*ref.query);
      text += ") AS " + quotedName(ref.source);
      break;
    case SourceKind::Join:
      join(ref);
      break;
  }
}

void Writer::join(const TableRef& ref) {
  static const std::map<JoinKind, const char*> words = {{JoinKind::Inner, " JOIN "},
                                                        {JoinKind::Left, " LEFT JOIN "},
                                                        {JoinKind::Right, " RIGHT JOIN "},
                                                        {JoinKind::Full, " FULL JOIN "},
                                                        {JoinKind::Cross, " JOIN "}};
  write(*ref.left);
  text += words.at(ref.join);
  const bool nested = ref.right->kind == SourceKind::Join;
  if (nested) text += "(";
  write(*ref.right);
  if (nested) text += ")";
  if (ref.on) clause(" ON ", *ref.on);
}

void Writer::order(const Query& query) {
  for (std::size_t i = 0; i < query.order.size(); ++i) {
    const OrderItem& item = query.order[i];
    text += i == 0 ? " ORDER BY " : ", ";
    if (item.position) {
      text += std::to_string(*item.position + 1);
      const OutputColumn& column = query.columns[*item.position];
      collate(column.type, column.storedColumn);
    } else {
      compared(*item.expr);
    }
    if (item.descending) text += " DESC";
  }
}

}  // namespace payslate::tsql
