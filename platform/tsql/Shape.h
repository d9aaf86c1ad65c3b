// A statement's text apart from its literals: what statements have in common that differ by those alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/tsql/Cell.h"
#include "platform/tsql/Scanner.h"
#include "platform/tsql/Type.h"

namespace payslate::tsql {

struct Literal {
  Cell value;
  Type type;
};

/// Of a number as it is written, or of a text without its quotes. SqlError for a number that is too large.
Literal literalOf(TokenKind kind, std::string text, Position at);

struct Shape {
  std::string key;  ///< The text, with the types of the literals in their places; in an insert without.
  std::vector<Literal> literals;  ///< By slot.
};

/// A text that cannot be split has no literals here, and itself as the key.
Shape shapeOf(std::string_view statement);

}  // namespace payslate::tsql
