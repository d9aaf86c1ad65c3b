// Statements: what may stand in a text, and that only one does.
#include "platform/tsql/Parser.h"

#include "platform/tsql/QueryParser.h"

namespace payslate::tsql {

namespace {

class StatementParser {
 public:
  StatementParser(std::string_view text, Literals literals)
      : tokens_(tokenize(text)),
        literals_(literals),
        query_(tokens_, usesValues() ? literals : Literals::Settled) {}

  Statement run() {
    if (tokens_.peek().kind == TokenKind::End) throw SqlError(state::syntax, "The statement is empty.");
    Statement statement = this->statement();
    tokens_.acceptSign(";");
    if (tokens_.peek().kind != TokenKind::End) {
      throw SqlError(state::syntax, tokens_.at(),
                     "Incorrect syntax near '" + tokens_.peek().text +
                         "': the statement ends before it, and a text holds one statement.");
    }
    return statement;
  }

 private:
  // Whatever else there is looks at its literals at once.
  [[nodiscard]] bool usesValues() const {
    return tokens_.isWord("select") || tokens_.isWord("update") || tokens_.isWord("delete");
  }

  Statement statement() {
    if (tokens_.isWord("select")) return query_.query();
    if (tokens_.isWord("insert")) return insert();
    if (tokens_.isWord("update")) return update();
    if (tokens_.isWord("delete")) return deletion();
    if (tokens_.isWord("create")) return create();
    if (tokens_.isWord("alter")) return alter();
    if (tokens_.isWord("drop")) return drop();
    if (tokens_.isWord("exec") || tokens_.isWord("execute")) {
      tokens_.take();
      return call();
    }
    if (tokens_.isName()) return call();
    if (tokens_.peek().kind == TokenKind::Word)
      tokens_.unsupported("The statement '" + tokens_.peek().text + "'");
    tokens_.unexpected("a statement");
  }

  std::vector<std::string> nameList(std::string_view what) {
    std::vector<std::string> names;
    tokens_.expectSign("(");
    do {
      names.push_back(tokens_.expectName(what));
    } while (tokens_.acceptSign(","));
    tokens_.expectSign(")");
    return names;
  }

  Insert insert() {
    Insert result;
    result.at = tokens_.take().at;
    tokens_.acceptWord("into");
    result.table = tokens_.expectObjectName("a table");
    if (tokens_.acceptSign("(")) {
      do {
        result.columnsAt.push_back(tokens_.at());
        result.columns.push_back(tokens_.expectName("a column"));
      } while (tokens_.acceptSign(","));
      tokens_.expectSign(")");
    }
    if (tokens_.isWord("select")) {
      result.query = std::make_unique<Query>(query_.query());
      return result;
    }
    if (tokens_.isWord("default") || tokens_.isWord("exec") || tokens_.isWord("execute")) {
      tokens_.unsupported("'insert … " + tokens_.peek().text + "'");
    }
    tokens_.expectWord("values");
    do {
      std::vector<ExprPtr> row;
      tokens_.expectSign("(");
      do {
        if (tokens_.isWord("default")) tokens_.unsupported("'default' as a value");
        // A literal alone is stored as it is; what counts is the column's type.
        const bool alone = tokens_.isSign(",", 1) || tokens_.isSign(")", 1);
        const std::optional<std::size_t> slot =
            alone && literals_ == Literals::Bound ? tokens_.peek().slot : std::nullopt;
        row.push_back(query_.expression());
        row.back()->slot = slot;
      } while (tokens_.acceptSign(","));
      tokens_.expectSign(")");
      result.rows.push_back(std::move(row));
    } while (tokens_.acceptSign(","));
    return result;
  }

  Update update() {
    Update result;
    result.at = tokens_.take().at;
    if (tokens_.isWord("top")) tokens_.unsupported("'update top'");
    result.table = tokens_.expectObjectName("a table");
    tokens_.expectWord("set");
    do {
      std::string column = tokens_.expectName("a column");
      while (tokens_.acceptSign(".")) column = tokens_.expectName("a column");
      tokens_.expectSign("=");
      result.assignments.emplace_back(std::move(column), query_.expression());
    } while (tokens_.acceptSign(","));
    if (tokens_.isWord("from")) tokens_.unsupported("'update … from'");
    if (tokens_.acceptWord("where")) result.where = query_.expression();
    return result;
  }

  Delete deletion() {
    Delete result;
    result.at = tokens_.take().at;
    if (tokens_.isWord("top")) tokens_.unsupported("'delete top'");
    tokens_.acceptWord("from");
    result.table = tokens_.expectObjectName("a table");
    if (tokens_.isWord("from")) tokens_.unsupported("'delete … from' with a second table");
    if (tokens_.acceptWord("where")) result.where = query_.expression();
    return result;
  }

