// A connection through a driver: opening it, what the driver can do, and what it reports.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/ado/ConnectionString.h"
#include "platform/ado/Error.h"
#include "platform/odbc/Advice.h"
#include "platform/odbc/Handle.h"

namespace payslate::odbc {

class Link {
 public:
  /// ado::Error that names what the server or the driver manager refused, and never a password.
  explicit Link(const ado::ConnectionString& connection);
  ~Link();
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  [[nodiscard]] const Handle& handle() const { return handle_; }
  [[nodiscard]] std::unique_ptr<Handle> newStatement() const;
  /// The driver's answer.
  [[nodiscard]] std::int16_t setAutoCommit(bool on) const;

  /// Does the driver take and give UTF-16? One that does not gets UTF-8.
  [[nodiscard]] bool isWide() const { return wide_; }
  [[nodiscard]] bool servesOneStatementAtATime() const { return oneStatementAtATime_; }
  /// A name between the driver's quotes.
  [[nodiscard]] std::string quoted(const std::string& name) const;
  [[nodiscard]] bool isLost() const;

  /// What a failed call on this handle stands for.
  [[nodiscard]] ado::Error error(const Handle& handle, Doing doing = Doing::Working) const;

 private:
  void connect();
  void askDriver();
  [[nodiscard]] bool keepsWideText() const;

  ado::ConnectionString connection_;
  Handle environment_;
  Handle handle_;
  std::string quote_ = "\"";
  bool connected_ = false;
  bool wide_ = true;
  bool oneStatementAtATime_ = false;
};

}  // namespace payslate::odbc
