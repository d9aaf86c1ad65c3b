// The reply to one request: a stream of tokens that leaves as its packets fill.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tools/tsqlserver/Packets.h"

namespace payslate::tsqlserver {

/// What the client is told has gone wrong.
struct Fault {
  std::int32_t number = 0;
  std::string message;
  std::uint8_t severity = 16;
};

/// How the part of a reply ends that belongs to one statement.
struct Outcome {
  std::optional<std::uint64_t> rows;  ///< Returned or changed.
  std::uint16_t command = 0;          ///< Which statement it was, as the protocol numbers them.
  bool failed = false;
};

/// What closes a part: a batch's statement, a statement inside a procedure, or the procedure.
enum class Closing : std::uint8_t { Batch = 0xFD, Procedure = 0xFE, InProcedure = 0xFF };

class Reply {
 public:
  explicit Reply(Packets& packets) : packets_(packets) {}

  [[nodiscard]] Packets& packets() { return packets_; }
  /// For the tokens that others write. Call `pass` between two of them.
  [[nodiscard]] Writer& out() { return out_; }
  /// Sends what fills packets. Throws Attention when the client wants no more.
  void pass();
  /// Sends everything; the reply is complete.
  void finish();

  void error(const Fault& fault) { message(0xAA, fault); }
  void done(Closing closing, const Outcome& outcome, bool more = false);
  void attentionDone();
  void returnStatus(std::int32_t value);
  /// An output parameter that holds a whole number of 32 bits.
  void returnValue(std::uint16_t position, const std::string& name, std::int32_t value);

  void loginAccepted(std::uint32_t version);
  void packetSizeChanged(std::size_t size);
  void collationChanged();
  void transactionBegun(std::uint64_t descriptor);
  void transactionEnded(std::uint64_t descriptor, bool committed);

 private:
  void message(std::uint8_t kind, const Fault& fault);
  void environmentChanged(std::uint8_t what, std::string_view newValue, std::string_view oldValue);

  Packets& packets_;
  Writer out_;
};

/// The five bytes that announce Latin 1 without regard to case.
std::string_view collation();

}  // namespace payslate::tsqlserver