  Statement create() {
    const Position at = tokens_.take().at;
    if (tokens_.acceptWord("table")) return createTable(at);
    if (tokens_.acceptWord("view")) return createView(at);
    if (tokens_.acceptWord("procedure") || tokens_.acceptWord("proc")) return createProcedure(at);
    const bool unique = tokens_.acceptWord("unique");
    if (tokens_.isWord("clustered") || tokens_.isWord("nonclustered")) tokens_.take();
    if (tokens_.acceptWord("index")) return createIndex(at, unique);
    tokens_.unsupported("'create " + tokens_.peek().text + "'");
  }

  CreateTable createTable(Position at) {
    CreateTable result;
    result.at = at;
    result.name = tokens_.expectObjectName("a table name");
    tokens_.expectSign("(");
    do {
      if (tokens_.isSign(")") && !result.columns.empty()) break;
      if (!tableConstraint(result)) result.columns.push_back(columnDefinition(&result));
    } while (tokens_.acceptSign(","));
    tokens_.expectSign(")");
    return result;
  }

  bool tableConstraint(CreateTable& table) {
    const bool named = tokens_.acceptWord("constraint");
    if (named) tokens_.expectName("a constraint name");
    if (keyConstraint(table, "")) return true;
    if (tokens_.isWord("check")) {
      checkConstraint(table);
      return true;
    }
    if (tokens_.isWord("foreign")) tokens_.unsupported("A foreign key");
    if (named) tokens_.unexpected("a constraint");
    return false;
  }

  // Column constraints name no columns; the column they stand at is meant.
  bool keyConstraint(CreateTable& table, const std::string& column) {
    KeyDefinition key;
    if (tokens_.acceptWord("primary")) {
      tokens_.expectWord("key");
      key.primary = true;
    } else if (!tokens_.acceptWord("unique")) {
      return false;
    }
    if (tokens_.isWord("clustered") || tokens_.isWord("nonclustered")) tokens_.take();
    if (column.empty()) {
      key.columns = keyColumns();
    } else {
      key.columns.push_back(column);
    }
    table.keys.push_back(std::move(key));
    return true;
  }

  std::vector<std::string> keyColumns() {
    std::vector<std::string> columns;
    tokens_.expectSign("(");
    do {
      columns.push_back(tokens_.expectName("a column"));
      if (!tokens_.acceptWord("asc") && tokens_.isWord("desc")) tokens_.unsupported("A descending key");
    } while (tokens_.acceptSign(","));
    tokens_.expectSign(")");
    return columns;
  }

  void checkConstraint(CreateTable& table) {
    tokens_.expectWord("check");
    tokens_.expectSign("(");
    table.checks.push_back(query_.expression());
    tokens_.expectSign(")");
  }

  ColumnDefinition columnDefinition(CreateTable* table) {
    ColumnDefinition column;
    column.at = tokens_.at();
    column.name = tokens_.expectName("a column name");
    column.type = query_.type();
    if (column.type.isText() && column.type.length < 0) column.type.length = 1;
    for (;;) {
      const bool named = tokens_.acceptWord("constraint");
      if (named) tokens_.expectName("a constraint name");
      if (tokens_.acceptWord("not")) {
        tokens_.expectWord("null");
        column.notNull = true;
      } else if (tokens_.acceptWord("null")) {
        column.notNull = false;
      } else if (tokens_.acceptWord("default")) {
        column.defaultValue = query_.expression();
      } else if (tokens_.isWord("identity")) {
        tokens_.unsupported("An identity column");
      } else if (tokens_.isWord("references") || tokens_.isWord("foreign")) {
        tokens_.unsupported("A foreign key");
      } else if (tokens_.isWord("collate")) {
        tokens_.unsupported("A collation");
      } else if (tokens_.isWord("check") && table != nullptr) {
        checkConstraint(*table);
      } else if (table == nullptr || !keyConstraint(*table, column.name)) {
        if (named) tokens_.unexpected("a constraint");
        return column;
      }
    }
  }

  CreateIndex createIndex(Position at, bool unique) {
    CreateIndex result;
    result.at = at;
    result.unique = unique;
    result.name = tokens_.expectName("an index name");
    tokens_.expectWord("on");
    result.table = tokens_.expectObjectName("a table");
    tokens_.expectSign("(");
    do {
      std::string column = tokens_.expectName("a column");
      const bool descending = tokens_.acceptWord("desc");
      if (!descending) tokens_.acceptWord("asc");
      result.columns.emplace_back(std::move(column), descending);
    } while (tokens_.acceptSign(","));
    tokens_.expectSign(")");
    if (tokens_.isWord("include")) tokens_.unsupported("'include'");
    if (tokens_.acceptWord("where")) result.where = query_.expression();
    return result;
  }

  CreateView createView(Position at) {
    CreateView result;
    result.at = at;
    result.name = tokens_.expectObjectName("a view name");
    if (tokens_.isSign("(")) result.columnNames = nameList("a column");
    tokens_.expectWord("as");
    result.query = std::make_unique<Query>(query_.query());
    return result;
  }

