// What lies beside the file, its time and size.
#include "platform/sqlite/QuietFile.h"

#include <array>
#include <string_view>
#include <system_error>

namespace payslate::sqlite {

namespace {

bool isThere(const std::string& path) {
  std::error_code unknown;
  return std::filesystem::exists(path, unknown);
}

bool isFilled(const std::string& path) {
  std::error_code unknown;
  const std::uintmax_t size = std::filesystem::file_size(path, unknown);
  return !unknown && size > 0;
}

// Everything but what surely stands for itself.
std::string escaped(const std::string& path) {
  constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/:._-";
  constexpr std::string_view digits = "0123456789ABCDEF";
  constexpr unsigned base = 16;
  std::string text;
  for (const char character : path) {
    const auto byte = static_cast<unsigned char>(character);
    if (plain.find(character) != std::string_view::npos) {
      text += character;
    } else {
      text += {'%', digits[byte / base], digits[byte % base]};
    }
  }
  return text;
}

}  // namespace

QuietFile::QuietFile(const std::string& path)
    : path_(std::filesystem::absolute(path).generic_string()), noted_(look()) {}

bool QuietFile::isQuiet(const std::string& path) {
  return !isThere(path + "-journal") && !hasChangesBeside(path) &&
         !(isThere(path + "-wal") && isThere(path + "-shm"));
}

bool QuietFile::hasChangesBeside(const std::string& path) {
  return isFilled(path + "-wal");
}

bool QuietFile::isUnchanged() const {
  return look() == noted_;
}

std::string QuietFile::uri() const {
  return std::string("file://") + (path_.starts_with('/') ? "" : "/") + escaped(path_) + "?immutable=1";
}

QuietFile::Look QuietFile::look() const {
  std::error_code gone;  // A file that is gone has changed.
  Look now;
  now.time = std::filesystem::last_write_time(path_, gone);
  now.size = std::filesystem::file_size(path_, gone);
  return now;
}

}  // namespace payslate::sqlite
