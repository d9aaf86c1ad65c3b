// What SQLite's error codes mean, in sentences.
#pragma once

#include <string>

#include "platform/ado/Error.h"

struct sqlite3;

namespace payslate::sqlite {

inline constexpr const char* failureSource = "payslate.sqlite";

/// A file that holds what nobody can have stored; `where` may be empty.
std::string damagedSentence(const std::string& path, const std::string& where);

/// The error behind a failed call on this handle, which is null where it was not even made.
ado::Error failure(sqlite3* handle, int code);

}  // namespace payslate::sqlite
