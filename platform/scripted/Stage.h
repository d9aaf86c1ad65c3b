// What stands behind an errand besides the screen: the database, the session and the component on show.
#pragma once

#include <string>
#include <vector>

#include "platform/basic/Value.h"
#include "platform/scripted/HostSession.h"

namespace payslate::scripted {

/// Failures are exceptions whose what() is a sentence for the reader of the transcript.
class Stage {
 public:
  virtual ~Stage() = default;
  /// Runs the statements of a file, one a line. A relative path is looked up from the errand's folder.
  virtual void runFile(const std::string& path) = 0;
  virtual void runStatement(const std::string& statement) = 0;
  virtual std::vector<std::vector<basic::Value>> rows(const std::string& statement) = 0;
  virtual void setSession(const HostSession& session) = 0;
  /// Shows the component and returns when its last form is closed; raises what the component raises.
  virtual void show() = 0;
  /// Statements that the component itself sent since the last call or the last show, whichever was later.
  virtual long takeSentCount() = 0;
};

}  // namespace payslate::scripted
