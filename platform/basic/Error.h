// Errors of values and conversions: what a program did wrong with a number, a text or a date.
#pragma once

#include <stdexcept>
#include <string>

namespace payslate::basic {

/// Kinds of failed conversions and arithmetic.
enum class ErrorKind { TypeMismatch, Overflow, InvalidDate };

/// A value cannot become what was asked of it; `what()` names the value and the wanted type.
class ValueError : public std::runtime_error {
 public:
  ValueError(ErrorKind kind, const std::string& message) : std::runtime_error(message), kind_(kind) {}
  [[nodiscard]] ErrorKind kind() const { return kind_; }

 private:
  ErrorKind kind_;
};

}  // namespace payslate::basic
