// The error type of this layer, and where in a statement's text something stands.
#pragma once

#include <stdexcept>
#include <string>

namespace payslate::tsql {

/// Both count from 1; columns count characters, not bytes.
struct Position {
  int line = 1;
  int column = 1;
};

/// SQLSTATEs in use.
namespace state {
inline constexpr const char* syntax = "42000";
inline constexpr const char* noSuchTable = "42S02";
inline constexpr const char* tableExists = "42S01";
inline constexpr const char* noSuchColumn = "42S22";
inline constexpr const char* divisionByZero = "22012";
inline constexpr const char* overflow = "22003";
inline constexpr const char* truncation = "22001";
inline constexpr const char* badCast = "22018";
inline constexpr const char* badDate = "22007";
inline constexpr const char* constraint = "23000";
inline constexpr const char* cardinality = "21000";
inline constexpr const char* badLength = "22011";
inline constexpr const char* general = "HY000";
}  // namespace state

/// A statement that is refused, or a value that cannot be computed. `what()` is written for a user.
class SqlError : public std::runtime_error {
 public:
  SqlError(std::string sqlState, const std::string& message)
      : std::runtime_error(message), sqlState_(std::move(sqlState)) {}
  /// The message is headed by the position.
  SqlError(std::string sqlState, Position at, const std::string& message)
      : std::runtime_error("Line " + std::to_string(at.line) + ", column " + std::to_string(at.column) +
                           ": " + message),
        sqlState_(std::move(sqlState)) {}
  [[nodiscard]] const std::string& sqlState() const { return sqlState_; }

 private:
  std::string sqlState_;
};

}  // namespace payslate::tsql
