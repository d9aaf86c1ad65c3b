// Reading and writing what goes over the wire: little-endian numbers, and texts in UTF-16.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace payslate::tsqlserver {

/// Octets; a string only for its operations.
using Bytes = std::string;

/// The client sent what the protocol does not allow, or what this server does not know. Ends the connection.
class ProtocolError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Writer {
 public:
  void u8(std::uint64_t number) { little(number, 1); }
  void u16(std::uint64_t number) { little(number, 2); }
  void u32(std::uint64_t number) { little(number, 4); }
  void u64(std::uint64_t number) { little(number, 8); }
  void big16(std::uint64_t number);
  void big32(std::uint64_t number);
  void raw(std::string_view octets) { bytes_ += octets; }
  /// UTF-16 text, headed by its length in units: one byte or two.
  void shortText(std::string_view text);
  void longText(std::string_view text);

  [[nodiscard]] const Bytes& bytes() const { return bytes_; }
  Bytes take() { return std::move(bytes_); }

 private:
  void little(std::uint64_t number, int size);

  Bytes bytes_;
};

/// Reads from octets that outlive it. ProtocolError behind their end.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  std::uint8_t u8() { return static_cast<std::uint8_t>(little(1)); }
  std::uint16_t u16() { return static_cast<std::uint16_t>(little(2)); }
  std::uint32_t u32() { return static_cast<std::uint32_t>(little(4)); }
  std::uint64_t u64() { return little(8); }
  std::uint64_t little(std::size_t size);  ///< Up to eight bytes.
  std::string_view raw(std::size_t size);
  std::string text(std::size_t units);            ///< UTF-16, as UTF-8.
  std::string shortText() { return text(u8()); }  ///< Headed by one byte of length.
  std::string_view rest() { return raw(left()); }

  [[nodiscard]] std::size_t left() const { return bytes_.size() - at_; }
  [[nodiscard]] bool atEnd() const { return left() == 0; }

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
};

/// UTF-8 as little-endian UTF-16 and back. Half a surrogate pair becomes the replacement character.
Bytes toUtf16(std::string_view text);
std::string fromUtf16(std::string_view octets);
/// Single-byte text of the collation that is announced (Windows Latin 1), as UTF-8.
std::string fromLatin(std::string_view octets);

}  // namespace payslate::tsqlserver
