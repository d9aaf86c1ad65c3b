// Entries of one month whose every row carries one number, the mark of the deed that stored them: a mixture
// of two deeds, or a part of one, is seen.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>

#include "component/Session.h"
#include "platform/common/CommonDB.h"

namespace payslate::attack {

/// What was found is not what must be there.
struct Broken : std::runtime_error {
  using std::runtime_error::runtime_error;
};

enum class Kind : std::uint8_t { Enter, Rewrite, Cancel };
inline constexpr const char* kindNames[] = {"save", "rewrite", "cancellation"};

struct Deed {
  Kind kind = Kind::Enter;
  std::int32_t employee = 0;
  std::int32_t mark = 0;  ///< Of a cancellation: that of the entry.
};

/// An employee's entries: the mark of the live one, 0 for none, and those of the cancelled ones.
struct Holding {
  std::int32_t live = 0;
  std::multiset<std::int32_t> cancelled;

  bool operator==(const Holding&) const = default;
  [[nodiscard]] Holding after(const Deed& deed) const;
};
using Holdings = std::map<std::int32_t, Holding>;  ///< By employee.

/// Every row of an entry and of its journal, without times and hashes, by its identifier.
using EntryRows = std::map<std::int32_t, std::multiset<std::string>>;

/// A database with the demo company, open in this process.
class MarkedMonth {
 public:
  explicit MarkedMonth(const std::string& path);
  ~MarkedMonth() { session_.adocon()->Close(); }
  MarkedMonth(const MarkedMonth&) = delete;
  MarkedMonth& operator=(const MarkedMonth&) = delete;

  /// When it returns the deed is stored. ado::Error and basic::ValueError as the component throws them.
  void perform(const Deed& deed);
  /// The month as one moment shows it; Broken for an entry that is not whole, and rows without one.
  Holdings holdings();
  /// All entries of the company, of whatever month.
  EntryRows rows();
  /// Broken where the journal does not hold, or tells of other entries than there are.
  void requireJournal();

 private:
  [[nodiscard]] std::int32_t liveEntry(std::int32_t employee);

  Session session_;
  std::unique_ptr<common::CommonDB> database_;
};

}  // namespace payslate::attack
