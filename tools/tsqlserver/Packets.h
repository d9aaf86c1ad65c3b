// Packets over one client's socket: whole messages in, a reply that is streamed packet by packet out.
#pragma once

#include <cstdint>

#include "tools/tsqlserver/Bytes.h"

namespace payslate::tsqlserver {

enum class PacketKind : std::uint8_t {
  Batch = 1,
  Call = 3,
  Reply = 4,
  Attention = 6,
  Transaction = 14,
  Login = 16,
  PreLogin = 18,
};

struct Message {
  PacketKind kind = PacketKind::Reply;
  Bytes payload;
};

/// The client is gone, or is to be left.
struct Disconnected {};
/// The client does not want the rest of the reply.
struct Attention {};

/// One client's socket. Disconnected, thrown by any of them, ends the connection.
class Packets {
 public:
  /// Owns the socket. `number` is the client's, from 1.
  Packets(int socket, int number) : socket_(socket), number_(number) {}
  ~Packets();
  Packets(const Packets&) = delete;
  Packets& operator=(const Packets&) = delete;

  [[nodiscard]] int number() const { return number_; }
  void setSize(std::size_t size);
  [[nodiscard]] std::size_t size() const { return size_; }
  /// Lets other threads end a client: everything it waits for fails from now on.
  void shutDown() const;

  /// The next message; waits for it.
  Message receive();
  /// Sends the packets of a reply that are full; the rest waits for more. Throws Attention when the client
  /// has asked to be spared the rest: call it between two tokens.
  void streamed(Bytes& reply);
  /// Sends all that is left of a reply.
  void finish(Bytes& reply);
  /// Waits until the client gives up waiting; throws Attention.
  [[noreturn]] void awaitAttention();

 private:
  void readExactly(char* to, std::size_t size) const;
  void sendPacket(std::string_view payload, bool last);
  [[nodiscard]] bool hasInput() const;

  int socket_;
  int number_;
  std::size_t size_ = 4096;  // What both sides begin with.
  std::uint8_t sequence_ = 1;
};

}  // namespace payslate::tsqlserver
