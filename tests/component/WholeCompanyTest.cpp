// A month of the demo company: everybody who can be entered is entered, some entries are rewritten, some
// cancelled, and what is stored adds up to what the masters say. The same month on tables without indexes.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "component/BasPaySlate.h"
#include "payslate/EntryJournals.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Form.h"
#include "platform/ui/Grid.h"
#include "platform/ui/ListView.h"
#include "platform/ui/TabControl.h"
#include "platform/ui/TextBox.h"
#include "tests/component/DemoPayroll.h"
#include "tests/component/MonthSums.h"

namespace payslate {
namespace {

constexpr int editedOfEvery = 3;
constexpr int cancelledOfEvery = 7;
constexpr double unionFee = 12.34;

// Does the month's work. Who cannot be entered (no attendance, negative pay) is left out.
class MonthClerk : public ui::Clerk {
 public:
  bool onlyLooks = false;
  int entered = 0;
  int edited = 0;
  int fees = 0;  ///< Of the edited: who does not pay the union anyway.
  int cancelled = 0;
  int offered = 0;
  int lookedAt = 0;  ///< What a review found.

  void attend(ui::Form& form) override {
    if (form.Name() == "FrmMaster") return workOnList(form);
    if (form.Name() == "frmCancel") {
      dynamic_cast<ui::TextBox&>(*form.control("txtcanreason")).Text = "entered twice";
      return form.input().click(*form.control("cmdOk"));
    }
    if (form.Name() == "frmDeductPopup") return addUnionFee(form);
    if (editing_) return rewrite(form);
    auto& employees = dynamic_cast<ui::ComboBox&>(*form.control("cboEmpname"));
    offered = employees.ListCount();
    while (!onlyLooks && form.isLoaded() && leftOut_ < employees.ListCount()) {
      form.input().choose(employees, leftOut_);
      if (employees.ListIndex() >= 0) form.input().click(*form.control("cmdOk"));
      if (form.isLoaded()) ++leftOut_;
    }
    if (!form.isLoaded()) {
      ++entered;
      return;
    }
    form.input().close();
    done_ = true;
  }

  ui::Answer answer(const ui::Message& message) override {
    if (message.style == ui::MessageStyle::AskQuestionNo) ++lookedAt;
    const bool closing = message.text == "Save Changes?";
    return !message.asksYesNo() ? ui::Answer::Ok : closing ? ui::Answer::No : ui::Answer::Yes;
  }

  ui::MenuItem* pick(ui::Form&, const ui::PopupMenu& menu) override { return menu.items().front(); }

 private:
  void workOnList(ui::Form& list) {
    auto& grid = dynamic_cast<ui::Grid&>(*list.control("flexMaster"));
    const int before = grid.Rows();
    while (!done_) list.input().click(*list.control("cmdnew"));
    editing_ = true;
    // Delete makes the last row the current one, so rows are chosen afresh. Rows of the grid count from 1.
    for (int row = before; !onlyLooks && row < grid.Rows(); ++row) {
      list.input().clickRow(grid, row - 1);
      if (row % editedOfEvery == 0) list.input().key({ui::KeyCode::Return, 0, ui::KeyAscii::Return});
      list.input().clickRow(grid, row - 1);
      if (row % cancelledOfEvery != 0) continue;
      list.input().key({ui::KeyCode::Delete});
      ++cancelled;
    }
    list.input().click(*list.control("CmdClose"));
  }

  void rewrite(ui::Form& form) {
    auto& deductions = dynamic_cast<ui::ListView&>(*form.control("lvwDeduct"));
    form.input().turnPage(dynamic_cast<ui::TabControl&>(*form.control("tabpayslate")), 1);
    form.input().clickRow(deductions, -1, ui::MouseButton::Right);
    form.input().click(*form.control("cmdOk"));
    if (!form.isLoaded()) {
      ++edited;
      fees += feeAdded_ ? 1 : 0;
    } else {
      form.input().close();
    }
  }

  void addUnionFee(ui::Form& popup) {
    auto& types = dynamic_cast<ui::ComboBox&>(*popup.control("cboDeduct"));
    for (int index = 0; index < types.ListCount(); ++index)
      if (types.List(index) == "Union fee") popup.input().choose(types, index);
    auto& amount = dynamic_cast<ui::TextBox&>(*popup.control("txtAmount"));
    popup.input().focus(amount);
    popup.input().type(U"12.34");
    popup.input().click(*popup.control("cmdOk"));
    feeAdded_ = !popup.isLoaded();
    if (!feeAdded_) popup.input().click(*popup.control("cmdClose"));
  }

