// Traps and the log.
#include "tools/tsqlserver/Controls.h"

#include <algorithm>
#include <map>

#include "platform/basic/Numbers.h"
#include "tools/tsqlserver/Tokens.h"
#include "tools/tsqlserver/Words.h"

namespace payslate::tsqlserver {

namespace {

constexpr std::int32_t notUnderstood = 102;

using Words = std::vector<std::string>;

// 'it''s' comes in two quoted pieces.
std::string unquoted(Words::const_iterator from, Words::const_iterator to) {
  std::string quoted;
  for (; from != to; ++from) quoted += *from;
  if (quoted.size() < 2 || quoted.front() != '\'' || quoted.back() != '\'') return quoted;
  std::string text;
  for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
    text += quoted[i];
    if (quoted[i] == '\'') ++i;
  }
  return text;
}

// Behind the address: what, for a fault its number, ON, the text.
std::optional<Controls::Trap> trapOf(const Words& words) {
  static const std::map<std::string, Mischief> kinds = {
      {"FAULT", Mischief::Fault}, {"DROP", Mischief::Drop}, {"WAIT", Mischief::Wait}};
  const auto kind = words.size() < 2 ? kinds.end() : kinds.find(words[1]);
  if (kind == kinds.end()) return std::nullopt;
  Controls::Trap trap;
  trap.mischief = kind->second;
  std::size_t at = 2;
  if (trap.mischief == Mischief::Fault && at < words.size() && basic::IsNumeric(words[at]))
    trap.number = basic::CLng(words[at++]);
  if ((trap.mischief == Mischief::Fault && trap.number <= 0) || at + 1 >= words.size() || words[at] != "ON")
    return std::nullopt;
  trap.text = basic::lower(unquoted(words.begin() + static_cast<std::ptrdiff_t>(at) + 1, words.end()));
  return trap;
}

// The path as it is written, in quotes or without.
std::optional<std::string> logFileOf(const std::string& statement, const Words& words) {
  constexpr std::string_view verb = "log";
  if (words.size() < 3 || words[1] != "LOG") return std::nullopt;
  const std::string path = basic::Trim(statement.substr(basic::lower(statement).find(verb) + verb.size()));
  const bool quoted = path.size() > 2 && path.front() == '\'' && path.back() == '\'';
  return quoted ? path.substr(1, path.size() - 2) : path;
}

}  // namespace

bool Controls::obeyed(const std::string& statement) {
  const Words words = wordsOf(statement);
  if (words.empty() || words.front() != "TSQLSERVER") return false;
  const std::lock_guard lock(mutex_);
  if (const std::optional<Trap> trap = trapOf(words)) {
    traps_.push_back(*trap);
    return true;
  }
  const std::optional<std::string> file = logFileOf(statement, words);
  if (!file) throw Fault{notUnderstood, "This is no command of the server."};
  log_ = std::ofstream(*file, std::ios::app);
  if (!log_) throw Fault{notUnderstood, "'" + *file + "' cannot be written."};
  return true;
}

void Controls::received(std::string_view kind, std::string_view statement) {
  const std::lock_guard lock(mutex_);
  if (!log_.is_open()) return;
  std::string line(statement);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  log_ << kind << '\t' << line << std::endl;
}

std::optional<Controls::Trap> Controls::sprung(std::string_view statement) {
  const std::string text = basic::lower(statement);
  const std::lock_guard lock(mutex_);
  const auto found = std::find_if(traps_.begin(), traps_.end(), [&text](const Trap& trap) {
    return text.find(trap.text) != std::string::npos;
  });
  if (found == traps_.end()) return std::nullopt;
  Trap trap = std::move(*found);
  traps_.erase(found);
  return trap;
}

}  // namespace payslate::tsqlserver
