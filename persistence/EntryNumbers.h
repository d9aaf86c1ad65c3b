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

 private:
  [[nodiscard]] std::string entryPrefix();
  [[nodiscard]] double largestRunningNumber(const std::string& prefix);

  Session& session_;
  common::CommonDB& database_;
};

}  // namespace payslate
