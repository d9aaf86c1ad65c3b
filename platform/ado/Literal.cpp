// Quoting.
#include "platform/ado/Literal.h"

namespace payslate::ado {

std::string literal(std::string_view text) {
  constexpr char quote = '\'';
  std::string quoted(1, quote);
  for (const char character : text) quoted.append(character == quote ? 2 : 1, character);
  return quoted + quote;
}

}  // namespace payslate::ado
