// What a database knows of its transaction, and what may have ended it.
#pragma once

#include <optional>
#include <string>

#include "platform/ado/Error.h"

namespace payslate::ado {

/// The one rule of all databases: a transaction that the database has ended by itself, or may have ended, is
/// left to be rolled back and nothing else. What came next would be stored on its own, half of what was
/// meant.
class TransactionState {
 public:
  /// From begin() to end(), whatever the database did meanwhile.
  [[nodiscard]] bool isOpen() const { return open_; }
  void requireNone() const;                            ///< Error when one is open already.
  void requireOpen(const std::string& forWhat) const;  ///< Error when none is.
  void begin() { open_ = true; }
  void end();

  /// This ended the open transaction, or may have. The first such failure counts.
  void endedBy(const Error& failure);
  /// Repeats the failure, if there was one.
  void refuseAfterFailure() const;

 private:
  bool open_ = false;
  std::optional<Error> failure_;
};

}  // namespace payslate::ado
