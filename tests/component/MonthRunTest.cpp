// A month entered at once: the same rows as a clerk's, and an answer for everybody.
#include <gtest/gtest.h>

#include "entry/frmpayslate.h"
#include "platform/ado/Error.h"
#include "tests/component/DemoPayroll.h"

namespace payslate {
namespace {

using Result = MonthResult;

/// Leaves whatever is said at that.
class AgreeingClerk : public ui::Clerk {
 public:
  void attend(ui::Form& form) override { form.abandon(); }
  ui::Answer answer(const ui::Message& message) override {
    return message.asksYesNo() ? ui::Answer::Yes : ui::Answer::Ok;
  }
  ui::MenuItem* pick(ui::Form&, const ui::PopupMenu&) override { return nullptr; }
};

struct Company {
  std::int16_t id;
  basic::Date date;
};
const Company first{1, basic::Date::fromCalendar(2026, 4, 30)};
const Company second{2, basic::Date::fromCalendar(2026, 4, 25)};

MonthReport enterMonth(const DemoPayroll& payroll, const Company& company, const MonthOptions& options = {},
                       const MonthProgress& progress = {}) {
  scripted::ScriptedDesktop desktop;
  return host::makeComponent(desktop, payroll.connection, {company.id, 1, 40001, 2026, company.date, ""})
      .EnterMonth(options, progress);
}

/// Chooses everybody in the combo, in a form of his own each time, and presses OK.
void enterByHand(const DemoPayroll& payroll, const Company& company) {
  AgreeingClerk clerk;
  scripted::ScriptedDesktop desktop;
  desktop.setClerk(&clerk);
  BasPaySlate bas;
  bas.desktop(desktop);
  bas.adocon(payroll.connection);
  bas.intCompanyID = company.id;
  bas.intUserID = 1;
  bas.intInterfaceID = 40001;
  bas.intfinancialid = 2026;
  bas.TableLinks.load(*payroll.connection);
  bas.TableLinks.loadJournal(*payroll.connection);
  for (int next = 0;;) {
    bas.ProcessDate = company.date;
    bas.strMode = EntryMode::New;
    const auto form = std::make_shared<frmpayslate>(bas);
    form->load();
    const int offered = form->cboEmpname.ListCount();
    if (next >= offered) return;
    form->input().choose(form->cboEmpname, next);
    if (form->monthIsWhole()) form->input().click(form->cmdOk);
    next += form->isLoaded() ? 1 : 0;  // Who is stored is not offered again.
  }
}

using Rows = std::vector<std::string>;

Rows rowsOf(const DemoPayroll& payroll) {
  // Without the time and the hash that covers it.
  const std::string journal =
      "ejCompanyID, ejEntryID, ejSequence, ejUserID, ejAction, ejKind, ejItem, ejBefore, ejAfter from "
      "pEntryJournal";
  const std::string entries[] = {"* from pempmonthlyentryheader",   "* from pemployeeallowancedetail",
                                 "* from pemployeeDeductiondetail", "* from pempfacilitydeductiondetail",
                                 "* from pEmployeeCurrentDetails",  journal};
  Rows lines;
  for (const std::string& table : entries) {
    ado::Recordset rows = payroll.connection->Execute("select " + table);
    for (; !rows.Eof(); rows.MoveNext()) {
      std::string line = table.substr(table.find("from"));
      for (std::size_t field = 0; field < rows.FieldCount(); ++field) line += "|" + rows.Fields(field).Text();
      lines.push_back(line);
    }
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

const MonthLine& lineOf(const MonthReport& report, std::int32_t employeeId) {
  static const MonthLine none;
  for (const MonthLine& line : report.lines)
    if (line.employeeId == employeeId) return line;
  return none;
}

Rows rowsEnteredByHand() {
  const DemoPayroll byHand;
  enterByHand(byHand, first);
  enterByHand(byHand, second);
  return rowsOf(byHand);
}

// One payroll at a time: on a server they have one database.
TEST(MonthRun, StoresRowForRowWhatAClerkStores) {
  const Rows expected = rowsEnteredByHand();
  const DemoPayroll atOnce;
  MonthOptions dry;
  dry.dryRun = true;
  const Rows untouched = rowsOf(atOnce);
  const MonthReport would = enterMonth(atOnce, first, dry);
  EXPECT_EQ(rowsOf(atOnce), untouched);
  const MonthReport report = enterMonth(atOnce, first);
  EXPECT_GT(report.count(Result::Stored), 30U);
  EXPECT_EQ(would.count(Result::WouldStore), report.count(Result::Stored));
  EXPECT_EQ(report.count(Result::Stored) + report.count(Result::LeftOut), report.lines.size());
  EXPECT_EQ(lineOf(report, 121).reasons, Rows{"Can not have Negative pay"});
  EXPECT_EQ(lineOf(report, 140).reasons, Rows{"Employee's Date of Join is greater than enddate"});
  EXPECT_EQ(lineOf(report, 101).entry, "EN65");
  ASSERT_FALSE(lineOf(report, 101).pay.empty());
  EXPECT_EQ(lineOf(report, 101).pay[0].net, "24223.75");
  enterMonth(atOnce, second);

  const Rows rows = rowsOf(atOnce);
  for (std::size_t i = 0; i < std::min(rows.size(), expected.size()); ++i) ASSERT_EQ(rows[i], expected[i]);
  EXPECT_EQ(rows.size(), expected.size());

  const MonthReport again = enterMonth(atOnce, first);
  EXPECT_EQ(again.count(Result::LeftOut), again.lines.size()) << "who is stored is not entered again";
  EXPECT_EQ(rowsOf(atOnce), rows);
}

TEST(MonthRun, DoesWhatItsOptionsSay) {
  const DemoPayroll payroll;
  const auto sum = [&](const char* of) { return payroll.value(std::string("select sum(") + of); };
  const std::string entry = " where eadid = (select max(emhID) from pempmonthlyentryheader)";
  MonthOptions options;
  options.departments = {10};
  options.employees = {101, 140, 999};
  options.facilities = true;
  options.balance = false;
  const double paidOut = sum("ecdAmount) from pEmployeeCurrentDetails where ecdMode = -1");
  const MonthReport report = enterMonth(payroll, first, options);
  ASSERT_EQ(report.lines.size(), 3U);
  EXPECT_EQ(lineOf(report, 999).result, Result::LeftOut);
  EXPECT_EQ(lineOf(report, 101).result, Result::Stored) << lineOf(report, 101).reasons.at(0);
  EXPECT_EQ(sum("ecdAmount) from pEmployeeCurrentDetails where ecdMode = -1"), paidOut);
  EXPECT_EQ(
      payroll.value("select count(*) from pempfacilitydeductiondetail, pempmonthlyentryheader where efdid "
                    "= emhID and efdcompanyid = emhCompanyID and emhNo = 'EN65'"),
      payroll.value("select count(*) from pFacilityTrackingHeader where fthEmployeeID = 101 and "
                    "fthCompanyID = 1 and fthCancelled = 0"));
}

TEST(MonthRun, OneFailureStopsNobodyElse) {
  // Another clerk enters somebody between his choice and the transaction.
  const DemoPayroll payroll;
  const char* live =
      "select count(*) from pempmonthlyentryheader where emhCompanyID = 1 and emhCancelled = 0";
  const double before = payroll.value(live);
  const auto others = [&](std::size_t done, std::size_t) {
    EXPECT_FALSE(payroll.connection->InTransaction());
    if (done == 9)
      payroll.connection->Execute(
          "insert into pempmonthlyentryheader (emhCompanyID, emhID, emhNo, emhDate, emhempID, emhstartdate, "
          "emhCancelled) values (1, 900, 'X1', '2026/04/30', 103, '2026/04/01', 0)");
    return true;
  };
  const MonthReport report = enterMonth(payroll, first, {}, others);
  EXPECT_EQ(
      lineOf(report, 103).reasons,
      Rows{"The employee has an entry for this period already: X1. Nothing is stored. The list shows it when "
           "it is opened again."});
  EXPECT_EQ(lineOf(report, 103).result, Result::LeftOut);
  EXPECT_EQ(lineOf(report, 102).result, Result::Stored);
  EXPECT_EQ(lineOf(report, 104).result, Result::Stored);
  EXPECT_EQ(payroll.value(live), before + 1 + static_cast<double>(report.count(Result::Stored)));
}

TEST(MonthRun, ALostConnectionEndsItAndItGoesOnBehindAStop) {
  const DemoPayroll cut;
  const auto loses = [&](std::size_t done, std::size_t) {
    if (done == 5) cut.connection->Close();
    return true;
  };
  const MonthReport lost = enterMonth(cut, first, {}, loses);
  EXPECT_EQ(lost.count(Result::Failed), 1U);
  EXPECT_EQ(lost.count(Result::NotReached), lost.lines.size() - 1);
  // It is closed: where there is but one database it is empty again.
  const DemoPayroll halted;
  const MonthReport stopped =
      enterMonth(halted, first, {}, [](std::size_t done, std::size_t) { return done < 10; });
  EXPECT_EQ(stopped.count(Result::Stored), 10U);
  EXPECT_EQ(stopped.count(Result::NotReached), stopped.lines.size() - 10);
  EXPECT_EQ(enterMonth(halted, first).lines.size(), stopped.lines.size() - 10);
}

TEST(MonthRun, IsRefusedForEverybodyBeforeAnythingIsWritten) {
  const DemoPayroll payroll;
  const Rows untouched = rowsOf(payroll);
  const auto refusal = [&](const std::string& statement) -> std::string {
    payroll.connection->BeginTrans();
    payroll.connection->Execute(statement);
    std::string sentence;
    try {
      enterMonth(payroll, first);
    } catch (const MonthRefused& refused) {
      sentence = refused.what();
    }
    payroll.connection->RollbackTrans();
    EXPECT_EQ(rowsOf(payroll), untouched);
    return sentence;
  };
  EXPECT_EQ(refusal("update pempmonthlyentryheader set emhNo = 'EN32757' where emhNo = 'EN1'"),
            "Entry numbers end at 32767: 10 are left for 41 employees. Give the screen another prefix.");
  EXPECT_NE(refusal("delete from ppaymonths where companyid = 1"), "");
}

}  // namespace
}  // namespace payslate
