// SQLite's files, counted: the process ends at a chosen write, sync, truncation or deletion.
#pragma once

#include <cstdint>

namespace payslate::attack {

struct Cut {
  std::int64_t at = 0;     ///< The event at which it ends, from 1; 0 for none.
  bool withPower = false;  ///< What was written since a file's last sync is kept, torn or lost, at random.
  std::uint32_t seed = 0;
};

/// From here on every database of this process is counted.
void countFiles();
/// Counts from 0 again, and ends there. Before a database is opened.
void cutAt(const Cut& wanted);
std::int64_t countedEvents();

}  // namespace payslate::attack
