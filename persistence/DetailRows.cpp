// The rows below an entry's header: one for each row of the allowance and deduction lists.
#include "component/PayRows.h"
#include "component/Session.h"
#include "persistence/EntryWriter.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

constexpr std::int16_t carriedForward = 1;
constexpr std::int16_t paidOut = -1;

const std::string& cell(const ListRow& row, int column) {
  static const std::string none;
  const auto index = static_cast<std::size_t>(column);
  return index < row.size() ? row[index] : none;
}

std::string appendStatement(const Session& session, const char* logicalTable, const char* companyColumn) {
  return "select * from " + session.TableLinks[logicalTable] + " where " + companyColumn + " = " +
         session.companyText();
}

std::string deleteStatement(const Session& session, const char* logicalTable, const char* companyColumn,
                            const char* entryColumn, const std::string& entryId) {
  return "delete from " + session.TableLinks[logicalTable] + " where " + companyColumn + " = " +
         session.companyText() + " and " + entryColumn + " = " + entryId;
}

// Which columns of a deduction row its type fills: the identifier's column and, of the two columns that point
// at an issued loan or an opened savings account, the one that gets the transaction.
struct DeductionTarget {
  const char* identifier;
  const char* transaction;
};

DeductionTarget targetOf(const std::string& type) {
  if (type == DeductKind::Loan) return {"eddloanid", "eddLoanIssueID"};
  if (type == DeductKind::Savings) return {"eddsavingsid", "eddOpenSavingsID"};
  return {"edddeductionid", nullptr};
}

void assignDeduction(ado::Recordset& details, const ListRow& row) {
  const std::string& type = cell(row, DeductColumn::Type);
  const DeductionTarget target = targetOf(type);
  for (const char* unused : {"eddLoanIssueID", "eddOpenSavingsID", "edddeductionid"})
    details.Fields(unused) = basic::Null{};
  details.Fields(target.identifier) = cell(row, DeductColumn::DeductID);
  if (target.transaction != nullptr)
    details.Fields(target.transaction) = cell(row, DeductColumn::TransactionID);
  details.Fields("eddType") = type;
  details.Fields("eddamount") = cell(row, DeductColumn::Amount);
}

}  // namespace

void EntryWriter::fnSaveAllowanceDetails() {
  if (!session_.isNewEntry())
    session_.adocon()->Execute(
        deleteStatement(session_, "pemployeeallowancedetail", "eadcompanyid", "eadid", entry_.browseEntryId));
  ado::Recordset details;
  details.Open(appendStatement(session_, "pemployeeallowancedetail", "eadcompanyid"), *session_.adocon(),
               ado::CursorType::Keyset, ado::LockType::Optimistic);
  intCurDetailID_ = 1;
  for (const ListRow& row : entry_.allowances) {
    const std::string& kind = cell(row, AllowColumn::Default);
    if (kind == AllowKind::CarriedForward) {
      fnAddCarryForwardRow(lngEntryID_, basic::CDbl(cell(row, AllowColumn::Amount)), paidOut);
      ++intCurDetailID_;
      continue;
    }
    details.AddNew();
    details.Fields("eadcompanyid") = session_.intCompanyID;
    details.Fields("eadid") = lngEntryID_;
    details.Fields("eadallowanceid") = cell(row, AllowColumn::AllowID);
    details.Fields("eadamount") = cell(row, AllowColumn::Amount);
    details.Fields("eadDefault") = kind == AllowKind::Standing ? 1 : 0;
    details.Update();
  }
}

void EntryWriter::fnSaveDeductionDetails() {
  if (!session_.isNewEntry())
    session_.adocon()->Execute(
        deleteStatement(session_, "pemployeeDeductiondetail", "eddcompanyid", "eddid", entry_.browseEntryId));
  ado::Recordset details;
  details.Open(appendStatement(session_, "pemployeeDeductiondetail", "eddcompanyid"), *session_.adocon(),
               ado::CursorType::Keyset, ado::LockType::Optimistic);
  std::int16_t position = 0;
  for (const ListRow& row : entry_.deductions) {
    ++position;
    if (cell(row, DeductColumn::Type) == DeductKind::CarriedForward) {
      fnAddCarryForwardRow(lngEntryID_, basic::CDbl(cell(row, DeductColumn::Amount)), carriedForward);
      ++intCurDetailID_;
      continue;
    }
    details.AddNew();
    details.Fields("eddcompanyid") = session_.intCompanyID;
    details.Fields("eddid") = lngEntryID_;
    details.Fields("eddDetailID") = position;
    assignDeduction(details, row);
    details.Update();
  }
  intCurDetailID_ = 1;
}

}  // namespace payslate
