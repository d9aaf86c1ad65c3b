// Where a new entry's identifier and number come from.
#pragma once

#include <cstdint>
#include <string>

namespace payslate {

struct Session;

namespace common {
class CommonDB;
}

/// Asked once each for a new entry, inside the transaction that stores it: the identifier first.
class EntryNumbers {
 public:
  virtual ~EntryNumbers() = default;
  virtual std::int32_t nextId() = 0;
  virtual std::string fnGetEntryNo() = 0;
};

/// The next free ones in the database. Nothing reserves them: they are taken when the entry is committed.
class StoredEntryNumbers : public EntryNumbers {
 public:
  /// The helper must have its connection; both must outlive the source.
  StoredEntryNumbers(Session& session, common::CommonDB& database) : session_(session), database_(database) {}

  std::int32_t nextId() override;
  /// The company's prefix for this screen, and behind it the largest running number plus 1.
  /// basic::ValueError above 32767, ado::Error for a prefix that is Null.
  std::string fnGetEntryNo() override;

  /// The company's prefix for this screen; ado::Error when it is Null.
  [[nodiscard]] std::string entryPrefix();
  /// The largest number behind the prefix; 0 when there is none.
  [[nodiscard]] double largestRunningNumber(const std::string& prefix);

 private:
  Session& session_;
  common::CommonDB& database_;
};

/// Numbers for several entries of one transaction: read once, then counted.
class CountedEntryNumbers : public EntryNumbers {
 public:
  /// Reads the next identifier and the next number.
  explicit CountedEntryNumbers(StoredEntryNumbers& stored);

  std::int32_t nextId() override { return nextId_++; }
  std::string fnGetEntryNo() override;

 private:
  std::int32_t nextId_;
  std::string prefix_;
  double largest_;
};

/// The largest running number that an entry can have.
constexpr int largestEntryNumber = 32767;

}  // namespace payslate
