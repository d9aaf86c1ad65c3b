// The statements about balances and movements of a month's entries.
#include "persistence/MonthState.h"

#include <algorithm>
#include <string_view>

#include "component/DatabaseValues.h"
#include "component/PayRows.h"
#include "persistence/EachRow.h"
#include "persistence/PayItems.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

/// Accounts with a balance: their table by its logical name, its columns, and the column of a deduction that
/// points there.
struct AccountTable {
  const char* table;
  const char* company;
  const char* account;
  const char* balance;
  const char* pointer;
};

constexpr AccountTable loanTable{"pLoansIssue", "liCompanyID", "liID", "liCurrentBalance", "eddLoanIssueID"};
constexpr AccountTable savingsTable{"popeningsavings", "osCompanyID", "osID", "osCurrentBalance",
                                    "eddOpenSavingsID"};

std::string balanceStatement(const Session& session, const MonthScope& scope, const AccountTable& accounts) {
  return std::string("select ") + accounts.account + ", " + accounts.balance + " from " +
         session.TableLinks[accounts.table] + " where " + accounts.company + " = " + session.companyText() +
         " and " + accounts.account + " in (select " + accounts.pointer + " from " +
         session.TableLinks["pempmonthlyentryheader"] + ", " +
         session.TableLinks["pemployeeDeductiondetail"] + " where " + inMonth(session, scope) +
         " and emhCancelled = 0 and eddcompanyid = emhCompanyID and eddid = emhID)";
}

// Signed as the balance is that the next month offers: an amount times its mode.
std::string movementStatement(const Session& session, const MonthScope& scope) {
  const std::string& headers = session.TableLinks["pempmonthlyentryheader"];
  return "select a.emhempID, a.emhID, a.emhNo, a.emhDate,"
         " sum(case when b.ecdAmount * b.ecdMode > 0 then b.ecdAmount * b.ecdMode else 0 end) keptback,"
         " sum(case when b.ecdAmount * b.ecdMode < 0 then b.ecdAmount * b.ecdMode else 0 end) paidout from " +
         headers + " a, pEmployeeCurrentDetails b where a.emhempID in (select emhempID from " + headers +
         ", pEmployeeCurrentDetails where " + inMonth(session, scope) +
         " and emhCancelled = 0 and ecdCompanyID = emhCompanyID and ecdPaySlateID = emhID)"
         " and a.emhCompanyID = " +
         session.companyText() +
         " and a.emhCancelled = 0 and b.ecdPaySlateID = a.emhID and b.ecdCompanyID = a.emhCompanyID"
         " group by a.emhempID, a.emhDate, a.emhID, a.emhNo order by a.emhempID, a.emhDate, a.emhID";
}

/// Has an entry of the month a row of this kind?
bool anyRow(const EmployeeMonths& employees, std::vector<ListRow> EntryRecord::*list, int column,
            std::string_view kind) {
  const auto isIt = [&](const ListRow& row) { return cell(row, column) == kind; };
  const auto has = [&](const LoadedMonth& month) {
    const std::vector<ListRow>& rows = month.entry.*list;
    return std::any_of(rows.begin(), rows.end(), isIt);
  };
  return std::any_of(employees.begin(), employees.end(), [&](const auto& employee) {
    return std::any_of(employee.second.now.begin(), employee.second.now.end(), has);
  });
}

bool anyDeduction(const EmployeeMonths& employees, std::string_view kind) {
  return anyRow(employees, &EntryRecord::deductions, DeductColumn::Type, kind);
}

Balances balancesOf(Session& session, const std::string& statement) {
  Balances balances;
  forEachRow(session, statement, [&](ado::Recordset& row) {
    balances[basic::CLng(row.Fields(0).Value())] = numberOf(row.Fields(1).Value());
  });
  return balances;
}

Balances chosenFrom(const Balances& all, const std::set<std::int32_t>& accounts) {
  Balances chosen;
  for (const std::int32_t account : accounts)
    if (const auto known = all.find(account); known != all.end()) chosen.insert(*known);
  return chosen;
}

}  // namespace

MonthState::MonthState(Session& session, const MonthScope& scope, const EmployeeMonths& employees,
                       std::shared_ptr<const PayItems> items)
    : items_(std::move(items)) {
  if (anyDeduction(employees, DeductKind::Loan))
    loans_ = balancesOf(session, balanceStatement(session, scope, loanTable));
  if (anyDeduction(employees, DeductKind::Savings))
    savings_ = balancesOf(session, balanceStatement(session, scope, savingsTable));
  if (!anyDeduction(employees, DeductKind::CarriedForward) &&
      !anyRow(employees, &EntryRecord::allowances, AllowColumn::Default, AllowKind::CarriedForward))
    return;
  forEachRow(session, movementStatement(session, scope), [this](ado::Recordset& row) {
    movements_[basic::CLng(row.Fields(0).Value())].push_back(
        {basic::CLng(row.Fields(1).Value()),
         {basic::Trim(row.Fields(2).Text()), dateOf(row.Fields(3).Value()), numberOf(row.Fields(4).Value()),
          -numberOf(row.Fields(5).Value())}});
  });
}

Balances MonthState::loanBalances(const std::set<std::int32_t>& issues) {
  return chosenFrom(loans_, issues);
}

Balances MonthState::savingsBalances(const std::set<std::int32_t>& accounts) {
  return chosenFrom(savings_, accounts);
}

std::vector<EntryMovements> MonthState::otherMovements(std::int32_t employeeId, std::int32_t exceptEntry) {
  std::vector<EntryMovements> others;
  for (const OwnedMovements& owned : movements_[employeeId])
    if (owned.entryId != exceptEntry) others.push_back(owned.movements);
  return others;
}

std::vector<EntryMovements> MonthState::movementsBeside(std::int32_t keepingEntry) {
  for (const auto& [employeeId, all] : movements_)
    for (const OwnedMovements& owned : all)
      if (owned.entryId == keepingEntry && owned.movements.keptBack > 0)
        return otherMovements(employeeId, keepingEntry);
  return {};
}

std::string MonthState::deductionDescription(std::int32_t deductionId) {
  const PayItem* item = items_->deduction(deductionId);
  return item == nullptr ? std::string() : item->description;
}

}  // namespace payslate
