// Taking connection strings apart, and keeping their passwords out of sentences.
#include "platform/ado/ConnectionString.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "platform/basic/Numbers.h"

namespace payslate::ado {
namespace {

constexpr const char* blanks = " \t\r\n";
constexpr std::string_view secretKeys[] = {"pwd", "password"};
constexpr std::string_view blot = "***";

std::string trimmed(const std::string& text) {
  const std::size_t start = text.find_first_not_of(blanks);
  return start == std::string::npos ? "" : text.substr(start, text.find_last_not_of(blanks) + 1 - start);
}

// The first of the signs; the end of the text where there is none.
std::size_t placeOf(const std::string& text, const char* signs, std::size_t from) {
  return std::min(text.find_first_of(signs, from), text.size());
}

std::size_t behindBlanks(const std::string& text, std::size_t from) {
  return std::min(text.find_first_not_of(blanks, from), text.size());
}

struct ReadValue {
  std::string text;
  std::size_t end;  ///< Its semicolon, or the end of everything.
};

ReadValue readValue(const std::string& text, std::size_t from) {
  std::size_t at = behindBlanks(text, from);
  if (at == text.size() || text[at] != '{') {
    const std::size_t end = placeOf(text, ";", from);
    return {trimmed(text.substr(from, end - from)), end};
  }
  std::string value;
  for (++at; at < text.size(); ++at) {
    if (text[at] == '}' && (at + 1 == text.size() || text[at + 1] != '}')) break;
    if (text[at] == '}') ++at;
    value += text[at];
  }
  return {value, placeOf(text, ";", at)};
}

bool isSecret(std::string_view key) {
  return std::any_of(std::begin(secretKeys), std::end(secretKeys),
                     [key](std::string_view secret) { return basic::sameName(key, secret); });
}

// A short password is also a part of other words, which have to stay readable.
bool standsAlone(const std::string& text, std::size_t at, std::size_t length) {
  const auto isLetter = [&text](std::size_t place) {
    return place < text.size() && std::isalnum(static_cast<unsigned char>(text[place])) != 0;
  };
  return (at == 0 || !isLetter(at - 1)) && !isLetter(at + length);
}

void blotWord(std::string& text, const std::string& word) {
  for (std::size_t at = 0; (at = text.find(word, at)) != std::string::npos;) {
    const bool whole = standsAlone(text, at, word.size());
    if (whole) text.replace(at, word.size(), blot);
    at += whole ? blot.size() : 1;
  }
}

void blotValuesOf(std::string_view key, std::string& text) {
  for (std::size_t at = 0; at + key.size() <= text.size(); ++at) {
    if (!basic::sameName(text.substr(at, key.size()), key)) continue;
    const std::size_t sign = behindBlanks(text, at + key.size());
    if (sign == text.size() || text[sign] != '=') continue;
    const std::size_t value = behindBlanks(text, sign + 1);
    text.replace(value, readValue(text, value).end - value, blot);
  }
}

}  // namespace

ConnectionString::ConnectionString(std::string text) : text_(std::move(text)) {
  for (std::size_t at = 0; at <= text_.size();) {
    const std::size_t sign = placeOf(text_, "=;", at);
    const std::string word = trimmed(text_.substr(at, sign - at));
    std::size_t end = sign;
    if (sign < text_.size() && text_[sign] == '=') {
      ReadValue value = readValue(text_, sign + 1);
      end = value.end;
      parts_.push_back({word, std::move(value.text)});
    } else if (at == 0) {
      path_ = word;
    } else if (!word.empty()) {
      parts_.push_back({word, std::nullopt});
    }
    at = end + 1;
  }
}

bool ConnectionString::has(std::string_view key) const {
  return std::any_of(parts_.begin(), parts_.end(),
                     [key](const Part& part) { return part.value && basic::sameName(part.key, key); });
}

std::string ConnectionString::withoutSecrets(std::string message) const {
  for (const Part& part : parts_)
    if (isSecret(part.key) && !part.value.value_or("").empty()) blotWord(message, *part.value);
  return message;
}

std::string blotSecrets(std::string text) {
  for (const std::string_view key : secretKeys) blotValuesOf(key, text);
  return text;
}

}  // namespace payslate::ado
