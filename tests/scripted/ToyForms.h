// Two small forms and a stage for the clerk of the tests to work on.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/scripted/Stage.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/DatePicker.h"
#include "platform/ui/Form.h"
#include "platform/ui/Grid.h"
#include "platform/ui/Label.h"
#include "platform/ui/ListView.h"
#include "platform/ui/TabControl.h"
#include "platform/ui/TextBox.h"

namespace payslate::scripted {

/// Asks before it closes; refuses unless the answer is Yes.
class ToyPopup : public ui::Form {
 public:
  explicit ToyPopup(ui::Desktop& desktop) : Form("frmPopup", desktop, "Popup") {
    setLayout(ui::layout::column({ui::layout::item(txtAmount), ui::layout::item(cmdOk)}));
    QueryUnload = [this](bool& refuse, ui::UnloadMode) {
      refuse =
          this->desktop().showMessage({"Close?", ui::MessageStyle::AskQuestion, "Toy"}) != ui::Answer::Yes;
    };
    cmdOk.Click = [this] { Unload(); };
  }
  ui::TextBox txtAmount{*this, "txtAmount"};
  ui::CommandButton cmdOk{*this, "cmdOk", "&Ok"};
};

class ToyForm : public ui::Form {
 public:
  explicit ToyForm(ui::Desktop& desktop) : Form("frmToy", desktop, "Toy form") {
    using namespace ui::layout;
    setLayout(
        column({item(txtName), item(cboKind), item(dtpDay), item(chkPaid), item(cmdPopup), item(cmdOff),
                item(cmdFail), item(lblTitle),
                pages(tabPages, {column({item(grdRows)}), column({item(lvwTicks), item(txtBehind)})})}));
    cmdOff.Enabled = false;
    cboKind.AddItem("One ", 1);
    cboKind.AddItem("Two", 2);
    grdRows.clear(2);
    grdRows.setFormatString("|Name          ");
    lvwTicks.addRow({"1", "  indented"});
    lvwTicks.addRow({"2"});
    cmdPopup.Click = [this] {
      popup = std::make_shared<ToyPopup>(this->desktop());
      popup->load();
      popup->Show();
      ++popupsDone;
    };
    cmdFail.Click = [] { throw std::runtime_error("it broke"); };
    txtName.Validate = [this](bool& refuse) { refuse = txtName.Text() == "stay"; };
    lvwTicks.MouseDown = [this](ui::MouseButton button, int, int, int) {
      if (button == ui::MouseButton::Right) popUp(menu);
    };
    mnuAdd.Click = [this] { lvwTicks.addRow({"added"}); };
    mnuGone.Visible = false;
    mnuOff.Enabled = false;
  }

  ui::TextBox txtName{*this, "txtName"};
  ui::ComboBox cboKind{*this, "cboKind"};
  ui::DatePicker dtpDay{*this, "dtpDay"};
  ui::CheckBox chkPaid{*this, "chkPaid", "Paid"};
  ui::CommandButton cmdPopup{*this, "cmdPopup", "Popup"};
  ui::CommandButton cmdOff{*this, "cmdOff", "Off"};
  ui::CommandButton cmdFail{*this, "cmdFail", "Fail"};
  ui::Label lblTitle{*this, "lblTitle", "Title"};
  ui::TabControl tabPages{*this, "tabPages", {"Rows", "Ticks"}};
  ui::Grid grdRows{*this, "grdRows"};
  ui::ListView lvwTicks{*this, "lvwTicks", {{"No "}, {"Text"}}, true};
  ui::TextBox txtBehind{*this, "txtBehind"};
  ui::MenuItem mnuAdd{"mnuAdd", "&Add"};
  ui::MenuItem mnuGone{"mnuGone", "&Gone"};
  ui::MenuItem mnuOff{"mnuOff", "O&ff"};
  ui::PopupMenu menu{"mnuPopup", {&mnuAdd, &mnuGone, &mnuOff}};
  std::shared_ptr<ToyPopup> popup;
  int popupsDone = 0;
};

/// Answers every query with `answer`, remembers what it was told, shows what the test says.
class ToyStage : public Stage {
 public:
  void runFile(const std::string& path) override { said.push_back("file " + path); }
  void runStatement(const std::string& statement) override {
    if (statement == "bad") throw std::runtime_error("no such statement");
    said.push_back(statement);
  }
  std::vector<std::vector<basic::Value>> rows(const std::string&) override { return answer; }
  void setSession(const HostSession& session) override { said.push_back(session.title); }
  void show() override { shows(); }
  long takeSentCount() override { return 3; }

  std::vector<std::vector<basic::Value>> answer;
  std::vector<std::string> said;
  std::function<void()> shows = [] {};
};

}  // namespace payslate::scripted
