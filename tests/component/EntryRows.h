// The lists of an entry as plain rows: as the form shows them, as they are totalled, as they are stored.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "entry/frmpayslate.h"
#include "paycomponents/ListColumns.h"
#include "tests/component/DemoPayroll.h"

namespace payslate {

constexpr int employee = 101;

using Cents = std::int64_t;
using Totals = std::vector<std::pair<std::string, Cents>>;  // by currency symbol, in order of appearance
using Stored = std::vector<std::vector<std::string>>;       // rows of one table

// Rounds halves away from zero, on the digits as they are written.
inline Cents cents(const std::string& text) {
  if (text.starts_with('-')) return -cents(text.substr(1));
  const std::size_t point = text.find('.');
  const std::string decimals = (point == std::string::npos ? "" : text.substr(point + 1)) + "000";
  return std::stoll("0" + text) * 100 + std::stoll(decimals.substr(0, 2)) + (decimals[2] >= '5' ? 1 : 0);
}

inline std::string written(Cents amount) {
  return std::to_string(amount / 100) + "." + std::to_string(100 + amount % 100).substr(1);
}

// A row of any of the three lists.
struct Row {
  std::string description, id, type, symbol;
  std::string other;  // the transaction of a loan or savings, the deduction type of a facility
  Cents amount = 0;
  bool ticked = false;

  bool operator==(const Row&) const = default;
  [[nodiscard]] bool isAny(const char* types) const {
    return !type.empty() && std::string(types).find(type) != std::string::npos;
  }
};
using Rows = std::vector<Row>;

enum Kind : std::size_t { Allowances, Deductions, Facilities };
inline constexpr std::array payLists{Allowances, Deductions};
inline constexpr std::array allLists{Allowances, Deductions, Facilities};

struct Columns {
  int page, description, id, type, symbol, other, amount;
};
constexpr int none = 99;
constexpr int currencyPage = 4;
inline constexpr std::array<Columns, 3> columnsOf{{
    {0, AllowColumn::AllowanceType, AllowColumn::AllowID, AllowColumn::Default, AllowColumn::Symbol, none,
     AllowColumn::Amount},
    {1, DeductColumn::DeductionType, DeductColumn::DeductID, DeductColumn::Type, DeductColumn::CurrencySymbol,
     DeductColumn::TransactionID, DeductColumn::Amount},
    {3, FacilityColumn::FacilityName, FacilityColumn::FacilityID, none, FacilityColumn::CurrencySymbol,
     FacilityColumn::DeductionId, FacilityColumn::SettlementAmount},
}};

inline Rows shownIn(const ui::ListView& list, const Columns& columns) {
  Rows rows;
  for (int row = 0; row < list.rowCount(); ++row) {
    const auto cell = [&list, row](int column) { return list.cellText(row, column); };
    rows.push_back({cell(columns.description), cell(columns.id), cell(columns.type), cell(columns.symbol),
                    cell(columns.other), cents(cell(columns.amount)), list.isChecked(row)});
  }
  return rows;
}

// What came with the employee and stays, but for its amount.
inline Rows standing(Rows rows) {
  std::erase_if(rows, [](const Row& row) { return !row.isAny("YDLSO"); });
  for (Row& row : rows) row.amount = 0;
  return rows;
}

inline Totals totalsOf(const frmpayslate& entry) {
  Totals totals{{entry.lblcursymbol.Caption(), cents(entry.txtBasicPay.Text())}};
  const auto add = [&totals](const Row& row, int sign) {
    const auto same = [&row](const auto& total) { return total.first == row.symbol; };
    auto total = std::find_if(totals.begin(), totals.end(), same);
    if (total == totals.end()) total = totals.insert(total, {row.symbol, 0});
    total->second += sign * row.amount;
  };
  for (const Row& row : shownIn(entry.lvwAllow, columnsOf[Allowances])) add(row, 1);
  for (const Row& row : shownIn(entry.lvwDeduct, columnsOf[Deductions])) add(row, -1);
  return totals;
}

inline Totals statedBy(const frmpayslate& entry) {
  const std::string start = "    Total (";
  Totals totals;
  for (int row = 0; row < entry.lvwCurrency.rowCount(); ++row) {
    const std::string& text = entry.lvwCurrency.cellText(row, CurrencyColumn::Details);
    if (text.starts_with(start))
      totals.emplace_back(text.substr(start.size(), text.size() - start.size() - 1),
                          cents(entry.lvwCurrency.cellText(row, CurrencyColumn::Amount)));
  }
  return totals;
}

// The demo company, with more currencies and with formulas of more than two decimals.
class Payroll : public DemoPayroll {
 public:
  Payroll() {
    for (const char* statement :
         {("insert into pDeductions (dCompanyID, dDedID, dDescription, dActive, dformulaid, dcurrencyid)"
           " values (1, 9, 'Dollar club', 1, null, 2), (1, 10, 'Relief', 1, null, null)"),
          "update pFacilityMaster set fmcurrencyid = 3 where fmFacilityID = 2",
          "update pformula set fFormulaName = 'BP / 9' where fFormulaID = 1",
          "update pformula set fFormulaName = 'BP / 7' where fFormulaID = 2",
          "update pformula set fFormulaName = 'BP / 16000' where fFormulaID = 4"})
      connection->Execute(statement);
    for (const auto& row :
         query("select 0, aAllowanceID, aDescription, isnull(Symbol, '') from pAllowances left"
               " outer join pCurrencyMaster on CompanyID = aCompanyID and CurrencyID = acurrencyid"
               " where aCompanyID = 1"))
      components_[Allowances][row[1]] = {row[2], row[3]};
    for (const auto& row :
         query("select 0, dDedID, dDescription, isnull(Symbol, '') from pDeductions left"
               " outer join pCurrencyMaster on CompanyID = dCompanyID and CurrencyID = dcurrencyid"
               " where dCompanyID = 1"))
      components_[Deductions][row[1]] = {row[2], row[3]};
    nextEntry_ = query("select 0, max(emhID) + 1 from pempmonthlyentryheader").at(0).at(1);
  }

