// Runs one client's statements on the engine and writes what comes of them into the reply.
#pragma once

#include <memory>
#include <string>

#include "platform/ado/Error.h"
#include "platform/ado/Provider.h"
#include "tools/tsqlserver/Controls.h"
#include "tools/tsqlserver/Tokens.h"
#include "tools/tsqlserver/Transactions.h"
#include "tools/tsqlserver/Words.h"

namespace payslate::tsqlserver {

class Statements {
 public:
  Statements(ado::Provider& provider, Controls& controls)
      : provider_(provider), transactions_(provider), controls_(controls) {}

  /// Runs a text and streams its rows; `variables` stand for those in it. What goes wrong is told to the
  /// client.
  Outcome run(const std::string& text, Replacements variables, Reply& reply);
  /// Describes the columns of a query, its variables taken for Null. One that cannot be described that way is
  /// left to its run, which has their values.
  void describe(const std::string& text, Replacements variables, Reply& reply);
  /// Tells the client the key of a table.
  Outcome sendKey(const std::string& table, Reply& reply);
  /// Begins or ends a transaction: a batch's text for what was asked in another way.
  Outcome transact(const std::string& text, Reply& reply);

 private:
  template <typename Work>
  Outcome told(Reply& reply, Work work);
  void walkIntoTraps(const std::string& text, Reply& reply);
  Outcome perform(const std::string& text, Replacements variables, Reply& reply);

  ado::Provider& provider_;
  Transactions transactions_;
  Controls& controls_;
  std::uint64_t lastRows_ = 0;
};

}  // namespace payslate::tsqlserver
