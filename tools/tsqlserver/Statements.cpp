// From a text to rows, counts or errors.
#include "tools/tsqlserver/Statements.h"

#include <algorithm>
#include <array>

#include "platform/basic/Error.h"
#include "tools/tsqlserver/Rows.h"

namespace payslate::tsqlserver {

namespace {

constexpr std::int32_t deadlock = 1205;
constexpr std::int32_t anyFault = 50000;
constexpr std::uint8_t deadlockSeverity = 13;

struct StateNumber {
  std::string_view state;
  std::int32_t number;
};

// A server's numbers, from which drivers make the states again.
constexpr std::array<StateNumber, 14> numbers = {{{"42S02", 208},
                                                  {"42S22", 207},
                                                  {"42S01", 2714},
                                                  {"22012", 8134},
                                                  {"23000", 2627},
                                                  {"22001", 8152},
                                                  {"22018", 8114},
                                                  {"22003", 8115},
                                                  {"22007", 241},
                                                  {"22011", 537},
                                                  {"21000", 512},
                                                  {"HYT00", 1222},
                                                  {"40001", deadlock},
                                                  {"42000", 102}}};

Fault faultOf(const ado::Error& error) {
  const auto* found = std::find_if(numbers.begin(), numbers.end(), [&error](const StateNumber& entry) {
    return entry.state == error.SQLState;
  });
  return {found == numbers.end() ? anyFault : found->number, error.Description};
}

struct Command {
  std::string_view word;
  std::uint16_t code;
};

constexpr std::uint16_t selecting = 0xC1;
constexpr std::array<Command, 3> changes = {{{"INSERT", 0xC3}, {"DELETE", 0xC4}, {"UPDATE", 0xC5}}};

// Session settings mean nothing to the engine. A batch that sets something and goes on to do something is not
// taken for one.
bool setsUpOnly(const std::vector<std::string>& words) {
  static const std::array<std::string_view, 9> others = {"SELECT", "INSERT", "UPDATE", "DELETE", "EXEC",
                                                         "CREATE", "DROP",   "ALTER",  "EXECUTE"};
  if (words.empty() || (words.front() != "SET" && words.front() != "USE")) return words.empty();
  return std::none_of(words.begin(), words.end(), [](const std::string& word) {
    return std::find(others.begin(), others.end(), word) != others.end();
  });
}

}  // namespace

template <typename Work>
Outcome Statements::told(Reply& reply, Work work) {
  try {
    return work();
  } catch (const ado::Error& error) {
    reply.error(faultOf(error));
  } catch (const Fault& fault) {
    reply.error(fault);
  } catch (const basic::ValueError& error) {
    reply.error(faultOf(ado::Error(error.what(), "22003")));
  }
  return {std::nullopt, 0, true};
}

Outcome Statements::run(const std::string& text, Replacements variables, Reply& reply) {
  return told(reply, [&] {
    if (controls_.obeyed(text)) return Outcome{};
    walkIntoTraps(text, reply);
    return perform(text, std::move(variables), reply);
  });
}

Outcome Statements::transact(const std::string& text, Reply& reply) {
  return told(reply, [&] {
    walkIntoTraps(text, reply);
    transactions_.performed(wordsOf(text), reply);
    return Outcome{};
  });
}

void Statements::walkIntoTraps(const std::string& text, Reply& reply) {
  const std::optional<Controls::Trap> trap = controls_.sprung(text);
  if (!trap) return;
  switch (trap->mischief) {
    case Mischief::Drop:
      throw Disconnected{};
    case Mischief::Wait:
      reply.packets().awaitAttention();
    case Mischief::Fault:
      break;
  }
  if (trap->number != deadlock) throw Fault{trap->number, "The fault that was asked for."};
  transactions_.abandon(reply);
  throw Fault{deadlock, "The transaction gave way to another one.", deadlockSeverity};
}

Outcome Statements::perform(const std::string& text, Replacements variables, Reply& reply) {
  const std::vector<std::string> words = wordsOf(text);
  if (transactions_.performed(words, reply) || setsUpOnly(words)) return {};
  variables["@@trancount"] = std::to_string(transactions_.count());
  variables["@@spid"] = std::to_string(reply.packets().number());
  variables["@@rowcount"] = std::to_string(lastRows_);
  transactions_.enterStatement(reply);
  const std::unique_ptr<ado::Cursor> cursor = provider_.execute(replaced(text, variables));
  if (cursor) {
    lastRows_ = sendRows(*cursor, reply);
    return {lastRows_, selecting};
  }
  const auto* change = std::find_if(changes.begin(), changes.end(), [&words](const Command& command) {
    return command.word == words.front();
  });
  if (change == changes.end()) return {};
  const std::optional<std::uint64_t> rows = provider_.changedRows();
  lastRows_ = rows.value_or(0);
  return {rows, change->code};
}

void Statements::describe(const std::string& text, Replacements variables, Reply& reply) {
  const std::vector<std::string> words = wordsOf(text);
  if (words.empty() || words.front() != "SELECT") return;  // Anything else would run.
  for (auto& variable : variables) variable.second = "null";
  try {
    if (const std::unique_ptr<ado::Cursor> cursor = provider_.execute(replaced(text, variables)))
      sendColumns(cursor->columns(), reply);
  } catch (const ado::Error&) {
    return;  // What is wrong with it is said when it runs.
  }
}

Outcome Statements::sendKey(const std::string& table, Reply& reply) {
  return told(reply, [&] {
    using ado::ColumnType;
    std::vector<std::vector<basic::Value>> rows;
    std::string quoted = table;
    for (std::size_t at = 0; (at = quoted.find(']', at)) != std::string::npos; at += 2)
      quoted.insert(at, "]");
    if (const std::optional<std::string> found = provider_.baseTable("select * from [" + quoted + "]")) {
      for (const std::string& column : provider_.key(*found)) {
        const auto position = static_cast<std::int64_t>(rows.size() + 1);
        rows.push_back(
            {std::string("payroll"), std::string("dbo"), *found, column, position, "PK_" + *found});
      }
    }
    MadeRows key({{"TABLE_QUALIFIER", ColumnType::Text},
                  {"TABLE_OWNER", ColumnType::Text},
                  {"TABLE_NAME", ColumnType::Text},
                  {"COLUMN_NAME", ColumnType::Text},
                  {"KEY_SEQ", ColumnType::Integer},
                  {"PK_NAME", ColumnType::Text}},
                 std::move(rows));
    return Outcome{sendRows(key, reply), selecting};
  });
}

}  // namespace payslate::tsqlserver
