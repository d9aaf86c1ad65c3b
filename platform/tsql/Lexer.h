// Reads a statement's text as words, names, literals and signs.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/tsql/Scanner.h"

namespace payslate::tsql {

struct Token {
  TokenKind kind = TokenKind::End;
  std::string text;  ///< Names and texts without their quotes, variables with their sign.
  Position at;
  std::optional<std::size_t> slot;  ///< Of a literal that can be bound: its number among those, from 0.
};

/// Longest statement text accepted, in bytes.
inline constexpr std::size_t maxStatementBytes = 1'000'000;

/// The tokens of a statement, closed by one End token. SqlError for what the scanner refuses.
std::vector<Token> tokenize(std::string_view statement);

/// What a quoted token holds, or a literal says.
std::string tokenText(TokenKind kind, std::string_view written);

/// Numbers the literals of a statement that can be bound, in their order. What a database knows by its
/// literal is none of them: 0 and 1, which the filters of indexes are made of, and the single blank, which it
/// may take for an empty text.
class Slots {
 public:
  std::optional<std::size_t> next(TokenKind kind, std::string_view written);

 private:
  std::size_t used_ = 0;
};

}  // namespace payslate::tsql
