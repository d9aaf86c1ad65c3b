// Naming amounts, comparing them, reading them.
#include "persistence/EntryAmounts.h"

#include <algorithm>

#include "component/Amounts.h"
#include "component/DatabaseValues.h"
#include "component/PayRows.h"
#include "component/Session.h"
#include "persistence/CarriedForward.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

std::string amountOf(const std::string& listed) {
  return amountText(basic::Val(listed));
}

std::string paidWord(PaidCash paid) {
  switch (paid) {
    case PaidCash::Normal:
      return "normal";
    case PaidCash::PaidInCash:
      return "cash";
    case PaidCash::OnHold:
      return "hold";
  }
  return std::to_string(static_cast<int>(paid));
}

std::string periodText(basic::Date start, basic::Date end) {
  return slashDate(start) + "-" + slashDate(end);
}

AmountKey allowanceKey(bool standing, const std::string& id) {
  return {AmountKind::Allowance, std::string(standing ? AllowKind::Standing : AllowKind::Added) + " " + id};
}

AmountKey deductionKey(const std::string& type, const std::string& id, const std::string& transaction) {
  return {AmountKind::Deduction, type + " " + id + (transaction.empty() ? "" : "/" + transaction)};
}

AmountKey movementKey(MovementMode mode) {
  return {AmountKind::Movement,
          mode == MovementMode::PaidOut ? MovementItem::PaidOut : MovementItem::KeptBack};
}

void addHeader(EntryAmounts& amounts, const EntryRecord& entry) {
  const auto add = [&](const char* item, std::string amount) {
    amounts.push_back({{AmountKind::Entry, item}, std::move(amount)});
  };
  add(EntryItem::Employee, std::to_string(entry.employeeId));
  add(EntryItem::Period, periodText(entry.periodStart, entry.periodEnd));
  add(EntryItem::BasicPay, amountOf(entry.basicPay));
  add(EntryItem::Paid, paidWord(entry.paidCash));
  if (entry.cancelled) add(EntryItem::Cancelled, "yes");
}

/// Rows of one table below the headers, each of which belongs to an entry.
class DetailReader {
 public:
  DetailReader(Session& session, EntryRange range, std::map<std::int32_t, StoredAmounts>& entries)
      : session_(session), range_(range), entries_(entries) {}

  /// `amountOf` gets a row.
  template <class AmountOf>
  void read(const std::string& columns, const std::string& table, const char* company, const char* entry,
            AmountOf amountOf) {
    ado::Recordset rows;
    rows.Open("select " + std::string(entry) + " ofEntry, " + columns + " from " + table + " where " +
                  company + " = " + session_.companyText() + " and " + within(entry, range_),
              *session_.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
    for (; !rows.Eof(); rows.MoveNext()) {
      const auto found = entries_.find(basic::CLng(rows.Fields("ofEntry").Value()));
      if (found != entries_.end()) found->second.amounts.push_back(amountOf(rows));
    }
  }

 private:
  Session& session_;
  EntryRange range_;
  std::map<std::int32_t, StoredAmounts>& entries_;
};

std::map<std::int32_t, StoredAmounts> readHeaders(Session& session, EntryRange range) {
  ado::Recordset rows;
  rows.Open(
      "select emhID, emhNo, emhempID, emhbasicpay, emhpaidcash, emhstartdate, emhenddate, emhCancelled from " +
          session.TableLinks["pempmonthlyentryheader"] + " where emhCompanyID = " + session.companyText() +
          " and " + within("emhID", range),
      *session.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
  std::map<std::int32_t, StoredAmounts> entries;
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto value = [&rows](const char* column) { return rows.Fields(column).Value(); };
    EntryRecord header;
    header.employeeId = basic::CLng(value("emhempID"));
    header.periodStart = dateOf(value("emhstartdate"));
    header.periodEnd = dateOf(value("emhenddate"));
    header.basicPay = amountText(value("emhbasicpay"));
    header.paidCash = static_cast<PaidCash>(basic::CInt(numberOf(value("emhpaidcash"))));
    header.cancelled = flagOf(value("emhCancelled"));
    StoredAmounts& stored = entries[basic::CLng(value("emhID"))];
    stored.number = rows.Fields("emhNo").Text();
    addHeader(stored.amounts, header);
  }
  return entries;
}

EntryAmount storedAllowance(ado::Recordset& row) {
  return {allowanceKey(numberOf(row.Fields("eaddefault").Value()) == 1, row.Fields("eadallowanceid").Text()),
          amountText(row.Fields("eadamount").Value())};
}

EntryAmount storedDeduction(ado::Recordset& row) {
  const std::string type = basic::Trim(row.Fields("eddType").Text());
  std::string transaction;
  if (type == DeductKind::Loan) transaction = row.Fields("eddLoanIssueID").Text();
  if (type == DeductKind::Savings) transaction = row.Fields("eddOpenSavingsID").Text();
  return {deductionKey(type, row.Fields("typeid").Text(), transaction),
          amountText(row.Fields("eddamount").Value())};
}

EntryAmount storedRecovery(ado::Recordset& row) {
  return {{AmountKind::Recovery, row.Fields("efdtrackingid").Text()},
          amountText(row.Fields("efddedamount").Value())};
}

EntryAmount storedMovement(ado::Recordset& row) {
  const bool paidOut = numberOf(row.Fields("ecdMode").Value()) == static_cast<double>(MovementMode::PaidOut);
  return {movementKey(paidOut ? MovementMode::PaidOut : MovementMode::KeptBack),
          amountText(row.Fields("ecdAmount").Value())};
}

}  // namespace

