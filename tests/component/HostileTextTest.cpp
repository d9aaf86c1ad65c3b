// Texts that look like statements, typed wherever a clerk can type and stored wherever the payroll has names:
// nothing runs that was not meant, and what is stored is the text.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/basic/Unicode.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Form.h"
#include "platform/ui/ListView.h"
#include "platform/ui/TabControl.h"
#include "platform/ui/TextBox.h"
#include "tests/component/DemoPayroll.h"

namespace payslate {
namespace {

// Every text has it, and no statement of the component.
constexpr std::string_view mark = "zqx";

const std::vector<std::u32string>& hostileTexts() {
  using namespace std::string_literals;
  static const std::vector<std::u32string> all{
      U"zqx'; delete from pusers; --",
      U"zqx' or '1'='1",
      U"zqx\"]); drop table pusers /* ",
      U"*/ zqx -- \\'",
      U"zqx\u2019\u02BC\uFF07\u2032\u00B4` or 1=1",
      U"zqx\0'; delete from pusers\x01\t\r\n\x7F\x85\u2028\u202E\uFEFF"s,
      U"zqx"s + char32_t{0xDC27} + U"; delete from pusers --" + char32_t{0xD800},  // halves of characters
      U"zqx%_[^a]{employee}?{fn now()}:1 @@version",
      U"zqx" + std::u32string(600, U'a'),
      U"zqx '" + std::u32string(1U << 20U, U'x'),
  };
  return all;
}

std::string doubled(std::string text) {
  for (std::size_t at = text.find('\''); at != std::string::npos; at = text.find('\'', at + 2))
    text.insert(at, 1, '\'');
  return text;
}

// Every row of every table.
using Picture = std::map<std::string, std::multiset<std::string>>;

Picture pictureOf(ado::Connection& connection) {
  Picture picture;
  std::vector<std::string> tables;
  for (ado::Recordset names = connection.Execute("select TABLE_NAME from INFORMATION_SCHEMA.TABLES");
       !names.Eof(); names.MoveNext())
    tables.push_back(names.Fields(0).Text());
  for (const std::string& table : tables) {
    ado::Recordset rows = connection.Execute("select * from " + table);
    for (; !rows.Eof(); rows.MoveNext()) {
      std::string row;
      for (std::size_t i = 0; i < rows.FieldCount(); ++i) row += rows.Fields(i).Text() + "|";
      picture[table].insert(row);
    }
  }
  return picture;
}

// What is in `one` and not in `other`.
Picture missing(const Picture& one, const Picture& other) {
  Picture found;
  for (const auto& [table, rows] : one) {
    const auto there = other.find(table);
    const std::multiset<std::string> others = there == other.end() ? decltype(others)() : there->second;
    std::multiset<std::string> gone;
    std::set_difference(rows.begin(), rows.end(), others.begin(), others.end(),
                        std::inserter(gone, gone.end()));
    if (!gone.empty()) found[table] = gone;
  }
  return found;
}

/// Types and pastes the text wherever it can, goes on with OK, and cancels the entry that it stored.
class HostileClerk : public ui::Clerk {
 public:
  HostileClerk(std::u32string text, std::vector<std::string> buttons)
      : text_(std::move(text)), buttons_(std::move(buttons)) {}

  void attend(ui::Form& form) override {
    if (form.Name() == "FrmMaster") {
      fill(form);
      for (const std::string& button : buttons_) form.input().click(*form.control(button));
      form.input().click(*form.control("CmdClose"));
      return;
    }
    if (form.Name() == "frmpayslate") fillMonth(form);
    fill(form);
    if (form.Name() == "frmCancel")
      reasons.push_back(form.control("txtcanreason")->propertyText("Text").value());
    form.input().click(*form.control("cmdOk"));
    if (form.isLoaded()) form.abandon();
  }

  ui::Answer answer(const ui::Message& message) override {
    titles.insert(message.title);
    said.insert(message.text);
    return message.asksYesNo() ? ui::Answer::Yes : ui::Answer::Ok;
  }

  ui::MenuItem* pick(ui::Form&, const ui::PopupMenu& menu) override { return menu.items().front(); }

  std::vector<std::string> reasons;
  std::set<std::string> titles;
  std::set<std::string> said;
  std::set<std::string> boxes;  ///< That were typed in.

 private:
  void fillMonth(ui::Form& form) {
    auto& employees = dynamic_cast<ui::ComboBox&>(*form.control("cboEmpname"));
    fill(form);
    for (int index = 0; index < employees.ListCount(); ++index) {
      form.input().choose(employees, index);
      if (dynamic_cast<ui::ListView&>(*form.control("lvwDeduct")).rowCount() > 0) break;
    }
    employeeKnown_ = true;
    for (const auto& [page, list] : {std::pair{0, "lvwAllow"}, {1, "lvwDeduct"}, {3, "lvwfacility"}}) {
      dynamic_cast<ui::TabControl&>(*form.control("tabpayslate")).Tab = page;
      form.input().clickRow(dynamic_cast<ui::RowControl&>(*form.control(list)), 0, ui::MouseButton::Right);
      form.input().doubleClickRow(dynamic_cast<ui::RowControl&>(*form.control(list)), 0);
    }
  }

  void fill(ui::Form& form) {
    for (ui::Control* control : form.Controls()) {
      const bool isText = dynamic_cast<ui::TextBox*>(control) != nullptr;
      const bool isCombo = dynamic_cast<ui::ComboBox*>(control) != nullptr;
      if (!isText && (!isCombo || (employeeKnown_ && control->Name() == "cboEmpname"))) continue;
      if (!form.input().focus(*control)) continue;
      boxes.insert(form.Name() + "." + control->Name());
      form.input().key({'A', ui::Shift::Ctrl, 0});
      form.input().paste(text_);
      if (text_.size() < 1000) form.input().type(text_);
    }
  }

