// Texts are UTF-8; carets and key characters count code points.
#pragma once

#include <string>
#include <string_view>

namespace payslate::ui {

/// Bytes that are no UTF-8 become U+FFFD.
std::u32string utf32(std::string_view text);
std::string utf8(std::u32string_view text);

}  // namespace payslate::ui
