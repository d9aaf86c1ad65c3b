// The amounts of an entry one by one, named so that two states of the entry can be compared.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "component/EntryRecord.h"

namespace payslate {

struct Session;

/// What kind of thing an amount is of.
namespace AmountKind {
constexpr const char* Entry = "entry";          ///< Item: a word of EntryItem.
constexpr const char* Allowance = "allowance";  ///< Item: "Y 3", kind of row and identifier.
constexpr const char* Deduction = "deduction";  ///< Item: "D 3", or "L 2/17" with the transaction.
constexpr const char* Recovery = "recovery";    ///< Item: the tracking identifier.
constexpr const char* Movement = "movement";    ///< Item: a word of MovementItem.
}  // namespace AmountKind

namespace EntryItem {
constexpr const char* Employee = "employee";
constexpr const char* Period = "period";
constexpr const char* BasicPay = "basic pay";
constexpr const char* Paid = "paid";
constexpr const char* Cancelled = "cancelled";  ///< Only a cancelled entry has it.
}  // namespace EntryItem

namespace MovementItem {
constexpr const char* PaidOut = "paid out";
constexpr const char* KeptBack = "kept back";
}  // namespace MovementItem

/// What an amount is of. Equal rows of an entry, as standing pay and booked hours can be, share it.
struct AmountKey {
  std::string kind;
  std::string item;

  auto operator<=>(const AmountKey&) const = default;
};

/// Amounts of money as amountText writes them, other values as a word.
struct EntryAmount {
  AmountKey key;
  std::string amount;
};
using EntryAmounts = std::vector<EntryAmount>;

struct AmountChange {
  AmountKey key;
  std::optional<std::string> before;  ///< None: it is new.
  std::optional<std::string> after;   ///< None: it is gone.
};

/// Those of an entry as it is to be stored, in the order of its lists.
EntryAmounts amountsOf(const EntryRecord& entry);

/// What changes, in the order of `after`, and behind it what is gone.
std::vector<AmountChange> changesOf(const EntryAmounts& before, const EntryAmounts& after);

struct StoredAmounts {
  std::string number;
  EntryAmounts amounts;
};

/// Entries by their identifiers, the last one too.
struct EntryRange {
  std::int32_t first = 0;
  std::int32_t last = 0;
};

/// The range as a condition on a column; of one entry as an equation, for which the database looks at a key.
std::string within(const char* column, EntryRange range);

/// The amounts as the tables hold them, rows that no list could show among them, by the identifiers of the
/// company's entries in the range.
std::map<std::int32_t, StoredAmounts> readAmounts(Session& session, EntryRange range);

/// The largest identifier of the company's entries; 0 when there is none.
std::int32_t lastEntry(Session& session);

}  // namespace payslate
