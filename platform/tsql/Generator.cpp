// The generator. Every comparison names its collation unless a stored column brings it along.
#include "platform/tsql/Generator.h"

#include <array>
#include <charconv>
#include <limits>
#include <map>

namespace payslate::tsql {

namespace {

const std::map<std::string, char, std::less<>>& arithmeticCalls() {
  static const std::map<std::string, char, std::less<>> calls = {
      {"ts_add", '+'}, {"ts_sub", '-'}, {"ts_mul", '*'}, {"ts_div", '/'}, {"ts_mod", '%'}};
  return calls;
}

class Writer {
 public:
  std::string text;

  void write(const Expr& expr) {
    switch (expr.kind) {
      case ExprKind::Literal:
        text += writtenLiteral(expr.literal);
        break;
      case ExprKind::Column:
        if (!expr.source.empty()) text += quotedName(expr.source) + ".";
        text += quotedName(expr.name);
        break;
      case ExprKind::Variable:
        text += "?" + std::to_string(std::get<std::int64_t>(expr.literal));
        break;
      case ExprKind::Compare:
        infix(expr, " " + expr.name + " ");
        break;
      case ExprKind::And:
        logical(expr, " AND ");
        break;
      case ExprKind::Or:
        logical(expr, " OR ");
        break;
      case ExprKind::Not:
        text += "(NOT ";
        write(*expr.args[0]);
        text += ")";
        break;
      case ExprKind::IsNull:
        text += "(";
        write(*expr.args[0]);
        text += expr.negated ? " IS NOT NULL)" : " IS NULL)";
        break;
      case ExprKind::Between:
        between(expr);
        break;
      case ExprKind::InList:
      case ExprKind::InQuery:
        in(expr);
        break;
      case ExprKind::Exists:
        text += "EXISTS (";
        write(*expr.query);
        text += ")";
        break;
      case ExprKind::Subquery:
        subquery(expr);
        break;
      case ExprKind::Case:
        caseOf(expr);
        break;
      case ExprKind::Concat:
        concatenation(expr);
        break;
      case ExprKind::Runtime:
        if (!chain(expr)) call(expr);
        break;
      case ExprKind::Native:
        call(expr);
        break;
      case ExprKind::Arithmetic:
      case ExprKind::Like:
      case ExprKind::Function:
      case ExprKind::Convert:
        throw SqlError(state::general, expr.at,
                       "The expression '" + expr.name + "' was not given a meaning.");
    }
  }

  // As the left side of a comparison, or as a key of an order or a group.
  void compared(const Expr& expr) {
    write(expr);
    const char* collation = collationOf(expr.type);
    if (collation != nullptr && !expr.storedColumn) text += std::string(" COLLATE ") + collation;
  }

  void write(const Query& query) {
    const bool several = query.cores.size() > 1;
    bool distinct = query.cores.front().distinct;
    for (const bool all : query.all) distinct = distinct || !all;
    for (std::size_t i = 0; i < query.cores.size(); ++i) {
      if (i > 0) text += query.all[i - 1] ? " UNION ALL " : " UNION ";
      const SelectCore& core = query.cores[i];
      const bool wrapped = several && core.top;
      if (wrapped) text += "SELECT * FROM (";
      write(core, distinct || core.distinct);
      if (several && core.top) text += " LIMIT " + std::to_string(*core.top);
      if (wrapped) text += ")";
    }
    order(query);
    if (!several && query.cores.front().top) text += " LIMIT " + std::to_string(*query.cores.front().top);
  }

 private:
  void infix(const Expr& expr, const std::string& sign) {
    text += "(";
    compared(*expr.args[0]);
    text += sign;
    write(*expr.args[1]);
    text += ")";
  }

  // Chains of one operator are written flat: the database counts parentheses.
  void logical(const Expr& expr, const std::string& sign) {
    text += "(";
    flat(expr, expr.kind, sign);
    text += ")";
  }

  void flat(const Expr& expr, ExprKind kind, const std::string& sign) {
    for (std::size_t i = 0; i < expr.args.size(); ++i) {
      if (i > 0) text += sign;
      if (expr.args[i]->kind == kind) {
        flat(*expr.args[i], kind, sign);
      } else {
        write(*expr.args[i]);
      }
    }
  }

  void concatenation(const Expr& expr) {
    text += "(";
    flat(expr, ExprKind::Concat, " || ");
    text += ")";
  }

  void between(const Expr& expr) {
    text += "(";
    compared(*expr.args[0]);
    text += expr.negated ? " NOT BETWEEN " : " BETWEEN ";
    write(*expr.args[1]);
    text += " AND ";
    write(*expr.args[2]);
    text += ")";
  }

  void in(const Expr& expr) {
    text += "(";
    compared(*expr.args[0]);
    text += expr.negated ? " NOT IN (" : " IN (";
    if (expr.query) {
      write(*expr.query);
    } else {
      list(expr, 1);
    }
    text += "))";
  }

  // More than one row is an error there, and not the first one's value.
  void subquery(const Expr& expr) {
    text += "(";
    if (expr.query->single) {
      write(*expr.query);
    } else {
      text += "SELECT ts_only(\"value\") FROM (";
      named(*expr.query);
      text += ")";
    }
    text += ")";
  }

  void named(const Query& query) {
    outputName_ = "value";
    write(query);
    outputName_.clear();
  }

  void caseOf(const Expr& expr) {
    const std::size_t first = expr.hasOperand ? 1 : 0;
    const std::size_t end = expr.args.size() - (expr.hasElse ? 1 : 0);
    text += "CASE";
    if (expr.hasOperand) {
      text += " ";
      compared(*expr.args[0]);
    }
    for (std::size_t i = first; i < end; i += 2) {
      text += " WHEN ";
      write(*expr.args[i]);
      text += " THEN ";
      write(*expr.args[i + 1]);
    }
    if (expr.hasElse) {
      text += " ELSE ";
      write(*expr.args[end]);
    }
    text += " END";
  }

