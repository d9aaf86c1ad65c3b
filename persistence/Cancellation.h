// Cancelling an entry.
#pragma once

#include <cstdint>
#include <string>

namespace payslate {

struct Session;

/// Gives up the entry's recoveries and marks its header cancelled, with the user's name and the reason as
/// remark (no remark for a user without a name in the database). Both in one transaction of its own.
/// ado::Error when the database refuses, and then nothing is changed.
void cancelEntry(Session& session, std::int32_t entryId, const std::string& reason);

}  // namespace payslate
