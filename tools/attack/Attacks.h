// The attacks. Each prints a line of figures, and throws Broken, with the step, for what must not be.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace payslate::attack {

struct Plan {
  std::string demo;  ///< A database with the demo company.
  std::uint32_t seed = 1;
  int percent = 100;                 ///< Of the full run.
  std::string folder;                ///< Databases lie here; that of a failure stays.
  std::optional<std::int64_t> only;  ///< This step alone.
};

/// Saving processes are killed at random moments, half of them beside a second one at work.
void killAtRandom(const Plan& plan);
/// Runs that enter the month for everybody are killed at random moments; the next ones complete it.
void killMonthRuns(const Plan& plan);
/// A process ends at each write and each sync of a deed, by a kill or with the power.
void cutAtEveryWrite(const Plan& plan);
/// A clerk works on damaged copies of a database.
void damageCopies(const Plan& plan);
/// Likewise, each byte of the stored catalog.
void damageCatalog(const Plan& plan);

/// The path of a new database with the demo company.
std::string freshDatabase(const Plan& plan, const std::string& name);
/// Writes a line of figures.
void report(const std::string& line);

}  // namespace payslate::attack
