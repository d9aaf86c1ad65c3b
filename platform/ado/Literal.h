// Texts inside statements.
#pragma once

#include <string>
#include <string_view>

namespace payslate::ado {

/// The text as a statement writes it, in quotes, its own doubled.
std::string literal(std::string_view text);

}  // namespace payslate::ado
