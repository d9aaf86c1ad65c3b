// A look at the first words of a statement; everything else about it is the server's business.
#include "platform/odbc/SelectedTable.h"

#include <cctype>

#include "platform/basic/Numbers.h"

namespace payslate::odbc {
namespace {

bool isBlank(char c) {
  return std::isspace(static_cast<unsigned char>(c)) != 0;
}

bool isNameCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '#' || c == '@' || c == '$' ||
         (static_cast<unsigned char>(c) & 0x80U) != 0;  // a letter outside of ASCII
}

/// The closing mark of a text or a quoted name; 0 for other characters.
char closingOf(char opening) {
  if (opening == '\'' || opening == '"') return opening;
  return opening == '[' ? ']' : '\0';
}

/// Walks over a statement, word by word.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  /// A quoted text or name with its marks, a word, or one other character; empty at the end.
  std::string_view next() {
    skipBlanks();
    const std::size_t start = at_;
    if (at_ >= text_.size()) return {};
    if (const char closing = closingOf(text_[at_]); closing != '\0')
      skipQuoted(closing);
    else if (isNameCharacter(text_[at_]))
      while (at_ < text_.size() && isNameCharacter(text_[at_])) ++at_;
    else
      ++at_;
    return text_.substr(start, at_ - start);
  }

 private:
  [[nodiscard]] bool at(std::string_view mark) const { return text_.substr(at_, mark.size()) == mark; }

  // Comments are blanks.
  void skipBlanks() {
    for (;;) {
      while (at_ < text_.size() && isBlank(text_[at_])) ++at_;
      if (at("--"))
        at_ = text_.find_first_of("\r\n", at_);
      else if (at("/*"))
        at_ = text_.find("*/", at_) == std::string_view::npos ? text_.size() : text_.find("*/", at_) + 2;
      else
        return;
      if (at_ == std::string_view::npos) at_ = text_.size();
    }
  }

  // Two closing marks in a row stand for one inside.
  void skipQuoted(char closing) {
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] != closing) continue;
      if (++at_ == text_.size() || text_[at_] != closing) return;
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

bool startsName(std::string_view word) {
  return !word.empty() && (isNameCharacter(word.front()) || word.front() == '[' || word.front() == '"');
}

}  // namespace

std::optional<std::string> selectedTable(std::string_view statement) {
  Scanner scanner(statement);
  for (const char* word : {"select", "*", "from"})
    if (!basic::sameName(scanner.next(), word)) return std::nullopt;
  std::string name;
  std::string_view word = scanner.next();
  bool more = true;
  while (more && startsName(word)) {
    name += word;
    word = scanner.next();
    more = word == ".";
    for (; word == "."; word = scanner.next()) name += '.';  // Two of them leave a part to the server.
  }
  if (more) return std::nullopt;
  if (word == ";") word = scanner.next();
  const bool plain = word.empty() || basic::sameName(word, "where") || basic::sameName(word, "order");
  return plain ? std::optional(name) : std::nullopt;
}

std::vector<std::string> nameParts(std::string_view name) {
  std::vector<std::string> parts(1);
  Scanner scanner(name);
  for (std::string_view word = scanner.next(); !word.empty(); word = scanner.next()) {
    const bool quoted = closingOf(word.front()) != '\0' && word.size() > 1;
    if (word == ".")
      parts.emplace_back();
    else
      parts.back() = quoted ? word.substr(1, word.size() - 2) : word;
  }
  return parts;
}

bool beginsWith(std::string_view statement, std::string_view word) {
  return basic::sameName(Scanner(statement).next(), word);
}

bool holdsSecondStatement(std::string_view statement) {
  Scanner scanner(statement);
  for (std::string_view word = scanner.next(); !word.empty(); word = scanner.next())
    if (word == ";") return !scanner.next().empty();
  return false;
}

}  // namespace payslate::odbc
