// The one error type of database access.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace payslate::ado {

/// A failed request. The object that raised it stays usable. `what()` is the description.
class Error : public std::exception {
 public:
  Error(std::string description, std::string sqlState, std::string source = "payslate.ado",
        std::int32_t number = 0, std::int32_t nativeError = 0);

  [[nodiscard]] const char* what() const noexcept override { return Description.c_str(); }

  /// The database gave the transaction up for another user's, as it does to end a deadlock: the same work,
  /// done anew, may well succeed.
  [[nodiscard]] bool gaveWay() const;
  /// A row was refused by a key, a unique index or another rule of its table.
  [[nodiscard]] bool brokeARule() const;

  std::int32_t Number = 0;  ///< The layer's own number; 0 when it has none.
  std::string SQLState;     ///< Five characters, as SQL defines them: "42000" syntax, "23000" constraint,
                            ///< "22012" division by zero.
  std::string Source;       ///< Which layer raised it.
  std::string Description;  ///< What the user is shown.
  std::string HelpFile;
  std::int32_t HelpContext = 0;
  std::int32_t NativeError = 0;  ///< The database's own code.
};

}  // namespace payslate::ado