  CreateProcedure createProcedure(Position at) {
    CreateProcedure result;
    result.at = at;
    result.name = tokens_.expectObjectName("a procedure name");
    const bool wrapped = tokens_.acceptSign("(");
    if (tokens_.peek().kind == TokenKind::Variable) {
      do {
        if (tokens_.peek().kind != TokenKind::Variable) tokens_.unexpected("a parameter");
        Parameter parameter;
        parameter.name = tokens_.take().text;
        tokens_.acceptWord("as");
        parameter.type = query_.type();
        if (parameter.type.isText() && parameter.type.length < 0) parameter.type.length = 1;
        if (tokens_.acceptSign("=")) parameter.defaultValue = query_.literal();
        if (tokens_.isWord("output") || tokens_.isWord("out")) tokens_.unsupported("An output parameter");
        result.parameters.push_back(std::move(parameter));
      } while (tokens_.acceptSign(","));
    }
    if (wrapped) tokens_.expectSign(")");
    tokens_.expectWord("as");
    const bool block = tokens_.acceptWord("begin");
    if (tokens_.isWord("set") && tokens_.isWord("nocount", 1) && tokens_.isWord("on", 2)) {
      tokens_.unsupported("'set nocount' in a procedure");
    }
    if (!tokens_.isWord("select")) tokens_.unsupported("A procedure that is not one select");
    result.query = std::make_unique<Query>(query_.query());
    if (block) {
      tokens_.acceptSign(";");
      tokens_.expectWord("end");
    }
    return result;
  }

  Statement alter() {
    const Position at = tokens_.take().at;
    if (!tokens_.acceptWord("table")) tokens_.unsupported("'alter " + tokens_.peek().text + "'");
    std::string table = tokens_.expectObjectName("a table");
    if (tokens_.acceptWord("drop")) {
      if (!tokens_.acceptWord("constraint"))
        tokens_.unsupported("'alter table … drop " + tokens_.peek().text + "'");
      return DropConstraint{at, std::move(table), tokens_.expectName("a constraint name")};
    }
    if (!tokens_.acceptWord("add")) tokens_.unsupported("'alter table … " + tokens_.peek().text + "'");
    if (tokens_.acceptWord("primary")) {
      tokens_.expectWord("key");
      if (tokens_.isWord("clustered") || tokens_.isWord("nonclustered")) tokens_.take();
      return AddKey{at, std::move(table), keyColumns()};
    }
    if (tokens_.isWord("constraint") || tokens_.isWord("unique") || tokens_.isWord("check") ||
        tokens_.isWord("foreign")) {
      tokens_.unsupported("Adding a constraint other than 'primary key (…)'");
    }
    AddColumn result{at, std::move(table), columnDefinition(nullptr)};
    if (tokens_.isSign(",")) tokens_.unsupported("Adding several columns in one statement");
    return result;
  }

  Drop drop() {
    Drop result;
    result.at = tokens_.take().at;
    if (tokens_.acceptWord("index")) {
      result.kind = ObjectKind::Index;
      result.name = tokens_.expectName("an index");
      if (tokens_.acceptWord("on")) {
        result.table = tokens_.expectObjectName("a table");
      } else {
        tokens_.expectSign(".");
        result.table = result.name;
        result.name = tokens_.expectName("an index");
      }
      return result;
    }
    if (tokens_.acceptWord("view")) {
      result.kind = ObjectKind::View;
    } else if (tokens_.acceptWord("procedure") || tokens_.acceptWord("proc")) {
      result.kind = ObjectKind::Procedure;
    } else if (!tokens_.acceptWord("table")) {
      tokens_.unsupported("'drop " + tokens_.peek().text + "'");
    }
    if (tokens_.isWord("if")) tokens_.unsupported("'if exists'");
    result.name = tokens_.expectObjectName("a name");
    return result;
  }

  Call call() {
    Call result;
    result.at = tokens_.at();
    result.name = tokens_.expectObjectName("a procedure");
    if (tokens_.peek().kind == TokenKind::End || tokens_.isSign(";")) return result;
    do {
      std::string parameter;
      if (tokens_.peek().kind == TokenKind::Variable && tokens_.isSign("=", 1)) {
        parameter = tokens_.take().text;
        tokens_.take();
      }
      result.arguments.emplace_back(std::move(parameter), query_.literal());
    } while (tokens_.acceptSign(","));
    return result;
  }

  TokenStream tokens_;
  Literals literals_;
  QueryParser query_;
};

}  // namespace

Statement parseStatement(std::string_view text, Literals literals) {
  return StatementParser(text, literals).run();
}

Type parseType(std::string_view text) {
  TokenStream tokens(tokenize(text));
  return QueryParser(tokens, Literals::Settled).type();
}

}  // namespace payslate::tsql