  // The first column in cents, the others as text.
  [[nodiscard]] Stored query(const std::string& statement) const {
    ado::Recordset found;
    found.Open(statement, *connection, ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
    Stored rows;
    for (; !found.Eof(); found.MoveNext()) {
      rows.push_back({std::to_string(cents(found.Fields(0).Text()))});
      for (std::size_t i = 1; i < found.FieldCount(); ++i) rows.back().push_back(found.Fields(i).Text());
    }
    return rows;
  }

  // Rows of the header, allowances, deductions, movements and facilities of the entry after the demo's.
  [[nodiscard]] std::vector<Stored> newEntry() const {
    std::vector<Stored> tables;
    for (const std::string table :
         {"emhbasicpay, emhempID from pempmonthlyentryheader where emhID = ",
          "eadamount, eadallowanceid, eaddefault from pemployeeallowancedetail where eadid = ",
          ("eddamount, eddDetailID, eddType, coalesce(edddeductionid, eddloanid, eddsavingsid),"
           " coalesce(eddLoanIssueID, eddOpenSavingsID) from pemployeeDeductiondetail where eddid = "),
          "ecdAmount, ecdDetailID, ecdMode from pEmployeeCurrentDetails where ecdPaySlateID = ",
          "efddedamount, efddetailid, efdtrackingid from pempfacilitydeductiondetail where efdid = "})
      tables.push_back(query("select " + table + nextEntry_ + " order by 2"));
    return tables;
  }

  void forgetNewEntry() const {
    for (const std::string key :
         {"pempmonthlyentryheader where emhID", "pemployeeallowancedetail where eadid",
          "pemployeeDeductiondetail where eddid", "pEmployeeCurrentDetails where ecdPaySlateID",
          "pempfacilitydeductiondetail where efdid"})
      connection->Execute("delete from " + key + " = " + nextEntry_);
  }

  // What is still owed on a loan, or in a savings account.
  [[nodiscard]] Cents balance(const Row& row) const {
    const std::string from = row.isAny("L")
                                 ? "liCurrentBalance from pLoansIssue where liCompanyID = 1 and liID = "
                                 : "osCurrentBalance from popeningsavings where osCompanyID = 1 and osID = ";
    return std::stoll(query("select " + from + row.other).at(0).at(0));
  }

  // Description and currency symbol.
  [[nodiscard]] std::pair<std::string, std::string> component(Kind kind, const std::string& id) const {
    const auto found = components_[kind].find(id);
    return found == components_[kind].end() ? std::pair<std::string, std::string>() : found->second;
  }

 private:
  std::string nextEntry_;
  std::array<std::map<std::string, std::pair<std::string, std::string>>, 2> components_;
};

// What Payroll::newEntry has to find when lists like these were saved.
inline std::vector<Stored> storedForm(Cents basicPay, const std::array<Rows, 3>& lists) {
  Stored allowances;
  Stored deductions;
  Stored movements;
  Stored facilities;
  const auto move = [&movements](const Row& row, const char* mode) {
    movements.push_back({std::to_string(row.amount), std::to_string(movements.size() + 1), mode});
  };
  for (const Row& row : lists[Allowances]) {
    if (row.isAny("B")) move(row, "-1");
    if (row.isAny("YN"))
      allowances.push_back({std::to_string(row.amount), row.id, row.isAny("Y") ? "1" : "0"});
  }
  std::sort(allowances.begin(), allowances.end(),
            [](const auto& left, const auto& right) { return std::stoi(left[1]) < std::stoi(right[1]); });
  int position = 0;
  for (const Row& row : lists[Deductions]) {
    ++position;
    if (row.isAny("B")) move(row, "1");
    if (!row.isAny("B"))
      deductions.push_back(
          {std::to_string(row.amount), std::to_string(position), row.type, row.id, row.other});
  }
  position = 0;
  for (const Row& row : lists[Facilities]) {
    ++position;
    if (row.ticked) facilities.push_back({std::to_string(row.amount), std::to_string(position), row.id});
  }
  return {
      {{std::to_string(basicPay), std::to_string(employee)}}, allowances, deductions, movements, facilities};
}

}  // namespace payslate
