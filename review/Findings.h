// The findings of a review, a function each: what is looked for, and where it is pointed out.
#pragma once

#include <optional>
#include <vector>

#include "component/EntryRecord.h"
#include "component/LoadedMonth.h"
#include "component/StoredState.h"
#include "review/Review.h"

namespace payslate {

/// The entry under review, and what it is held against.
class Reviewed {
 public:
  Reviewed(const EntryRecord& reviewed, const LoadedMonth& month, StoredState& state)
      : entry(reviewed), loaded(month), stored(state) {}

  const EntryRecord& entry;
  const LoadedMonth& loaded;
  StoredState& stored;

  [[nodiscard]] bool rewrites() const { return entry.id != 0; }
  /// The employee's other live entries with movements; asked for once.
  const std::vector<EntryMovements>& others();

 private:
  std::optional<std::vector<EntryMovements>> others_;
};

using Findings = std::vector<Finding>;

/// Refresh replaced the amount of a loan, savings account or recovery by that of a formula that belongs to a
/// deduction type with the same number.
void amountsReplacedByRefresh(Reviewed& month, Findings& findings);
/// A loan or savings row takes more than is still owed. Asked of new entries only where a row has grown: it
/// was loaded with the balance at most. The balance of a stored one can have moved since.
void rowsAboveTheirBalance(Reviewed& month, Findings& findings);
/// Recoveries are deducted as something else than what is ticked, by deduction type and currency.
void deductionsThatAreNotTheRecoveries(Reviewed& month, Findings& findings);
/// More is paid out than the other entries have left. What this one keeps back is there for those after it,
/// never for itself.
void payingOutWhatIsNotLeft(Reviewed& month, Findings& findings);
/// A rewritten entry does not keep back any more what the others have paid out of it.
void keepingBackTooLittle(Reviewed& month, Findings& findings);
/// The save would delete rows that the clerk never saw.
void rowsThatCannotBeShown(Reviewed& month, Findings& findings);
/// The save would move the entry to another pay period.
void movedPeriod(Reviewed& month, Findings& findings);
/// The clerk has changed day counts, and their sum with them.
void daysThatDoNotAddUp(Reviewed& month, Findings& findings);

}  // namespace payslate
