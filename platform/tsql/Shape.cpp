// Takes the literals out of a text.
#include "platform/tsql/Shape.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>

#include "platform/basic/Decimal.h"
#include "platform/basic/Error.h"
#include "platform/tsql/Lexer.h"
#include "platform/tsql/TokenStream.h"

namespace payslate::tsql {

namespace {

Literal textOf(std::string text) {
  const auto isLetter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
  const auto letters = std::count_if(text.begin(), text.end(), isLetter);
  return {std::move(text), Type::varchar(std::max(1, static_cast<int>(letters)))};
}

Literal floatOf(const std::string& text, Position at) {
  const double value = std::strtod(text.c_str(), nullptr);
  if (value > std::numeric_limits<double>::max())
    throw SqlError(state::overflow, at, "The number " + text + " is too large.");
  return {value, Type::of(Kind::Float)};
}

Literal exactOf(std::string_view text, Position at) {
  std::string digits(text.ends_with('.') ? text.substr(0, text.size() - 1) : text);
  if (digits.front() == '.') digits.insert(0, "0");
  try {
    const basic::Decimal value = basic::Decimal::parse(digits);
    return {value.text(), Type::decimal(std::max({value.digits(), value.scale(), 1}), value.scale())};
  } catch (const basic::ValueError&) {
    throw SqlError(state::overflow, at, "The number " + std::string(text) + " has too many digits.");
  }
}

}  // namespace

Literal literalOf(TokenKind kind, std::string text, Position at) {
  if (kind == TokenKind::Text) return textOf(std::move(text));
  if (kind == TokenKind::FloatNumber) return floatOf(text, at);
  std::int32_t small = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), small);
  if (kind == TokenKind::WholeNumber && read.ec == std::errc())
    return {static_cast<std::int64_t>(small), Type::of(Kind::Int)};
  return exactOf(text, at);
}

// What is stored takes its type from the column.
Shape shapeOf(std::string_view statement) {
  constexpr char mark = '\0';
  if (statement.find(mark) != std::string_view::npos) return {std::string(statement), {}};
  Shape shape;
  shape.key.reserve(statement.size() + statement.size() / 4);
  shape.literals.reserve(8);
  std::size_t copied = 0;
  Scanner scanner(statement);
  Slots slots;
  std::optional<bool> typed;
  try {
    for (Span span = scanner.next(); span.kind != TokenKind::End; span = scanner.next()) {
      if (!typed) typed = !sameWord(statement.substr(span.begin, span.end - span.begin), "insert");
      if (!isLiteral(span.kind)) continue;
      const std::string_view written = statement.substr(span.begin, span.end - span.begin);
      if (!slots.next(span.kind, written)) continue;
      shape.literals.push_back(literalOf(span.kind, tokenText(span.kind, written), {}));
      shape.key.append(statement, copied, span.begin - copied) += mark;
      if (*typed) shape.key += std::to_string(shape.literals.back().type.packed());
      shape.key += mark;
      copied = span.end;
    }
  } catch (const SqlError&) {  // Whoever translates the text says what is wrong with it.
    return {std::string(statement), {}};
  }
  shape.key.append(statement, copied);
  return shape;
}

}  // namespace payslate::tsql
