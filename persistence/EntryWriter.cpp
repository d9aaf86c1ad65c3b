// The header of an entry and the rows below it.
#include "persistence/EntryWriter.h"

#include "component/Amounts.h"
#include "component/DatabaseValues.h"
#include "component/PayRows.h"
#include "component/Session.h"
#include "persistence/CarriedForward.h"
#include "persistence/Clashes.h"
#include "persistence/EntryNumbers.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/common/CommonDB.h"

namespace payslate {

using ado::CursorType;
using ado::LockType;

namespace {

constexpr std::int16_t notCancelled = 0;

/// One kind of rows below a header: its table by its logical name, and the columns of company and entry.
struct DetailTable {
  const char* table;
  const char* company;
  const char* entry;
};

constexpr DetailTable allowanceTable{"pemployeeallowancedetail", "eadcompanyid", "eadid"};
constexpr DetailTable deductionTable{"pemployeeDeductiondetail", "eddcompanyid", "eddid"};
constexpr DetailTable facilityTable{"pempfacilitydeductiondetail", "efdcompanyid", "efdid"};

std::string appendStatement(const Session& session, const DetailTable& detail) {
  return "select * from " + session.TableLinks[detail.table] + " where " + detail.company + " = " +
         session.companyText();
}

std::string deleteStatement(const Session& session, const DetailTable& detail, std::int32_t entryId) {
  return "delete from " + session.TableLinks[detail.table] + " where " + detail.company + " = " +
         session.companyText() + " and " + detail.entry + " = " + std::to_string(entryId);
}

std::string newHeaderStatement(const Session& session, std::int32_t employeeId) {
  return "select * from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID= " + session.companyText() + " and emhempID = " + std::to_string(employeeId) +
         " and emhCancelled = 0 ";
}

std::string storedHeaderStatement(const Session& session, std::int32_t entryId) {
  return "select * from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID = " + session.companyText() + " and emhID = " + std::to_string(entryId) +
         " and emhCancelled = 0 ";
}

bool isProcessed(const basic::Value& mark) {
  return !basic::isNull(mark) && basic::CLng(mark) == 1;
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

std::int32_t EntryWriter::store(const EntryRecord& entry) {
  const bool rewrites = entry.id != 0;
  fnSaveHeader(entry);
  if (rewrites) fnDeleteCarryForward(session_, lngEntryID_);
  intCurDetailID_ = 1;
  fnSaveAllowanceDetails(entry);
  fnSaveDeductionDetails(entry);
  fnSaveFacilityDetails(entry);
  return lngEntryID_;
}

void EntryWriter::refuseSecondLive(const EntryRecord& entry) {
  if (const auto sentence = secondLiveEntry(session_, entry)) throw ado::Error(*sentence, "02000");
}

void EntryWriter::startNew(ado::Recordset& header, const EntryRecord& entry) {
  refuseSecondLive(entry);
  header.Open(newHeaderStatement(session_, entry.employeeId), *session_.adocon(), CursorType::Keyset,
              LockType::Optimistic);
  header.AddNew();
  header.Fields("emhCompanyID") = session_.intCompanyID;
  lngEntryID_ = numbers_.nextId();
  header.Fields("emhID") = lngEntryID_;
  header.Fields("emhNo") = numbers_.fnGetEntryNo();
  header.Fields("emhDate") = entry.date;
}

void EntryWriter::startStored(ado::Recordset& header, const EntryRecord& entry) {
  lngEntryID_ = entry.id;
  header.Open(storedHeaderStatement(session_, lngEntryID_), *session_.adocon(), CursorType::Keyset,
              LockType::Optimistic);
  if (header.Eof())
    throw ado::Error("This entry was cancelled or removed while it was open. Nothing is stored.", "02000");
  if (isProcessed(header.Fields("emhprocessed").Value()))
    throw ado::Error("The payroll run has taken this entry while it was open. Nothing is stored.", "02000");
  // Of the period it stands in it is the live one already.
  const bool moves = numberOf(header.Fields("emhempID").Value()) != entry.employeeId ||
                     dateOf(header.Fields("emhstartdate").Value()) != entry.periodStart;
  if (moves) refuseSecondLive(entry);
}

basic::Value EntryWriter::originalBasic(std::int32_t employeeId) {
  const std::string employee =
      "eCompanyID=" + session_.companyText() + " and eEmpID=" + std::to_string(employeeId);
  database_.strTableName(session_.TableLinks["pemployee"]);
  basic::Value basicPay = database_.fnreturnfield("eBasic", employee);
  if (basic::isNull(basicPay) && basic::isNull(database_.fnreturnfield("eEmpID", employee)))
    throw ado::Error("The employee was removed while the entry was open. Nothing is stored.", "02000");
  return basicPay;
}

void EntryWriter::fnSaveHeader(const EntryRecord& entry) {
  ado::Recordset header;
  if (entry.id == 0) {
    startNew(header, entry);
  } else {
    startStored(header, entry);
  }
  header.Fields("emhempID") = entry.employeeId;
  header.Fields("emhpaidcash") = static_cast<std::int16_t>(entry.paidCash);
  header.Fields("emhCancelled") = notCancelled;
  header.Fields("emhbasicpay") = typedAmountText(entry.basicPay);
  header.Fields("emhstartdate") = entry.periodStart;
  header.Fields("emhenddate") = entry.periodEnd;
  header.Fields("emhOrginalBasic") = originalBasic(entry.employeeId);
  header.Update();
}

void EntryWriter::fnSaveAllowanceDetails(const EntryRecord& entry) {
  if (entry.id != 0) session_.adocon()->Execute(deleteStatement(session_, allowanceTable, lngEntryID_));
  ado::Recordset details;
  details.Open(appendStatement(session_, allowanceTable), *session_.adocon(), CursorType::Keyset,
               LockType::Optimistic);
  for (const ListRow& row : entry.allowances) {
    const std::string& kind = cell(row, AllowColumn::Default);
    if (kind == AllowKind::CarriedForward) {
      fnAddCarryForwardRow(session_, lngEntryID_, intCurDetailID_,
                           basic::CDbl(cell(row, AllowColumn::Amount)), MovementMode::PaidOut);
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

void EntryWriter::fnSaveDeductionDetails(const EntryRecord& entry) {
  if (entry.id != 0) session_.adocon()->Execute(deleteStatement(session_, deductionTable, lngEntryID_));
  ado::Recordset details;
  details.Open(appendStatement(session_, deductionTable), *session_.adocon(), CursorType::Keyset,
               LockType::Optimistic);
  std::int16_t position = 0;
  for (const ListRow& row : entry.deductions) {
    ++position;
    if (cell(row, DeductColumn::Type) == DeductKind::CarriedForward) {
      fnAddCarryForwardRow(session_, lngEntryID_, intCurDetailID_,
                           basic::CDbl(cell(row, DeductColumn::Amount)), MovementMode::KeptBack);
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
}

void EntryWriter::fnSaveFacilityDetails(const EntryRecord& entry) {
  if (entry.id != 0) session_.adocon()->Execute(deleteStatement(session_, facilityTable, lngEntryID_));
  ado::Recordset rows;
  rows.Open(appendStatement(session_, facilityTable), *session_.adocon(), CursorType::Keyset,
            LockType::Optimistic);
  for (const FacilityRow& row : entry.facilities) {
    rows.AddNew();
    rows.Fields("efdcompanyid") = session_.intCompanyID;
    rows.Fields("efdid") = lngEntryID_;
    rows.Fields("efddetailid") = row.position;
    rows.Fields("efdtrackingid") = row.trackingId;
    rows.Fields("efddedamount") = row.settlement;
    rows.Fields("efdfacilityamt") = row.actual;
    rows.Update();
  }
}

}  // namespace payslate
