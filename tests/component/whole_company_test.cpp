// A month of the demo company: everybody who can be entered is entered, some entries are rewritten, some
// cancelled, and what is stored adds up to what the masters say.
#include <gtest/gtest.h>

#include <string>

#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Form.h"
#include "platform/ui/Grid.h"
#include "platform/ui/ListView.h"
#include "platform/ui/TabControl.h"
#include "platform/ui/TextBox.h"
#include "tests/component/DemoPayroll.h"

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

std::string daysOf(const char* types) {
  return std::string("(select eaEmpID, count(distinct eaddate) days from pempattendancedetail d,") +
         " pEmployeeattendence h where h.eaid = d.eadAttendanceID and h.eacompanyid = d.eadcompanyid and"
         " eaCancelled = 0 and eadcompanyid = 1 and eaddate between '2026/04/01' and '2026/04/30' and eadtype in " +
         types + " group by eaEmpID)";
}

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
  EXPECT_EQ(value("select count(*) from pempmonthlyentryheader"), before + clerk.entered);

  const std::string entries = std::string(" from pempmonthlyentryheader");
  struct Sum {
    const char* what;
    std::string stored;
    std::string masters;
  };
  const Sum sums[] = {
      {"basic pay", "select sum(emhbasicpay)" + entries + " where 1 = 1" + live,
       "select sum(round(eBasic - eBasic / 30 * (isnull(whole.days, 0) + 0.5 * isnull(half.days, 0) + case when"
       " eDateofJoin > '2026/04/01' then datediff(d, '2026/04/01', eDateofJoin) else 0 end), 2))" +
           entries +
           " inner join pemployee on eEmpID = emhempID and eCompanyID = emhCompanyID left outer join " +
           daysOf("('a')") + " whole on whole.eaEmpID = emhempID left outer join " + daysOf("('AL', 'HA')") +
           " half on half.eaEmpID = emhempID where 1 = 1" + live},
      {"standing allowances of a fixed amount",
       "select sum(eadamount)" + entries +
           ", pemployeeallowancedetail, pAllowances where eadid = emhID and eadcompanyid = emhCompanyID and"
           " eadallowanceid = aAllowanceID and aCompanyID = 1 and eaddefault = 1 and isnull(aformulaid, 0) = 0" +
           live,
       "select sum(eaamount)" + entries +
           ", pempallowances, pAllowances where eaempid = emhempID and eacompanyid = 1 and eaallowanceid ="
           " aAllowanceID and aCompanyID = 1 and aActive = 1 and isnull(aformulaid, 0) = 0" +
           live},
      {"booked hours",
       "select sum(eadamount)" + entries +
           ", pemployeeallowancedetail where eadid = emhID and eadcompanyid = emhCompanyID and eaddefault = 0 and"
           " eadallowanceid = 3" +
           live,
       "select sum(amount) from (select round(sum(eaadHours) * eBasic / (round(hrsofWork, 0) * 30), 2) amount" +
           entries +
           ", pemployee, pEmployeeattendence, pEmpAttendanceAllowanceDeductions where eEmpID = emhempID and"
           " eCompanyID = 1 and eaEmpID = emhempID and eacompanyid = 1 and eaCancelled = 0 and eaadAttendanceID ="
           " eaid and eaadCompanyID = 1 and eaadAllowanceID = 3 and hrsofWork >= 1 and eaadDate between"
           " '2026/04/01' and '2026/04/30'" +
           live + " group by emhempID, eBasic, hrsofWork) hours"},
      {"provident fund by its formula",
       "select sum(eddamount)" + entries +
           ", pemployeeDeductiondetail where eddid = emhID and eddcompanyid = emhCompanyID and eddType = 'D' and"
           " edddeductionid = 1" +
           live,
       "select sum(round(eBasic * 0.12, 2))" + entries +
           ", pempdeductions, pemployee where edempid = emhempID and edcompanyid = 1 and eddeductionid = 1 and"
           " eEmpID = emhempID and eCompanyID = 1" +
           live},
      {"loan instalments",
       "select sum(eddamount)" + entries +
           ", pemployeeDeductiondetail where eddid = emhID and eddcompanyid = emhCompanyID and eddType = 'L'" +
           live,
       "select sum(case when liCurrentBalance < liInstallmentAmount then liCurrentBalance else"
       " liInstallmentAmount end)" +
           entries +
           ", pLoansIssue where liEmpID = emhempID and liCompanyID = 1 and liActive = 1 and licancelled = 0 and"
           " liDeductionMode = 1" +
           live},
      {"the fee that the rewritten entries got",
       "select sum(eddamount)" + entries +
           ", pemployeeDeductiondetail where eddid = emhID and eddcompanyid = emhCompanyID and eddType = 'N'" +
           made,
       "select " + basic::numberText(clerk.fees * unionFee)},
  };
  for (const Sum& sum : sums) {
    SCOPED_TRACE(sum.what);
    EXPECT_GT(value(sum.stored), 0);
    EXPECT_NEAR(value(sum.stored), value(sum.masters), 0.001);
  }
  EXPECT_EQ(value("select count(*)" + entries +
                  " where emhCancelled = 1 and emhCancelledRemarks like '%:entered twice'"),
            clerk.cancelled);

  // The next month starts with everybody.
  MonthClerk next;
  next.onlyLooks = true;
  payroll.show(next, 5, 31);
  EXPECT_EQ(next.offered, value("select count(*) from pemployee where eCompanyID = 1 and eActive = 1"));
}

}  // namespace
}  // namespace payslate
