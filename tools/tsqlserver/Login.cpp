// The messages in front of the first request.
#include "tools/tsqlserver/Login.h"

#include <algorithm>

#include "platform/basic/Numbers.h"

namespace payslate::tsqlserver {

namespace {

constexpr std::int32_t loginFailed = 18456;
constexpr std::uint8_t loginSeverity = 14;
constexpr std::uint32_t oldestVersion = 0x72090002;  // 7.2: from there on requests carry headers.
constexpr std::uint32_t newestVersion = 0x74000004;

struct LoginRequest {
  std::uint32_t version = 0;
  std::uint32_t packetSize = 0;
  std::string user;
  std::string password;
};

// Options of five bytes each (what, where, how long), a closing mark, then their values. Only the version and
// that there is no encryption are told.
void answerPreLogin(Packets& packets) {
  constexpr std::uint8_t versionOption = 0;
  constexpr std::uint8_t encryptionOption = 1;
  constexpr std::uint8_t endOfOptions = 0xFF;
  constexpr std::uint8_t encryptionNotSupported = 2;
  constexpr std::uint16_t optionsSize = 11;
  constexpr std::uint16_t versionSize = 6;
  Writer out;
  out.u8(versionOption);
  out.big16(optionsSize);
  out.big16(versionSize);
  out.u8(encryptionOption);
  out.big16(optionsSize + versionSize);
  out.big16(1);
  out.u8(endOfOptions);
  out.big32(0x0B000000);
  out.big16(0);
  out.u8(encryptionNotSupported);
  Bytes reply = out.take();
  packets.finish(reply);
}

// Nibbles swapped and bits turned, so that it is not read in passing.
std::string unveiled(std::string_view octets) {
  constexpr unsigned veil = 0xA5;
  Bytes plain;
  for (const char octet : octets) {
    const unsigned code = static_cast<unsigned char>(octet) ^ veil;
    plain += static_cast<char>(((code & 0x0FU) << 4U) | (code >> 4U));
  }
  return fromUtf16(plain);
}

LoginRequest parsedLogin(std::string_view payload) {
  constexpr std::size_t startOfUser = 40;  // Where the offset and length of the user's name stand.
  Reader head(payload);
  head.u32();  // The whole length.
  LoginRequest request;
  request.version = head.u32();
  request.packetSize = head.u32();
  Reader offsets(payload);
  offsets.raw(startOfUser);
  const auto next = [&offsets, payload] {
    const std::size_t offset = offsets.u16();
    const std::size_t units = offsets.u16();
    Reader field(payload);
    field.raw(offset);
    return field.raw(units * 2);
  };
  request.user = fromUtf16(next());
  request.password = unveiled(next());
  return request;
}

bool mayEnter(const LoginRequest& request, const Door& door) {
  return door.user.empty() || (basic::sameName(request.user, door.user) && request.password == door.password);
}

}  // namespace

bool admitted(Packets& packets, const Door& door) {
  Message message = packets.receive();
  if (message.kind == PacketKind::PreLogin) {
    answerPreLogin(packets);
    message = packets.receive();
  }
  if (message.kind != PacketKind::Login) throw ProtocolError("The client does not log in.");
  const LoginRequest request = parsedLogin(message.payload);
  if (request.version < oldestVersion) throw ProtocolError("The client's protocol is older than 7.2.");
  Reply reply(packets);
  if (!mayEnter(request, door)) {
    reply.error({loginFailed, "Login failed for user '" + request.user + "'.", loginSeverity});
    reply.done(Closing::Batch, {std::nullopt, 0, true});
    reply.finish();
    return false;
  }
  if (request.packetSize != 0) packets.setSize(request.packetSize);
  reply.collationChanged();
  reply.loginAccepted(std::min(request.version, newestVersion));
  reply.packetSizeChanged(packets.size());
  reply.done(Closing::Batch, {});
  // Larger packets begin behind this reply, which is short.
  reply.finish();
  return true;
}

}  // namespace payslate::tsqlserver
