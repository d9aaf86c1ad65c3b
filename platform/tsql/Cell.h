// A value in the form in which it is stored and computed with.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace payslate::tsql {

/// Null · whole numbers, flags, and dates (milliseconds since 1900-01-01) · floating numbers · text, and
/// exact decimals as text with exactly the decimals of their type.
using Cell = std::variant<std::monostate, std::int64_t, double, std::string>;

/// A value whose text is kept elsewhere, for as long as this is used.
class CellView : public std::variant<std::monostate, std::int64_t, double, std::string_view> {
 public:
  using variant::variant;
  CellView(const Cell& cell) {
    if (const auto* whole = std::get_if<std::int64_t>(&cell)) emplace<std::int64_t>(*whole);
    if (const auto* number = std::get_if<double>(&cell)) emplace<double>(*number);
    if (const auto* text = std::get_if<std::string>(&cell)) emplace<std::string_view>(*text);
  }

  [[nodiscard]] Cell cell() const {
    if (const auto* text = std::get_if<std::string_view>(this)) return std::string(*text);
    if (const auto* whole = std::get_if<std::int64_t>(this)) return *whole;
    if (const auto* number = std::get_if<double>(this)) return *number;
    return {};
  }
};

inline bool isNull(const CellView& cell) {
  return std::holds_alternative<std::monostate>(cell);
}

}  // namespace payslate::tsql
