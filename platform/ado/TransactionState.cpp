// The rule about transactions that ended by themselves.
#include "platform/ado/TransactionState.h"

namespace payslate::ado {

void TransactionState::requireNone() const {
  if (open_) throw Error("A transaction is open already", "25001");
}

void TransactionState::requireOpen(const std::string& forWhat) const {
  if (!open_) throw Error("There is no transaction to " + forWhat, "25000");
}

void TransactionState::end() {
  open_ = false;
  failure_.reset();
}

void TransactionState::endedBy(const Error& failure) {
  if (open_ && !failure_) failure_ = failure;
}

void TransactionState::refuseAfterFailure() const {
  if (failure_) throw Error(*failure_);
}

}  // namespace payslate::ado
