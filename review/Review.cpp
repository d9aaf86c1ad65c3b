// The order of the findings, and the question they make.
#include "review/Review.h"

#include "review/Findings.h"

namespace payslate {

const std::vector<EntryMovements>& Reviewed::others() {
  if (!others_) others_ = stored.otherMovements(entry.employeeId, entry.id);
  return *others_;
}

std::vector<Finding> review(const EntryRecord& entry, const LoadedMonth& loaded, StoredState& stored) {
  Reviewed month(entry, loaded, stored);
  Findings findings;
  for (const auto look :
       {amountsReplacedByRefresh, rowsAboveTheirBalance, deductionsThatAreNotTheRecoveries,
        payingOutWhatIsNotLeft, keepingBackTooLittle, rowsThatCannotBeShown, movedPeriod, daysThatDoNotAddUp})
    look(month, findings);
  return findings;
}

std::string reviewQuestion(const std::vector<Finding>& findings) {
  std::string question = "Please look at this entry before it is stored:\r";
  for (const Finding& finding : findings) question += finding.line + "\r";
  return question + "Store it all the same?";
}

}  // namespace payslate
