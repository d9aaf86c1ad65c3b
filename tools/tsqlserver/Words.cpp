// The scanner behind both looks.
#include "tools/tsqlserver/Words.h"

#include <algorithm>
#include <array>

#include "platform/basic/Numbers.h"

namespace payslate::tsqlserver {

namespace {

enum class PieceKind { Word, Sign, Quoted, Nothing };

struct Piece {
  PieceKind kind = PieceKind::Sign;
  std::string_view text;
};

struct Enclosure {
  std::string_view opening;
  std::string_view closing;
  PieceKind kind;
};

// A doubled closing quote is read as two quoted pieces in a row, which comes to the same here.
constexpr std::array<Enclosure, 5> enclosures = {{{"'", "'", PieceKind::Quoted},
                                                  {"\"", "\"", PieceKind::Quoted},
                                                  {"[", "]", PieceKind::Quoted},
                                                  {"--", "\n", PieceKind::Nothing},
                                                  {"/*", "*/", PieceKind::Nothing}}};

bool inWord(char c) {
  const auto code = static_cast<unsigned char>(c);
  const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || code >= 0x80;
  return letter || (c >= '0' && c <= '9') || std::string_view("_@#$").find(c) != std::string_view::npos;
}

bool isBlank(char c) {
  return std::string_view(" \t\r\n").find(c) != std::string_view::npos;
}

template <typename Holds>
std::size_t lengthOf(std::string_view text, Holds holds) {
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), holds) - text.begin());
}

Piece firstPiece(std::string_view text) {
  for (const Enclosure& enclosure : enclosures) {
    if (!text.starts_with(enclosure.opening)) continue;
    const std::size_t end = text.find(enclosure.closing, enclosure.opening.size());
    return {enclosure.kind,
            text.substr(0, end == std::string_view::npos ? end : end + enclosure.closing.size())};
  }
  if (isBlank(text.front())) return {PieceKind::Nothing, text.substr(0, lengthOf(text, isBlank))};
  if (inWord(text.front())) return {PieceKind::Word, text.substr(0, lengthOf(text, inWord))};
  return {text.front() == ';' ? PieceKind::Nothing : PieceKind::Sign, text.substr(0, 1)};
}

}  // namespace

std::vector<std::string> wordsOf(std::string_view statement) {
  std::vector<std::string> words;
  while (!statement.empty()) {
    const Piece piece = firstPiece(statement);
    statement.remove_prefix(piece.text.size());
    if (piece.kind == PieceKind::Nothing) continue;
    words.push_back(piece.kind == PieceKind::Word ? basic::upper(piece.text) : std::string(piece.text));
  }
  return words;
}

std::string replaced(std::string_view statement, const Replacements& replacements) {
  std::string text;
  while (!statement.empty()) {
    const Piece piece = firstPiece(statement);
    statement.remove_prefix(piece.text.size());
    const auto found = replacements.find(basic::lower(piece.text));  // Quoted texts have their quotes.
    text += found == replacements.end() ? std::string(piece.text) : found->second;
  }
  return text;
}

}  // namespace payslate::tsqlserver
