// What ends a command early: one sentence for the person at the command line.
#pragma once

#include <stdexcept>
#include <string>

namespace payslate::host {

enum class ExitCode {
  Ok = 0,
  Failed = 1,   ///< An expectation of an errand did not hold.
  Refused = 2,  ///< The command could not be carried out; nothing was created or changed.
};

/// `what()` is one whole sentence.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace payslate::host
