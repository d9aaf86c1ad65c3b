// Tokens other than rows.
#include "tools/tsqlserver/Tokens.h"

namespace payslate::tsqlserver {

namespace {

constexpr const char* productName = "Transact-SQL server";
constexpr std::uint32_t productVersion = 0x0B000000;  // 11.0: new enough for any driver's catalogue calls.

namespace token {
constexpr std::uint8_t returnStatus = 0x79;
constexpr std::uint8_t returnValue = 0xAC;
constexpr std::uint8_t loginAck = 0xAD;
constexpr std::uint8_t environment = 0xE3;
}  // namespace token

namespace environment {
constexpr std::uint8_t packetSize = 4;
constexpr std::uint8_t collation = 7;
constexpr std::uint8_t begun = 8;
constexpr std::uint8_t committed = 9;
constexpr std::uint8_t rolledBack = 10;
}  // namespace environment

namespace status {
constexpr std::uint16_t more = 0x01;
constexpr std::uint16_t error = 0x02;
constexpr std::uint16_t counted = 0x10;
constexpr std::uint16_t attention = 0x20;
}  // namespace status

constexpr std::uint8_t wholeNumberType = 0x26;

// A length of two bytes, then what it measures.
void measured(Writer& out, std::uint8_t kind, const Bytes& body) {
  out.u8(kind);
  out.u16(body.size());
  out.raw(body);
}

Bytes numberBytes(std::uint64_t number) {
  Writer bytes;
  bytes.u64(number);
  return bytes.take();
}

}  // namespace

std::string_view collation() {
  return std::string_view("\x09\x04\xD0\x00\x34", 5);
}

void Reply::pass() {
  Bytes bytes = out_.take();
  const auto keep = [&] { out_.raw(bytes); };
  try {
    packets_.streamed(bytes);
  } catch (const Attention&) {
    keep();
    throw;
  }
  keep();
}

void Reply::finish() {
  Bytes bytes = out_.take();
  packets_.finish(bytes);
}

void Reply::message(std::uint8_t kind, const Fault& fault) {
  Writer body;
  body.u32(static_cast<std::uint32_t>(fault.number));
  body.u8(1);  // The state, which nobody tells apart.
  body.u8(fault.severity);
  body.longText(fault.message);
  body.shortText("tsqlserver");
  body.shortText("");  // No procedure.
  body.u32(1);
  measured(out_, kind, body.bytes());
}

void Reply::done(Closing closing, const Outcome& outcome, bool more) {
  out_.u8(static_cast<std::uint8_t>(closing));
  out_.u16((more ? status::more : 0U) | (outcome.failed ? status::error : 0U) |
           (outcome.rows ? status::counted : 0U));
  out_.u16(outcome.command);
  out_.u64(outcome.rows.value_or(0));
}

void Reply::attentionDone() {
  out_.u8(static_cast<std::uint8_t>(Closing::Batch));
  out_.u16(status::attention);
  out_.u16(0);
  out_.u64(0);
}

void Reply::returnStatus(std::int32_t value) {
  out_.u8(token::returnStatus);
  out_.u32(static_cast<std::uint32_t>(value));
}

void Reply::returnValue(std::uint16_t position, const std::string& name, std::int32_t value) {
  out_.u8(token::returnValue);
  out_.u16(position);
  out_.shortText(name);
  out_.u8(1);   // An output parameter.
  out_.u32(0);  // No type of a user's.
  out_.u16(0);
  out_.u8(wholeNumberType);
  out_.u8(sizeof value);  // Of the type, then of the value.
  out_.u8(sizeof value);
  out_.u32(static_cast<std::uint32_t>(value));
}

void Reply::loginAccepted(std::uint32_t version) {
  Writer body;
  body.u8(1);  // Transact-SQL.
  body.big32(version);
  body.shortText(productName);
  body.big32(productVersion);
  measured(out_, token::loginAck, body.bytes());
}

void Reply::environmentChanged(std::uint8_t what, std::string_view newValue, std::string_view oldValue) {
  Writer body;
  body.u8(what);
  for (const std::string_view value : {newValue, oldValue}) {
    body.u8(value.size());
    body.raw(value);
  }
  measured(out_, token::environment, body.bytes());
}

void Reply::packetSizeChanged(std::size_t size) {
  Writer body;
  body.u8(environment::packetSize);
  body.shortText(std::to_string(size));
  body.shortText(std::to_string(size));
  measured(out_, token::environment, body.bytes());
}

void Reply::collationChanged() {
  environmentChanged(environment::collation, collation(), "");
}

void Reply::transactionBegun(std::uint64_t descriptor) {
  environmentChanged(environment::begun, numberBytes(descriptor), "");
}

void Reply::transactionEnded(std::uint64_t descriptor, bool committed) {
  environmentChanged(committed ? environment::committed : environment::rolledBack, "",
                     numberBytes(descriptor));
}

}  // namespace payslate::tsqlserver
