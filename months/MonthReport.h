// Entering a month for everybody: what is wanted, and what became of each employee.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "component/Explanation.h"

namespace payslate {

struct MonthOptions {
  std::vector<std::int32_t> departments;  ///< Empty: all.
  std::vector<std::int32_t> employees;    ///< Empty: all. Where both are given both must hold.
  bool facilities = false;                ///< Takes every open recovery.
  bool balance = true;                    ///< Pays out salary that was kept back, as a new entry offers it.
  bool withFindings = false;              ///< Stores also what a clerk should have looked at.
  bool explanations = false;              ///< Tells where each amount comes from, as far as loading knew.
  bool dryRun = false;                    ///< Chooses, validates and reviews, and stores nothing.
};

enum class MonthResult {
  Stored,
  WouldStore,  ///< Of a dry run.
  LeftOut,     ///< A message of the entry form, or another clerk's entry, stood in the way.
  ToLookAt,    ///< The review found something.
  Failed,      ///< The database did not do its part; the same may succeed later.
  NotReached   ///< The run was stopped, or lost its connection.
};

struct MonthPay {
  std::string currency;  ///< Its symbol
  std::string net;
};

struct MonthLine {
  std::int32_t employeeId = 0;
  std::string name;
  MonthResult result = MonthResult::NotReached;
  std::string entry;          ///< The number of the stored entry.
  std::vector<MonthPay> pay;  ///< Where the month could be loaded.
  std::vector<std::string> reasons;
  std::vector<Explanation> explanations;  ///< Where they were wanted, and the month could be loaded.
};

struct MonthReport {
  std::vector<MonthLine> lines;  ///< Everybody, in the order of the entry form's combo.

  [[nodiscard]] std::size_t count(MonthResult result) const {
    return static_cast<std::size_t>(std::count_if(
        lines.begin(), lines.end(), [result](const MonthLine& line) { return line.result == result; }));
  }
  /// Is there nobody left whom somebody has to look after?
  [[nodiscard]] bool isComplete() const {
    return count(MonthResult::Stored) + count(MonthResult::WouldStore) == lines.size();
  }
};

/// Told before each employee, and never inside a transaction, how many come before him and how many there are
/// in all. False stops the run there: those before him are stored, nobody else is.
using MonthProgress = std::function<bool(std::size_t done, std::size_t total)>;

/// The whole month cannot be entered; nothing was written. The sentence says why.
class MonthRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace payslate
