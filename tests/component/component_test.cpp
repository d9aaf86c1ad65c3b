// The public class and the helpers that forms share.
#include <gtest/gtest.h>

#include "component/BasPaySlate.h"
#include "component/clspayslate.h"
#include "platform/ado/Error.h"
#include "platform/basic/Unicode.h"
#include "platform/common/CommonGen.h"
#include "platform/common/clsCommonGen.h"
#include "platform/scripted/ScriptedDesktop.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Form.h"
#include "platform/ui/TextBox.h"
#include "tests/component/DemoPayroll.h"

namespace payslate {
namespace {

class IdleClerk : public ui::Clerk {
 public:
  void attend(ui::Form& form) override { form.Unload(); }
  ui::Answer answer(const ui::Message&) override { return ui::Answer::Ok; }
  ui::MenuItem* pick(ui::Form&, const ui::PopupMenu&) override { return nullptr; }
};

class InputForm : public ui::Form {
 public:
  explicit InputForm(ui::Desktop& desktop) : Form("InputForm", desktop) {}
  ui::TextBox text{*this, "text"};
  ui::ComboBox combo{*this, "combo"};
  ui::CheckBox check{*this, "check", "Check"};
  ui::OptionButton option{*this, "option", "Option"};
};

TEST(Component, WithoutAConnectionTheFirstStatementFailsOnTheOneItMade) {
  IdleClerk clerk;
  scripted::ScriptedDesktop desktop;
  desktop.setClerk(&clerk);
  clspayslate component(desktop);
  component.intInterfaceID = 40001;
  EXPECT_THROW(component.Show(), ado::Error);
  EXPECT_EQ(basPaySlate().adocon(), component.adocon());
  EXPECT_EQ(component.adocon()->State(), ado::ObjectState::Closed);
  EXPECT_EQ(basPaySlate().intInterfaceID, 40001);
}

// Closes the host's connection while the list is open, and goes on as if nothing had happened.
class CuttingClerk : public IdleClerk {
 public:
  explicit CuttingClerk(const DemoPayroll& payroll) : payroll_(payroll) {}
  void attend(ui::Form& form) override {
    payroll_.connection->Close();
    form.input().click(*form.control("cmdnew"));
    form.input().key({ui::KeyCode::Return, 0, ui::KeyAscii::Return});
    EXPECT_TRUE(form.isLoaded());
    form.input().click(*form.control("CmdClose"));
  }
  ui::Answer answer(const ui::Message& message) override {
    messages.push_back(message.title + ": " + message.text);
    return ui::Answer::Ok;
  }
  std::vector<std::string> messages;

