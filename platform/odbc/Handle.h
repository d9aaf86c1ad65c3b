// A native handle of the driver manager, and what it has to say about a failure.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace payslate::odbc {

/// Freed when it goes; a connection is left first.
class Handle {
 public:
  enum class Kind : std::int16_t { Environment = 1, Connection = 2, Statement = 3 };

  /// ado::Error when the driver manager gives none.
  Handle(Kind kind, const Handle* parent);
  ~Handle();
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  [[nodiscard]] void* get() const { return handle_; }
  /// Leaves the server, before the handle is freed.
  void disconnect();

  /// One diagnostic record, its text as the server gave it: without the names of the programs that passed it
  /// on.
  struct Diagnosis {
    std::string state;
    std::int32_t native = 0;
    std::string text;
  };
  /// The first record that is an error and no remark, or else the first remark; nothing without any.
  /// A driver without wide functions is asked for bytes: it gives UTF-8.
  [[nodiscard]] std::optional<Diagnosis> failure(bool wide = true) const;

 private:
  [[nodiscard]] std::optional<Diagnosis> record(int number, bool wide) const;

  Kind kind_;
  void* handle_ = nullptr;
};

}  // namespace payslate::odbc
