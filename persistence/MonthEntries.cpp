// The statements about headers and the rows below them.
#include "persistence/MonthEntries.h"

#include <algorithm>
#include <set>

#include "component/Amounts.h"
#include "component/DatabaseValues.h"
#include "component/PayRows.h"
#include "persistence/CarriedForward.h"
#include "persistence/EachRow.h"
#include "persistence/PayItems.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

std::string headerStatement(const Session& session, const MonthScope& scope) {
  return "select emhID, emhNo, emhDate, emhempID, emhbasicpay, emhOrginalBasic, emhpaidcash, emhstartdate,"
         " emhenddate, emhCancelled, emhprocessed, emhCancelledRemarks from " +
         session.TableLinks["pempmonthlyentryheader"] + " where " + inBothMonths(session, scope) +
         " order by emhID";
}

/// `columns` of a table whose rows belong to the live entries that meet the condition.
std::string rowStatement(const Session& session, const std::string& columns, const std::string& table,
                         const char* company, const char* entry, const std::string& condition) {
  return "select " + std::string(entry) + ", " + columns + " from " +
         session.TableLinks["pempmonthlyentryheader"] + ", " + table + " where " + condition +
         " and emhCancelled = 0 and " + company + " = emhCompanyID and " + entry + " = emhID";
}

std::string allowanceStatement(const Session& session, const MonthScope& scope) {
  return rowStatement(session, "eadallowanceid, eadamount, eaddefault",
                      session.TableLinks["pemployeeallowancedetail"], "eadcompanyid", "eadid",
                      inBothMonths(session, scope));
}

std::string deductionStatement(const Session& session, const MonthScope& scope) {
  return rowStatement(
      session,
      "edddeductionid, eddsavingsid, eddloanid, eddType, eddamount, case eddType when 'L' then"
      " eddLoanIssueID when 'S' then eddOpenSavingsID end account",
      session.TableLinks["pemployeeDeductiondetail"], "eddcompanyid", "eddid", inBothMonths(session, scope));
}

std::string movementStatement(const Session& session, const MonthScope& scope) {
  return rowStatement(session, "ecdAmount, ecdMode", "pEmployeeCurrentDetails", "ecdCompanyID",
                      "ecdPaySlateID", inBothMonths(session, scope));
}

// Of the month alone: last month's are nobody's concern any more.
std::string recoveryStatement(const Session& session, const MonthScope& scope) {
  return "select efdid, efdtrackingid, efddedamount, fthTrackingNo, fthDeductionAmt, fmFacilityName,"
         " fmdeductionid, fmcurrencyid from " +
         session.TableLinks["pempmonthlyentryheader"] + " inner join " +
         session.TableLinks["pempfacilitydeductiondetail"] +
         " on efdcompanyid = emhCompanyID and efdid = emhID left outer join " +
         session.TableLinks["pFacilityTrackingHeader"] +
         " on fthCompanyID = efdcompanyid and fthTrackingID = efdtrackingid and fthEmployeeID = emhempID"
         " left outer join " +
         session.TableLinks["pFacilityMaster"] +
         " on fmCompanyID = fthCompanyID and fmFacilityID = fthFacilityID where " + inMonth(session, scope) +
         " and emhCancelled = 0 order by efdid, efddetailid";
}

// Half days of each entry's period. Only absence that has cost basic pay explains any.
std::string absenceStatement(const Session& session, const MonthScope& scope) {
  return "select emhID, case when d.eadtype = 'a' then 2 else 1 end halves, count(distinct d.eaddate) days"
         " from " +
         session.TableLinks["pempmonthlyentryheader"] + ", " + session.TableLinks["pEmployeeattendence"] +
         ", " + session.TableLinks["pempattendancedetail"] + " d where " + inBothMonths(session, scope) +
         " and emhCancelled = 0 and emhbasicpay < emhOrginalBasic and eaEmpID = emhempID and eacompanyid ="
         " emhCompanyID and eaCancelled = 0 and d.eadAttendanceID = eaid and d.eadcompanyid = eacompanyid"
         " and d.eaddate >= emhstartdate and d.eaddate <= emhenddate and d.eadtype in ('a', 'AL', 'HA')"
         " group by emhID, case when d.eadtype = 'a' then 2 else 1 end";
}

