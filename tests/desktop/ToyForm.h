// A form with a control of every kind that logs what it is told, and clerks that work on it.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/ui/Buttons.h"
#include "platform/ui/Clerk.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/DatePicker.h"
#include "platform/ui/Form.h"
#include "platform/ui/Grid.h"
#include "platform/ui/Label.h"
#include "platform/ui/ListView.h"
#include "platform/ui/TabControl.h"
#include "platform/ui/TextBox.h"

namespace payslate::tests {

using Log = std::vector<std::string>;

class ToyForm : public ui::Form {
 public:
  ToyForm(ui::Desktop& desktop, Log& log, std::string name = "frmToy", int gridRows = 100);

  ui::Frame fraPeriod;
  ui::Label lblNumber, lblAmount, lblName, lblDate, lblList, lblLong;
  ui::TextBox txtNumber, txtAmount, txtLocked;
  ui::ComboBox cboName, cboKind;
  ui::CheckBox chkHold;
  ui::OptionButton optUp, optDown;
  ui::DatePicker dtpDay;
  ui::TabControl tabPages;
  ui::ListView lvwItems;
  ui::Grid grdRows;
  ui::CommandButton cmdOk, cmdMore, cmdClose, cmdOff;
  ui::MenuItem mnuAdd, mnuSep, mnuDelete;
  ui::PopupMenu menu;

  int messages = 0;

 private:
  void fill(int gridRows);
  void arrange();
  void logControl(ui::Control& control);
  void logKinds();
  void wire();
  void note(const std::string& what) { log_.push_back(what); }

  Log& log_;
};

/// Answers with what it was made with; forms are worked on by their names.
class ToyClerk : public ui::Clerk {
 public:
  std::map<std::string, std::function<void(ui::Form&)>> work;
  ui::Answer says = ui::Answer::Yes;
  ui::MenuItem* picks = nullptr;
  std::function<void()> atMessage;

  void attend(ui::Form& form) override { work.at(form.Name())(form); }
  ui::Answer answer(const ui::Message& message) override {
    if (atMessage) atMessage();
    return message.asksYesNo() ? says : ui::Answer::Ok;
  }
  ui::MenuItem* pick(ui::Form&, const ui::PopupMenu&) override { return picks; }
};

/// No screen, and hands that call the form's Input: what real windows are measured against.
class DirectDesktop : public ui::Desktop {
 public:
  explicit DirectDesktop(ui::Clerk& clerk) : clerk_(clerk) {}
  void showModal(ui::Form& form) override { clerk_.attend(form); }
  ui::Answer showMessage(const ui::Message& message) override { return clerk_.answer(message); }
  ui::MenuItem* showMenu(ui::Form& form, const ui::PopupMenu& menu) override {
    return clerk_.pick(form, menu);
  }
  void beep() override {}
  [[nodiscard]] std::string applicationFolder() const override { return "."; }

 private:
  ui::Clerk& clerk_;
};

class DirectHands : public ui::Hands {
 public:
  void focus(ui::Control& control) override { control.form().input().focus(control); }
  void click(ui::Control& control) override {
    if (control.form().desktop().activeForm() == &control.form()) control.form().input().click(control);
  }
  void key(ui::Form& form, const ui::Key& key) override { form.input().key(key); }
  void selectAll(ui::Control& control) override;
  void paste(ui::Control& control, const std::string& text) override;
  void choose(ui::ComboBox& combo, int index) override { combo.form().input().choose(combo, index); }
  void pickDate(ui::DatePicker& picker, basic::Date date) override;
  void turnPage(ui::TabControl& tab, int page) override { tab.form().input().turnPage(tab, page); }
  void clickRow(ui::RowControl& list, int row, ui::MouseButton button) override {
    list.form().input().clickRow(list, row, button);
  }
  void doubleClickRow(ui::RowControl& list, int row) override {
    list.form().input().doubleClickRow(list, row);
  }
  void checkRow(ui::ListView& list, int row) override { list.form().input().checkRow(list, row); }
  void close(ui::Form& form) override { form.input().close(); }
};

}  // namespace payslate::tests