 private:
  const DemoPayroll& payroll_;
};

TEST(Component, AClosedConnectionIsSaidAndTheListStays) {
  const DemoPayroll payroll;
  CuttingClerk clerk(payroll);
  payroll.show(clerk);
  ASSERT_GE(clerk.messages.size(), 1U);
  for (const std::string& message : clerk.messages)
    EXPECT_EQ(message.find("Payroll: The connection is"), 0U) << message;
  EXPECT_THROW(payroll.show(clerk), ado::Error);
}

TEST(Helpers, SnapshotsTellWhatChanged) {
  IdleClerk clerk;
  scripted::ScriptedDesktop desktop;
  desktop.setClerk(&clerk);
  InputForm form(desktop);
  form.combo.AddItem("Asha", 1);
  form.option.Value = true;
  form.check.Value = ui::CheckState::Checked;
  BasPaySlate::StoreControlValues(form);
  EXPECT_FALSE(BasPaySlate::fnControlsChanged(form));
  form.text.Text = "   ";
  EXPECT_FALSE(BasPaySlate::fnControlsChanged(form));
  form.text.Text = "1";
  EXPECT_TRUE(BasPaySlate::fnControlsChanged(form));
  form.text.Text = "";
  form.check.Value = ui::CheckState::Unchecked;
  EXPECT_TRUE(BasPaySlate::fnControlsChanged(form));
  BasPaySlate::StoreControlValues(form);
  form.combo.setListIndex(0);
  EXPECT_TRUE(BasPaySlate::fnControlsChanged(form));
}

TEST(Helpers, AComboThatCannotBeFilledSaysWhatToCheck) {
  IdleClerk clerk;
  scripted::ScriptedDesktop desktop;
  desktop.setClerk(&clerk);
  InputForm form(desktop);
  BasPaySlate bas;
  bas.adocon()->Open(":memory:");
  try {
    bas.FillCombo(form.combo, "id", "name");
    FAIL() << "an empty table name was accepted";
  } catch (const ado::Error& error) {
    EXPECT_TRUE(error.Description.ends_with("\rHINT: Check whether Properties assigned"))
        << error.Description;
  }
}

TEST(CommonGen, LetsOnlyNumbersBeTyped) {
  IdleClerk clerk;
  scripted::ScriptedDesktop desktop;
  desktop.setClerk(&clerk);
  InputForm form(desktop);
  common::clsCommonGen general;
  const struct {
    const char* text;
    int start;
    int length;
    char key;
    bool passes;
  } cases[] = {
      {"", 0, 0, '1', true},
      {"", 0, 0, '.', true},
      {"1.5", 3, 0, '.', false},
      {"1.55", 4, 0, '5', false},
      {"1.55", 0, 0, '5', true},
      {"1.55", 3, 1, '9', true},
      {"1", 0, 0, '-', false},
      {"1", 1, 0, 'e', false},
      {"1", 1, 0, '\r', true},
      {"1", 1, 0, '\b', true},
      {"1.5", 0, 3, '.', true},
      {"123456789012345678", 0, 0, '9', false},
      {"123456789012345678", 18, 0, '.', true},
      {"1234567890.55", 2, 0, '.', false},
  };
  for (const auto& one : cases) {
    form.text.Text = one.text;
    form.text.Select(one.start, one.length);
    int key = one.key;
    general.TextValidateNum(form.text, key, 18, 2);
    EXPECT_EQ(key != 0, one.passes) << one.text << " + " << one.key;
  }
}

TEST(CommonGen, LetsANumberBePastedWholeOrNotAtAll) {
  IdleClerk clerk;
  scripted::ScriptedDesktop desktop;
  desktop.setClerk(&clerk);
  common::clsCommonGen general;
  const auto form = std::make_shared<InputForm>(desktop);
  form->load();
  form->text.SetFocus();
  form->text.numeric = true;
  form->text.MaxLength = 9;
  form->text.KeyPress = [&](int& key) { general.TextValidateNum(form->text, key, 18, 2); };
  int changes = 0;
  form->text.Change = [&changes] { ++changes; };
  // The bracketed part of a text is selected.
  const struct {
    const char32_t* before;
    const char32_t* pasted;
    const char* after;  // null where it is refused
  } cases[] = {
      {U"[]", U"1234.50", "1234.50"},  {U"[]", U" \t\u00A01234,5\r\n", "1234.5"},
      {U"1[9]97", U",5", nullptr},     {U"1[997]", U",5", "1.5"},
      {U"1.[5]", U"2,5", nullptr},     {U"[28]", U"1.234,50", nullptr},
      {U"[28]", U"1,234.50", nullptr}, {U"2[8]", U"1,2,3", nullptr},
      {U"2[8]", U"5-x", nullptr},      {U"[28]", U"1\n2", nullptr},
      {U"[28]", U"1 000", nullptr},    {U"12345[6]", U"1234", "123451234"},
      {U"123456[]", U"1234", nullptr}, {U"2[8]", U" \n", "28"},
  };
  for (const auto& one : cases) {
    std::u32string text(one.before);
    const auto start = text.find(U'[');
    const auto length = text.find(U']') - start - 1;
    std::erase_if(text, [](char32_t character) { return character == U'[' || character == U']'; });
    const std::string before = basic::encoded(text);
    form->text.Text = before;
    form->text.Select(static_cast<int>(start), static_cast<int>(length));
    changes = 0;
    const int beeps = desktop.beeps();
    form->input().paste(one.pasted);
    const std::string label = before + " + " + basic::encoded(one.pasted);
    EXPECT_EQ(form->text.Text(), one.after == nullptr ? before : one.after) << label;
    EXPECT_EQ(desktop.beeps() - beeps, one.after == nullptr ? 1 : 0) << label;
    EXPECT_EQ(changes, form->text.Text() == before ? 0 : 1) << label;
    const std::size_t selected = changes == 0 ? length : 0;
    EXPECT_EQ(form->text.SelLength(), static_cast<int>(selected)) << label;
  }
}

}  // namespace
}  // namespace payslate
