// A whole month under review: every flag, the sums, and what a later review says of an accepted month.
#include <gtest/gtest.h>

#include "component/FormHelpers.h"
#include "payslate/EntryJournals.h"
#include "persistence/Cancellation.h"
#include "persistence/EntryReader.h"
#include "persistence/EntryStore.h"
#include "tests/component/DemoPayroll.h"

namespace payslate {
namespace {

/// A host of one of the demo companies, in April 2026.
struct Host {
  explicit Host(const DemoPayroll& payroll, std::int16_t company = 1) : component(desktop) {
    component.adocon(payroll.connection);
    component.ProcessDate = basic::Date::fromCalendar(2026, 4, 25);
    component.intUserID = 1;
    component.intInterfaceID = 40001;
    component.intCompanyID = company;
    component.intfinancialid = 2026;
  }
  scripted::ScriptedDesktop desktop;
  clspayslate component;
};

ReviewOptions limits(const char* percent, const char* amount = nullptr) {
  ReviewOptions options;
  options.percent = basic::Decimal::parse(percent);
  if (amount != nullptr) options.amount = basic::Decimal::parse(amount);
  return options;
}

std::string joined(const std::vector<std::string>& texts, const char* between) {
  std::string line;
  for (const std::string& text : texts) line += (line.empty() ? "" : between) + text;
  return line;
}

const ReviewLine& lineOf(const MonthReview& review, std::int32_t employeeId, const std::string& currency) {
  static const ReviewLine none;
  for (const ReviewLine& line : review.lines)
    if (line.employeeId == employeeId && line.currency == currency) return line;
  ADD_FAILURE() << employeeId << " has no line in " << currency;
  return none;
}

/// The month of company 1 as it is entered at once, and then what a review should see.
constexpr const char* oddities[] = {
    "update pempmonthlyentryheader set emhCancelled = 1, emhCancelledRemarks = 'Ravi Telwin:wrong sheet' where "
    "emhNo = 'EN66'",
    "update pemployee set eActive = 0 where eEmpID in (115, 118)",
    "delete from pempmonthlyentryheader where emhempID in (115, 121) and emhDate >= '20260401'",
    // No more than a quarter, and a cent more than that.
    "update pemployeeallowancedetail set eadamount = 6310.05 where eadallowanceid = 1 and eadid = (select emhID from "
    "pempmonthlyentryheader where emhNo = 'EN63')",
    "update pemployeeallowancedetail set eadamount = 6782.71 where eadallowanceid = 1 and eadid = (select emhID from "
    "pempmonthlyentryheader where emhNo = 'EN64')",
    "update pempmonthlyentryheader set emhpaidcash = 1 where emhempID = 123",
    "update pempmonthlyentryheader set emhbasicpay = -500 where emhempID = 124",
    "update pLoansIssue set liCurrentBalance = 100 where liID in (2, 6)",
    "update pempmonthlyentryheader set emhprocessed = 1 where emhempID = 104",
    "update pEmployeeCurrentDetails set ecdAmount = 1600 where ecdMode = -1 and ecdPaySlateID = (select emhID from "
    "pempmonthlyentryheader where emhNo = 'EN69')",
    "insert into pemployeeDeductiondetail (eddcompanyid, eddid, eddDetailID, edddeductionid, eddType, eddamount) "
    "select 1, emhID, 90, 3, 'F', 10 from pempmonthlyentryheader where emhNo = 'EN71'",
    "insert into pEmployeeCurrentDetails (ecdCompanyID, ecdPaySlateID, ecdDetailID, ecdAmount, ecdMode) select 1, "
    "emhID, 90, 100, 1 from pempmonthlyentryheader where emhNo = 'EN72'",
    "insert into pempmonthlyentryheader (emhCompanyID, emhID, emhNo, emhDate, emhempID, emhstartdate, emhCancelled) "
    "values (1, 900, 'X5', '20260531', 108, '20260501', 0)",
    "insert into pEmployeeCurrentDetails (ecdCompanyID, ecdPaySlateID, ecdDetailID, ecdAmount, ecdMode) values (1, "
    "900, 1, 300, -1)",
    "insert into pemployeeallowancedetail (eadcompanyid, eadid, eadallowanceid, eadamount, eaddefault) select 1, "
    "emhID, 99, 5, 0 from pempmonthlyentryheader where emhNo = 'EN74'",
    // Nobody's entry, on the month's first day.
    "insert into pempmonthlyentryheader (emhCompanyID, emhID, emhNo, emhDate, emhempID, emhbasicpay, emhCancelled) "
    "values (1, 901, 'X6', '20260401', 999, 12.5, 0)",
};

struct Expected {
  std::int16_t company;
  std::int32_t employee;
  const char* currency;
  const char* flags;
  const char* remarks;
};

// By more than a quarter, or by more than 4,500.
constexpr Expected expectations[] = {
    {1, 102, "Rs", "no-entry missing cancelled", "try a dry run; EN66 cancelled by Ravi Telwin: wrong sheet"},
    {1, 117, "Rs", "", ""},
    {1, 121, "$", "no-entry", "try a dry run"},
    {1, 140, "Rs", "no-entry", "joins later, 2026/05/04"},
    {1, 141, "Rs", "no-entry", "no sheets"},
    {1, 142, "Rs", "no-entry", "incomplete sheets"},
    {1, 143, "Rs", "no-entry", "overlapping sheets"},
    {1, 115, "Rs", "missing left", ""},
    {1, 118, "Rs", "left", ""},
    {1, 999, "", "left new", "not among the employees"},
    {1, 111, "Rs", "missing", "Provident fund 237.60 → 0.00; House rent 198.00 → 0.00"},
    {1, 122, "Rs", "new", ""},
    {1, 139, "Rs", "new", "joined 2026/04/11"},
    {1, 112, "Eu", "new", "Schooling 0.00 → 25.50"},
    {1, 119, "Rs", "hold changed", "House rent 1966.00 → 6782.71"},
    {1, 123, "Rs", "new cash", ""},
    {1, 124, "Rs", "new negative", ""},
    {1, 104, "Rs", "", ""},
    {1, 101, "Rs", "finding", "House loan: 3500.50 is more than the balance, 100.00"},
    {1, 105, "Rs", "finding",
     "Previous Salary Carry Forward Balance: 1600.00 is paid out, but only 1500.00 is left"},
    {1, 107, "Rs", "finding",
     "Vehicle recovery: 10.00 Rs is deducted, but the ticked recoveries come to 0.00 Rs"},
    {1, 108, "Rs", "finding",
     "Salary Carry Forward: 100.00 is kept back, but later months paid out 300.00 (X5)"},
    {1, 110, "$", "finding", "Rows of this entry that cannot be shown and would be deleted: 1"},
    {2, 210, "Eu", "no-entry", "no calendar"},
};

TEST(MonthReview, RaisesEachFlagAndSaysWhy) {
  const DemoPayroll payroll;
  Host host(payroll);
  host.component.EnterMonth({});
  for (const char* statement : oddities) payroll.connection->Execute(statement);
  std::size_t sent = 0;
  payroll.connection->StatementSent = [&sent](std::string_view) { ++sent; };
  std::map<std::int16_t, MonthReview> reviews{{1, host.component.ReviewMonth(limits("25", "4500"))}};
  EXPECT_EQ(reviews[1].statements, sent);
  reviews[2] = Host(payroll, 2).component.ReviewMonth({});
  EXPECT_EQ(reviews[1].statements + reviews[2].statements, sent) << "the host's own listener hears it all";
  EXPECT_LE(reviews[1].statements, 20U);
  for (const Expected& expected : expectations) {
    const ReviewLine& line = lineOf(reviews[expected.company], expected.employee, expected.currency);
    EXPECT_EQ(joined(line.flags, " "), expected.flags) << expected.employee;
    EXPECT_EQ(joined(line.remarks, "; "), expected.remarks) << expected.employee;
  }
  const MonthReview near = host.component.ReviewMonth(limits("90", "925.74"));
  EXPECT_EQ(
      joined(lineOf(near, 101, "Rs").remarks, "; "),
      "Overtime 0.00 → 687.50; Previous Salary Carry Forward Balance 0.00 → 500.00; basic pay 30000.00 → "
      "28000.00, 2 days absent; and 6 more; House loan: 3500.50 is more than the balance, 100.00");
  EXPECT_EQ(joined(lineOf(host.component.ReviewMonth(limits("90", "925.75")), 101, "Rs").flags, " "),
            "finding");
  // Last month's cancelled, processed and left ones are of no interest now.
  for (const ReviewLine& line : near.lines) EXPECT_NE(line.employeeId, 138) << "left long ago";
}

/// What live entries of a month add up to in a currency, by a statement of its own.
std::string stored(const DemoPayroll& payroll, const std::string& columns, const std::string& tables,
                   const std::string& condition, const std::string& symbol, int month) {
  return basic::Format(
      payroll.value("select sum(" + columns + ") from pempmonthlyentryheader, pCurrencyMaster c, " + tables +
                    " where emhCancelled = 0 and month(emhDate) = " + std::to_string(month) +
                    " and emhCompanyID = c.CompanyID and Symbol = '" + symbol + "' and " + condition),
      "0.00");
}

TEST(MonthReview, AddsUpToWhatIsStoredAndToWhatTheFormShowed) {
  for (const std::int16_t company : {std::int16_t{1}, std::int16_t{2}}) {
    const DemoPayroll payroll;
    Host host(payroll, company);
    const MonthReport entered = host.component.EnterMonth({});
    const MonthReview review = host.component.ReviewMonth({});
    std::size_t paid = 0;
    for (const MonthLine& line : entered.lines) {
      if (line.result != MonthResult::Stored) continue;
      for (const MonthPay& pay : line.pay) {
        EXPECT_EQ(lineOf(review, line.employeeId, pay.currency).net, pay.net) << line.name;
        EXPECT_EQ(lineOf(review, line.employeeId, pay.currency).entry, line.entry);
        ++paid;
      }
    }
    EXPECT_GT(paid, company == 1 ? 40U : 10U);
    const std::string ofCompany = "emhCompanyID = " + std::to_string(company) + " and ";
    const std::string employee =
        ofCompany + "eEmpID = emhempID and eCompanyID = emhCompanyID and eCurrencyID = c.CurrencyID";
    const std::string allowance =
        ofCompany +
        "eadid = emhID and eadcompanyid = emhCompanyID and aAllowanceID = "
        "eadallowanceid and aCompanyID = emhCompanyID and acurrencyid = c.CurrencyID";
    const std::string moved =
        employee + " and ecdPaySlateID = emhID and ecdCompanyID = emhCompanyID and ecdMode = -1";
    ASSERT_FALSE(review.sums.empty());
    for (const ReviewTotal& sum : review.sums) {
      const auto of = [&](const char* columns, const char* tables, const std::string& condition, int month) {
        return basic::Decimal::parse(stored(payroll, columns, tables, condition, sum.currency, month));
      };
      EXPECT_EQ(sum.basicPay, of("emhbasicpay", "pemployee", employee, 4).text());
      EXPECT_EQ(sum.allowances, (of("eadamount", "pemployeeallowancedetail, pAllowances", allowance, 4) +
                                 of("ecdAmount", "pemployee, pEmployeeCurrentDetails", moved, 4))
                                    .text());
      basic::Decimal nets;
      for (const ReviewLine& line : review.lines)
        if (line.currency == sum.currency && !line.net.empty()) nets = nets + basic::Decimal::parse(line.net);
      EXPECT_EQ(sum.net, nets.rounded(2).text());
      const std::string deduction =
          ofCompany +
          "eddid = emhID and eddcompanyid = emhCompanyID and c.CurrencyID = "
          "coalesce((select dcurrencyid from pDeductions where dDedID = edddeductionid and dCompanyID = eddcompanyid),"
          " (select scurrencyid from psavings where sSavingsID = eddsavingsid and scompanyid = eddcompanyid),"
          " (select lcurrencyid from ploans where lloanid = eddloanid and lcompanyid = eddcompanyid))";
      EXPECT_EQ(sum.deductions, of("eddamount", "pemployeeDeductiondetail", deduction, 4).text());
      EXPECT_EQ(sum.before, (of("emhbasicpay", "pemployee", employee, 3) +
                             of("eadamount", "pemployeeallowancedetail, pAllowances", allowance, 3) -
                             of("eddamount", "pemployeeDeductiondetail", deduction, 3) +
                             of("ecdAmount * -ecdMode", "pemployee, pEmployeeCurrentDetails",
                                moved.substr(0, moved.rfind(" and ecdMode")), 3))
                                .text());
    }
  }
}

TEST(MonthReview, SaysWhatWasDoneSinceItWasAccepted) {
  const DemoPayroll payroll;
  Host host(payroll);
  MonthOptions some;
  some.departments = {10, 20};
  host.component.EnterMonth(some);
  ReviewOptions accepting;
  accepting.acceptAs = " Zoë's April ";
  const MonthReview accepts = host.component.ReviewMonth(accepting);
  ASSERT_TRUE(accepts.accepts);
  EXPECT_FALSE(accepts.accepted);
  EXPECT_EQ(accepts.accepts->hash.size(), 64U);
  const MonthReview same = host.component.ReviewMonth({});
  ASSERT_TRUE(same.accepted);
  EXPECT_EQ(same.accepted->name, "Zoë's April");
  EXPECT_EQ(same.accepted->user, "Imke Overgaard");
  EXPECT_EQ(same.accepted->time, accepts.accepts->time);
  EXPECT_TRUE(same.changes.empty() && same.totalChanges.empty());

  Session session;
  session.adocon(payroll.connection);
  session.intCompanyID = 1;
  session.intUserID = 2;
  session.TableLinks.load(*payroll.connection);
  session.TableLinks.loadJournal(*payroll.connection);
  FormHelpers helpers;
  helpers.create(session);
  LoadedMonth loaded;
  loaded.entry = EntryReader(session, *helpers.objCommonDB).whole(entryOfNumber(session, "EN65").value());
  loaded.stored = true;
  EntryRecord dearer = loaded.entry;
  dearer.basicPay = "28000.01";
  storeEntry(session, *helpers.objCommonDB, dearer, loaded);
  EXPECT_EQ(cancelEntry(session, entryOfNumber(session, "EN66").value(), "again"), std::nullopt);
  MonthOptions one;
  one.employees = {105};
  const std::string added = host.component.EnterMonth(one).lines.at(0).entry;

  const MonthReview later = host.component.ReviewMonth({});
  std::vector<std::string> done;
  for (const ReviewChange& change : later.changes)
    done.push_back(change.entry + " " + change.name + " " + change.done + " " + change.user);
  EXPECT_EQ(done, (std::vector<std::string>{"EN65 Asha Verling changed Ravi Telwin",
                                            "EN66 Bram Maruvi cancelled Ravi Telwin",
                                            added + " Elif Dentrec entered Imke Overgaard"}));
  std::vector<std::string> totals;
  for (const ReviewTotalChange& change : later.totalChanges)
    totals.push_back(change.department + " " + change.currency + " " +
                     std::to_string(change.employeesAccepted) + " " + std::to_string(change.employees) + " " +
                     change.difference);
  EXPECT_EQ(totals, (std::vector<std::string>{"Weaving Rs 13 13 0.01", "Dye house Rs 17 16 -18915.20",
                                              "Office $ 0 1 40.00", "Office Eu 0 1 25.50",
                                              "Office Rs 0 1 22178.07"}));

  // Another program's work has no rows in the journal, but changes the totals.
  accepting.acceptAs = "May it be";
  EXPECT_EQ(host.component.ReviewMonth(accepting).accepted->name, "Zoë's April");
  payroll.connection->Execute(
      "update pempmonthlyentryheader set emhbasicpay = emhbasicpay + 1 where emhNo = 'EN65'");
  ReviewOptions weaving;
  weaving.departments = {10};
  const MonthReview other = host.component.ReviewMonth(weaving);
  EXPECT_EQ(other.accepted->name, "May it be");
  EXPECT_TRUE(other.changes.empty());
  ASSERT_EQ(other.totalChanges.size(), 1U);
  EXPECT_EQ(other.totalChanges[0].difference, "1.00");
  const JournalProof proof = EntryJournals(payroll.connection, 1).prove();
  EXPECT_TRUE(proof.broken.empty());
  EXPECT_EQ(proof.foreign.size(), 1U);

  const auto refusal = [&](const ReviewOptions& options) -> std::string {
    try {
      host.component.ReviewMonth(options);
    } catch (const MonthRefused& refused) {
      return refused.what();
    }
    return "";
  };
  weaving.acceptAs = "part";
  EXPECT_EQ(refusal(weaving), "A month is accepted as a whole: do not choose departments.");
  payroll.connection->Execute("delete from linkTable where tablename = 'pEntryJournal'");
  EXPECT_NE(refusal(accepting).find("No journal of entries is kept"), std::string::npos);
  EXPECT_FALSE(host.component.ReviewMonth({}).accepted);
  payroll.connection->Execute("delete from ppaymonths where companyid = 1 and paymonth = 4");
  EXPECT_NE(refusal({}).find("Pay month 4 of this company has no start date"), std::string::npos);
}

}  // namespace
}  // namespace payslate
