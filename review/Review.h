// What a clerk should look at before an entry is stored, or cancelled.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace payslate {

class StoredState;
struct EntryRecord;
struct LoadedMonth;

enum class ReviewPage { None, Allowances, Deductions, Facilities, DayCounts };

struct Finding {
  std::string line;
  ReviewPage page = ReviewPage::None;
  std::optional<std::size_t> row = {};  ///< In the list of the page, 0 for the first.
};

/// The findings about an entry as it is to be stored, in the order in which they are told; none in an
/// ordinary month. Of the stored state is asked only what a finding can come from.
std::vector<Finding> review(const EntryRecord& entry, const LoadedMonth& loaded, StoredState& stored);

/// The question that they make.
std::string reviewQuestion(const std::vector<Finding>& findings);

/// What is to be asked before an entry is cancelled that later ones have drawn on; empty for any other.
std::string cancellationQuestion(std::int32_t entryId, StoredState& stored);

}  // namespace payslate