  std::u32string text_;
  std::vector<std::string> buttons_;  // Of the list.
  bool employeeKnown_ = false;
};

class HostileText : public testing::Test {
 protected:
  HostileText() {
    payroll.connection->StatementSent = [this](std::string_view statement) {
      if (statement.find(mark) != std::string_view::npos) marked.emplace_back(statement);
    };
  }

  void set(const std::string& table, const std::string& column, const std::string& text,
           const std::string& where = "1 = 1") {
    payroll.connection->Execute("update " + table + " set " + column + " = '" + doubled(text) + "' where " +
                                where);
    marked.clear();
  }
  std::string valueOf(const std::string& statement) {
    return payroll.connection->Execute(statement).Fields(0).Text();
  }

  /// Lets the clerk work. Rows of entries may have come, and nothing else.
  void work(HostileClerk& clerk, const std::string& title) {
    const Picture before = pictureOf(*payroll.connection);
    try {
      payroll.show(clerk, 4, 30, title);
    } catch (const ado::Error& error) {
      clerk.said.insert(error.Description);
    }
    const Picture after = pictureOf(*payroll.connection);
    EXPECT_EQ(missing(before, after), Picture());
    const std::set<std::string> ofEntries{"pempmonthlyentryheader",      "pemployeeallowancedetail",
                                          "pemployeeDeductiondetail",    "pEmployeeCurrentDetails",
                                          "pempfacilitydeductiondetail", "pEntryJournal"};
    for (const auto& [table, rows] : missing(after, before)) EXPECT_TRUE(ofEntries.contains(table)) << table;
  }

  DemoPayroll payroll;
  std::vector<std::string> marked;  // Statements that hold a hostile text.
};

TEST_F(HostileText, ThatIsTypedOrANameStaysText) {
  const std::pair<const char*, const char*> names[] = {
      {"pemployee", "eName"},          {"pDepartment", "DepartmentName"},     {"pusers", "username"},
      {"pAllowances", "aDescription"}, {"pDeductions", "dDescription"},       {"ploans", "lDescription"},
      {"psavings", "sDescription"},    {"pFacilityMaster", "fmFacilityName"}, {"pleaves", "lDescription"}};
  std::set<std::string> boxes;
  for (const std::u32string& text : hostileTexts()) {
    std::string name = basic::encoded(text.substr(0, 60));
    SCOPED_TRACE(name);
    std::erase(name, '\0');
    for (const auto& [table, column] : names) set(table, column, name);
    set("pCurrencyMaster", "Symbol", name.substr(0, 6));
    HostileClerk clerk(text, {"cmdnew", "CmdEdit", "CmdDelete"});
    work(clerk, basic::encoded(text));
    EXPECT_EQ(clerk.titles, std::set{basic::encoded(text)});
    boxes.insert(clerk.boxes.begin(), clerk.boxes.end());

    ASSERT_EQ(clerk.reasons.size(), 1U);
    EXPECT_EQ(clerk.reasons[0].find_first_of("'\""), std::string::npos);
    const std::string remark = basic::Trim(name) + ":" + basic::Trim(clerk.reasons[0]);
    const std::string id = valueOf("select max(emhID) from pempmonthlyentryheader");
    EXPECT_EQ(marked, std::vector{"update pempmonthlyentryheader set emhCancelled=1,emhCancelledRemarks='" +
                                  doubled(remark) + "' where emhID='" + id + "' and emhCompanyID=1"});
    const bool fits = basic::characterCount(remark) <= 500;
    EXPECT_EQ(valueOf("select emhCancelledRemarks from pempmonthlyentryheader where emhID = " + id),
              fits ? remark : "");
    const auto refusal = [](const std::string& said) { return said.find(" long") != std::string::npos; };
    EXPECT_EQ(std::any_of(clerk.said.begin(), clerk.said.end(), refusal), !fits);
  }
  EXPECT_EQ(boxes.size(), 20U) << testing::PrintToString(boxes);
}

TEST_F(HostileText, ThatIsPartOfAStatementRunsNoOther) {
  const struct {
    const char* table;
    const char* column;
    const char* where;
    std::vector<std::string> buttons;
    std::vector<std::string> texts;
  } cases[] = {
      {"linkTable",
       "linktablename",
       "tablename = 'pempfacilitydeductiondetail'",
       {"cmdnew", "CmdDelete"},
       {"pempfacilitydeductiondetail --", "pempfacilitydeductiondetail;delete from pusers",
        "[pempfacilitydeductiondetail] where 1=1/*"}},
      {"linkTable",
       "linktablename",
       "tablename = 'pusers'",
       {"cmdnew", "CmdDelete"},
       {"pusers --", "pusers union select '1'"}},
      {"pPrefix", "Prefix", "CompanyID = 1", {"cmdnew"}, {"';drop --", "') --", "'or 1=1--"}},
      {"pformula",
       "fFormulaName",
       "1 = 1",
       {"cmdnew"},
       {"1; delete from pusers", "1 delete from pusers", "1 from pusers /*"}},
  };
  for (const auto& one : cases) {
    const std::string before =
        valueOf(std::string("select ") + one.column + " from " + one.table + " where " + one.where);
    for (const std::string& text : one.texts) {
      SCOPED_TRACE(text);
      set(one.table, one.column, text, one.where);
      HostileClerk clerk(U"so", one.buttons);
      work(clerk, "Payroll");
      EXPECT_EQ(
          testing::PrintToString(clerk.said).find("which is not the name of a table") != std::string::npos,
          one.column == std::string("linktablename"));
    }
    set(one.table, one.column, before, one.where);
  }
}

}  // namespace
}  // namespace payslate
