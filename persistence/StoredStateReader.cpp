// The statements that read what stands beside an entry.
#include "persistence/StoredStateReader.h"

#include "component/DatabaseValues.h"
#include "component/Session.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

/// Accounts with a balance: their table by its logical name, and its columns.
struct AccountTable {
  const char* table;
  const char* company;
  const char* account;
  const char* balance;
};

constexpr AccountTable loanTable{"pLoansIssue", "liCompanyID", "liID", "liCurrentBalance"};
constexpr AccountTable savingsTable{"popeningsavings", "osCompanyID", "osID", "osCurrentBalance"};

std::string balanceStatement(const Session& session, const AccountTable& accounts,
                             const std::set<std::int32_t>& asked) {
  std::string list;
  for (const std::int32_t account : asked) list += (list.empty() ? "" : ",") + std::to_string(account);
  return std::string("select ") + accounts.account + " account, " + accounts.balance + " balance from " +
         session.TableLinks[accounts.table] + " where " + accounts.company + " = " + session.companyText() +
         " and " + accounts.account + " in (" + list + ")";
}

// Signed as the balance is that the next month offers: an amount times its mode. Grouped by the date first:
// an engine that groups in this order and knows no statistics finds the employee's entries by his index, and
// not all of the company's by their numbers. Their numbers are read for those alone that have movements.
std::string movementStatement(const Session& session, const std::string& employee, std::int32_t exceptEntry,
                              const std::string& furtherCondition) {
  const std::string headers = session.TableLinks["pempmonthlyentryheader"];
  return "select n.emhNo, m.emhDate, m.keptback, m.paidout from (select a.emhDate, a.emhID, a.emhCompanyID,"
         " sum(case when b.ecdAmount * b.ecdMode > 0 then b.ecdAmount * b.ecdMode else 0 end) keptback,"
         " sum(case when b.ecdAmount * b.ecdMode < 0 then b.ecdAmount * b.ecdMode else 0 end) paidout from " +
         headers + " a, pEmployeeCurrentDetails b where a.emhempID = " + employee +
         " and a.emhCompanyID = " + session.companyText() + " and a.emhCancelled = 0 and a.emhID <> " +
         std::to_string(exceptEntry) + " and b.ecdPaySlateID = a.emhID and b.ecdCompanyID = a.emhCompanyID" +
         furtherCondition + " group by a.emhDate, a.emhID, a.emhCompanyID) m, " + headers +
         " n where n.emhCompanyID = m.emhCompanyID and n.emhID = m.emhID order by m.emhDate, m.emhID";
}

// Nobody's, where the entry is not live: then nothing of it was ever offered.
std::string employeeOf(const Session& session, std::int32_t entryId) {
  return "(select emhempID from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID = " + session.companyText() + " and emhID = " + std::to_string(entryId) +
         " and emhCancelled = 0)";
}

std::string keepsSomethingBack(const Session& session, std::int32_t entryId) {
  return " and exists (select * from pEmployeeCurrentDetails k where k.ecdPaySlateID = " +
         std::to_string(entryId) + " and k.ecdCompanyID = " + session.companyText() +
         " and k.ecdAmount * k.ecdMode > 0)";
}

std::string descriptionStatement(const Session& session, std::int32_t deductionId) {
  return "select dDescription from " + session.TableLinks["pDeductions"] +
         " where dCompanyID = " + session.companyText() + " and dDedID = " + std::to_string(deductionId);
}

Balances balancesOf(Session& session, const AccountTable& accounts, const std::set<std::int32_t>& asked) {
  Balances balances;
  if (asked.empty()) return balances;
  ado::Recordset rows;
  rows.Open(balanceStatement(session, accounts, asked), *session.adocon(), ado::CursorType::ForwardOnly,
            ado::LockType::ReadOnly);
  for (; !rows.Eof(); rows.MoveNext())
    balances[basic::CLng(rows.Fields("account").Value())] = numberOf(rows.Fields("balance").Value());
  return balances;
}

}  // namespace

Balances StoredStateReader::loanBalances(const std::set<std::int32_t>& issues) {
  return balancesOf(session_, loanTable, issues);
}

Balances StoredStateReader::savingsBalances(const std::set<std::int32_t>& accounts) {
  return balancesOf(session_, savingsTable, accounts);
}

std::vector<EntryMovements> StoredStateReader::movements(const std::string& statement) {
  ado::Recordset rows;
  rows.Open(statement, *session_.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
  std::vector<EntryMovements> found;
  for (; !rows.Eof(); rows.MoveNext())
    found.push_back({basic::Trim(rows.Fields("emhNo").Text()), dateOf(rows.Fields("emhDate").Value()),
                     numberOf(rows.Fields("keptback").Value()), -numberOf(rows.Fields("paidout").Value())});
  return found;
}

std::vector<EntryMovements> StoredStateReader::otherMovements(std::int32_t employeeId,
                                                              std::int32_t exceptEntry) {
  return movements(movementStatement(session_, std::to_string(employeeId), exceptEntry, ""));
}

std::vector<EntryMovements> StoredStateReader::movementsBeside(std::int32_t keepingEntry) {
  return movements(movementStatement(session_, employeeOf(session_, keepingEntry), keepingEntry,
                                     keepsSomethingBack(session_, keepingEntry)));
}

std::string StoredStateReader::deductionDescription(std::int32_t deductionId) {
  ado::Recordset row;
  row.Open(descriptionStatement(session_, deductionId), *session_.adocon(), ado::CursorType::ForwardOnly,
           ado::LockType::ReadOnly);
  return row.Eof() ? std::string() : basic::Trim(row.Fields("dDescription").Text());
}

}  // namespace payslate