  bool editing_ = false;
  bool feeAdded_ = false;
  bool done_ = false;
  int leftOut_ = 0;
};

TEST(WholeCompany, StoredRowsAddUpToTheMasters) {
  const DemoPayroll payroll;
  const auto value = [&payroll](const std::string& statement) { return payroll.value(statement); };
  const double before = value("select count(*) from pempmonthlyentryheader");
  // The entries of this month's work, and those that still stand.
  const std::string made = " and emhCompanyID = 1 and emhID > " +
                           basic::numberText(value("select max(emhID) from pempmonthlyentryheader"));
  const std::string live = made + " and emhCancelled = 0";
  MonthClerk clerk;
  payroll.show(clerk);
  EXPECT_GT(clerk.entered, 25);
  EXPECT_GT(clerk.edited, clerk.fees);
  EXPECT_GT(clerk.fees, 5);
  EXPECT_GT(clerk.cancelled, 2);
  EXPECT_EQ(clerk.lookedAt, 0);
  EXPECT_EQ(value("select count(*) from pempmonthlyentryheader"), before + clerk.entered);

  std::vector<MonthSum> sums = monthSums(live);
  sums.push_back(
      {"the fee that the rewritten entries got",
       "select sum(eddamount) from pempmonthlyentryheader, pemployeeDeductiondetail where eddid = emhID and"
       " eddcompanyid = emhCompanyID and eddType = 'N'" +
           made,
       "select " + basic::numberText(clerk.fees * unionFee)});
  for (const MonthSum& sum : sums) {
    SCOPED_TRACE(sum.what);
    EXPECT_GT(value(sum.stored), 0);
    EXPECT_NEAR(value(sum.stored), value(sum.masters), 0.001);
  }
  EXPECT_EQ(value(std::string("select count(*) from pempmonthlyentryheader") +
                  " where emhCancelled = 1 and emhCancelledRemarks like '%:entered twice'"),
            clerk.cancelled);

  const JournalProof journal = EntryJournals(payroll.connection, 1).prove();
  EXPECT_EQ(journal.entries, static_cast<std::size_t>(clerk.entered));
  EXPECT_TRUE(journal.broken.empty() && journal.foreign.empty());

  // The next month starts with everybody.
  MonthClerk next;
  next.onlyLooks = true;
  payroll.show(next, 5, 31);
  EXPECT_EQ(next.offered, value("select count(*) from pemployee where eCompanyID = 1 and eActive = 1"));
}

/// What a month's work sends, in its order, and what it leaves behind.
std::vector<std::string> workOf(const DemoPayroll& payroll) {
  std::vector<std::string> lines;
  MonthClerk clerk;
  payroll.connection->StatementSent = [&lines](std::string_view text) {
    if (!text.starts_with("insert into pEntryJournal")) lines.emplace_back(text);  // With the time of day.
  };
  payroll.show(clerk);
  payroll.connection->StatementSent = nullptr;
  const auto sent = static_cast<std::ptrdiff_t>(lines.size());
  for (const char* table : {"pempmonthlyentryheader", "pemployeeallowancedetail", "pemployeeDeductiondetail",
                            "pempfacilitydeductiondetail", "pEmployeeCurrentDetails"}) {
    ado::Recordset rows = payroll.connection->Execute(std::string("select * from ") + table);
    for (; !rows.Eof(); rows.MoveNext()) {
      std::string line = table;
      for (std::size_t field = 0; field < rows.FieldCount(); ++field) line += "|" + rows.Fields(field).Text();
      lines.push_back(line);
    }
  }
  std::sort(lines.begin() + sent, lines.end());
  return lines;
}

TEST(WholeCompany, TablesWithoutIndexesHoldTheSameMonth) {
  const std::vector<std::string> expected = workOf(DemoPayroll());
  basPaySlate().adocon(
      nullptr);  // The session outlives its show, and on a server the first month would stay.
  const DemoPayroll bare;
  bare.dropIndexes();
  const std::vector<std::string> lines = workOf(bare);
  for (std::size_t i = 0; i < std::min(lines.size(), expected.size()); ++i)
    ASSERT_EQ(lines[i], expected[i]) << "line " << i;
  EXPECT_EQ(lines.size(), expected.size());
}

}  // namespace
}  // namespace payslate
