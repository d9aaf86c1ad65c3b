// Values for the question marks of a statement.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/basic/Value.h"
#include "platform/odbc/Handle.h"

namespace payslate::odbc {

/// Holds what the driver reads while the statement runs: it must live until then. Text goes as text, for the
/// server to convert it by its own rules, or to refuse it in its own words.
class Parameters {
 public:
  /// `wide`: does the driver take UTF-16?
  Parameters(const std::vector<basic::Value>& values, bool wide);
  ~Parameters();
  Parameters(const Parameters&) = delete;
  Parameters& operator=(const Parameters&) = delete;

  /// The answer of the driver.
  [[nodiscard]] std::int16_t bindTo(const Handle& statement) const;

 private:
  struct Bound;
  std::vector<std::unique_ptr<Bound>> bound_;
};

}  // namespace payslate::odbc
