// Cancelling an entry.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace payslate {

struct Session;

/// Gives up the entry's recoveries and marks its header cancelled, with the user's name and the reason as
/// remark (no remark for a user without a name in the database). Both in one transaction of its own. Where
/// the entry was cancelled, taken by the payroll run or removed meanwhile nothing is changed, and a sentence
/// for the clerk comes back. ado::Error when the database refuses, and then nothing is changed either.
[[nodiscard]] std::optional<std::string> cancelEntry(Session& session, std::int32_t entryId,
                                                     const std::string& reason);

}  // namespace payslate
