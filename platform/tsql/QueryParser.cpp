// Queries: select lists, table sources and joins, unions.
#include "platform/tsql/QueryParser.h"

#include "platform/tsql/Parser.h"

namespace payslate::tsql {

Query QueryParser::query() {
  Query result;
  result.cores.push_back(core());
  while (tokens_.isWord("union")) {
    tokens_.take();
    result.all.push_back(tokens_.acceptWord("all"));
    result.cores.push_back(core());
    if (result.cores.size() > static_cast<std::size_t>(maxNesting)) {
      tokens_.unsupported("A union of more than " + std::to_string(maxNesting) + " selects");
    }
  }
  if (tokens_.isWord("except") || tokens_.isWord("intersect")) {
    tokens_.unsupported("'" + tokens_.peek().text + "'");
  }
  if (tokens_.acceptWord("order")) {
    tokens_.expectWord("by");
    do {
      OrderItem item;
      item.expr = expression();
      item.descending = tokens_.acceptWord("desc");
      if (!item.descending) tokens_.acceptWord("asc");
      result.order.push_back(std::move(item));
    } while (tokens_.acceptSign(","));
  }
  if (tokens_.isWord("for") || tokens_.isWord("option")) tokens_.unsupported("'" + tokens_.peek().text + "'");
  return result;
}

SelectCore QueryParser::core() {
  SelectCore core;
  core.at = tokens_.at();
  tokens_.expectWord("select");
  selectList(core);
  if (tokens_.isWord("into")) tokens_.unsupported("'select … into'");
  if (tokens_.acceptWord("from")) {
    do {
      core.from.push_back(joinedTable());
    } while (tokens_.acceptSign(","));
  }
  if (tokens_.acceptWord("where")) core.where = expression();
  if (tokens_.acceptWord("group")) {
    tokens_.expectWord("by");
    do {
      core.groupBy.push_back(expression());
    } while (tokens_.acceptSign(","));
    if (tokens_.isWord("with")) tokens_.unsupported("'group by … with'");
  }
  if (tokens_.acceptWord("having")) core.having = expression();
  return core;
}

void QueryParser::selectList(SelectCore& core) {
  core.distinct = tokens_.acceptWord("distinct");
  if (!core.distinct) tokens_.acceptWord("all");
  if (tokens_.acceptWord("top")) {
    const bool wrapped = tokens_.acceptSign("(");
    core.top = tokens_.expectWhole("a number of rows");
    if (wrapped) tokens_.expectSign(")");
    if (tokens_.isWord("percent")) tokens_.unsupported("'top … percent'");
    if (tokens_.isWord("with")) tokens_.unsupported("'top … with ties'");
  }
  do {
    core.items.push_back(selectItem());
  } while (tokens_.acceptSign(","));
}

SelectItem QueryParser::selectItem() {
  SelectItem item;
  item.at = tokens_.at();
  if (tokens_.acceptSign("*")) {
    item.star = true;
    return item;
  }
  if (tokens_.isName() && tokens_.isSign(".", 1) && tokens_.isSign("*", 2)) {
    item.star = true;
    item.starQualifier = tokens_.take().text;
    tokens_.take();
    tokens_.take();
    return item;
  }
  if (tokens_.isName() && tokens_.isSign("=", 1)) {  // alias = expression
    item.alias = tokens_.take().text;
    tokens_.take();
    item.expr = expression();
    return item;
  }
  item.expr = expression();
  item.alias = optionalAlias(true);
  return item;
}

std::string QueryParser::optionalAlias(bool textAllowed) {
  const bool announced = tokens_.acceptWord("as");
  if (tokens_.isName() || (textAllowed && tokens_.peek().kind == TokenKind::Text)) return tokens_.take().text;
  if (announced) tokens_.unexpected("an alias");
  return "";
}

std::optional<JoinKind> QueryParser::joinKind() {
  struct Words {
    std::string_view first;
    JoinKind kind;
    bool outer;
  };
  static constexpr Words table[] = {{"inner", JoinKind::Inner, false},
                                    {"left", JoinKind::Left, true},
                                    {"right", JoinKind::Right, true},
                                    {"full", JoinKind::Full, true},
                                    {"cross", JoinKind::Cross, false}};
  if (tokens_.acceptWord("join")) return JoinKind::Inner;
  for (const Words& words : table) {
    if (!tokens_.isWord(words.first)) continue;
    tokens_.take();
    if (words.outer) tokens_.acceptWord("outer");
    if (tokens_.isWord("apply")) tokens_.unsupported("'apply'");
    tokens_.expectWord("join");
    return words.kind;
  }
  return std::nullopt;
}

std::unique_ptr<TableRef> QueryParser::joinedTable() {
  return continueJoin(tableSource());
}

// "a join b join c on … on …": a source followed by another join before its own "on" belongs to the inner
// one.
std::unique_ptr<TableRef> QueryParser::continueJoin(std::unique_ptr<TableRef> left) {
  for (int joins = 0;; ++joins) {
    const Position at = tokens_.at();
    const std::optional<JoinKind> kind = joinKind();
    if (!kind) return left;
    const Nesting nesting(depth_, at);
    if (joins >= maxNesting)
      tokens_.unsupported("A chain of more than " + std::to_string(maxNesting) + " joins");
    auto join = std::make_unique<TableRef>();
    join->kind = SourceKind::Join;
    join->at = at;
    join->join = *kind;
    join->left = std::move(left);
    join->right = tableSource();
    if (*kind != JoinKind::Cross) {
      if (!tokens_.isWord("on")) join->right = continueJoin(std::move(join->right));
      tokens_.expectWord("on");
      join->on = expression();
    }
    left = std::move(join);
    // An inner chain ends where the outer join's condition begins.
    if (tokens_.isWord("on")) return left;
  }
}

std::unique_ptr<TableRef> QueryParser::tableSource() {
  const Nesting nesting(depth_, tokens_.at());
  auto table = std::make_unique<TableRef>();
  table->at = tokens_.at();
  if (tokens_.acceptSign("(")) {
    if (!tokens_.isWord("select")) {
      std::unique_ptr<TableRef> inner = joinedTable();
      tokens_.expectSign(")");
      return inner;
    }
    table->kind = SourceKind::Derived;
    table->query = std::make_unique<Query>(query());
    tokens_.expectSign(")");
    table->alias = optionalAlias(false);
    if (table->alias.empty()) tokens_.unexpected("a name for the derived table");
    if (tokens_.acceptSign("(")) {
      do {
        table->columnNames.push_back(tokens_.expectName("a column name"));
      } while (tokens_.acceptSign(","));
      tokens_.expectSign(")");
    }
    return table;
  }
  const bool ofCatalog =
      (tokens_.isWord("information_schema") || tokens_.isWord("sys")) && tokens_.isSign(".", 1);
  const std::string schema = ofCatalog ? tokens_.peek().text + "." : std::string();
  table->name = schema + tokens_.expectObjectName("a table");
  if (tokens_.isSign("(")) tokens_.unsupported("A table function or hint");
  table->alias = optionalAlias(false);
  if (table->alias.empty()) table->alias = table->name;
  // Lock hints have no meaning here beyond those of the transaction.
  if (tokens_.isWord("with")) tokens_.unsupported("A table hint");
  return table;
}

}  // namespace payslate::tsql
