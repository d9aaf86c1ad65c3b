// Packet headers, and the socket under them.
#include "tools/tsqlserver/Packets.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace payslate::tsqlserver {

namespace {

constexpr std::size_t headerSize = 8;
constexpr std::size_t smallestPacket = 512;
constexpr std::size_t largestPacket = 32767;
constexpr std::size_t largestMessage = 64U << 20U;  // Nobody sends more by intention.
constexpr std::uint8_t lastPacket = 1;

}  // namespace

Packets::~Packets() {
  close(socket_);
}

void Packets::setSize(std::size_t size) {
  size_ = std::clamp(size, smallestPacket, largestPacket);
}

void Packets::shutDown() const {
  shutdown(socket_, SHUT_RDWR);
}

void Packets::readExactly(char* to, std::size_t size) const {
  while (size > 0) {
    const ssize_t got = recv(socket_, to, size, 0);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) throw Disconnected{};
    to += got;
    size -= static_cast<std::size_t>(got);
  }
}

Message Packets::receive() {
  Message message;
  for (bool last = false; !last;) {
    std::array<char, headerSize> header{};
    readExactly(header.data(), header.size());
    const auto octet = [&header](std::size_t at) { return static_cast<unsigned char>(header.at(at)); };
    message.kind = static_cast<PacketKind>(octet(0));
    last = (octet(1) & lastPacket) != 0;
    const std::size_t length = octet(2) * std::size_t{256} + octet(3);
    if (length < headerSize) throw ProtocolError("A packet is shorter than its header.");
    const std::size_t before = message.payload.size();
    if (before + length > largestMessage) throw ProtocolError("A message is too long.");
    message.payload.resize(before + length - headerSize);
    readExactly(message.payload.data() + before, length - headerSize);
  }
  sequence_ = 1;
  return message;
}

void Packets::sendPacket(std::string_view payload, bool last) {
  Writer packet;
  packet.u8(static_cast<std::uint8_t>(PacketKind::Reply));
  packet.u8(last ? lastPacket : 0U);
  packet.big16(payload.size() + headerSize);
  packet.big16(static_cast<std::uint64_t>(number_));
  packet.u8(sequence_++);
  packet.u8(0);
  packet.raw(payload);
  std::string_view rest = packet.bytes();
  while (!rest.empty()) {
    const ssize_t sent = send(socket_, rest.data(), rest.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) throw Disconnected{};
    rest.remove_prefix(static_cast<std::size_t>(sent));
  }
}

void Packets::streamed(Bytes& reply) {
  const std::size_t room = size_ - headerSize;
  if (reply.size() <= room) return;
  std::string_view rest = reply;
  for (; rest.size() > room; rest.remove_prefix(room)) sendPacket(rest.substr(0, room), false);
  reply.erase(0, reply.size() - rest.size());
  if (hasInput()) awaitAttention();
}

void Packets::finish(Bytes& reply) {
  const std::size_t room = size_ - headerSize;
  std::string_view rest = reply;
  for (; rest.size() > room; rest.remove_prefix(room)) sendPacket(rest.substr(0, room), false);
  sendPacket(rest, true);
  reply.clear();
}

bool Packets::hasInput() const {
  pollfd waiting{socket_, POLLIN, 0};
  return poll(&waiting, 1, 0) > 0;
}

void Packets::awaitAttention() {
  const Message message = receive();
  if (message.kind != PacketKind::Attention) throw ProtocolError("A request came before its turn.");
  throw Attention{};
}

}  // namespace payslate::tsqlserver
