// The clerk at work on toy forms: what he does, what he sees, and how he gives up.
#include <gtest/gtest.h>

#include <optional>
#include <sstream>

#include "platform/scripted/ErrandRunner.h"
#include "platform/scripted/ScriptedDesktop.h"
#include "platform/scripted/ScriptedHands.h"
#include "tests/scripted/ToyForms.h"

namespace payslate::scripted {
namespace {

const std::string start = "session company 1 user 1 interface 1 year 2006 date 2006/04/30 title Toy\nshow\n";

/// Performs an errand on one fresh toy form; its first two lines are the session and the show.
class Performance {
 public:
  Performance() {
    stage.shows = [this] {
      form = std::make_shared<ToyForm>(desktop);
      form->load();
      form->Show();
    };
  }

  std::optional<Failure> perform(const std::string& text) {
    const Errand errand = Errand::parse(text, "toy.errand");
    ErrandRunner runner(errand, hands, stage, transcript);
    desktop.setClerk(&runner);
    runner.run();
    return runner.failure();
  }

  ScriptedDesktop desktop;
  ScriptedHands hands;
  ToyStage stage;
  std::ostringstream transcript;
  std::shared_ptr<ToyForm> form;
};

std::string told(const std::optional<Failure>& failure) {
  if (!failure) return "no failure";
  return std::to_string(failure->line) + " " + failure->expected + " / " + failure->found;
}

TEST(ErrandRunner, WorksThroughNestedFormsMessagesAndMenus) {
  Performance toy;
  toy.stage.answer = {{std::int64_t{1}, std::string("x"), basic::Null{}}};
  const auto failure = toy.perform("database setup.sql\n" + start +
                                   "expect form FRMTOY\n"
                                   "expect form.Caption = \"Toy form\"\n"
                                   "expect focus txtName\n"
                                   "type txtName ab\n"
                                   "type txtName c\n"
                                   "expect txtName.Text = abc\n"
                                   "replace txtName x\\y\n"
                                   "paste txtName z\n"
                                   "expect TXTNAME.text = x\\yz\n"
                                   "replace txtName \"\"\n"
                                   "expect txtName.Text = \"\"\n"
                                   "choose cboKind One\n"
                                   "expect cboKind.ItemData = 1\n"
                                   "date dtpDay 2006/05/01\n"
                                   "expect dtpDay.Value = 2006/05/01\n"
                                   "click chkPaid\n"
                                   "expect chkPaid.Value = 1\n"
                                   "click cmdPopup\n"
                                   "expect form frmPopup\n"
                                   "type txtAmount \"12\\n\"\n"
                                   "close\n"
                                   "sql what another user does\n"
                                   "expect sql select 1\n"
                                   "| 1.0 | x | NULL |\n"
                                   "expect sent 3\n"
                                   "message Close? answer escape\n"
                                   "sql while it asks\n"
                                   "message \"*lo*?\" style 36 title Toy answer no\n"
                                   "expect txtAmount.Text = 12\n"
                                   "click cmdOk\n"
                                   "message Close? answer yes\n"
                                   "expect form frmToy\n"
                                   "page tabPages Ticks\n"
                                   "expect list lvwTicks\n"
                                   "| TEXT | No |\n"
                                   "| \"  indented\" | 1 |\n"
                                   "| \"\" | 2 |\n"
                                   "tick lvwTicks 2\n"
                                   "rightclick lvwTicks 0\n"
                                   "menu none\n"
                                   "rightclick lvwTicks 1\n"
                                   "menu Add\n"
                                   "expect lvwTicks.ListCount = 3\n"
                                   "expect list grdRows\n"
                                   "| Name |\n"
                                   "expect not red grdRows 1\n"
                                   "click cmdFail\n"
                                   "message \"it broke\" answer escape\n"
                                   "close\n"
                                   "expect no form\n"
                                   "sql after the show\n");
  EXPECT_FALSE(failure) << told(failure) << "\n" << toy.transcript.str();
  EXPECT_EQ(toy.stage.said, (std::vector<std::string>{"file setup.sql", "Toy", "what another user does",
                                                      "while it asks", "after the show"}));
  EXPECT_TRUE(toy.form->lvwTicks.isChecked(1));
  EXPECT_EQ(toy.form->popupsDone, 1);
  // Depth shows in the transcript: the popup's lines stand to the right of its owner's.
  EXPECT_NE(toy.transcript.str().find("\n22\t    expect form frmPopup\n"), std::string::npos);
}

TEST(ErrandRunner, FailsAtTheFirstLineThatDoesNotHold) {
  const struct {
    std::string lines;  // line 3 is the first of them
    int line;
    std::string expected;
    std::string found;
  } cases[] = {
      {"expect txtName.Text = a", 3, "\"a\"", "\"\""},
      {"expect txtName.Colour = a", 3, "a property Colour", "TextBox"},
      {"expect form frmOther", 3, "frmOther in front", "frmToy"},
      {"expect no form", 3, "no form", "frmToy"},
      {"expect focus cboKind", 3, "focus on cboKind", "txtName"},
      {"expect red grdRows 1", 3, "row 1 red", "not red"},
      {"expect red grdRows 2", 3, "row 2 of grdRows", "1 row"},
      {"expect sent 2", 3, "2 statements", "3"},
      {"expect error broke", 3, "contains \"broke\"", "no show has returned"},
      {"close\nexpect error broke", 4, "contains \"broke\"", "raised none"},
      {"expect combo cboKind\n| Text |\n| \"One \" |\n| Three |", 3, "row 2, column Text: \"Three\"",
       "\"Two\""},
      {"expect combo cboKind\n| ItemData |\n| 1 |", 3, "1 row", "2 rows, next | 2 |"},
      {"expect list lvwTicks\n| No |\n| 1 |\n| 2 |\n| 3 |", 3, "3 rows", "2 rows"},
      {"expect list lvwTicks\n| Nr |", 3, "a column \"Nr\"", "\"No\", \"Text\""},
      {"expect list lvwTicks\n| Text |\n| indented |\n| \"\" |", 3, "column Text: \"indented\"",
       "\"  indented\""},
      {"expect list txtName\n| Nr |", 3, "a list", "TextBox"},
      {"click cmdNone", 3, "a control cmdNone", "frmToy"},
      {"click cmdOff", 3, "cmdOff within the clerk's reach", "disabled"},
      {"click lblTitle", 3, "lblTitle", "takes no input"},
      {"type txtBehind a", 3, "txtBehind", "hidden"},
      {"tick lvwTicks 1", 3, "lvwTicks", "hidden"},
      {"row grdRows 2", 3, "row 2 of grdRows", "1 row"},
      {"choose cboKind Three", 3, "an item \"Three\"", "\"One \", \"Two\""},
      {"page tabPages Third", 3, "a page \"Third\"", "\"Rows\""},
      {"date txtName 2006/01/01", 3, "date picker", "TextBox"},
      {"paste grdRows x", 3, "text box or a combo", "Grid"},
      {"type txtName stay\ntype cboKind x", 4, "the focus in cboKind", "txtName has it"},
      {"menu Add", 3, "menu Add", "no menu is open"},
      {"message x answer ok", 3, "message x answer ok", "no message box"},
      {"page tabPages Ticks\nrightclick lvwTicks 1\nmenu Gone", 5, "item \"Gone\"",
       "\"Add\", \"Off\" (disabled)"},
      {"page tabPages Ticks\nrightclick lvwTicks 1\nmenu Off", 5, "item \"Off\"", "(disabled)"},
      {"page tabPages Ticks\nrightclick lvwTicks 1\nclick cmdPopup", 5, "click cmdPopup", "a menu of"},
      {"click cmdFail\nexpect form frmToy", 4, "expect form frmToy", "a message box \"it broke\""},
      {"click cmdFail\nmessage \"it broke\" style 48 answer ok", 4, "style 48", "style 64"},
      {"click cmdFail\nmessage \"it broke\" title x answer ok", 4, "title x", "title \"\""},
      {"click cmdFail\nmessage \"it broke\" answer yes", 4, "answer yes", "OK alone"},
      {"click cmdFail", 3, "the end of the errand", "it broke"},
      {"click cmdPopup\nclose\nmessage Close? answer ok", 5, "answer ok", "Yes and No"},
      {"click cmdPopup\nclose\nmessage Close? answer escape\nclick cmdOk", 6, "click cmdOk", "Close?"},
      {"click cmdPopup\nclose\nsql bad", 5, "succeeds", "no such statement"},
      {"click cmdPopup\nexpect txtName.Text = \"\"", 4, "a control txtName", "frmPopup"},
      {"click cmdPopup\nclick cmdOk", 4, "the end of the errand", "Close?"},
      {"click cmdPopup", 3, "no form open at the end", "frmPopup"},
      {"show", 3, "no form open before show", "frmToy"},
      {"close\nclick cmdOk", 4, "a form in front", "no form is open"},
  };
  for (const auto& one : cases) {
    Performance toy;
    const auto failure = toy.perform(start + one.lines);
    ASSERT_TRUE(failure) << one.lines;
    EXPECT_EQ(failure->line, one.line) << one.lines;
    EXPECT_NE(failure->expected.find(one.expected), std::string::npos) << one.lines << ": " << told(failure);
    EXPECT_NE(failure->found.find(one.found), std::string::npos) << one.lines << ": " << told(failure);
    EXPECT_FALSE(toy.form->isLoaded()) << one.lines;
    EXPECT_TRUE(toy.desktop.shownForms().empty()) << one.lines;
  }
}

// After the failure nobody looks at the popup any more, though it refuses to close and asks; the lines behind
// are not performed and the first failure stays.
TEST(ErrandRunner, UnwindsFromAFormThatRefusesToClose) {
  Performance toy;
  const auto failure = toy.perform(start + "click cmdPopup\nexpect form frmToy\nsql never\nclose\n");
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->line, 4);
  EXPECT_EQ(failure->found, "frmPopup");
  EXPECT_EQ(toy.form->popupsDone, 1);
  EXPECT_FALSE(toy.form->popup->isLoaded());
  EXPECT_EQ(toy.stage.said, std::vector<std::string>{"Toy"});
}

TEST(ErrandRunner, AnErrorOfShowMustBeExpected) {
  Performance toy;
  toy.stage.shows = [] { throw std::runtime_error("Invalid table 'linkTable'."); };
  EXPECT_FALSE(
      toy.perform(start + "expect no form\nexpect error \"table 'link\"\nsql x\nexpect error Invalid\n"));
  const auto other = toy.perform(start + "expect error closed\n");
  ASSERT_TRUE(other);
  EXPECT_EQ(other->line, 3);
  for (const std::string rest : {"", "sql x\n", "show\n", "expect form frmToy\n"}) {
    const auto failure = toy.perform(start + rest);
    ASSERT_TRUE(failure) << rest;
    EXPECT_EQ(failure->line, 2) << rest;
    EXPECT_NE(failure->found.find("linkTable"), std::string::npos) << rest;
  }
  EXPECT_EQ(told(toy.perform("show\n")), "1 a session line before show / none");
}

TEST(ErrandRunner, ComparesRowsOfStatementsByValue) {
  using basic::Date;
  using basic::Decimal;
  using basic::Value;
  const struct {
    Value value;
    std::string cell;
    bool same;
  } cases[] = {
      {Decimal::parse("1500.00"), "1500", true},
      {Decimal::parse("12345678901234567890.1"), "12345678901234567890.2", false},
      {std::int64_t{1}, "1.0", true},
      {0.1 + 0.2, "0.3", true},
      {1e300, "1E+300", true},
      {true, "1", true},
      {std::string("0100"), "100", true},
      {std::string("a"), "A", false},
      {std::string("a "), "a", true},
      {std::string("a "), "\"a\"", false},
      {std::string(" a"), "a", false},
      {std::string(" a"), "\" a\"", true},
      {std::string(), "\"\"", true},
      {std::string(), "NULL", false},
      {std::string("NULL"), "\"NULL\"", true},
      {std::string("NULL"), "NULL", false},
      {basic::Null{}, "NULL", true},
      {basic::Null{}, "\"\"", false},
      {basic::Null{}, "0", false},
      {Date::fromCalendar(2006, 4, 30), "2006/04/30", true},
      {Date::fromCalendar(2006, 4, 30).plusDays(0.75), "2006/04/30 18:00:00", true},
      {Date::fromCalendar(2006, 4, 30).plusDays(0.75), "2006/04/30", false},
  };
  for (const auto& one : cases) {
    Performance toy;
    toy.stage.answer = {{one.value}};
    const auto failure = toy.perform("expect sql x\n| " + one.cell + " |");
    EXPECT_EQ(!failure, one.same) << one.cell << ": " << told(failure);
  }
  Performance toy;
  toy.stage.answer = {{Value(std::int64_t{1}), Value(std::string("b"))}};
  EXPECT_EQ(told(toy.perform("expect sql x")), "1 0 rows / 1 row, next | 1 | b |");
  EXPECT_EQ(told(toy.perform("expect sql x\n| 1 |")), "1 rows of 1 column / 2 columns: | 1 | b |");
  EXPECT_EQ(told(toy.perform("expect sql x\n| 1 | b |\n| 2 | c |")), "1 2 rows / 1 row");
}

}  // namespace
}  // namespace payslate::scripted
