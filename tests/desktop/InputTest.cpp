// What a user does in real windows raises the same events, in the same order, as the form's own Input.
#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/QtDesktop.h"
#include "desktop/QtHands.h"
#include "platform/basic/Unicode.h"
#include "tests/desktop/ToyForm.h"

namespace payslate::tests {
namespace {

using ui::Key;
using ui::MouseButton;

struct Bench {
  ui::Hands& hands;
  ToyForm& form;
  ToyClerk& clerk;

  void press(const char* key) const { hands.key(form, *Key::named(key)); }
  void type(const char* text) const {
    for (const char32_t character : basic::characters(text)) hands.key(form, Key::typing(character));
  }
};

struct Step {
  const char* name;
  void (*act)(const Bench&);
};

// The log of a step on a fresh form, with what the form shows afterwards.
Log perform(ui::Desktop& desktop, ui::Hands& hands, ToyClerk& clerk, const Step& step) {
  Log log;
  const auto form = std::make_shared<ToyForm>(desktop, log);
  clerk.work["frmToy"] = [&](ui::Form&) {
    step.act({hands, *form, clerk});
    log.push_back("focus " + (form->ActiveControl() == nullptr ? "" : form->ActiveControl()->Name()));
    for (const ui::Control* control : form->Controls())
      for (const char* property : {"Text", "Value", "ListIndex", "SelStart", "SelLength", "Tab", "Row"})
        if (const auto text = control->propertyText(property); text && !text->empty() && *text != "0")
          log.push_back(control->Name() + "." + property + " = " + *text);
    form->txtNumber.Text = "";
    form->Unload();
  };
  form->load();
  form->Show();
  return log;
}

const Step steps[] = {
    {"typing through a filter",
     [](const Bench& toy) {
       toy.hands.focus(toy.form.txtNumber);
       toy.type("a-.Bé'");
       toy.press("Left");
       toy.press("Shift+Left");
       toy.press("Delete");
       toy.press("Backspace");
       toy.press("Ctrl+D");
       toy.press("Ctrl+Enter");
       toy.press("Enter");
     }},
    {"selecting, replacing, pasting",
     [](const Bench& toy) {
       toy.hands.focus(toy.form.txtNumber);
       toy.type("12345");
       toy.hands.selectAll(toy.form.txtNumber);
       toy.type("x");
       toy.hands.paste(toy.form.txtNumber, "a-b\nc");
       toy.hands.selectAll(toy.form.txtNumber);
       toy.press("Left");
       toy.hands.focus(toy.form.chkHold);
       toy.hands.focus(toy.form.txtNumber);
       toy.type("y");
     }},
    {"a selection that the program makes on entry is replaced",
     [](const Bench& toy) {
       toy.hands.focus(toy.form.txtAmount);
       toy.type("27");
       toy.hands.focus(toy.form.txtNumber);
       toy.hands.focus(toy.form.txtAmount);
       toy.type("5");
     }},
    {"leaving refused",
     [](const Bench& toy) {
       toy.hands.focus(toy.form.txtAmount);
       toy.type("13");
       toy.press("Tab");
       toy.press("Shift+Tab");
       toy.hands.click(toy.form.cmdMore);
       toy.hands.click(toy.form.chkHold);
       toy.hands.clickRow(toy.form.lvwItems, 1, MouseButton::Left);
       toy.hands.turnPage(toy.form.tabPages, 1);
       toy.hands.choose(toy.form.cboName, 2);
       toy.hands.choose(toy.form.cboKind, 1);
       toy.hands.pickDate(toy.form.dtpDay, basic::Date::fromCalendar(2006, 5, 2));
       toy.type("0");
       toy.press("Tab");
     }},
    {"combos",
     [](const Bench& toy) {
       toy.hands.focus(toy.form.cboName);
       toy.type("bra");
       toy.press("Home");
       toy.press("Delete");
       toy.hands.selectAll(toy.form.cboName);
       toy.type("Chidi");
       toy.press("Up");
       toy.press("Enter");
       toy.hands.choose(toy.form.cboName, 0);
       toy.hands.choose(toy.form.cboName, 3);
       toy.hands.choose(toy.form.cboKind, 1);
       toy.hands.focus(toy.form.cboKind);
       toy.type("s");
       toy.press("Tab");
     }},
    {"checks, options and buttons",
     [](const Bench& toy) {
       toy.hands.click(toy.form.chkHold);
       toy.hands.click(toy.form.chkHold);
       toy.hands.focus(toy.form.optUp);
       toy.press("Space");
       toy.hands.click(toy.form.optDown);
       toy.hands.focus(toy.form.cmdOk);
       toy.hands.click(toy.form.cmdOff);
       toy.hands.focus(toy.form.cmdOff);
       toy.hands.click(toy.form.txtLocked);
       toy.type("z");
     }},
    {"mnemonics",
     [](const Bench& toy) {
       toy.press("Alt+H");
       toy.press("Alt+D");
       toy.press("Alt+M");
       toy.press("Alt+F");
       toy.press("Alt+N");
     }},
    {"dates",
     [](const Bench& toy) {
       toy.hands.pickDate(toy.form.dtpDay, basic::Date::fromCalendar(2006, 5, 31));
       toy.hands.pickDate(toy.form.dtpDay, basic::Date::fromCalendar(2006, 5, 31));
       toy.press("Up");
       toy.press("Home");
       toy.press("F9");
     }},
    {"rows and checks of a list",
     [](const Bench& toy) {
       toy.hands.clickRow(toy.form.lvwItems, 2, MouseButton::Left);
       toy.hands.doubleClickRow(toy.form.lvwItems, 1);
       toy.hands.doubleClickRow(toy.form.lvwItems, -1);
       toy.hands.checkRow(toy.form.lvwItems, 0);
       toy.press("Down");
       toy.press("Space");
       toy.hands.focus(toy.form.txtNumber);
       toy.hands.focus(toy.form.lvwItems);
     }},
    {"a menu, its item's question",
     [](const Bench& toy) {
       toy.clerk.picks = &toy.form.mnuDelete;
       toy.clerk.says = ui::Answer::No;
       toy.hands.clickRow(toy.form.lvwItems, 1, MouseButton::Right);
       toy.clerk.says = ui::Answer::Yes;
       toy.hands.clickRow(toy.form.lvwItems, -1, MouseButton::Right);
       toy.clerk.picks = nullptr;
       toy.hands.clickRow(toy.form.lvwItems, 0, MouseButton::Right);
     }},
    {"pages and the grid",
     [](const Bench& toy) {
       toy.hands.clickRow(toy.form.grdRows, 5, MouseButton::Left);  // on a page behind: nothing
       toy.hands.turnPage(toy.form.tabPages, 1);
       toy.hands.clickRow(toy.form.grdRows, 90, MouseButton::Left);
       toy.press("PageDown");
       toy.press("End");
       toy.press("Enter");
       toy.hands.doubleClickRow(toy.form.grdRows, 3);
       toy.hands.focus(toy.form.tabPages);
       toy.press("Left");
     }},
    {"a form over the form, and what is behind it",
     [](const Bench& toy) {
       toy.clerk.work["frmPopup"] = [&toy](ui::Form& popup) {
         toy.hands.click(toy.form.chkHold);  // behind: nothing
         toy.hands.key(popup, *Key::named("x"));
         toy.hands.key(popup, *Key::named("Escape"));
       };
       toy.hands.click(toy.form.cmdMore);
     }},
    {"an error in a handler",
     [](const Bench& toy) {
       toy.hands.click(toy.form.cmdOk);
       toy.press("x");
     }},
    {"closing, refused and not",
     [](const Bench& toy) {
       toy.hands.focus(toy.form.txtNumber);
       toy.type("stay");
       toy.hands.close(toy.form);
       toy.press("Escape");
       toy.press("Backspace");
       toy.hands.close(toy.form);
     }},
};

// Where two logs part: the entries around it.
std::string difference(const Log& shown, const Log& wanted) {
  const auto [left, right] = std::mismatch(shown.begin(), shown.end(), wanted.begin(), wanted.end());
  if (left == shown.end() && right == wanted.end()) return {};
  std::string text;
  for (auto at = shown.begin(); at != left; ++at) text += *at + "\n";
  return text + "-- shown: " + (left == shown.end() ? "nothing" : *left) +
         "\n-- wanted: " + (right == wanted.end() ? "nothing" : *right);
}

TEST(Input, RaisesTheSameEventsFromRealWindowsAsDirectly) {
  desktop::QtDesktop windows;
  desktop::QtHands qtHands(windows);
  DirectHands directHands;
  for (const Step& step : steps) {
    ToyClerk clerk;
    windows.setClerk(&clerk);
    const Log shown = perform(windows, qtHands, clerk, step);
    ToyClerk blind;
    DirectDesktop nowhere(blind);
    const Log wanted = perform(nowhere, directHands, blind, step);
    EXPECT_EQ(difference(shown, wanted), "") << step.name;
    EXPECT_GT(wanted.size(), 10U) << step.name;
  }
}

}  // namespace
}  // namespace payslate::tests
