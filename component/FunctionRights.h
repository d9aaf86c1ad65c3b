// What the user may do with entries.
#pragma once

#include <string>

namespace payslate {

struct Session;

namespace Right {
constexpr const char* New = "N";
constexpr const char* Edit = "E";
constexpr const char* Delete = "D";
constexpr const char* PostLedgers = "U";
}  // namespace Right

class FunctionRights {
 public:
  /// Reads the user's letters for the session's interface; user 1 has them all, without a look-up. False, and
  /// nothing read, for a user without a row.
  bool load(Session& session);

  /// Does the user hold this right? Letter and rights are trimmed and made upper case in place.
  bool fnUserRights(std::string& letter);
  [[nodiscard]] bool holds(const char* right);

  std::string strRights;  ///< The user's right letters; empty until loaded.
};

}  // namespace payslate
