// Text between UTF-8, as the program holds it, and UTF-16, as drivers take it.
#pragma once

#include <string>
#include <string_view>

namespace payslate::odbc {

/// What is no UTF-8 becomes the replacement character.
std::u16string toWide(std::string_view text);
/// Half a surrogate pair becomes the replacement character.
std::string fromWide(std::u16string_view text);

}  // namespace payslate::odbc
