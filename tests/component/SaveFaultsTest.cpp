// A save that the database breaks off, at every single request: nothing of it is stored, and the form keeps
// all.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Form.h"
#include "platform/ui/ListView.h"
#include "tests/ado/ForwardingProvider.h"
#include "tests/component/DemoPayroll.h"

namespace payslate {
namespace {

constexpr const char* faultyPrefix = "faulty:";
constexpr const char* faultText = "The line was cut.";

// Requests to the database are counted; the one with this number fails.
struct Faults {
  int seen = 0;
  int failing = 0;

  void request() {
    if (++seen == failing) throw ado::Error(faultText, "08S01");
  }
};

Faults faults;

class FaultyProvider : public ado::ForwardingProvider {
 public:
  using ForwardingProvider::ForwardingProvider;

  std::unique_ptr<ado::Cursor> execute(std::string_view statement) override {
    faults.request();
    return ForwardingProvider::execute(statement);
  }
  void begin() override {
    faults.request();
    ForwardingProvider::begin();
  }
  void commit() override {
    faults.request();
    ForwardingProvider::commit();
  }
  void insert(const std::string& table, const std::vector<ado::Assignment>& row) override {
    faults.request();
    ForwardingProvider::insert(table, row);
  }
  void update(const std::string& table, const std::vector<ado::Assignment>& key,
              const std::vector<ado::Assignment>& row) override {
    faults.request();
    ForwardingProvider::update(table, key, row);
  }
};

// Everything of a form that a clerk can have typed or loaded.
std::vector<std::string> contents(const ui::Form& form) {
  std::vector<std::string> texts;
  for (const ui::Control* control : form.Controls()) {
    texts.push_back(control->propertyText("Text").value_or("") + control->propertyText("Value").value_or(""));
    if (const auto* list = dynamic_cast<const ui::ListView*>(control))
      for (const auto& row : list->rows())
        for (const std::string& cell : row.cells) texts.push_back(cell);
  }
  return texts;
}

// New, the first employee whose month can be loaded, OK; then away without saving.
class SavingClerk : public ui::Clerk {
 public:
  int failingRequest = 0;
  int requestsOfSave = 0;
  bool formStayedOpen = false;
  bool contentsKept = false;
  bool canSaveAgain = false;
  std::vector<std::string> messages;

  void attend(ui::Form& form) override {
    if (form.Name() == "FrmMaster") {
      form.input().click(*form.control("cmdnew"));
      form.input().click(*form.control("CmdClose"));
      return;
    }
    chooseEmployee(form);
    const std::vector<std::string> before = contents(form);
    messages.clear();
    faults = {0, failingRequest};
    form.input().click(*form.control("cmdOk"));
    requestsOfSave = faults.seen;
    faults = {};
    formStayedOpen = form.isLoaded();
    if (!formStayedOpen) return;
    contentsKept = contents(form) == before;
    canSaveAgain = form.control("cmdOk")->Enabled();
    form.input().close();
  }

  ui::Answer answer(const ui::Message& message) override {
    messages.push_back(message.text);
    return message.asksYesNo() ? ui::Answer::No : ui::Answer::Ok;
  }

  ui::MenuItem* pick(ui::Form&, const ui::PopupMenu&) override { return nullptr; }

 private:
  void chooseEmployee(ui::Form& form) {
    auto& employees = dynamic_cast<ui::ComboBox&>(*form.control("cboEmpname"));
    const auto& deductions = dynamic_cast<ui::ListView&>(*form.control("lvwDeduct"));
    for (int index = 0; index < employees.ListCount(); ++index) {
      form.input().choose(employees, index);
      if (employees.ListIndex() == index && deductions.rowCount() > 0) return;
    }
    FAIL() << "no employee of the demo company can be entered";
  }
};

class SaveFaults : public ::testing::Test {
 protected:
  SaveFaults() {
    ado::registerProvider({"faulty",
                           [](std::string_view connection) { return connection.starts_with(faultyPrefix); },
                           [](const std::string& connection) {
                             return std::make_unique<FaultyProvider>(
                                 ado::openProvider(connection.substr(std::string(faultyPrefix).size())));
                           }});
    payroll_.emplace(std::string(faultyPrefix) + ":memory:");
  }

  double count(const std::string& what) { return payroll_->value("select count(*) from " + what); }

  std::vector<double> storedRows() {
    std::vector<double> counts;
    for (const char* table :
         {"pempmonthlyentryheader", "pemployeeallowancedetail", "pemployeeDeductiondetail",
          "pEmployeeCurrentDetails", "pempfacilitydeductiondetail"})
      counts.push_back(count(table));
    return counts;
  }

  SavingClerk enter(int failingRequest) {
    SavingClerk clerk;
    clerk.failingRequest = failingRequest;
    payroll_->show(clerk);
    return clerk;
  }

  std::optional<DemoPayroll> payroll_;
};

TEST_F(SaveFaults, EveryRequestOfASaveCanFailWithoutATrace) {
  const std::vector<double> before = storedRows();
  // Each refused save leaves the employee to be entered; the first request that does not exist stores the
  // entry.
  int request = 1;
  for (SavingClerk clerk = enter(request); !clerk.messages.empty(); clerk = enter(++request)) {
    SCOPED_TRACE("request " + std::to_string(request));
    ASSERT_EQ(clerk.messages.front(), faultText);
    ASSERT_TRUE(clerk.formStayedOpen);
    EXPECT_TRUE(clerk.contentsKept);
    const bool stored = storedRows() != before;
    EXPECT_EQ(clerk.canSaveAgain, !stored);
    if (stored) break;  // Only the list's refresh is left after the commit.
  }
  EXPECT_GT(request, 8);
  EXPECT_EQ(count("pempmonthlyentryheader"), before.front() + 1);
}

}  // namespace
}  // namespace payslate
