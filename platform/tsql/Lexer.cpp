// The lexer: one pass over the bytes, positions counted in characters.
#include "platform/tsql/Lexer.h"

#include <array>
#include <cctype>

namespace payslate::tsql {

namespace {

constexpr std::array<std::string_view, 6> doubleSigns = {"<>", "<=", ">=", "!=", "!<", "!>"};
constexpr std::string_view singleSigns = "+-*/%=<>(),.;";
constexpr std::string_view blanks = " \t\r\n\f\v";

bool isContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool startsName(char c) {
  return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '#' ||
         static_cast<unsigned char>(c) >= 0x80U;
}
bool continuesName(char c) {
  return startsName(c) || isDigit(c) || c == '$' || c == '@';
}

class Lexer {
 public:
  explicit Lexer(std::string_view text) : text_(text) {}

  std::vector<Token> run() {
    std::vector<Token> tokens;
    for (;;) {
      skipBlanks();
      tokens.push_back(next());
      if (tokens.back().kind == TokenKind::End) return tokens;
    }
  }

 private:
  [[nodiscard]] bool atEnd() const { return offset_ >= text_.size(); }
  [[nodiscard]] char peek(std::size_t ahead = 0) const {
    return offset_ + ahead < text_.size() ? text_[offset_ + ahead] : '\0';
  }
  [[nodiscard]] bool looksAt(std::string_view what) const {
    return text_.substr(offset_, what.size()) == what;
  }

  char take() {
    const char c = text_[offset_++];
    if (c == '\n') {
      ++at_.line;
      at_.column = 1;
    } else if (!isContinuation(c)) {
      ++at_.column;
    }
    return c;
  }

  void skipBlanks() {
    for (;;) {
      if (!atEnd() && blanks.find(peek()) != std::string_view::npos) {
        take();
      } else if (looksAt("--")) {
        while (!atEnd() && peek() != '\n') take();
      } else if (looksAt("/*")) {
        skipBlockComment();
      } else {
        return;
      }
    }
  }

  void skipBlockComment() {
    const Position start = at_;
    int depth = 0;
    do {
      if (atEnd()) throw SqlError(state::syntax, start, "The comment that starts here is not closed.");
      if (looksAt("/*")) {
        ++depth;
        take();
      } else if (looksAt("*/")) {
        --depth;
        take();
      }
      take();
    } while (depth > 0);
  }

  Token next() {
    Token token;
    token.at = at_;
    if (atEnd()) return token;
    const char c = peek();
    if (c == '\'') return quoted(TokenKind::Text, '\'');
    if ((c == 'N' || c == 'n') && peek(1) == '\'') {
      take();
      return quoted(TokenKind::Text, '\'');
    }
    if (c == '"') return quoted(TokenKind::QuotedName, '"');
    if (c == '[') return quoted(TokenKind::QuotedName, ']');
    if (isDigit(c) || (c == '.' && isDigit(peek(1)))) return number();
    if (startsName(c) || c == '@') return word();
    for (const std::string_view sign : doubleSigns) {
      if (looksAt(sign)) {
        take();
        take();
        token.kind = TokenKind::Sign;
        token.text = sign;
        return token;
      }
    }
    if (singleSigns.find(c) == std::string_view::npos || c == '\0') throw unknownCharacter();
    token.kind = TokenKind::Sign;
    token.text = take();
    return token;
  }

  [[nodiscard]] SqlError unknownCharacter() const {
    const auto byte = static_cast<unsigned char>(peek());
    const std::string shown =
        std::isprint(byte) != 0 ? std::string(1, peek()) : "code " + std::to_string(byte);
    return {state::syntax, at_, "The character '" + shown + "' is not understood."};
  }

  Token quoted(TokenKind kind, char close) {
    Token token{kind, "", at_};
    take();
    for (;;) {
      if (atEnd()) {
        throw SqlError(state::syntax, token.at,
                       kind == TokenKind::Text ? "The text that starts here is not closed."
                                               : "The quoted name that starts here is not closed.");
      }
      const char c = take();
      if (c == '\0') throw SqlError(state::syntax, token.at, "A quoted text holds a zero character.");
      if (c != close) {
        token.text += c;
      } else if (peek() == close) {
        token.text += take();
      } else {
        break;
      }
    }
    if (kind == TokenKind::QuotedName && token.text.empty()) {
      throw SqlError(state::syntax, token.at, "A quoted name is empty.");
    }
    return token;
  }

  Token number() {
    Token token{TokenKind::WholeNumber, "", at_};
    if (peek() == '0' && (peek(1) == 'x' || peek(1) == 'X')) {
      throw SqlError(state::syntax, at_, "A hexadecimal literal is not supported.");
    }
    while (isDigit(peek())) token.text += take();
    if (peek() == '.') {
      token.kind = TokenKind::DecimalNumber;
      token.text += take();
      while (isDigit(peek())) token.text += take();
    }
    if (peek() == 'e' || peek() == 'E') {
      token.kind = TokenKind::FloatNumber;
      token.text += take();
      if (peek() == '+' || peek() == '-') token.text += take();
      if (!isDigit(peek())) token.text += '0';  // A bare exponent counts as zero.
      while (isDigit(peek())) token.text += take();
    }
    return token;
  }

  Token word() {
    Token token{peek() == '@' ? TokenKind::Variable : TokenKind::Word, "", at_};
    token.text += take();
    while (continuesName(peek())) token.text += take();
    return token;
  }

  std::string_view text_;
  std::size_t offset_ = 0;
  Position at_;
};

}  // namespace

std::vector<Token> tokenize(std::string_view statement) {
  if (statement.size() > maxStatementBytes) {
    throw SqlError(state::syntax,
                   "The statement is longer than " + std::to_string(maxStatementBytes) + " bytes.");
  }
  return Lexer(statement).run();
}

}  // namespace payslate::tsql
