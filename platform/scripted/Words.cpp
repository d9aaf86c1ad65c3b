// Splitting a line of an errand.
#include "platform/scripted/Words.h"

#include <array>
#include <utility>

namespace payslate::scripted {

namespace {

constexpr std::string_view blanks = " \t";

constexpr std::array<std::pair<char, char>, 5> escapes{
    {{'"', '"'}, {'\\', '\\'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}}};

bool isBlank(char character) {
  return blanks.find(character) != std::string_view::npos;
}

void skipBlanks(std::string_view line, std::size_t& at) {
  while (at < line.size() && isBlank(line[at])) ++at;
}

char escaped(char character) {
  for (const auto& [written, meant] : escapes)
    if (written == character) return meant;
  throw LineError(std::string("\\") + character + " means nothing in a text",
                  "write \\\" \\\\ \\n \\r or \\t");
}

// Reads the text that starts with the double quote at `at`, which is behind the closing one afterwards.
std::string quotedText(std::string_view line, std::size_t& at) {
  std::string text;
  for (++at; at < line.size() && line[at] != '"'; ++at) {
    if (line[at] == '\\' && at + 1 < line.size())
      text.push_back(escaped(line[++at]));
    else
      text.push_back(line[at]);
  }
  if (at >= line.size()) throw LineError("a text in double quotes is not closed", "write \" at its end");
  ++at;
  return text;
}

}  // namespace

std::string_view stripped(std::string_view text) {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<Word> words(std::string_view line) {
  std::vector<Word> found;
  std::size_t at = 0;
  for (skipBlanks(line, at); at < line.size(); skipBlanks(line, at)) {
    if (line[at] == '"') {
      found.push_back({quotedText(line, at), true});
      if (at < line.size() && !isBlank(line[at]))
        throw LineError("something sticks to the closing quote of \"" + found.back().text + "\"",
                        "write a blank behind it, or \\\" for a quote inside the text");
      continue;
    }
    const std::size_t start = at;
    while (at < line.size() && !isBlank(line[at])) ++at;
    found.push_back({std::string(line.substr(start, at - start)), false});
    if (found.back().text.find('"') != std::string::npos)
      throw LineError("a double quote stands inside the word " + found.back().text,
                      "write the whole argument in double quotes, with \\\" for a quote inside");
  }
  return found;
}

std::vector<Cell> cells(std::string_view line) {
  std::vector<Cell> found;
  std::size_t at = line.find('|') + 1;
  while (at < line.size()) {
    Cell cell;
    skipBlanks(line, at);
    if (at < line.size() && line[at] == '"') {
      cell = {quotedText(line, at), true};
      skipBlanks(line, at);
      if (at < line.size() && line[at] != '|')
        throw LineError("a table cell goes on behind its closing quote",
                        "write the whole cell in double quotes, with \\\" for a quote inside");
    }
    const std::size_t bar = line.find('|', at);
    if (bar == std::string_view::npos)
      throw LineError("the last cell of a table line is not closed", "write | at the end of the line");
    if (!cell.quoted) cell.text = stripped(line.substr(at, bar - at));
    found.push_back(std::move(cell));
    at = bar + 1;
  }
  if (found.empty()) throw LineError("a table line has no cell", "write | cell | cell |");
  return found;
}

}  // namespace payslate::scripted
