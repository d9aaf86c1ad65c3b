// What a month was when it was loaded, and what was done to it since that nobody typed.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "component/EntryRecord.h"

namespace payslate {

/// A row of the deductions, wherever it stands by now.
struct DeductionKey {
  std::string type;
  std::string id;           ///< DeductID
  std::string transaction;  ///< TransactionID
  std::size_t nth = 0;      ///< Among the rows that agree in all this, which savings rows can.

  bool operator==(const DeductionKey&) const = default;
};

DeductionKey deductionKey(const std::vector<ListRow>& deductions, std::size_t row);

/// An amount that Refresh wrote into a deduction.
struct Replacement {
  DeductionKey row;
  double before = 0;  ///< As it was loaded, or as the clerk typed it last.
  double written = 0;
};

struct LoadedMonth {
  /// A new month has no identifier; period and rows of a stored one are those that were stored.
  EntryRecord entry;
  bool stored = false;  ///< The entry is as it was read from the database.
  int hiddenRows = 0;   ///< Stored rows that could not be shown, which a save deletes.
  std::vector<Replacement> replacements;

  /// Refresh has written an amount. The amount before is kept from the first time on, for as long as nobody
  /// changes what Refresh wrote.
  void refreshed(const DeductionKey& row, double before, double written);
};

}  // namespace payslate
