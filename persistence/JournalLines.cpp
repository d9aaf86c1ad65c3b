// Names for what the journal calls by identifiers.
#include "persistence/JournalLines.h"

#include <functional>
#include <map>
#include <set>

#include "component/DatabaseValues.h"
#include "component/PayRows.h"
#include "component/Session.h"
#include "persistence/EntryAmounts.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

/// Where names of one kind stand.
struct NameSource {
  const char* table;  ///< Logical
  const char* company;
  const char* id;
  const char* name;
  const char* title;
};

constexpr NameSource users{"pusers", "companyid", "userid", "username", ""};
constexpr NameSource employees{"pemployee", "eCompanyID", "eEmpID", "eName", ""};
constexpr NameSource allowances{"pAllowances", "aCompanyID", "aAllowanceID", "aDescription", "Allowance "};
constexpr NameSource deductions{"pDeductions", "dCompanyID", "dDedID", "dDescription", "Deduction "};
constexpr NameSource loans{"ploans", "lcompanyid", "lloanid", "lDescription", "Loan "};
constexpr NameSource savings{"psavings", "scompanyid", "sSavingsID", "sDescription", "Savings "};
constexpr NameSource recoveries{"pFacilityTrackingHeader", "fthCompanyID", "fthTrackingID", "fthTrackingNo",
                                "Recovery "};

/// Names that were looked up once.
class Names {
 public:
  explicit Names(Session& session) : session_(session) {}

  /// The identifier itself where it has no name.
  const std::string& of(const NameSource& source, const std::string& id) {
    const auto [name, isNew] = known_.try_emplace({source.table, id}, id);
    if (isNew) lookUp(source, id, name->second);
    return name->second;
  }

 private:
  void lookUp(const NameSource& source, const std::string& id, std::string& name) {
    ado::Recordset rows;
    rows.Open(std::string("select ") + source.name + " from " + session_.TableLinks[source.table] +
                  " where " + source.company + " = " + session_.companyText() + " and " + source.id + " = " +
                  std::to_string(basic::numberOrZero(id)),
              *session_.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
    if (rows.Eof()) return;
    std::string found = basic::Trim(rows.Fields(0).Text());
    if (!found.empty()) name = std::move(found);
  }

  Session& session_;
  std::map<std::pair<std::string, std::string>, std::string> known_;
};

std::string doneBy(const std::string& action) {
  static const std::map<std::string, std::string, std::less<>> words{
      {JournalAction::Store, "Entered"},    {JournalAction::Rewrite, "Changed"},
      {JournalAction::Cancel, "Cancelled"}, {JournalAction::Noticed, "Changed by another program"},
      {JournalAction::Seal, "Sealed"},      {JournalAction::Accept, "Accepted"}};
  const auto found = words.find(action);
  return found == words.end() ? action : found->second;
}

const NameSource& sourceOf(const JournalRow& row, const std::string& type) {
  if (row.kind == AmountKind::Allowance) return allowances;
  if (row.kind == AmountKind::Recovery) return recoveries;
  if (type == DeductKind::Loan) return loans;
  return type == DeductKind::Savings ? savings : deductions;
}

// "L 2/17": the kind of row, the identifier, the transaction.
std::string whatOf(const JournalRow& row, Names& names) {
  if (row.item == EntryItem::Cancelled) return "Entry";
  if (row.kind == AmountKind::Movement) return "Salary carried forward, " + row.item;
  if (row.kind != AmountKind::Allowance && row.kind != AmountKind::Deduction &&
      row.kind != AmountKind::Recovery) {
    std::string what = row.item;
    if (!what.empty()) what[0] = basic::upper(what.substr(0, 1))[0];
    return what;
  }
  const std::size_t blank = row.item.find(' ');
  const std::string type = blank == std::string::npos ? std::string() : row.item.substr(0, blank);
  const std::string id = blank == std::string::npos ? row.item : row.item.substr(blank + 1);
  const NameSource& source = sourceOf(row, type);
  return source.title + names.of(source, id.substr(0, id.find('/')));
}

std::string shown(const JournalRow& row, const std::optional<std::string>& amount, Names& names) {
  if (!amount) return {};
  if (row.kind == AmountKind::Entry && row.item == EntryItem::Employee) return names.of(employees, *amount);
  return *amount;
}

}  // namespace

std::vector<JournalLine> journalLines(Session& session, const std::vector<JournalRow>& rows) {
  Names names(session);
  std::vector<JournalLine> lines;
  lines.reserve(rows.size());
  for (const JournalRow& row : rows)
    lines.push_back({row, names.of(users, std::to_string(row.userId)), doneBy(row.action), whatOf(row, names),
                     shown(row, row.before, names), shown(row, row.after, names)});
  return lines;
}

}  // namespace payslate
