// One statement at a time: parse, bind, write.
#include "platform/tsql/Translator.h"

#include <algorithm>

#include "platform/tsql/Arithmetic.h"
#include "platform/tsql/Binder.h"
#include "platform/tsql/Convert.h"
#include "platform/tsql/Generator.h"
#include "platform/tsql/Schema.h"
#include "platform/tsql/TokenStream.h"

namespace payslate::tsql {

namespace {

template <typename... Handlers>
struct Overloaded : Handlers... {
  using Handlers::operator()...;
};
template <typename... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

// select * from TABLE [where …], and nothing else.
std::optional<std::string> soleTable(const Query& query) {
  const SelectCore& core = query.cores.front();
  const bool plain = query.cores.size() == 1 && !core.distinct && !core.top && core.items.size() == 1 &&
                     core.items.front().star && core.from.size() == 1 && core.groupBy.empty() && !core.having;
  if (!plain || core.from.front()->kind != SourceKind::Table) return std::nullopt;
  return core.from.front()->name;
}

// A literal, perhaps behind signs, as an argument of a call.
Cell literalValue(const Expr& expr, const Type& to) {
  if (expr.isLiteral()) return expr.type.isNull() ? Cell() : convertCell(expr.literal, expr.type, to);
  const Expr& operand = *expr.args[0];
  if (!operand.isLiteral() || !operand.type.isNumber()) {
    throw SqlError(state::syntax, expr.at, "An argument of a procedure must be a literal value.");
  }
  const Type& type = operand.type;
  return convertCell(
      expr.name == "-" ? compute('-', std::int64_t{0}, operand.literal, type) : operand.literal, type, to);
}

Translation translationOf(WrittenStatement written) {
  Translation result;
  result.sql.push_back(std::move(written.sql));
  result.slots = std::move(written.bound);
  return result;
}

}  // namespace

Translation Translator::translate(std::string_view text, Literals literals) {
  Statement statement = parseStatement(text, literals);
  Binder binder(catalog_);
  return std::visit(Overloaded{
                        [&](Query& query) { return this->query(query); },
                        [&](Insert& insert) {
                          binder.bind(insert);
                          Translation result = translationOf(writtenInsert(insert));
                          result.assigned = std::move(insert.assigned);
                          return result;
                        },
                        [&](Update& update) {
                          binder.bind(update);
                          return translationOf(writtenUpdate(update));
                        },
                        [&](Delete& deletion) {
                          binder.bind(deletion);
                          return translationOf(writtenDelete(deletion));
                        },
                        [&](CreateTable& table) {
                          requireFreeName(table.name, table.at);
                          return translateTable(table, catalog_);
                        },
                        [&](AddColumn& addition) { return translateColumn(addition, catalog_); },
                        [&](AddKey& key) { return translateKey(key, catalog_); },
                        [&](DropConstraint& drop) { return translateConstraint(drop, catalog_); },
                        [&](CreateIndex& index) { return translateIndex(index, catalog_); },
                        [&](CreateView& view) { return create(view, text); },
                        [&](CreateProcedure& procedure) { return create(procedure, text); },
                        [&](Drop& drop) { return this->drop(drop); },
                        [&](Call& call) { return this->call(call); },
                    },
                    statement);
}

Translation Translator::query(Query& query) const {
  const std::optional<std::string> table = soleTable(query);
  Binder(catalog_).bind(query);
  Translation result = translationOf(writtenQuery(query));
  if (table) {
    if (const TableInfo* info = catalog_.table(*table)) result.baseTable = info->name;
  }
  result.returnsRows = true;
  result.columns = query.columns;
  for (OutputColumn& column : result.columns) {
    if (column.type.isNull()) column.type = Type::of(Kind::Int);
  }
  return result;
}

void Translator::requireFreeName(const std::string& name, Position at) const {
  if (catalog_.table(name) == nullptr && catalog_.viewText(name) == nullptr &&
      catalog_.procedureText(name) == nullptr) {
    return;
  }
  throw SqlError(state::tableExists, at, "There is an object '" + name + "' already.");
}

Translation Translator::create(CreateView& view, std::string_view text) const {
  requireFreeName(view.name, view.at);
  Binder(catalog_).bind(view);
  Translation result;
  result.change = SchemaChange{SchemaChange::Action::Add, ObjectKind::View, view.name, {}, std::string(text)};
  return result;
}

Translation Translator::create(CreateProcedure& procedure, std::string_view text) const {
  requireFreeName(procedure.name, procedure.at);
  try {
    Binder(catalog_, &procedure.parameters).bind(*procedure.query);
  } catch (const SqlError& error) {
    // Its tables may be made later; it is checked again when it is called.
    if (error.sqlState() != state::noSuchTable) throw;
  }
  Translation result;
  result.change =
      SchemaChange{SchemaChange::Action::Add, ObjectKind::Procedure, procedure.name, {}, std::string(text)};
  return result;
}

Translation Translator::drop(const Drop& drop) const {
  Translation result;
  SchemaChange change;
  change.action = SchemaChange::Action::Drop;
  change.kind = drop.kind;
  change.name = drop.name;
  const auto missing = [&](const char* what) {
    return SqlError(state::noSuchTable, drop.at,
                    std::string("There is no ") + what + " '" + drop.name + "'.");
  };
  switch (drop.kind) {
    case ObjectKind::Table: {
      const TableInfo& table = Binder(catalog_).requireTable(drop.name, drop.at);
      result.sql.push_back("DROP TABLE " + quotedName(table.name));
      break;
    }
    case ObjectKind::View:
      if (catalog_.viewText(drop.name) == nullptr) throw missing("view");
      break;
    case ObjectKind::Procedure:
      if (catalog_.procedureText(drop.name) == nullptr) throw missing("procedure");
      break;
    case ObjectKind::Index: {
      const TableInfo& table = Binder(catalog_).requireTable(drop.table, drop.at);
      const auto [plain, withNulls] = indexNames(table.name, drop.name);
      result.sql.push_back("DROP INDEX " + quotedName(plain));
      result.sql.push_back("DROP INDEX IF EXISTS " + quotedName(withNulls));
      break;
    }
  }
  result.change = std::move(change);
  return result;
}

const Translator::Procedure& Translator::procedure(const Call& call) {
  const std::string name = lowerWord(call.name);
  if (const auto known = procedures_.find(name); known != procedures_.end()) return known->second;
  const std::string* text = catalog_.procedureText(call.name);
  if (text == nullptr) {
    throw SqlError(state::syntax, call.at,
                   "There is no statement and no stored procedure '" + call.name + "'.");
  }
  Procedure procedure;
  try {
    Statement statement = parseStatement(*text);
    auto* definition = std::get_if<CreateProcedure>(&statement);
    if (definition == nullptr) throw SqlError(state::general, "The stored text is damaged.");
    procedure.definition = std::move(*definition);
    Binder(catalog_, &procedure.definition.parameters).bind(*procedure.definition.query);
  } catch (const SqlError& error) {  // Its positions are those of another text.
    throw SqlError(error.sqlState(), call.at, "In the procedure '" + call.name + "': " + error.what());
  }
  procedure.sql = writtenQuery(*procedure.definition.query).sql;
  return procedures_.emplace(name, std::move(procedure)).first->second;
}

// Named arguments may stand in any order, behind those without a name.
Translation Translator::call(Call& call) {
  const Procedure& called = procedure(call);
  const std::vector<Parameter>& parameters = called.definition.parameters;
  std::vector<ExprPtr> given(parameters.size());
  bool named = false;
  for (std::size_t i = 0; i < call.arguments.size(); ++i) {
    auto& [name, value] = call.arguments[i];
    std::size_t index = i;
    if (!name.empty()) {
      named = true;
      const auto found = std::find_if(
          parameters.begin(), parameters.end(),
          [&wanted = name](const Parameter& parameter) { return sameWord(parameter.name, wanted); });
      index = static_cast<std::size_t>(found - parameters.begin());
    } else if (named) {
      throw SqlError(state::syntax, value->at, "An argument without a name follows one with a name.");
    }
    if (index >= given.size()) {
      throw SqlError(state::syntax, value->at,
                     name.empty()
                         ? "'" + call.name + "' takes " + std::to_string(given.size()) + " argument(s)."
                         : "'" + call.name + "' has no parameter '" + name + "'.");
    }
    if (given[index]) throw SqlError(state::syntax, value->at, "The parameter is given twice.");
    given[index] = std::move(value);
  }
  Translation result;
  for (std::size_t i = 0; i < given.size(); ++i) {
    const Parameter& parameter = parameters[i];
    const Expr* value = given[i] ? given[i].get() : parameter.defaultValue.get();
    if (value == nullptr) {
      throw SqlError(state::syntax, call.at,
                     "'" + call.name + "' expects the parameter '" + parameter.name + "'.");
    }
    try {
      result.bindings.push_back(literalValue(*value, parameter.type));
    } catch (const SqlError& error) {
      throw SqlError(error.sqlState(), value->at, "Parameter '" + parameter.name + "': " + error.what());
    }
  }
  result.returnsRows = true;
  result.sql.push_back(called.sql);
  result.columns = called.definition.query->columns;
  for (OutputColumn& column : result.columns) {
    if (column.type.isNull()) column.type = Type::of(Kind::Int);
  }
  return result;
}

}  // namespace payslate::tsql
