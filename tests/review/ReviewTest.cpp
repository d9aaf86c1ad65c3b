// Entries under review: plain rows in, findings out, and what is asked of the stored state on the way.
#include <gtest/gtest.h>

#include <functional>

#include "component/LoadedMonth.h"
#include "component/PayRows.h"
#include "component/StoredState.h"
#include "platform/basic/Numbers.h"
#include "review/Review.h"

namespace payslate {
namespace {

/// Answers from what the test put there, and takes down what it was asked.
struct StatedState : StoredState {
  Balances loans{{51, 400}};
  Balances savings{{61, 5000}};
  std::vector<EntryMovements> others;
  std::string asked;

  Balances balances(const char* what, const std::set<std::int32_t>& accounts, const Balances& from) {
    for (const std::int32_t account : accounts) asked += what + std::to_string(account) + " ";
    return from;
  }
  Balances loanBalances(const std::set<std::int32_t>& issues) override {
    return balances("L", issues, loans);
  }
  Balances savingsBalances(const std::set<std::int32_t>& accounts) override {
    return balances("S", accounts, savings);
  }
  std::vector<EntryMovements> otherMovements(std::int32_t employee, std::int32_t entry) override {
    asked += "employee " + std::to_string(employee) + " without " + std::to_string(entry) + " ";
    return others;
  }
  std::vector<EntryMovements> movementsBeside(std::int32_t) override { return others; }
  std::string deductionDescription(std::int32_t deduction) override { return deduction == 4 ? "Late" : ""; }
};

basic::Date day(int month, int number) {
  return basic::Date::fromCalendar(2026, month, number);
}

/// A month as it was loaded, with a row of every kind.
struct Month {
  EntryRecord entry;
  LoadedMonth loaded;
  StatedState state;

  Month() {
    entry.employeeId = 101;
    entry.date = day(4, 30);
    entry.days = {20.5, 1.5, 8};
    entry.periodStart = day(4, 1);
    entry.periodEnd = day(4, 30);
    entry.allowances = {{"1", "House rent", "3000.00", "1", AllowKind::Standing, "Rs"}};
    entry.deductions = {{"1", "Canteen", "300.25", "2", DeductKind::Standing, "Rs", ""},
                        {"2", "Loan", "300.00", "2", DeductKind::Loan, "Rs", "51"},
                        {"3", "Thrift", "200.00", "9", DeductKind::Savings, "Rs", "61"},
                        {"4", "Thrift", "200.00", "9", DeductKind::Savings, "Rs", "61"},
                        {"5", "Vehicle", "750.755", "3", DeductKind::Facility, "Rs "}};
    entry.facilities = {{1, "71", "", "Motor cycle", "500", "500", "500", "3", "Rs"},
                        {3, "72", "", "Motor cycle", "250.76", "250.76", "250.76", "3", " Rs"}};
    loaded.entry = entry;
  }

