// Clerks who enter, rewrite and cancel entries for as long as they are told, and runs that enter the same
// month for everybody, each a process of its own on one database.
//
//   payslate_soak work CONNECT CLERK CLERKS LEFT SECONDS
//       clerk number CLERK, from 0, of CLERKS, each with employees of his own; the last LEFT are left to the
//       runs
//   payslate_soak month CONNECT SECONDS
//       one run after the other
//   payslate_soak check CONNECT
//       does the month add up?
#include <array>
#include <chrono>
#include <cmath>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/ComponentStage.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/scripted/ScriptedDesktop.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Form.h"
#include "platform/ui/Grid.h"
#include "platform/ui/TextBox.h"
#include "tests/component/MonthSums.h"

namespace payslate {
namespace {

// 118 and 119 have an April entry already.
constexpr const char* newEntries =
    " and emhCompanyID = 1 and emhDate = '2026/04/30' and emhempID not in (118, 119)";
constexpr int mostPresses = 200;
// Two sentences begin so: for the month, when he is chosen, and for the period, when he is stored.
constexpr const char* enteredAlready = "employee has an entry for ";
constexpr const char* othersInTheWay = "Another user";
constexpr int cancelledOfEvery = 4;

struct Employee {
  std::string id;
  std::string name;
};

double number(ado::Connection& connection, const std::string& statement) {
  ado::Recordset rows = connection.Execute(statement);
  const basic::Value value = rows.Fields(0).Value();
  return basic::isNull(value) ? 0 : basic::CDbl(value);
}

clspayslate monthOf(ui::Desktop& desktop, const std::shared_ptr<ado::Connection>& connection) {
  return host::makeComponent(desktop, connection,
                             {1, 1, 40001, 2026, basic::Date::fromCalendar(2026, 4, 30), "Payroll"});
}

/// Does one thing with one employee, and presses OK until the database takes it, or a run has entered him.
class SoakClerk : public ui::Clerk {
 public:
  enum class Wish { Enter, Rewrite, Cancel };

  int done = 0;
  int refused = 0;
  int forestalled = 0;

  explicit SoakClerk(std::shared_ptr<ado::Connection> connection) : connection_(std::move(connection)) {}

  void perform(Wish wish, const Employee& employee) {
    wish_ = wish;
    lastMessage_.clear();
    employee_ = employee;
    scripted::ScriptedDesktop desktop;
    desktop.setClerk(this);
    monthOf(desktop, connection_).Show();
  }

  void attend(ui::Form& form) override {
    if (form.Name() == "FrmMaster") return workOnList(form);
    ui::Control& ok = *form.control("cmdOk");
    if (form.Name() == "frmCancel") {
      dynamic_cast<ui::TextBox&>(*form.control("txtcanreason")).Text = "soaked";
      return press(form, ok);
    }
    if (wish_ == Wish::Enter) {
      auto& employees = dynamic_cast<ui::ComboBox&>(*form.control("cboEmpname"));
      int index = 0;
      while (index < employees.ListCount() && employees.List(index) != employee_.name) ++index;
      if (index == employees.ListCount()) return yield(form);
      form.input().choose(employees, index);
    } else {
      form.input().click(*form.control("chkHold"));
    }
    press(form, ok);
  }

  ui::Answer answer(const ui::Message& message) override {
    lastMessage_ = message.text;
    return !message.asksYesNo()              ? ui::Answer::Ok
           : message.text == "Save Changes?" ? ui::Answer::No
                                             : ui::Answer::Yes;
  }
  ui::MenuItem* pick(ui::Form&, const ui::PopupMenu&) override { return nullptr; }

 private:
  void press(ui::Form& form, ui::Control& ok) {
    for (int presses = 0; form.isLoaded() && presses < mostPresses; ++presses) {
      form.input().click(ok);
      if (!form.isLoaded()) break;
      if (wish_ == Wish::Enter && lastMessage_.find(enteredAlready) != std::string::npos) return yield(form);
      ++refused;
      if (lastMessage_.find(othersInTheWay) == std::string::npos) break;
    }
    if (form.isLoaded()) throw std::runtime_error(employee_.name + " cannot be stored: " + lastMessage_);
    ++done;
  }

