// Connection strings of the form KEY=VALUE;KEY={VALUE};…
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace payslate::odbc {

/// Keys in any letter case; a value in braces may hold semicolons, and two closing braces stand for one.
class ConnectionString {
 public:
  /// Never fails: what is no KEY=VALUE is left to the driver manager, which names it.
  explicit ConnectionString(std::string text);

  [[nodiscard]] bool has(std::string_view key) const;
  /// For the driver manager: with a driver named, when only a server was.
  [[nodiscard]] std::string forDriver() const;
  /// `message` with every password of this string blotted out.
  [[nodiscard]] std::string withoutSecrets(std::string message) const;

 private:
  struct Part {
    std::string key;
    std::string value;
  };
  std::string text_;
  std::vector<Part> parts_;
};

}  // namespace payslate::odbc
