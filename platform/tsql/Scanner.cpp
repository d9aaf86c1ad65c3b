// The scanner: what a byte may begin, and where that ends.
#include "platform/tsql/Scanner.h"

#include <array>
#include <cctype>
#include <cstdint>
#include <string>
#include <utility>

namespace payslate::tsql {

namespace {

constexpr std::array<std::string_view, 6> doubleSigns = {"<>", "<=", ">=", "!=", "!<", "!>"};
constexpr std::string_view singleSigns = "+-*/%=<>(),.;";
/// What a byte can be: every statement is scanned, so each byte is looked up once.
enum Class : std::uint8_t { Blank = 1, Digit = 2, NameStart = 4, NameRest = 8 };

constexpr std::uint8_t classOf(char c) {
  const bool letter =
      (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80U;
  if (letter || c == '_' || c == '#') return NameStart | NameRest;
  if (c == '$' || c == '@') return NameRest;
  if (c >= '0' && c <= '9') return Digit | NameRest;
  return c == ' ' || (c >= '\t' && c <= '\r') ? Blank : 0;  // The controls between are \n, \v and \f.
}

template <std::size_t... bytes>
constexpr std::array<std::uint8_t, sizeof...(bytes)> classesOf(std::index_sequence<bytes...>) {
  return {classOf(static_cast<char>(bytes))...};
}

constexpr auto classes = classesOf(std::make_index_sequence<256>());

constexpr bool is(char c, Class wanted) {
  return (classes[static_cast<unsigned char>(c)] & wanted) != 0;
}

}  // namespace

Position positionAt(std::string_view text, std::size_t offset) {
  Position at;
  for (const char c : text.substr(0, offset)) {
    const bool continues = (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
    if (c == '\n') {
      ++at.line;
      at.column = 1;
    } else if (!continues) {
      ++at.column;
    }
  }
  return at;
}

Span Scanner::next() {
  skipBlanks();
  Span span{TokenKind::End, offset_, offset_};
  if (offset_ >= text_.size()) return span;
  span.kind = scan();
  span.end = offset_;
  return span;
}

void Scanner::skipBlanks() {
  for (;;) {
    while (is(peek(), Blank)) ++offset_;
    if (peek() == '-' && peek(1) == '-') {
      while (offset_ < text_.size() && text_[offset_] != '\n') ++offset_;
    } else if (peek() == '/' && peek(1) == '*') {
      skipBlockComment();
    } else {
      return;
    }
  }
}

void Scanner::skipBlockComment() {
  const std::size_t start = offset_;
  int depth = 0;
  do {
    if (offset_ >= text_.size()) refuse(start, "The comment that starts here is not closed.");
    const bool opens = looksAt("/*");
    const bool closes = !opens && looksAt("*/");
    depth += static_cast<int>(opens) - static_cast<int>(closes);
    offset_ += opens || closes ? 2 : 1;
  } while (depth > 0);
}

TokenKind Scanner::scan() {
  const char c = peek();
  if (is(c, NameStart) || c == '@') {
    if ((c != 'N' && c != 'n') || peek(1) != '\'') return word();
    ++offset_;
    return quoted(TokenKind::Text, '\'');
  }
  if (c == '\'') return quoted(TokenKind::Text, '\'');
  if (c == '"') return quoted(TokenKind::QuotedName, '"');
  if (c == '[') return quoted(TokenKind::QuotedName, ']');
  if (is(c, Digit) || (c == '.' && is(peek(1), Digit))) return number();
  for (const std::string_view sign : doubleSigns) {
    if (!looksAt(sign)) continue;
    offset_ += sign.size();
    return TokenKind::Sign;
  }
  if (singleSigns.find(c) == std::string_view::npos || c == '\0') unknownCharacter();
  ++offset_;
  return TokenKind::Sign;
}

// A quote inside stands twice.
TokenKind Scanner::quoted(TokenKind kind, char close) {
  const std::size_t start = offset_++;
  for (;;) {
    if (offset_ >= text_.size())
      refuse(start, kind == TokenKind::Text ? "The text that starts here is not closed."
                                            : "The quoted name that starts here is not closed.");
    const char c = text_[offset_++];
    if (c == '\0') refuse(start, "A quoted text holds a zero character.");
    if (c != close) continue;
    if (peek() != close) break;
    ++offset_;
  }
  if (kind == TokenKind::QuotedName && offset_ == start + 2) refuse(start, "A quoted name is empty.");
  return kind;
}

void Scanner::digits() {
  while (is(peek(), Digit)) ++offset_;
}

// The digits of an exponent may be missing.
TokenKind Scanner::number() {
  TokenKind kind = TokenKind::WholeNumber;
  if (peek() == '0' && (peek(1) == 'x' || peek(1) == 'X'))
    refuse(offset_, "A hexadecimal literal is not supported.");
  digits();
  if (peek() == '.') {
    kind = TokenKind::DecimalNumber;
    ++offset_;
    digits();
  }
  if (peek() == 'e' || peek() == 'E') {
    kind = TokenKind::FloatNumber;
    ++offset_;
    if (peek() == '+' || peek() == '-') ++offset_;
    digits();
  }
  return kind;
}

TokenKind Scanner::word() {
  const TokenKind kind = peek() == '@' ? TokenKind::Variable : TokenKind::Word;
  do {
    ++offset_;
  } while (is(peek(), NameRest));
  return kind;
}

void Scanner::refuse(std::size_t offset, const std::string& message) const {
  throw SqlError(state::syntax, positionAt(text_, offset), message);
}

void Scanner::unknownCharacter() const {
  const auto byte = static_cast<unsigned char>(peek());
  const std::string shown = std::isprint(byte) != 0 ? std::string(1, peek()) : "code " + std::to_string(byte);
  refuse(offset_, "The character '" + shown + "' is not understood.");
}

}  // namespace payslate::tsql
