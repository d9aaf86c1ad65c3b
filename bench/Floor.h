// What SQLite alone takes for the statements of a recording.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "bench/RecordingProvider.h"

struct sqlite3_stmt;

namespace payslate::bench {

struct Duration {
  Milliseconds work{0};  ///< Without the commits.
  Milliseconds commits{0};
};

/// A handle of its own on a payroll. Texts are translated, statements prepared and values converted before
/// the clock starts; it sees binding, stepping, reading what was fetched, and resetting.
class Floor {
 public:
  explicit Floor(const std::string& path);
  ~Floor();
  Floor(const Floor&) = delete;
  Floor& operator=(const Floor&) = delete;

  /// The payroll must be as it was when the recording began. std::runtime_error for what SQLite refuses.
  Duration replay(const Recording& recording);

 private:
  struct Step;
  struct Database;
  Step prepared(const Operation& operation);
  sqlite3_stmt* statement(const std::string& sql);
  void perform(const Step& step);

  std::unique_ptr<Database> database_;
  std::map<std::string, sqlite3_stmt*> statements_;
};

}  // namespace payslate::bench
