// One client's transaction, as a server counts it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/ado/Provider.h"
#include "tools/tsqlserver/Tokens.h"

namespace payslate::tsqlserver {

/// Nested begins are counted: the outermost commit commits, any rollback rolls back all. The engine takes its
/// write lock when a transaction begins there, a server with the first statement that needs one; so the
/// engine's transaction begins with the first statement inside. What goes wrong is a Fault or an ado::Error.
class Transactions {
 public:
  explicit Transactions(ado::Provider& provider) : provider_(provider) {}

  [[nodiscard]] int count() const { return count_; }
  void begin(Reply& reply);
  void commit(Reply& reply);
  void rollback(Reply& reply);
  /// Rolls back what there is, as a server does to a client that it chose to give way.
  void abandon(Reply& reply);

  /// Before each statement that is not about transactions.
  void enterStatement(Reply& reply);
  /// Performs a batch that is about transactions alone; false for any other.
  bool performed(const std::vector<std::string>& words, Reply& reply);

 private:
  void perform(const std::string& verb, Reply& reply);

  ado::Provider& provider_;
  bool implicit_ = false;  ///< A statement outside of a transaction begins one.
  int count_ = 0;
  bool inside_ = false;  ///< The engine's has begun.
  std::uint64_t descriptor_ = 0;
};

}  // namespace payslate::tsqlserver
