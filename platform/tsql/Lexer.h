// Splits a statement's text into words, names, literals and signs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/tsql/SqlError.h"

namespace payslate::tsql {

enum class TokenKind {
  Word,        ///< An unquoted name or keyword; `text` as written.
  QuotedName,  ///< [name] or "name"; `text` without the quotes.
  Variable,    ///< @name; `text` with the sign.
  Text,        ///< '…'; `text` is the value.
  WholeNumber,
  DecimalNumber,
  FloatNumber,
  Sign,  ///< One of the operators and separators.
  End,
};

struct Token {
  TokenKind kind = TokenKind::End;
  std::string text;
  Position at;
};

/// Longest statement text accepted, in bytes.
inline constexpr std::size_t maxStatementBytes = 1'000'000;

/// The tokens of a statement, closed by one End token. Comments are skipped. SqlError for an unclosed quote
/// or comment and for characters that mean nothing.
std::vector<Token> tokenize(std::string_view statement);

}  // namespace payslate::tsql
