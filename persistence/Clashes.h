// What another clerk may have stored that an entry cannot stand beside.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "component/EntryRecord.h"

namespace payslate {

struct Session;

/// A sentence for the clerk when another live entry of the employee for the pay period is stored.
std::optional<std::string> secondLiveEntry(Session& session, const EntryRecord& entry);

/// A sentence for the clerk when another entry has taken one of the recoveries.
std::optional<std::string> takenRecovery(Session& session, const EntryRecord& entry);

/// Is there an entry with this identifier, or one of the company with this number?
bool isTaken(Session& session, std::int32_t entryId, const std::string& number);

}  // namespace payslate
