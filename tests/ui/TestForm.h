// A form with one control of most kinds that writes down what happens, and a desktop whose user is the test.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Desktop.h"
#include "platform/ui/Form.h"
#include "platform/ui/Grid.h"
#include "platform/ui/Label.h"
#include "platform/ui/ListView.h"
#include "platform/ui/TabControl.h"
#include "platform/ui/TextBox.h"

namespace payslate::ui {

using Log = std::vector<std::string>;

/// Runs `user` on every form it shows and then unloads it; messages are logged and answered with OK.
class TestDesktop : public Desktop {
 public:
  Log log;
  std::function<void(Form&)> user = [](Form&) {};

  void showModal(Form& form) override {
    user(form);
    form.abandon();
  }
  Answer showMessage(const Message& message) override {
    log.push_back("message " + message.title + ": " + message.text);
    return Answer::Ok;
  }
  MenuItem* showMenu(Form&, const PopupMenu& menu) override { return menu.items().front(); }
  void beep() override { log.push_back("beep"); }
  [[nodiscard]] std::string applicationFolder() const override { return "."; }
};

class TestForm : public Form {
 public:
  explicit TestForm(TestDesktop& desktop) : Form("TestForm", desktop, "Test"), log(desktop.log) {
    using namespace layout;
    setLayout(column({field(lblFirst, first), item(second), group(frame, row({item(combo), item(check)})),
                      pages(tab, {item(list), item(grid)}), row({item(one), item(two), item(ok)})}));
    for (TextBox* box : {&first, &second}) {
      const std::string name = box->Name();
      box->Change = [this, box, name] { log.push_back(name + "=" + box->Text()); };
      box->KeyDown = [this, name](int& code, int) { log.push_back(name + " down " + std::to_string(code)); };
      box->KeyUp = [this, name](int& code, int) { log.push_back(name + " up " + std::to_string(code)); };
      box->GotFocus = [this, name] { log.push_back(name + " got"); };
      box->LostFocus = [this, name] { log.push_back(name + " lost"); };
    }
    combo.Click = [this] { log.push_back("combo click " + std::to_string(combo.ListIndex())); };
    combo.Change = [this] { log.push_back("combo change " + combo.Text()); };
    list.ItemCheck = [this](int row) { log.push_back("check " + std::to_string(row)); };
    grid.EnterCell = [this] { log.push_back("enter " + std::to_string(grid.Row())); };
    one.Click = [this] { log.push_back("one"); };
    two.Click = [this] { log.push_back("two"); };
    ok.Click = [this] { log.push_back("ok"); };
  }

  Log& log;
  Label lblFirst{*this, "lblFirst", "&First:"};
  TextBox first{*this, "first"};
  TextBox second{*this, "second"};
  Frame frame{*this, "frame"};
  ComboBox combo{*this, "combo"};
  CheckBox check{*this, "check", "Chec&k"};
  TabControl tab{*this, "tab", {"List", "Grid"}};
  ListView list{*this, "list", {{"No", 900}, {"Name", 900}}, true};
  Grid grid{*this, "grid"};
  OptionButton one{*this, "one", "One"};
  OptionButton two{*this, "two", "T&wo"};
  CommandButton ok{*this, "ok", "&OK"};
};

}  // namespace payslate::ui