  void rewrite() { entry.id = loaded.entry.id = 7; }
  std::string& amount(std::size_t deduction) { return entry.deductions[deduction][DeductColumn::Amount]; }
  void refresh(std::size_t deduction, double written) {
    loaded.refreshed(deductionKey(entry.deductions, deduction), basic::Val(amount(deduction)), written);
    amount(deduction) = basic::numberText(written);
  }
  void payOut(const char* cents) {
    entry.allowances.push_back({"2", "Balance", cents, "500", AllowKind::CarriedForward, "Rs"});
  }
  void keepBack(const char* cents) {
    entry.deductions.push_back({"6", "Kept", cents, "", DeductKind::CarriedForward, "Rs", ""});
  }
  /// What it did when it was opened.
  void keptBack() {
    rewrite();
    keepBack("500.00");
    loaded.entry = entry;
    entry.deductions.pop_back();
  }
};

/// The page by its letter and the row, then the line.
std::vector<std::string> told(Month& month) {
  std::vector<std::string> lines;
  for (const Finding& finding : review(month.entry, month.loaded, month.state))
    lines.push_back("-ADFC"[static_cast<int>(finding.page)] +
                    (finding.row ? std::to_string(*finding.row) : std::string()) + " " + finding.line);
  return lines;
}

TEST(Review, FindsWhatItShouldAndAsksForNoMore) {
  const std::string refreshed = " by the amount of another item's formula, ";
  const std::string recovered = " is deducted, but the ticked recoveries come to ";
  const std::string accounts = "L51 S61 ";
  const std::string others = "employee 101 without 0 ";
  const EntryMovements march{"EN1", day(3, 31), 500, 0};
  const EntryMovements may{"EN3", day(5, 31), 0, 1000};
  struct Case {
    const char* what;
    std::function<void(Month&)> change;
    std::vector<std::string> lines;
    std::string asked = {};
  };
  const Case cases[] = {
      {"an ordinary month", [](Month&) {}, {}},
      {"the same, stored", [](Month& m) { m.rewrite(); }, {}, accounts},
      {"Refresh wrote its own item's amount", [](Month& m) { m.refresh(0, 900); }, {}},
      {"Refresh twice, on the second of two alike, which has moved",
       [](Month& m) {
         m.refresh(3, 100);
         m.refresh(3, 199.999);
         m.refresh(3, 150.004);
         m.entry.deductions.erase(m.entry.deductions.begin());
       },
       {"D2 Thrift: Refresh replaced 200.00" + refreshed + "150.00"}},
      {"Refresh after the clerk, on top of Refresh",
       [](Month& m) {
         m.refresh(1, 100);
         m.amount(1) = "250";
         m.refresh(1, 100);
       },
       {"D1 Loan: Refresh replaced 250.00" + refreshed + "100.00"}},
      {"the clerk after Refresh, and Refresh back where it was",
       [](Month& m) {
         m.refresh(1, 100);
         m.amount(1) = "99.99";
         m.refresh(2, 100);
         m.refresh(2, 200);
       },
       {}},
      {"more than was loaded, up to the balance", [](Month& m) { m.amount(1) = "400.00"; }, {}, "L51 "},
      {"more than the balance",
       [](Month& m) {
         m.amount(1) = "400.01";
         m.amount(3) = "5000.01";
       },
       {"D1 Loan: 400.01 is more than the balance, 400.00",
        "D3 Thrift: 5000.01 is more than the balance, 5000.00"},
       accounts},
      {"stored, the loan gone and the savings all but",
       [](Month& m) {
         m.rewrite();
         m.state.loans.clear();
         m.state.savings[61] = 199.99;
         m.amount(3) = "0";
       },
       {"D1 Loan: 300.00 is more than the balance, 0.00",
        "D2 Thrift: 200.00 is more than the balance, 199.99"},
       accounts},
      {"a ticked recovery is gone",
       [](Month& m) { m.entry.facilities.pop_back(); },
       {"D4 Vehicle: 750.76 Rs" + recovered + "500.00 Rs"}},
      {"another currency, other types, one that nobody knows",
       [](Month& m) {
         m.entry.facilities[0].symbol = "$";
         m.entry.facilities.push_back({5, "", "", "Phone", "", "", "10", "4", ""});
         m.entry.facilities.push_back({6, "", "", "House", "", "", "0.01", "8", "Rs"});
         m.entry.facilities.push_back({7, "", "", "Tea", "", "", "0", "8", "$"});
       },
       {"D4 Vehicle: 750.76 Rs" + recovered + "250.76 Rs", "D4 Vehicle: 0.00 $" + recovered + "500.00 $",
        "F4 Late: 0.00" + recovered + "10.00", "F5 House: 0.00 Rs" + recovered + "0.01 Rs"}},
      {"nothing is paid out", [](Month& m) { m.payOut("0.00"); }, {}},
      {"all that is left is paid out",
       [&](Month& m) {
         m.payOut("500.00");
         m.state.others = {{"EN1", day(3, 31), 500.3, 0}, {"EN2", day(4, 1), 0, 0.3}};
       },
       {},
       others},
      {"a cent more",
       [&](Month& m) { m.payOut("500.01"), m.state.others = {march}; },
       {"A1 Balance: 500.01 is paid out, but only 500.00 is left"},
       others},
      {"a later month was there first",
       [&](Month& m) {
         m.payOut("500"), m.state.others = {march, may};
       },
       {"A1 Balance: 500.00 is paid out, but only -500.00 is left"},
       others},
      {"which had this month's own",
       [&](Month& m) {
         m.payOut("500"), m.keepBack("1000"), m.state.others = {march, may};
       },
       {},
       others},
      {"which an earlier month cannot have had",
       [&](Month& m) {
         m.payOut("500"), m.keepBack("1000"), m.state.others = {march, {"EN2", day(4, 2), 0, 1000}};
       },
       {"A1 Balance: 500.00 is paid out, but only -500.00 is left"},
       others},
      {"kept back as before",
       [&](Month& m) {
         m.keptBack(), m.keepBack("500"), m.state.others = {march, may};
       },
       {},
       accounts + "employee 101 without 7 "},
      {"less kept back",
       [&](Month& m) {
         m.keptBack(), m.keepBack("499.99"), m.state.others = {march, may};
       },
       {"D5 Salary Carry Forward: 499.99 is kept back, but later months paid out 500.00 (EN3)"},
       accounts + "employee 101 without 7 "},
      {"nothing kept back any more",
       [&](Month& m) {
         m.keptBack(), m.state.others = {may, {"EN4", day(6, 30), 600, 0}};
       },
       {"D Salary Carry Forward: 0.00 is kept back, but later months paid out 400.00 (EN3)"},
       accounts + "employee 101 without 7 "},
      {"hidden rows of a stored entry",
       [](Month& m) { m.rewrite(), m.loaded.hiddenRows = 2; },
       {"- Rows of this entry that cannot be shown and would be deleted: 2"},
       accounts},
      {"the stored period moves by a day at its end",
       [](Month& m) { m.rewrite(), m.loaded.entry.periodEnd = day(4, 29); },
       {"- The stored period 01/04/2026 - 29/04/2026 becomes 01/04/2026 - 30/04/2026"},
       accounts},
      {"it has a time of day, and no end",
       [](Month& m) {
         m.rewrite(), m.loaded.entry.periodStart = day(4, 1).plusDays(0.5), m.loaded.entry.periodEnd = {};
       },
       {},
       accounts},
      {"a day moves to leave",
       [](Month& m) {
         m.entry.days = {19.5, 1.5, 9};
       },
       {}},
      {"half a day is lost",
       [](Month& m) { m.entry.days.absent = 1; },
       {"C The day counts add up to 29.5 of 30 days"}},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.what);
    Month month;
    one.change(month);
    EXPECT_EQ(told(month), one.lines);
    EXPECT_EQ(month.state.asked, one.asked);
  }
}

TEST(Review, AsksBeforeAnEntryIsCancelledThatOthersHaveDrawnOn) {
  StatedState state;
  EXPECT_EQ(cancellationQuestion(7, state), "");
  state.others = {{"EN1", day(3, 31), 500, 0}, {"EN3", day(5, 31), 0, 500}};
  EXPECT_EQ(cancellationQuestion(7, state), "");
  state.others.push_back({"EN4", day(6, 30), 100, 300.5});
  state.others.push_back({"EN5", day(7, 31), 50, 0});
  EXPECT_EQ(cancellationQuestion(7, state),
            "EN4 of 30/06/2026 paid out what this entry kept back, 150.50. Cancel it all the same?");
}

}  // namespace
}  // namespace payslate
