// A transaction that is rolled back unless it was committed.
#pragma once

#include "platform/ado/Connection.h"

namespace payslate {

class Transaction {
 public:
  explicit Transaction(ado::Connection& connection) : connection_(connection) {}
  ~Transaction() {
    try {
      rollback();
    } catch (const ado::Error&) {
      // The connection is gone, and the transaction with it; a destructor has nobody to tell.
    }
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void begin() {
    connection_.BeginTrans();
    open_ = true;
  }
  void commit() {
    connection_.CommitTrans();
    open_ = false;
  }
  /// Nothing when none is open.
  void rollback() {
    if (!open_) return;
    open_ = false;
    connection_.RollbackTrans();
  }

 private:
  ado::Connection& connection_;
  bool open_ = false;
};

}  // namespace payslate
