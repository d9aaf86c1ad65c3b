// Connection strings, PATH;KEY=VALUE;… or KEY=VALUE;KEY={VALUE};…, and what in them is secret.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace payslate::ado {

/// In the place of a path: a database that ends with its connection.
inline constexpr const char* inMemory = ":memory:";
/// Behind a path: makes the file where none is.
inline constexpr const char* createFile = ";Create=True";

/// Keys in any letter case; a value in braces may hold semicolons, and two closing braces stand for one.
class ConnectionString {
 public:
  struct Part {
    std::string key;
    std::optional<std::string> value;  ///< None where there is no "=".
  };

  /// Never fails: what it does not understand is for the provider to refuse.
  explicit ConnectionString(std::string text);

  [[nodiscard]] const std::string& text() const { return text_; }
  /// Does it begin with a path? So does everything that has no "=" before its first ";", an empty text too.
  [[nodiscard]] bool isPath() const { return path_.has_value(); }
  [[nodiscard]] bool isInMemory() const { return path_ == inMemory; }
  [[nodiscard]] std::string path() const { return path_.value_or(""); }
  /// Everything else, in its order.
  [[nodiscard]] const std::vector<Part>& parts() const { return parts_; }
  /// Is there a value, perhaps an empty one, for this key?
  [[nodiscard]] bool has(std::string_view key) const;

  /// `message`, which somebody wrote who knows this string, with its passwords blotted out.
  [[nodiscard]] std::string withoutSecrets(std::string message) const;

 private:
  std::string text_;
  std::optional<std::string> path_;
  std::vector<Part> parts_;
};

/// `text`, which may hold connection strings anywhere, whole or broken, with everything blotted out that
/// stands behind the key of a password.
std::string blotSecrets(std::string text);

}  // namespace payslate::ado