  void list(const Expr& expr, std::size_t first) {
    for (std::size_t i = first; i < expr.args.size(); ++i) {
      if (i > first) text += ", ";
      write(*expr.args[i]);
    }
  }

  void call(const Expr& expr) {
    text += expr.name + "(";
    if (expr.star) text += "*";
    if (expr.distinct) text += "DISTINCT ";
    const bool compares = expr.kind == ExprKind::Native && (expr.aggregate || expr.name == "nullif");
    if (compares && !expr.args.empty()) {
      compared(*expr.args[0]);
      if (expr.args.size() > 1) text += ", ";
      list(expr, 1);
    } else {
      list(expr, 0);
    }
    text += ")";
  }

  // a + b - c … as one call: the database's own parser nests only so deep.
  bool chain(const Expr& expr) {
    constexpr std::size_t mostSteps = 40;  // Three arguments each, and a call takes 127.
    std::vector<const Expr*> steps;
    const Expr* step = &expr;
    while (step->kind == ExprKind::Runtime && arithmeticCalls().contains(step->name) &&
           steps.size() < mostSteps) {
      steps.push_back(step);
      step = step->args[0].get();
    }
    if (steps.size() < 2) return false;
    text += "ts_chain(";
    write(*step);
    for (auto it = steps.rbegin(); it != steps.rend(); ++it) {
      text += ", " + std::to_string(static_cast<int>(arithmeticCalls().at((*it)->name))) + ", ";
      write(*(*it)->args[1]);
      text += ", ";
      write(*(*it)->args[2]);
    }
    text += ")";
    return true;
  }

  void write(const SelectCore& core, bool distinct) {
    const std::string outputName = std::exchange(outputName_, "");
    text += core.distinct ? "SELECT DISTINCT " : "SELECT ";
    for (std::size_t i = 0; i < core.items.size(); ++i) {
      if (i > 0) text += ", ";
      const SelectItem& item = core.items[i];
      // Under a bare "having" all rows are one group; the database wants to see something that folds them.
      const bool folds = i == 0 && core.having && core.groupBy.empty();
      if (folds) text += "CASE WHEN count(*) >= 0 THEN ";
      if (distinct) {
        compared(*item.expr);
      } else {
        write(*item.expr);
      }
      if (folds) text += " END";
      if (!outputName.empty()) {
        text += " AS " + quotedName(outputName);
      } else if (!item.alias.empty()) {
        text += " AS " + quotedName(item.alias);
      }
    }
    for (std::size_t i = 0; i < core.from.size(); ++i) {
      text += i == 0 ? " FROM " : ", ";
      // Outer joins to the right bind tighter than the comma before them.
      const bool grouped = i > 0 && keepsRight(*core.from[i]);
      if (grouped) text += "(";
      write(*core.from[i]);
      if (grouped) text += ")";
    }
    if (core.where) clause(" WHERE ", *core.where);
    for (std::size_t i = 0; i < core.groupBy.size(); ++i) {
      text += i == 0 ? " GROUP BY " : ", ";
      compared(*core.groupBy[i]);
    }
    if (core.having) clause(" HAVING ", *core.having);
  }

  void clause(const char* word, const Expr& condition) {
    text += word;
    write(condition);
  }

  static bool keepsRight(const TableRef& ref) {
    return ref.kind == SourceKind::Join && (ref.join == JoinKind::Right || ref.join == JoinKind::Full ||
                                            keepsRight(*ref.left) || keepsRight(*ref.right));
  }

  void write(const TableRef& ref) {
    switch (ref.kind) {
      case SourceKind::Table:
        text += quotedName(ref.name) + " AS " + quotedName(ref.source);
        return;
      case SourceKind::Derived:
        text += "(";
        write(*ref.query);
        text += ") AS " + quotedName(ref.source);
        return;
      case SourceKind::Join:
        break;
    }
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

  void order(const Query& query) {
    for (std::size_t i = 0; i < query.order.size(); ++i) {
      const OrderItem& item = query.order[i];
      text += i == 0 ? " ORDER BY " : ", ";
      if (item.position) {
        text += std::to_string(*item.position + 1);
        const OutputColumn& column = query.columns[*item.position];
        const char* collation = collationOf(column.type);
        if (collation != nullptr && !column.storedColumn) text += std::string(" COLLATE ") + collation;
      } else {
        compared(*item.expr);
      }
      if (item.descending) text += " DESC";
    }
  }

  std::string outputName_;  // Given to the next select's only column.
};

std::string written(const auto& part) {
  Writer writer;
  writer.write(part);
  return std::move(writer.text);
}

}  // namespace

std::string quotedName(const std::string& name) {
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"') quoted += c;
    quoted += c;
  }
  return quoted + "\"";
}

std::string writtenLiteral(const Cell& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    // The least number has no literal of its own.
    if (*whole == std::numeric_limits<std::int64_t>::min()) return "(" + std::to_string(*whole + 1) + " - 1)";
    return std::to_string(*whole);
  }
  if (const auto* number = std::get_if<double>(&value)) {
    std::array<char, 40> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), *number, std::chars_format::scientific);
    return {buffer.data(), end.ptr};
  }
  if (const auto* content = std::get_if<std::string>(&value)) {
    std::string quoted = "'";
    for (const char c : *content) {
      if (c == '\'') quoted += c;
      quoted += c;
    }
    return quoted + "'";
  }
  return "NULL";
}

std::string writtenExpression(const Expr& expr) {
  return written(expr);
}
std::string writtenQuery(const Query& query) {
  return written(query);
}

}  // namespace payslate::tsql
