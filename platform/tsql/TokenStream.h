// What the parts of the parser share: the token stream and the words that cannot be names.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/tsql/Ast.h"
#include "platform/tsql/Lexer.h"

namespace payslate::tsql {

bool isReserved(std::string_view word);
bool sameWord(std::string_view left, std::string_view right);  ///< Without regard to ASCII case.
std::string lowerWord(std::string_view word);

class TokenStream {
 public:
  explicit TokenStream(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

  [[nodiscard]] const Token& peek(std::size_t ahead = 0) const;
  const Token& take();
  [[nodiscard]] Position at() const { return peek().at; }
  [[nodiscard]] bool isWord(std::string_view word, std::size_t ahead = 0) const;
  [[nodiscard]] bool isSign(std::string_view sign, std::size_t ahead = 0) const;
  [[nodiscard]] bool isName(std::size_t ahead = 0) const;  ///< A quoted name, or a word that is not reserved.
  bool acceptWord(std::string_view word);
  bool acceptSign(std::string_view sign);
  void expectWord(std::string_view word);
  void expectSign(std::string_view sign);
  std::string expectName(std::string_view what);
  std::int64_t expectWhole(std::string_view what);
  /// name, dbo.name, db.dbo.name: the last part.
  std::string expectObjectName(std::string_view what);

  [[noreturn]] void unexpected(std::string_view wanted) const;
  [[noreturn]] void unsupported(std::string_view construct) const;

 private:
  std::vector<Token> tokens_;
  std::size_t next_ = 0;
};

}  // namespace payslate::tsql
