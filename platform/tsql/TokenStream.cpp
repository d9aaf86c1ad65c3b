// The token stream and the reserved words.
#include "platform/tsql/TokenStream.h"

#include <algorithm>
#include <charconv>
#include <set>

namespace payslate::tsql {

namespace {

char lowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

const std::set<std::string, std::less<>>& reservedWords() {
  static const std::set<std::string, std::less<>> words = {
      "add",        "all",         "alter",     "and",        "any",      "as",       "asc",     "begin",
      "between",    "by",          "case",      "cast",       "check",    "coalesce", "column",  "commit",
      "constraint", "convert",     "create",    "cross",      "cursor",   "declare",  "default", "delete",
      "deny",       "desc",        "distinct",  "drop",       "else",     "end",      "escape",  "except",
      "exec",       "execute",     "exists",    "for",        "foreign",  "from",     "full",    "go",
      "goto",       "grant",       "group",     "having",     "holdlock", "identity", "if",      "in",
      "index",      "inner",       "insert",    "intersect",  "into",     "is",       "join",    "key",
      "left",       "like",        "merge",     "not",        "null",     "nullif",   "of",      "on",
      "option",     "or",          "order",     "outer",      "percent",  "pivot",    "primary", "print",
      "proc",       "procedure",   "raiserror", "references", "return",   "revoke",   "right",   "rollback",
      "select",     "set",         "shutdown",  "some",       "table",    "then",     "to",      "top",
      "tran",       "transaction", "trigger",   "truncate",   "union",    "unique",   "update",  "use",
      "values",     "view",        "waitfor",   "when",       "where",    "while",    "with"};
  return words;
}

std::string shown(const Token& token) {
  switch (token.kind) {
    case TokenKind::End:
      return "the end of the statement";
    case TokenKind::Text:
      return "the text '" + token.text + "'";
    default:
      return "'" + token.text + "'";
  }
}

}  // namespace

bool sameWord(std::string_view left, std::string_view right) {
  return left.size() == right.size() &&
         std::equal(left.begin(), left.end(), right.begin(),
                    [](char a, char b) { return lowerAscii(a) == lowerAscii(b); });
}

std::string lowerWord(std::string_view word) {
  std::string lower(word);
  std::transform(lower.begin(), lower.end(), lower.begin(), lowerAscii);
  return lower;
}

bool isReserved(std::string_view word) {
  return reservedWords().contains(lowerWord(word));
}

const Token& TokenStream::peek(std::size_t ahead) const {
  return tokens_[std::min(next_ + ahead, tokens_.size() - 1)];
}

const Token& TokenStream::take() {
  const Token& token = peek();
  if (next_ < tokens_.size() - 1) ++next_;
  return token;
}

bool TokenStream::isWord(std::string_view word, std::size_t ahead) const {
  return peek(ahead).kind == TokenKind::Word && sameWord(peek(ahead).text, word);
}

bool TokenStream::isSign(std::string_view sign, std::size_t ahead) const {
  return peek(ahead).kind == TokenKind::Sign && peek(ahead).text == sign;
}

bool TokenStream::isName(std::size_t ahead) const {
  const Token& token = peek(ahead);
  return token.kind == TokenKind::QuotedName || (token.kind == TokenKind::Word && !isReserved(token.text));
}

bool TokenStream::acceptWord(std::string_view word) {
  if (!isWord(word)) return false;
  take();
  return true;
}

bool TokenStream::acceptSign(std::string_view sign) {
  if (!isSign(sign)) return false;
  take();
  return true;
}

void TokenStream::expectWord(std::string_view word) {
  if (!acceptWord(word)) unexpected("'" + std::string(word) + "'");
}

void TokenStream::expectSign(std::string_view sign) {
  if (!acceptSign(sign)) unexpected("'" + std::string(sign) + "'");
}

std::string TokenStream::expectName(std::string_view what) {
  if (!isName()) unexpected(what);
  return take().text;
}

std::int64_t TokenStream::expectWhole(std::string_view what) {
  std::int64_t number = 0;
  const Token& token = peek();
  if (token.kind != TokenKind::WholeNumber) unexpected(what);
  const auto [end, error] = std::from_chars(token.text.data(), token.text.data() + token.text.size(), number);
  if (error != std::errc()) unexpected(what);
  take();
  return number;
}

std::string TokenStream::expectObjectName(std::string_view what) {
  std::string name = expectName(what);
  while (acceptSign(".")) {
    acceptSign(".");  // database..name
    name = expectName(what);
  }
  return name;
}

void TokenStream::unexpected(std::string_view wanted) const {
  throw SqlError(state::syntax, at(),
                 "Incorrect syntax near " + shown(peek()) + ": expected " + std::string(wanted) + ".");
}

void TokenStream::unsupported(std::string_view construct) const {
  throw SqlError(state::syntax, at(), std::string(construct) + " is not supported.");
}

}  // namespace payslate::tsql