  void yield(ui::Form& form) {
    if (liveEntry().empty()) throw std::runtime_error(employee_.name + " is not offered: " + lastMessage_);
    ++forestalled;
    form.abandon();
  }

  [[nodiscard]] std::string liveEntry() const {
    ado::Recordset rows = connection_->Execute(
        "select emhID from pempmonthlyentryheader where emhCancelled = 0 and emhempID = " + employee_.id +
        newEntries);
    return rows.Eof() ? "" : rows.Fields(0).Text();
  }

  void workOnList(ui::Form& list) {
    auto& grid = dynamic_cast<ui::Grid&>(*list.control("flexMaster"));
    if (wish_ == Wish::Enter) {
      list.input().click(*list.control("cmdnew"));
    } else {
      list.input().clickRow(grid, rowOf(grid));
      list.input().click(*list.control(wish_ == Wish::Rewrite ? "CmdEdit" : "CmdDelete"));
    }
    list.input().click(*list.control("CmdClose"));
  }

  // The row of the employee's live entry, counted from 0 without the headings.
  int rowOf(const ui::Grid& grid) const {
    const std::string id = liveEntry();
    for (int row = 1; row < grid.Rows(); ++row)
      for (int column = 0; column < grid.Cols(); ++column)
        if (grid.TextMatrix(row, column) == id && column == 0) return row - 1;
    throw std::runtime_error("the list does not show entry " + id + " of " + employee_.name);
  }