std::string within(const char* column, EntryRange range) {
  if (range.first == range.last) return std::string(column) + " = " + std::to_string(range.first);
  return std::string(column) + " between " + std::to_string(range.first) + " and " +
         std::to_string(range.last);
}

EntryAmounts amountsOf(const EntryRecord& entry) {
  EntryAmounts amounts;
  addHeader(amounts, entry);
  for (const ListRow& row : entry.allowances) {
    const std::string& kind = cell(row, AllowColumn::Default);
    amounts.push_back({kind == AllowKind::CarriedForward
                           ? movementKey(MovementMode::PaidOut)
                           : allowanceKey(kind == AllowKind::Standing, cell(row, AllowColumn::AllowID)),
                       amountOf(cell(row, AllowColumn::Amount))});
  }
  for (const ListRow& row : entry.deductions) {
    const std::string& type = cell(row, DeductColumn::Type);
    const bool ofAccount = type == DeductKind::Loan || type == DeductKind::Savings;
    amounts.push_back({type == DeductKind::CarriedForward
                           ? movementKey(MovementMode::KeptBack)
                           : deductionKey(type, cell(row, DeductColumn::DeductID),
                                          ofAccount ? cell(row, DeductColumn::TransactionID) : std::string()),
                       amountOf(cell(row, DeductColumn::Amount))});
  }
  for (const FacilityRow& row : entry.facilities)
    amounts.push_back({{AmountKind::Recovery, row.trackingId}, amountOf(row.settlement)});
  return amounts;
}

std::vector<AmountChange> changesOf(const EntryAmounts& before, const EntryAmounts& after) {
  EntryAmounts gone = before;
  EntryAmounts come;
  for (const EntryAmount& amount : after) {
    const auto same = std::find_if(gone.begin(), gone.end(), [&amount](const EntryAmount& other) {
      return other.key == amount.key && other.amount == amount.amount;
    });
    if (same == gone.end()) {
      come.push_back(amount);
    } else {
      gone.erase(same);
    }
  }
  std::vector<AmountChange> changes;
  for (const EntryAmount& amount : come) {
    AmountChange change{amount.key, {}, amount.amount};
    const auto replaced = std::find_if(
        gone.begin(), gone.end(), [&amount](const EntryAmount& other) { return other.key == amount.key; });
    if (replaced != gone.end()) {
      change.before = replaced->amount;
      gone.erase(replaced);
    }
    changes.push_back(std::move(change));
  }
  for (const EntryAmount& amount : gone) changes.push_back({amount.key, amount.amount, {}});
  return changes;
}

std::map<std::int32_t, StoredAmounts> readAmounts(Session& session, EntryRange range) {
  std::map<std::int32_t, StoredAmounts> entries = readHeaders(session, range);
  DetailReader details(session, range, entries);
  const TableLinkMap& links = session.TableLinks;
  details.read("eadallowanceid, eadamount, eaddefault", links["pemployeeallowancedetail"], "eadcompanyid",
               "eadid", storedAllowance);
  // The identifier as the form of the entry shows it.
  details.read(
      "eddType, eddamount, eddLoanIssueID, eddOpenSavingsID, coalesce(edddeductionid, eddsavingsid, "
      "eddloanid) typeid",
      links["pemployeeDeductiondetail"], "eddcompanyid", "eddid", storedDeduction);
  details.read("efdtrackingid, efddedamount", links["pempfacilitydeductiondetail"], "efdcompanyid", "efdid",
               storedRecovery);
  details.read("ecdAmount, ecdMode", "pEmployeeCurrentDetails", "ecdCompanyID", "ecdPaySlateID",
               storedMovement);
  return entries;
}

std::int32_t lastEntry(Session& session) {
  ado::Recordset last =
      session.adocon()->Execute("select max(emhID) from " + session.TableLinks["pempmonthlyentryheader"] +
                                " where emhCompanyID = " + session.companyText());
  return static_cast<std::int32_t>(numberOf(last.Fields(0).Value()));
}

}  // namespace payslate
