// What a user can do about an error of the server.
#pragma once

#include <cstdint>
#include <string>

namespace payslate::odbc {

/// What a connection was busy with.
enum class Doing { Connecting, Working, Committing };

/// A sentence for this SQLSTATE and native code; empty where the server's own text has to do.
std::string adviceFor(const std::string& state, std::int32_t native, Doing doing = Doing::Working);

}  // namespace payslate::odbc