/// As a column of money holds it, to the last cent.
std::string exactText(const basic::Value& amount) {
  constexpr int cents = 2;
  const auto* decimal = std::get_if<basic::Decimal>(&amount);
  return decimal == nullptr ? amountText(amount) : decimal->rounded(cents).text();
}

std::int32_t idOf(const ado::Field& field) {
  return static_cast<std::int32_t>(numberOf(field.Value()));
}

/// Fills entries, and gives them to their employees at the end.
class Entries {
 public:
  Entries(Session& session, const MonthScope& scope, const PayItems& items, EmployeeMonths& employees)
      : session_(session), scope_(scope), items_(items), employees_(employees) {}

  void readHeaders() {
    forEachRow(session_, headerStatement(session_, scope_), [this](ado::Recordset& row) { takeHeader(row); });
  }

  void readRows() {
    if (entries_.empty()) return;
    const auto each = [this](const std::string& statement,
                             void (Entries::*take)(ado::Recordset&, LoadedMonth&)) {
      forEachRow(session_, statement, [this, take](ado::Recordset& row) {
        const auto entry = entries_.find(idOf(row.Fields(0)));
        if (entry != entries_.end()) (this->*take)(row, entry->second);
      });
    };
    each(allowanceStatement(session_, scope_), &Entries::takeAllowance);
    each(deductionStatement(session_, scope_), &Entries::takeDeduction);
    each(recoveryStatement(session_, scope_), &Entries::takeRecovery);
    each(movementStatement(session_, scope_), &Entries::takeMovement);
    if (anyIsReduced_) each(absenceStatement(session_, scope_), &Entries::takeAbsence);
  }

  void handOut() {
    for (auto& [id, entry] : entries_) {
      EmployeeMonth& employee = employees_.at(entry.entry.employeeId);
      auto& month = isBefore(entry.entry.date) ? employee.before : employee.now;
      month.push_back(std::move(entry));
    }
    entries_.clear();
  }

 private:
  [[nodiscard]] bool isBefore(basic::Date date) const { return date < scope_.firstDay(); }

  EmployeeMonth& ownerOf(std::int32_t employeeId) {
    EmployeeMonth& employee = employees_[employeeId];
    employee.employeeId = employeeId;
    return employee;
  }

  void takeHeader(ado::Recordset& row) {
    LoadedMonth month;
    month.stored = true;
    EntryRecord& entry = month.entry;
    entry.id = idOf(row.Fields("emhID"));
    entry.number = basic::Trim(row.Fields("emhNo").Text());
    entry.date = dateOf(row.Fields("emhDate").Value());
    entry.employeeId = idOf(row.Fields("emhempID"));
    entry.cancelled = flagOf(row.Fields("emhCancelled").Value());
    EmployeeMonth& owner = ownerOf(entry.employeeId);
    if (entry.cancelled) {
      if (!isBefore(entry.date))
        owner.cancelled.push_back({entry.number, basic::Trim(row.Fields("emhCancelledRemarks").Text())});
      return;
    }
    entry.basicPay = exactText(row.Fields("emhbasicpay").Value());
    entry.paidCash = static_cast<PaidCash>(idOf(row.Fields("emhpaidcash")));
    entry.periodStart = dateOf(row.Fields("emhstartdate").Value());
    entry.periodEnd = dateOf(row.Fields("emhenddate").Value());
    entry.processed = idOf(row.Fields("emhprocessed")) == 1;
    if (numberOf(row.Fields("emhbasicpay").Value()) < numberOf(row.Fields("emhOrginalBasic").Value()))
      anyIsReduced_ = true;
    entries_.emplace(entry.id, std::move(month));
  }

  void takeAllowance(ado::Recordset& row, LoadedMonth& month) {
    const std::int32_t id = idOf(row.Fields(1));
    const PayItem* item = items_.allowance(id);
    if (item == nullptr) {
      ++month.hiddenRows;
      return;
    }
    const bool standing = idOf(row.Fields(3)) == 1;
    month.entry.allowances.push_back({{},
                                      item->description,
                                      exactText(row.Fields(2).Value()),
                                      std::to_string(id),
                                      standing ? AllowKind::Standing : AllowKind::Added,
                                      item->symbol});
  }

