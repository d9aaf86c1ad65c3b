// Reading errands: what every kind of line becomes, and how each kind of mistake is told.
#include <gtest/gtest.h>

#include "platform/scripted/Errand.h"
#include "platform/scripted/Seeing.h"

namespace payslate::scripted {
namespace {

TEST(Errand, ReadsEveryPartOfItsInstructions) {
  const Errand errand = Errand::parse(
      "\xEF\xBB\xBF# a comment\r\n"
      "\r\n"
      "  type txtName \"a \\\"b\\\" \\\\ \\t\\r\\n#\"\r\n"
      "message \"* is \\\"x\\\"\" style 68 title \"Pay roll\" answer yes\r\n"
      "MESSAGE ok style 4660 answer ESCAPE\n"
      "menu none\n"
      "menu \"none\"\n"
      "key Ctrl+D\n"
      "date dtp 2004/02/29\n"
      "doubleclick lvw 0\n"
      "sql select 'it''s \"so\"' from a  \n"
      "session user 7 company 1 title T interface 40001 year 2006 date 2006/04/30\n"
      "expect form.Caption = \"\"\n"
      "expect a.b.Text = =",
      "folder/x.errand");
  const auto& found = errand.instructions;
  ASSERT_EQ(found.size(), 12U);
  EXPECT_EQ(found[0].line, 3);
  EXPECT_EQ(found[0].target, "txtName");
  EXPECT_EQ(found[0].text, "a \"b\" \\ \t\r\n#");
  EXPECT_EQ(found[1].text, "* is \"x\"");
  EXPECT_EQ(found[1].style, ui::MessageStyle::AskInformation);
  EXPECT_EQ(found[1].title, "Pay roll");
  EXPECT_EQ(found[1].answer, ui::Answer::Yes);
  EXPECT_EQ(static_cast<int>(*found[2].style), 4660);
  EXPECT_FALSE(found[2].title);
  EXPECT_EQ(found[2].answer, ui::Answer::Escape);
  EXPECT_TRUE(found[3].none);
  EXPECT_FALSE(found[4].none);
  EXPECT_EQ(found[5].key.character, ui::KeyAscii::CtrlD);
  EXPECT_EQ(found[6].date, basic::Date::fromCalendar(2004, 2, 29));
  EXPECT_EQ(found[7].number, 0);
  EXPECT_EQ(found[8].text, "select 'it''s \"so\"' from a");
  EXPECT_EQ(found[9].session.interfaceId, 40001);
  EXPECT_EQ(found[9].session.title, "T");
  EXPECT_EQ(found[10].target, "form");
  EXPECT_EQ(found[10].text, "");
  EXPECT_EQ(found[11].target, "a.b");
  EXPECT_EQ(found[11].text, "=");
}

TEST(Errand, ReadsTablesWithAndWithoutHeader) {
  const Errand errand = Errand::parse(
      "expect list lvw\n"
      "| Entry No |  \" Name\"|\n"
      "# between two rows\n"
      "| \" a|\\\"b \" | |\n"
      "expect sql select 1\n"
      "| NULL | \"NULL\" |\n"
      "expect sql select 2 where 1 = 0\n"
      "\n"
      "show",
      "x");
  const auto& found = errand.instructions;
  ASSERT_EQ(found.size(), 4U);
  EXPECT_EQ(found[0].table.columns, (std::vector<std::string>{"Entry No", "Name"}));
  ASSERT_EQ(found[0].table.rows.size(), 1U);
  EXPECT_EQ(found[0].table.rows[0][0].text, " a|\"b ");
  EXPECT_EQ(found[0].table.rows[0][1].text, "");
  EXPECT_TRUE(found[1].table.rows[0][0].isNull());
  EXPECT_FALSE(found[1].table.rows[0][1].isNull());
  EXPECT_TRUE(found[2].table.rows.empty());
}

TEST(Errand, TellsWhatIsWrongAndWhatToWriteInstead) {
  const struct {
    std::string text;
    int line;
    std::string problem;
    std::string remedy;
  } cases[] = {
      {"show\nclik cmdOk", 2, "no instruction \"clik\"", "begin the line"},
      {"click", 1, "argument is missing", "click CONTROL"},
      {"click a b", 1, "\"b\" is one argument too many", "click CONTROL"},
      {"click \"\"", 1, "name is empty", "click CONTROL"},
      {"type a two words", 1, "\"words\" is one argument too many", "in double quotes"},
      {"type a", 1, "argument is missing", "\"\" for an empty text"},
      {"show # now", 1, "too many", "show"},
      {"type a \"b", 1, "not closed", "at its end"},
      {"type a \"b\"c", 1, "sticks", "blank"},
      {"type a b\"c\"", 1, "inside the word b\"c\"", "\\\""},
      {"type a \"\\q\"", 1, "\\q", "\\n"},
      {"key Hyper", 1, "no key \"Hyper\"", "PageUp"},
      {"row lvw 0", 1, "\"0\" is no whole number from 1", "row LIST N"},
      {"row lvw 99999999999", 1, "no whole number", "row LIST N"},
      {"tick lvw -1", 1, "no whole number", "tick LIST N"},
      {"date dtp 2006/02/30", 1, "no date", "yyyy/mm/dd"},
      {"message x", 1, "no answer", "answer ok|yes|no|escape"},
      {"message x answer maybe", 1, "\"maybe\" is no answer", "ok|yes|no"},
      {"message x style critical answer ok", 1, "\"critical\" is no whole number", "[style N]"},
      {"message x title t style 64 answer ok", 1, "\"style\" has no meaning there", "[style N] [title TEXT]"},
      {"message x answer ok title t", 1, "behind the answer", "message TEXT"},
      {"session company 1", 1, "lacks its user", "session company N"},
      {"session company 1 company 2", 1, "twice", "session"},
      {"session company 40000", 1, "to 32767", "session"},
      {"session colour 1", 1, "no colour", "session"},
      {"sql", 1, "statement is missing", "sql STATEMENT"},
      {"expect", 1, "nothing is expected", "expect CONTROL.PROPERTY"},
      {"expect txt = 1", 1, "\"txt\" is nothing", "CONTROL.PROPERTY"},
      {"expect txt.Text 1", 1, "the = behind txt.Text", "VALUE"},
      {"expect txt.Text =", 1, "no value", "\"\""},
      {"expect txt.Text = a b", 1, "more than one value", "double quotes"},
      {"expect sent many", 1, "no whole number", "expect sent N"},
      {"expect list lvw\n\nshow", 1, "without header", "| COLUMN |"},
      {"show\nexpect combo cbo", 2, "without header", "| COLUMN |"},
      {"expect combo cbo\n| Text | Colour |", 2, "no column Colour", "ItemData"},
      {"expect list lvw\n| A | a |", 2, "column a twice", "once"},
      {"expect list lvw\n| A | B |\n| 1 |", 3, "has 1 cells, the first one has 2", "as many"},
      {"expect sql x\n| 1 |\n| 1 | 2 |", 3, "has 2 cells", "as many"},
      {"expect sql x\n| 1 | 2", 2, "not closed", "| at the end"},
      {"expect sql x\n| \"1\" 2 |", 2, "behind its closing quote", "whole cell"},
      {"expect sql x\n|", 2, "no cell", "| cell |"},
      {"click a\n| 1 |", 2, "none belongs", "expect list"},
      {"expect sql x\n\n| 1 |", 3, "none belongs", "directly below"},
  };
  for (const auto& one : cases) {
    try {
      Errand::parse(one.text, "x.errand");
      ADD_FAILURE() << one.text << ": taken as it is";
    } catch (const ErrandSyntaxError& error) {
      EXPECT_EQ(error.line, one.line) << one.text;
      EXPECT_NE(error.problem.find(one.problem), std::string::npos) << one.text << ": " << error.problem;
      EXPECT_NE(error.remedy.find(one.remedy), std::string::npos) << one.text << ": " << error.remedy;
      EXPECT_EQ(std::string(error.what()).find("x.errand:" + std::to_string(one.line) + ": "), 0U);
    }
  }
}

TEST(Errand, AFileThatCannotBeReadIsNamed) {
  for (const std::string file : {"no/such.errand", "."}) {
    try {
      Errand::read(file);
      ADD_FAILURE() << file << " was read";
    } catch (const ErrandSyntaxError& error) {
      EXPECT_EQ(error.file, file);
      EXPECT_EQ(error.line, 0);
    }
  }
}

TEST(Patterns, AStarStandsForAnyText) {
  const struct {
    std::string pattern;
    std::string text;
    bool same;
  } cases[] = {
      {"abc", "abc", true},      {"abc", "abcd", false},  {"*", "", true},        {"*c", "a\nbc", true},
      {"a*", "abc", true},       {"a*c", "ac", true},     {"a*c", "acb", false},  {"*b*", "abc", true},
      {"a*b*c", "axbxbc", true}, {"ab*ba", "aba", false}, {"*aab", "aaab", true}, {"a*b*c", "acb", false},
      {"", "x", false},
  };
  for (const auto& one : cases)
    EXPECT_EQ(matches(one.pattern, one.text), one.same) << one.pattern << one.text;
}

}  // namespace
}  // namespace payslate::scripted
