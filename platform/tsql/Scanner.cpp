// The scanner: what a byte may begin, and where that ends.
#include "platform/tsql/Scanner.h"

#include <array>
#include <cctype>
#include <string>

namespace payslate::tsql {

namespace {

constexpr std::array<std::string_view, 6> doubleSigns = {"<>", "<=", ">=", "!=", "!<", "!>"};
constexpr std::string_view singleSigns = "+-*/%=<>(),.;";
constexpr std::string_view blanks = " \t\r\n\f\v";

constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool startsName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '#' ||
         static_cast<unsigned char>(c) >= 0x80U;
}
constexpr bool continuesName(char c) {
  return startsName(c) || isDigit(c) || c == '$' || c == '@';
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
    if (offset_ < text_.size() && blanks.find(text_[offset_]) != std::string_view::npos) {
      ++offset_;
    } else if (looksAt("--")) {
      while (offset_ < text_.size() && text_[offset_] != '\n') ++offset_;
    } else if (looksAt("/*")) {
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
  if (startsName(c) || c == '@') {
    if ((c != 'N' && c != 'n') || peek(1) != '\'') return word();
    ++offset_;
    return quoted(TokenKind::Text, '\'');
  }
  if (c == '\'') return quoted(TokenKind::Text, '\'');
  if (c == '"') return quoted(TokenKind::QuotedName, '"');
  if (c == '[') return quoted(TokenKind::QuotedName, ']');
  if (isDigit(c) || (c == '.' && isDigit(peek(1)))) return number();
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
  while (isDigit(peek())) ++offset_;
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
  } while (continuesName(peek()));
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
