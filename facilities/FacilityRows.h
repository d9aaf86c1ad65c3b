// Facility recoveries as they are stored with an entry.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace payslate {

struct Session;

/// One recovery taken in an entry; amounts and identifier as the list shows them.
struct FacilityRow {
  std::int16_t position = 0;  ///< In the list, 1 for the first row.
  std::string trackingId;
  std::string settlement;
  std::string actual;
};

/// Writes the taken recoveries of an entry, in mode "E" in place of those that the entry at `browseEntryId`
/// had. Runs inside the caller's transaction and hands every error to the caller.
void fnSaveFacilityDetails(Session& session, std::int32_t entryId, const std::string& browseEntryId,
                           const std::vector<FacilityRow>& taken);

}  // namespace payslate
