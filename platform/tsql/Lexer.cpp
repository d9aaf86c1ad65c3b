// Tokens from the scanner's spans.
#include "platform/tsql/Lexer.h"

namespace payslate::tsql {

namespace {

constexpr std::size_t mostSlots = 5000;  // A database has only so many parameters.

// Without the quotes around, and with one instead of two inside.
std::string unquoted(std::string_view written) {
  const char close = written.back();
  const std::size_t first = written.find(close == ']' ? '[' : close) + 1;
  std::string text;
  text.reserve(written.size());
  for (std::size_t i = first; i + 1 < written.size(); ++i) {
    text += written[i];
    if (written[i] == close) ++i;
  }
  return text;
}

/// Positions of offsets that only grow.
class PositionReader {
 public:
  explicit PositionReader(std::string_view text) : text_(text) {}

  Position at(std::size_t offset) {
    const Position step = positionAt(text_.substr(offset_), offset - offset_);
    offset_ = offset;
    at_ = {at_.line + step.line - 1, step.line > 1 ? step.column : at_.column + step.column - 1};
    return at_;
  }

 private:
  std::string_view text_;
  std::size_t offset_ = 0;
  Position at_;
};

}  // namespace

std::string tokenText(TokenKind kind, std::string_view written) {
  if (kind == TokenKind::Text || kind == TokenKind::QuotedName) return unquoted(written);
  std::string text(written);
  // An exponent without digits counts as zero.
  if (kind == TokenKind::FloatNumber && (text.back() < '0' || text.back() > '9')) text += '0';
  return text;
}

std::optional<std::size_t> Slots::next(TokenKind kind, std::string_view written) {
  if (!isLiteral(kind) || written == "0" || written == "1" || written.ends_with("' '")) return std::nullopt;
  if (used_ >= mostSlots) return std::nullopt;
  return used_++;
}

std::vector<Token> tokenize(std::string_view statement) {
  if (statement.size() > maxStatementBytes) {
    throw SqlError(state::syntax,
                   "The statement is longer than " + std::to_string(maxStatementBytes) + " bytes.");
  }
  std::vector<Token> tokens;
  Scanner scanner(statement);
  PositionReader positions(statement);
  Slots slots;
  for (;;) {
    const Span span = scanner.next();
    const std::string_view written = statement.substr(span.begin, span.end - span.begin);
    tokens.push_back(
        {span.kind, tokenText(span.kind, written), positions.at(span.begin), slots.next(span.kind, written)});
    if (span.kind == TokenKind::End) return tokens;
  }
}

}  // namespace payslate::tsql
