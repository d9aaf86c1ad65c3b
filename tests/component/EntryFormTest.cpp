// The entry form without a list of entries, under a session of its own, on a desktop without a screen.
#include <gtest/gtest.h>

#include "entry/frmpayslate.h"
#include "platform/ado/Error.h"
#include "tests/component/DemoPayroll.h"

namespace payslate {
namespace {

/// Takes note of what is said, and agrees with nothing.
class NotingClerk : public ui::Clerk {
 public:
  void attend(ui::Form& form) override { form.abandon(); }
  ui::Answer answer(const ui::Message& message) override {
    said = message.text;
    return message.asksYesNo() ? ui::Answer::No : ui::Answer::Ok;
  }
  ui::MenuItem* pick(ui::Form&, const ui::PopupMenu&) override { return nullptr; }
  std::string said;
};

class EntryForm : public ::testing::Test {
 protected:
  EntryForm() {
    desktop.setClerk(&clerk);
    bas.desktop(desktop);
    bas.adocon(payroll.connection);
    bas.intCompanyID = 1;
    bas.intUserID = 1;
    bas.intInterfaceID = 40001;
    bas.intfinancialid = 2026;
    bas.ProcessDate = basic::Date::fromCalendar(2026, 4, 30);
    bas.TableLinks.load(*payroll.connection);
  }

  std::shared_ptr<frmpayslate> newEntry() {
    bas.strMode = EntryMode::New;
    auto form = std::make_shared<frmpayslate>(bas);
    form->load();
    return form;
  }

  static void choose(frmpayslate& form, std::int32_t employeeId) {
    for (int index = 0; index < form.cboEmpname.ListCount(); ++index)
      if (form.cboEmpname.ItemData(index) == employeeId) return form.input().choose(form.cboEmpname, index);
    FAIL() << "employee " << employeeId << " is not offered";
  }

  DemoPayroll payroll;
  NotingClerk clerk;
  scripted::ScriptedDesktop desktop;
  BasPaySlate bas;
};

TEST_F(EntryForm, SaysWhetherItHoldsTheMonthAndWhyNot) {
  const auto form = newEntry();
  const struct {
    std::int32_t employee;
    const char* why;  // the last message too
  } cases[] = {
      {102, ""},
      {140, "Employee's Date of Join is greater than enddate"},
      {141, "Attendance not entered for the above period, can't proceed"},
      {142, "Attendance not entered, monthlyentry can't proceed"},
      {101, ""},
  };
  EXPECT_FALSE(form->monthIsWhole());
  for (const auto& one : cases) {
    clerk.said.clear();
    choose(*form, one.employee);
    EXPECT_EQ(form->monthIsWhole(), clerk.said.empty()) << one.employee;
    EXPECT_EQ(form->whyNotWhole(), one.why);
    EXPECT_EQ(clerk.said, one.why);
  }
  // A statement that fails, and a selection that goes without a click.
  payroll.connection->Execute("update pformula set fFormulaName = 'no such word'");
  EXPECT_THROW(form->cboEmpname.Click.raise(), ado::Error);
  EXPECT_FALSE(form->monthIsWhole());
  EXPECT_NE(form->whyNotWhole().find("select NOSUCHWORD"), std::string::npos) << form->whyNotWhole();
  payroll.connection->Execute("update pformula set fFormulaName = '1'");
  choose(*form, 103);
  EXPECT_TRUE(form->monthIsWhole()) << form->whyNotWhole();
  form->cboEmpname.setText("somebody");
  EXPECT_FALSE(form->monthIsWhole());
  form->cmdOk.Click.raise();
  EXPECT_EQ(clerk.said, "select Employee");
}

TEST_F(EntryForm, StoresAndOpensWithoutAList) {
  auto form = newEntry();
  choose(*form, 101);
  const std::string basicPay = form->txtBasicPay.Text();
  form->cmdOk.Click.raise();
  EXPECT_FALSE(form->isLoaded()) << clerk.said;
  const auto id = static_cast<std::int32_t>(payroll.value("select max(emhID) from pempmonthlyentryheader"));

  const ListedEntry listed{id, bas.ProcessDate, false};
  form = std::make_shared<frmpayslate>(bas);
  form->openStored(listed);
  EXPECT_TRUE(form->monthIsWhole());
  EXPECT_EQ(basic::Val(form->txtBasicPay.Text()), basic::Val(basicPay));
  EXPECT_GT(form->lvwDeduct.rowCount(), 3);
  form->cmdOk.Click.raise();
  EXPECT_FALSE(form->isLoaded()) << clerk.said;
  EXPECT_EQ(payroll.value("select max(emhID) from pempmonthlyentryheader"), id);

  form = newEntry();
  EXPECT_THROW(std::make_shared<frmpayslate>(bas)->openStored({id + 1, bas.ProcessDate, false}), ado::Error);
}

}  // namespace
}  // namespace payslate
