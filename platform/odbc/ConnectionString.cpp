// Taking connection strings apart.
#include "platform/odbc/ConnectionString.h"

#include <algorithm>
#include <cctype>

#include "platform/basic/Numbers.h"

namespace payslate::odbc {
namespace {

// This driver ends what a silent server keeps waiting when it is told so here, and in no other way.
constexpr const char* usualDriver = "Driver={FreeTDS};Timeout=60;";
constexpr const char* blot = "***";
constexpr const char* secretKeys[] = {"pwd", "password"};
constexpr const char* driverKeys[] = {"driver", "dsn", "filedsn"};

std::string trimmed(const std::string& text) {
  constexpr const char* blanks = " \t\r\n";
  const std::size_t start = text.find_first_not_of(blanks);
  return start == std::string::npos ? "" : text.substr(start, text.find_last_not_of(blanks) + 1 - start);
}

// Reads the value that starts at `at` and moves behind its semicolon.
std::string takeValue(const std::string& text, std::size_t& at) {
  const std::size_t start = text.find_first_not_of(' ', at);
  std::string value;
  if (start != std::string::npos && text[start] == '{') {
    for (at = start + 1; at < text.size(); ++at) {
      if (text[at] == '}' && (at + 1 == text.size() || text[at + 1] != '}')) break;
      if (text[at] == '}') ++at;
      value += text[at];
    }
    at = text.find(';', at);
  } else {
    const std::size_t end = text.find(';', at);
    value = trimmed(text.substr(at, end == std::string::npos ? end : end - at));
    at = end;
  }
  at = at == std::string::npos ? text.size() : at + 1;
  return value;
}

// A short password is also a part of other words, which have to stay readable.
bool standsAlone(const std::string& text, std::size_t at, std::size_t length) {
  const auto isLetter = [&text](std::size_t place) {
    return place < text.size() && std::isalnum(static_cast<unsigned char>(text[place])) != 0;
  };
  return (at == 0 || !isLetter(at - 1)) && !isLetter(at + length);
}

}  // namespace

ConnectionString::ConnectionString(std::string text) : text_(std::move(text)) {
  for (std::size_t at = 0; at < text_.size();) {
    const std::size_t sign = text_.find('=', at);
    if (sign == std::string::npos) break;
    std::string key = text_.substr(at, sign - at);
    key.erase(0, key.find_last_of(';') + 1);  // A part without "=" says nothing.
    at = sign + 1;
    parts_.push_back({trimmed(key), takeValue(text_, at)});
  }
}

bool ConnectionString::has(std::string_view key) const {
  return std::any_of(parts_.begin(), parts_.end(),
                     [key](const Part& part) { return basic::sameName(part.key, key); });
}

std::string ConnectionString::forDriver() const {
  const bool named =
      std::any_of(std::begin(driverKeys), std::end(driverKeys), [this](const char* key) { return has(key); });
  return named ? text_ : usualDriver + text_;
}

std::string ConnectionString::withoutSecrets(std::string message) const {
  for (const Part& part : parts_) {
    const bool secret = std::any_of(std::begin(secretKeys), std::end(secretKeys),
                                    [&part](const char* key) { return basic::sameName(part.key, key); });
    if (!secret || part.value.empty()) continue;
    for (std::size_t at = 0; (at = message.find(part.value, at)) != std::string::npos;) {
      const bool whole = standsAlone(message, at, part.value.size());
      if (whole) message.replace(at, part.value.size(), blot);
      at += whole ? std::string_view(blot).size() : 1;
    }
  }
  return message;
}

}  // namespace payslate::odbc
