// The embedded engine behind a provider that knows how long commits took, and writes down what passes.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/ado/Provider.h"

namespace payslate::bench {

using Milliseconds = std::chrono::duration<double, std::milli>;
using Clock = std::chrono::steady_clock;

struct Operation {
  enum class Kind { Text, Insert, Update, Begin, Commit, Rollback } kind = Kind::Text;
  std::string text{};                  ///< The statement, or the table of a row that is written.
  std::vector<ado::Assignment> key{};  ///< Of an update.
  std::vector<ado::Assignment> row{};
  std::size_t rows = 0;    ///< Fetched.
  bool readToEnd = false;  ///< Was asked for a row behind the last one.
};

/// Cursors count on in what they belong to: what was taken is complete once they are gone.
using Recording = std::vector<std::shared_ptr<Operation>>;

struct Recorder {
  bool on = false;
  Recording operations;
  Milliseconds commits{0};
};

/// Connections opened with "recorded:PATH" are told to the recorder, which must outlive them.
void registerRecording(Recorder& recorder);

}  // namespace payslate::bench
