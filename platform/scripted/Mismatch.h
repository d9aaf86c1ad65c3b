// An instruction that did not come true: what was expected and what was found instead.
#pragma once

#include <stdexcept>
#include <string>

namespace payslate::scripted {

/// Thrown and caught inside one instruction: no event handler ever sees it.
class Mismatch : public std::runtime_error {
 public:
  Mismatch(const std::string& wanted, std::string instead)
      : std::runtime_error(wanted), found(std::move(instead)) {}
  [[nodiscard]] std::string expected() const { return what(); }
  const std::string found;
};

/// The text between double quotes, line ends and quotes escaped as an errand writes them.
std::string inQuotes(const std::string& text);

}  // namespace payslate::scripted