  std::shared_ptr<ado::Connection> connection_;
  Wish wish_ = Wish::Enter;
  Employee employee_;
  std::string lastMessage_;
};

// Everybody who can be entered: those with one sheet, for the whole month, who are paid in the company's
// currency.
std::vector<Employee> employees(ado::Connection& connection) {
  ado::Recordset rows = connection.Execute(
      "select eEmpID, eName from pemployee, pEmployeeattendence where eCompanyID = 1 and eActive = 1 and eCurrencyID = 1"
      " and eDateofJoin <= '2026/04/01' and eacompanyid = 1 and eaEmpID = eEmpID and eaCancelled = 0 and eaStartDate ="
      " '2026/04/01' and eaEndDate = '2026/04/30' and eEmpID not in (118, 119) and (select count(*) from"
      " pEmployeeattendence s where s.eacompanyid = 1 and s.eaEmpID = eEmpID and s.eaCancelled = 0 and s.eaEndDate >="
      " '2026/04/01') = 1 order by eEmpID");
  std::vector<Employee> found;
  for (; !rows.Eof(); rows.MoveNext()) found.push_back({rows.Fields(0).Text(), rows.Fields(1).Text()});
  return found;
}

int work(const std::string& connect, std::size_t clerk, std::size_t clerks, std::size_t left, int seconds) {
  const auto connection = std::make_shared<ado::Connection>();
  connection->Open(connect);
  SoakClerk soak(connection);
  std::vector<Employee> own;
  const std::vector<Employee> all = employees(*connection);
  for (std::size_t i = clerk; i + left < all.size(); i += clerks) own.push_back(all[i]);
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
  std::set<std::string> entered;
  for (int round = 0; std::chrono::steady_clock::now() < end; ++round) {
    const Employee& employee = own[static_cast<std::size_t>(round) % own.size()];
    if (entered.insert(employee.id).second) {
      soak.perform(SoakClerk::Wish::Enter, employee);
    } else if (round % cancelledOfEvery == 0) {
      soak.perform(SoakClerk::Wish::Cancel, employee);
      entered.erase(employee.id);
    } else {
      soak.perform(SoakClerk::Wish::Rewrite, employee);
    }
  }
  for (const Employee& employee : own)
    if (entered.insert(employee.id).second) soak.perform(SoakClerk::Wish::Enter, employee);
  std::cout << "Clerk " << clerk << ": " << soak.done << " entries stored, OK pressed again " << soak.refused
            << " times, " << soak.forestalled << " entered by a run first.\n";
  return 0;
}

int runMonths(const std::string& connect, int seconds) {
  const auto connection = std::make_shared<ado::Connection>();
  connection->Open(connect);
  MonthOptions options;
  for (const Employee& employee : employees(*connection)) options.employees.push_back(std::stoi(employee.id));
  std::map<std::string, int> reasons;
  int stored = 0;
  int runs = 0;
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
  for (; std::chrono::steady_clock::now() < end; ++runs) {
    scripted::ScriptedDesktop desktop;
    const MonthReport report = monthOf(desktop, connection).EnterMonth(options);
    if (report.count(MonthResult::Failed) + report.count(MonthResult::NotReached) > 0)
      throw std::runtime_error("A run has failed to store somebody.");
    if (report.lines.size() != options.employees.size()) throw std::runtime_error("A run has lost somebody.");
    for (const MonthLine& line : report.lines) {
      const std::string id = std::to_string(line.employeeId);
      // There is something to look at where somebody else has just paid out the same balance.
      if (line.result != MonthResult::Stored) {
        ++reasons[line.reasons.at(0).substr(0, line.reasons.at(0).find(':'))];
      } else if (++stored;
                 number(*connection, "select count(*) from pempmonthlyentryheader where emhempID = " + id +
                                         " and emhNo = '" + line.entry + "'") != 1) {
        throw std::runtime_error("Entry " + line.entry + " of employee " + id + " is not there.");
      }
    }
  }
  std::cout << runs << " month runs: " << stored << " entries stored.\n";
  for (const auto& [reason, times] : reasons)
    std::cout << "  not stored " << times << " times: " << reason << '\n';
  return 0;
}

int check(const std::string& connect) {
  ado::Connection connection;
  connection.Open(connect);
  const std::string live = std::string(newEntries) + " and emhCancelled = 0";
  int faults = 0;
  const auto expect = [&](const std::string& what, double found, double wanted) {
    constexpr double halfCent = 0.005;
    const bool holds = std::abs(found - wanted) < halfCent;
    std::cout << (holds ? "holds: " : "WRONG: ") << what << ": " << basic::numberText(found) << " of "
              << basic::numberText(wanted) << '\n';
    faults += holds ? 0 : 1;
  };
  const std::string headers = "select count(*) from pempmonthlyentryheader where 1 = 1";
  expect("live entries", number(connection, headers + live),
         static_cast<double>(employees(connection).size()));
  expect("numbers that are there twice",
         number(connection,
                "select count(*) - count(distinct emhNo) from pempmonthlyentryheader where emhCompanyID = 1"),
         0);
  expect("second live entries of an employee",
         number(connection,
                "select count(*) - count(distinct emhempID) from pempmonthlyentryheader where 1 = 1" + live),
         0);
  for (const auto& [table, company, id] :
       {std::array{"pemployeeallowancedetail", "eadcompanyid", "eadid"},
        std::array{"pemployeeDeductiondetail", "eddcompanyid", "eddid"},
        std::array{"pempfacilitydeductiondetail", "efdcompanyid", "efdid"},
        std::array{"pEmployeeCurrentDetails", "ecdCompanyID", "ecdPaySlateID"}})
    expect(std::string("rows of ") + table + " without a header",
           number(connection,
                  std::string("select count(*) from ") + table + " where " + company + " = 1 and " + id +
                      " not in (select emhID from pempmonthlyentryheader where emhCompanyID = 1)"),
           0);
  for (const MonthSum& sum : monthSums(live))
    expect(sum.what, number(connection, sum.stored), number(connection, sum.masters));
  return faults == 0 ? 0 : 1;
}

}  // namespace
}  // namespace payslate

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  try {
    if (words.size() == 6 && words[0] == "work")
      return payslate::work(words[1], std::stoul(words[2]), std::stoul(words[3]), std::stoul(words[4]),
                            std::stoi(words[5]));
    if (words.size() == 3 && words[0] == "month") return payslate::runMonths(words[1], std::stoi(words[2]));
    if (words.size() == 2 && words[0] == "check") return payslate::check(words[1]);
    std::cerr
        << "Usage: payslate_soak work CONNECT CLERK CLERKS LEFT SECONDS | month CONNECT SECONDS | check CONNECT\n";
  } catch (const std::exception& error) {
    std::cerr << "payslate_soak: " << error.what() << '\n';
  }
  return 2;
}