  // Shown whatever it is of; without a description and a currency when it is of nothing.
  void takeDeduction(ado::Recordset& row, LoadedMonth& month) {
    static const PayItem none;
    const auto given = [&row](std::size_t column) { return !basic::isNull(row.Fields(column).Value()); };
    const PayItem* item = nullptr;
    std::size_t column = 0;
    if (given(1)) {
      item = items_.deduction(idOf(row.Fields(column = 1)));
    } else if (given(2)) {
      item = items_.savings(idOf(row.Fields(column = 2)));
    } else if (given(3)) {
      item = items_.loan(idOf(row.Fields(column = 3)));
    }
    if (item == nullptr) item = &none;
    month.entry.deductions.push_back({{},
                                      item->description,
                                      exactText(row.Fields(5).Value()),
                                      column == 0 ? std::string() : row.Fields(column).Text(),
                                      basic::Trim(row.Fields(4).Text()),
                                      item->symbol,
                                      row.Fields(6).Text()});
  }

  // A recovery is shown once, however many rows take it.
  void takeRecovery(ado::Recordset& row, LoadedMonth& month) {
    const std::string tracking = row.Fields("efdtrackingid").Text();
    const basic::Value type = row.Fields("fmdeductionid").Value();
    if (basic::isNull(type) || items_.deduction(basic::CLng(type)) == nullptr) {
      if (hidden_.emplace(month.entry.id, tracking).second) ++month.hiddenRows;
      return;
    }
    const std::string amount = exactText(row.Fields("efddedamount").Value());
    std::vector<FacilityRow>& taken = month.entry.facilities;
    const auto known = std::find_if(taken.begin(), taken.end(), [&tracking](const FacilityRow& other) {
      return other.trackingId == tracking;
    });
    if (known != taken.end()) {
      known->settlement = (basic::Decimal::parse(known->settlement) + basic::Decimal::parse(amount)).text();
      return;
    }
    FacilityRow recovery;
    recovery.position = static_cast<std::int16_t>(taken.size() + 1);
    recovery.trackingId = tracking;
    recovery.number = row.Fields("fthTrackingNo").Text();
    recovery.name = basic::Trim(row.Fields("fmFacilityName").Text());
    recovery.actual = row.Fields("fthDeductionAmt").Text();
    recovery.deducted = recovery.settlement = amount;
    recovery.deductionId = basic::textOf(type);
    recovery.symbol = items_.symbolOf(idOf(row.Fields("fmcurrencyid")));
    taken.push_back(std::move(recovery));
  }

  // In the currency of the employee, and not shown where there is none.
  void takeMovement(ado::Recordset& row, LoadedMonth& month) {
    const EmployeeMonth& owner = employees_.at(month.entry.employeeId);
    if (!owner.hasCurrency) {
      ++month.hiddenRows;
      return;
    }
    std::string amount = amountText(row.Fields(1).Value());
    if (numberOf(row.Fields(2).Value()) == static_cast<double>(MovementMode::PaidOut)) {
      month.entry.allowances.push_back(
          {{}, balanceDescription, amount, amount, AllowKind::CarriedForward, owner.symbol});
    } else {
      month.entry.deductions.push_back(
          {{}, carryForwardDescription, amount, amount, DeductKind::CarriedForward, owner.symbol, {}});
    }
  }

  void takeAbsence(ado::Recordset& row, LoadedMonth& month) {
    constexpr double halvesOfDay = 2;
    month.entry.days.absent +=
        numberOf(row.Fields(1).Value()) * numberOf(row.Fields(2).Value()) / halvesOfDay;
  }

  Session& session_;
  const MonthScope& scope_;
  const PayItems& items_;
  EmployeeMonths& employees_;
  std::map<std::int32_t, LoadedMonth> entries_;
  std::set<std::pair<std::int32_t, std::string>> hidden_;  ///< Recoveries by their entry.
  bool anyIsReduced_ = false;
};

}  // namespace

void readEntries(Session& session, const MonthScope& scope, const PayItems& items,
                 EmployeeMonths& employees) {
  Entries entries(session, scope, items, employees);
  entries.readHeaders();
  entries.readRows();
  entries.handOut();
}

}  // namespace payslate
