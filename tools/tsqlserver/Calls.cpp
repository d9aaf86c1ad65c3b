// The procedures by name, and the reading of their parameters.
#include "tools/tsqlserver/Calls.h"

#include <algorithm>
#include <array>

#include "platform/basic/Numbers.h"

namespace payslate::tsqlserver {

namespace {

constexpr std::int32_t noSuchProcedure = 2812;
constexpr std::int32_t noSuchHandle = 8179;
constexpr std::int32_t parameterMissing = 201;
constexpr std::uint16_t byNumber = 0xFFFF;
constexpr std::uint8_t betweenCalls = 0xFF;
constexpr std::uint8_t betweenOldCalls = 0x80;

// Procedures that may be called by number instead of name.
constexpr std::array<std::string_view, 16> numbered = {"",
                                                       "sp_cursor",
                                                       "sp_cursoropen",
                                                       "sp_cursorprepare",
                                                       "sp_cursorexecute",
                                                       "sp_cursorprepexec",
                                                       "sp_cursorunprepare",
                                                       "sp_cursorfetch",
                                                       "sp_cursoroption",
                                                       "sp_cursorclose",
                                                       "sp_executesql",
                                                       "sp_prepare",
                                                       "sp_execute",
                                                       "sp_prepexec",
                                                       "sp_prepexecrpc",
                                                       "sp_unprepare"};

const Parameter& required(const std::vector<Parameter>& parameters, std::size_t at) {
  if (at >= parameters.size()) throw Fault{parameterMissing, "A parameter of the procedure is missing."};
  return parameters[at];
}

std::string textOf(const std::vector<Parameter>& parameters, std::size_t at) {
  return basic::textOf(required(parameters, at).value);
}

// "@P1 int, @P2 nvarchar(10)": the words that are variables.
std::vector<std::string> declaredNames(const std::string& declaration) {
  std::vector<std::string> names;
  for (const std::string& word : wordsOf(declaration))
    if (word.front() == '@') names.push_back(basic::lower(word));
  return names;
}

bool hasHandle(std::string_view name) {
  return name == "sp_prepare" || name == "sp_prepexec";
}

}  // namespace

Calls::Call Calls::readCall(Reader& message) {
  Call call;
  const std::uint16_t units = message.u16();
  if (units == byNumber) {
    const std::uint16_t number = message.u16();
    call.name = number < numbered.size() ? std::string(numbered.at(number)) : std::to_string(number);
  } else {
    call.name = basic::lower(message.text(units));
  }
  message.u16();  // Options.
  while (!message.atEnd()) {
    const std::uint8_t next = Reader(message).u8();
    if (next == betweenCalls || next == betweenOldCalls) {
      message.u8();
      break;
    }
    call.parameters.push_back(readParameter(message));
  }
  return call;
}

void Calls::perform(Reader message, Reply& reply) {
  while (!message.atEnd()) {
    const Call call = readCall(message);
    const Outcome outcome = called(call, reply);
    reply.done(Closing::InProcedure, outcome, true);
    reply.returnStatus(outcome.failed ? 1 : 0);
    if (hasHandle(call.name) && !outcome.failed)
      reply.returnValue(0, call.parameters.front().name, lastHandle_);
    Outcome end;
    end.failed = outcome.failed;
    reply.done(Closing::Procedure, end, !message.atEnd());
  }
}

Outcome Calls::called(const Call& call, Reply& reply) {
  static const std::map<std::string, Procedure, std::less<>> procedures = {
      {"sp_executesql", &Calls::executeText},     {"sp_prepare", &Calls::prepare},
      {"sp_prepexec", &Calls::prepareAndExecute}, {"sp_execute", &Calls::execute},
      {"sp_unprepare", &Calls::unprepare},        {"sp_pkeys", &Calls::primaryKey},
      {"..sp_pkeys", &Calls::primaryKey},
  };
  const auto procedure = procedures.find(call.name);
  try {
    if (procedure != procedures.end()) return (this->*procedure->second)(call, reply);
    controls_.received(call.name, "");
    throw Fault{noSuchProcedure, "There is no procedure '" + call.name + "'."};
  } catch (const Fault& fault) {
    reply.error(fault);
    return {std::nullopt, 0, true};
  }
}

Outcome Calls::executeText(const Call& call, Reply& reply) {
  Prepared statement{textOf(call.parameters, 0), {}};
  if (call.parameters.size() > 1) statement.names = declaredNames(textOf(call.parameters, 1));
  return run(statement, call, 2, reply);
}

std::int32_t Calls::keep(const Call& call) {
  prepared_[++lastHandle_] = {textOf(call.parameters, 2), declaredNames(textOf(call.parameters, 1))};
  return lastHandle_;
}

Outcome Calls::prepare(const Call& call, Reply& reply) {
  const Prepared& prepared = prepared_[keep(call)];
  controls_.received(call.name, prepared.text);
  Replacements variables;
  for (const std::string& name : prepared.names) variables[name];
  statements_.describe(prepared.text, std::move(variables), reply);
  return {};
}

Outcome Calls::prepareAndExecute(const Call& call, Reply& reply) {
  return run(prepared_[keep(call)], call, 3, reply);
}

Outcome Calls::execute(const Call& call, Reply& reply) {
  const auto* handle = std::get_if<std::int64_t>(&required(call.parameters, 0).value);
  const auto found = handle == nullptr ? prepared_.end() : prepared_.find(*handle);
  if (found == prepared_.end()) throw Fault{noSuchHandle, "There is no prepared statement of this number."};
  return run(found->second, call, 1, reply);
}

Outcome Calls::unprepare(const Call& call, Reply&) {
  controls_.received(call.name, "");
  const auto* handle = std::get_if<std::int64_t>(&required(call.parameters, 0).value);
  if (handle == nullptr || prepared_.erase(*handle) == 0)
    throw Fault{noSuchHandle, "There is no prepared statement of this number."};
  return {};
}

// The table's name is the first parameter, or the one that says so.
Outcome Calls::primaryKey(const Call& call, Reply& reply) {
  const auto named =
      std::find_if(call.parameters.begin(), call.parameters.end(),
                   [](const Parameter& parameter) { return basic::sameName(parameter.name, "@table_name"); });
  const std::size_t at =
      named == call.parameters.end() ? 0 : static_cast<std::size_t>(named - call.parameters.begin());
  const std::string table = textOf(call.parameters, at);
  controls_.received(call.name, table);
  return statements_.sendKey(table, reply);
}

Outcome Calls::run(const Prepared& prepared, const Call& call, std::size_t firstValue, Reply& reply) {
  controls_.received(call.name, prepared.text);
  Replacements variables;
  for (std::size_t i = firstValue; i < call.parameters.size(); ++i) {
    const Parameter& parameter = call.parameters[i];
    const std::size_t position = i - firstValue;
    std::string name = basic::lower(parameter.name);
    if (name.empty() && position < prepared.names.size()) name = prepared.names[position];
    variables[name] = literalOf(parameter.value);
  }
  return statements_.run(prepared.text, std::move(variables), reply);
}

}  // namespace payslate::tsqlserver
