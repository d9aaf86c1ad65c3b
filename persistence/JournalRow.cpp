// The canonical text of a journal's row, and its hash.
#include "persistence/JournalRow.h"

#include <openssl/evp.h>

#include <array>
#include <stdexcept>

namespace payslate {

namespace {

void append(std::string& text, std::string_view field) {
  text += std::to_string(field.size());
  text += ':';
  text += field;
}

void append(std::string& text, const std::optional<std::string>& field) {
  if (field) {
    append(text, std::string_view(*field));
  } else {
    text += '-';
  }
}

}  // namespace

std::string sha256(std::string_view text) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
  unsigned int size = 0;
  if (EVP_Digest(text.data(), text.size(), bytes.data(), &size, EVP_sha256(), nullptr) != 1)
    throw std::runtime_error("The journal's hash (SHA-256) cannot be computed on this machine.");
  constexpr std::string_view digits = "0123456789abcdef";
  constexpr unsigned int base = 16;
  std::string hexadecimal;
  for (unsigned int i = 0; i < size; ++i) {
    hexadecimal += digits[bytes.at(i) / base];
    hexadecimal += digits[bytes.at(i) % base];
  }
  return hexadecimal;
}

std::string hashOf(const JournalRow& row, std::int16_t company, std::string_view hashBefore) {
  std::string text;
  for (const std::int32_t number :
       {std::int32_t{company}, row.entryId, row.sequence, std::int32_t{row.userId}})
    append(text, std::string_view(std::to_string(number)));
  for (const std::string* field : {&row.time, &row.action, &row.kind, &row.item})
    append(text, std::string_view(*field));
  append(text, row.before);
  append(text, row.after);
  append(text, hashBefore);
  return sha256(text);
}

}  // namespace payslate
