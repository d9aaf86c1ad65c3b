// A transaction that is rolled back unless it was committed.
#pragma once

#include "platform/ado/Connection.h"

namespace payslate::ado {

class Transaction {
 public:
  /// Begins it; Error when the connection is closed or a transaction is open already.
  explicit Transaction(Connection& connection) : connection_(connection) { connection_.BeginTrans(); }
  ~Transaction() {
    try {
      if (open_ && connection_.InTransaction()) connection_.RollbackTrans();
    } catch (const Error&) {
      // The connection is gone, and the transaction with it; the error on its way says what went wrong first.
    }
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  /// When it fails, the transaction is still open, and is rolled back with this object.
  void commit() {
    connection_.CommitTrans();
    open_ = false;
  }

 private:
  Connection& connection_;
  bool open_ = true;
};

}  // namespace payslate::ado
