// Words, quoted texts and table cells of one line of an errand.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/scripted/Errand.h"

namespace payslate::scripted {

/// What is wrong with a line, before its file and number are known.
struct LineError : std::runtime_error {
  LineError(const std::string& problem, std::string what)
      : std::runtime_error(problem), remedy(std::move(what)) {}
  std::string remedy;
};

struct Word {
  std::string text;
  bool quoted = false;
};

/// Without blanks and tabs at both ends.
std::string_view stripped(std::string_view text);

/// Arguments apart by blanks; throws LineError for a text that is not closed or that something sticks to.
std::vector<Word> words(std::string_view line);

/// The cells of a line `| cell | cell |`.
std::vector<Cell> cells(std::string_view line);

}  // namespace payslate::scripted
