// Finds where a statement's tokens begin and end, without reading them.
#pragma once

#include <string>
#include <string_view>

#include "platform/tsql/SqlError.h"

namespace payslate::tsql {

enum class TokenKind {
  Word,        ///< An unquoted name or keyword.
  QuotedName,  ///< [name] or "name"
  Variable,    ///< @name
  Text,        ///< '…' or N'…'
  WholeNumber,
  DecimalNumber,
  FloatNumber,
  Sign,  ///< One of the operators and separators.
  End,
};

constexpr bool isLiteral(TokenKind kind) {
  return kind == TokenKind::Text || kind == TokenKind::WholeNumber || kind == TokenKind::DecimalNumber ||
         kind == TokenKind::FloatNumber;
}

struct Span {
  TokenKind kind = TokenKind::End;
  std::size_t begin = 0;  ///< Offsets in bytes; `end` is behind the last one.
  std::size_t end = 0;
};

/// One pass over the bytes. Blanks and comments are skipped. SqlError for an unclosed quote or comment and
/// for characters that mean nothing.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  Span next();  ///< End behind the last token, and from then on.

 private:
  [[nodiscard]] char peek(std::size_t ahead = 0) const {
    return offset_ + ahead < text_.size() ? text_[offset_ + ahead] : '\0';
  }
  [[nodiscard]] bool looksAt(std::string_view what) const {
    return text_.substr(offset_, what.size()) == what;
  }
  void skipBlanks();
  void skipBlockComment();
  TokenKind scan();
  TokenKind quoted(TokenKind kind, char close);
  TokenKind number();
  void digits();
  TokenKind word();
  [[noreturn]] void refuse(std::size_t offset, const std::string& message) const;
  [[noreturn]] void unknownCharacter() const;

  std::string_view text_;
  std::size_t offset_ = 0;
};

/// The position of a byte.
Position positionAt(std::string_view text, std::size_t offset);

}  // namespace payslate::tsql
