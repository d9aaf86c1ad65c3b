// A statement's text in pieces, as far as this server needs to look into it.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace payslate::tsqlserver {

/// The words and signs in capitals; without blanks, comments and semicolons, and with quoted parts as
/// written.
std::vector<std::string> wordsOf(std::string_view statement);

/// What stands for variables, by name in small letters with its sign: "@p1".
using Replacements = std::map<std::string, std::string, std::less<>>;
/// Variables outside of quotes and comments replaced; those that nobody gave stay.
std::string replaced(std::string_view statement, const Replacements& replacements);

}  // namespace payslate::tsqlserver
