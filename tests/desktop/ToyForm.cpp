// A form with a control of every kind.
#include "tests/desktop/ToyForm.h"

#include <stdexcept>

#include "platform/basic/Unicode.h"

namespace payslate::tests {

namespace layout = ui::layout;

ToyForm::ToyForm(ui::Desktop& desktop, Log& log, std::string name, int gridRows)
    : Form(std::move(name), desktop, "Toy"),
      fraPeriod(*this, "fraPeriod", "Period"),
      lblNumber(*this, "lblNumber", "&Number:"),
      lblAmount(*this, "lblAmount", "Amount:"),
      lblName(*this, "lblName", "Na&me:"),
      lblDate(*this, "lblDate", "Date:"),
      lblList(*this, "lblList", "Items:"),
      lblLong(*this, "lblLong", "A caption <b>that</b> is taken as it stands"),
      txtNumber(*this, "txtNumber"),
      txtAmount(*this, "txtAmount", ui::Alignment::Right),
      txtLocked(*this, "txtLocked"),
      cboName(*this, "cboName"),
      cboKind(*this, "cboKind", ui::ComboStyle::DropDownList),
      chkHold(*this, "chkHold", "&Hold"),
      optUp(*this, "optUp", "&Up"),
      optDown(*this, "optDown", "&Down"),
      dtpDay(*this, "dtpDay"),
      tabPages(*this, "tabPages", {"Items", "Rows & more"}),
      lvwItems(*this, "lvwItems",
               {{"No", 600, ui::Alignment::Left},
                {"Item", 2400, ui::Alignment::Left},
                {"Amount", 1200, ui::Alignment::Right},
                {"ID", 0, ui::Alignment::Left}},
               true),
      grdRows(*this, "grdRows"),
      cmdOk(*this, "cmdOk", "&Ok"),
      cmdMore(*this, "cmdMore", ">|"),
      cmdClose(*this, "cmdClose", "&Close"),
      cmdOff(*this, "cmdOff", "O&ff"),
      mnuAdd("mnuAdd", "&Add"),
      mnuSep("mnuSep", "-"),
      mnuDelete("mnuDelete", "&Delete"),
      menu("mnuPopup", {&mnuAdd, &mnuSep, &mnuDelete}),
      log_(log) {
  fill(gridRows);
  arrange();
  for (ui::Control* control : Controls()) logControl(*control);
  logKinds();
  wire();
}

void ToyForm::fill(int gridRows) {
  for (const char* each : {"Asha", "Bram", "Chidi", "Basha"}) cboName.AddItem(each, each[0]);
  for (const char* each : {"Standing", "Added"}) cboKind.AddItem(each);
  for (const char* each : {"Rent", "Travel", "Meals"}) lvwItems.addRow({"1", each, "10.00", "7"});
  txtLocked.Text = "fixed";
  txtLocked.Locked = true;
  dtpDay.Value = basic::Date::fromCalendar(2006, 4, 30);
  cmdOff.Enabled = false;
  cmdMore.AccessibleName = "Last";
  grdRows.clear(4);
  grdRows.setFormatString("|Entry No          |>Entry Date     |Name                        ");
  std::vector<std::vector<std::string>> rows;
  for (int row = 1; row <= gridRows; ++row)
    rows.push_back({std::to_string(row), "EN" + std::to_string(row), "31/03/2006", "Asha"});
  grdRows.setRows(std::move(rows));
  grdRows.setColumnWidth(0, 0);
}

void ToyForm::arrange() {
  using layout::field;
  using layout::item;
  setLayout(layout::column(
      {layout::group(fraPeriod, layout::fields({field(lblNumber, txtNumber), field(lblAmount, txtAmount),
                                                layout::row({field(lblName, cboName), item(cmdMore)}),
                                                field(lblDate, dtpDay)})),
       layout::row({item(cboKind), item(chkHold), item(optUp), item(optDown), item(txtLocked)}),
       item(lblLong),
       layout::pages(tabPages, {layout::column({field(lblList, lvwItems)}), item(grdRows).growing()})
           .growing(),
       layout::row({item(cmdOff), layout::space(), item(cmdOk), item(cmdClose)})}));
}

void ToyForm::logControl(ui::Control& control) {
  const std::string name = control.Name();
  control.GotFocus = [=, this] { note(name + " got focus"); };
  control.LostFocus = [=, this] { note(name + " lost focus"); };
  control.Validate = [=, this](bool&) { note(name + " validate"); };
  control.KeyDown = [=, this](int& code, int shift) {
    note(name + " down " + std::to_string(code) + "/" + std::to_string(shift));
  };
  control.KeyPress = [=, this](int& character) { note(name + " press " + std::to_string(character)); };
  control.KeyUp = [=, this](int& code, int) { note(name + " up " + std::to_string(code)); };
}

void ToyForm::logKinds() {
  for (auto* box : {&txtNumber, &txtAmount, &txtLocked})
    box->Change = [=, this] { note(box->Name() + " change " + box->Text()); };
  for (auto* combo : {&cboName, &cboKind}) {
    combo->Click = [=, this] { note(combo->Name() + " click " + std::to_string(combo->ListIndex())); };
    combo->Change = [=, this] { note(combo->Name() + " change " + combo->Text()); };
  }
  for (auto* button : {&cmdOk, &cmdMore, &cmdClose, &cmdOff})
    button->Click = [=, this] { note(button->Name() + " click"); };
  for (auto* option : {&optUp, &optDown}) option->Click = [=, this] { note(option->Name() + " click"); };
  chkHold.Click = [this] { note("chkHold click " + *chkHold.propertyText("Value")); };
  dtpDay.Change = [this] { note("dtpDay change " + *dtpDay.propertyText("Value")); };
  tabPages.Click = [this] { note("tabPages click " + std::to_string(tabPages.Tab())); };
  for (ui::RowControl* list :
       {static_cast<ui::RowControl*>(&lvwItems), static_cast<ui::RowControl*>(&grdRows)}) {
    const std::string name = list->Name();
    list->Click = [=, this] { note(name + " click"); };
    list->DblClick = [=, this] { note(name + " double click"); };
    list->MouseDown = [=, this](ui::MouseButton button, int shift, int, int) {
      note(name + " mouse " + std::to_string(static_cast<int>(button)) + "/" + std::to_string(shift));
    };
  }
  lvwItems.ItemClick = [this](int row) { note("lvwItems item " + std::to_string(row)); };
  lvwItems.ItemCheck = [this](int row) { note("lvwItems check " + std::to_string(row)); };
  grdRows.EnterCell = [this] { note("grdRows cell " + std::to_string(grdRows.Row())); };
}

void ToyForm::wire() {
  KeyPreview = true;
  KeyDown = [this](int& code, int) {
    note("form down " + std::to_string(code));
    if (code == ui::KeyCode::F9) code = ui::KeyCode::Escape;
  };
  txtNumber.KeyPress = [this](int& character) {
    note("number press " + std::to_string(character));
    if (character == ui::KeyAscii::Return) desktop().sendKeys(*ui::Key::named("Tab"));
    if (character == ui::KeyAscii::Minus) character = 0;
  };
  txtAmount.GotFocus = [this] {
    note("txtAmount got focus");
    txtAmount.SelectAll();
  };
  txtAmount.Validate = [this](bool& refuse) {
    refuse = txtAmount.Text() == "13";
    note(refuse ? "txtAmount refuses" : "txtAmount validate");
  };
  lvwItems.MouseDown = [this](ui::MouseButton button, int, int, int) {
    note("lvwItems mouse");
    if (button == ui::MouseButton::Right) popUp(menu);
  };
  mnuAdd.Click = [this] { note("add"); };
  mnuDelete.Click = [this] {
    const ui::Message question{"Delete <b>this</b> & that?", ui::MessageStyle::AskQuestion, "Toy"};
    note(desktop().showMessage(question) == ui::Answer::Yes ? "yes" : "no");
  };
  cmdMore.Click = [this] {
    note("more");
    const auto popup = std::make_shared<ToyForm>(desktop(), log_, "frmPopup", 3);
    popup->load();
    popup->Show();
    note("popup gone");
  };
  cmdOk.Click = [] { throw std::runtime_error("The handler failed."); };
  cmdClose.Cancel = true;
  cmdClose.Click = [this] {
    note("close");
    Unload();
  };
  QueryUnload = [this](bool& refuse, ui::UnloadMode mode) {
    refuse = txtNumber.Text() == "stay";
    note("unload " + std::to_string(static_cast<int>(mode)));
  };
}

void DirectHands::selectAll(ui::Control& control) {
  focus(control);
  if (auto* box = dynamic_cast<ui::TextBox*>(&control)) box->SelectAll();
  if (auto* combo = dynamic_cast<ui::ComboBox*>(&control))
    combo->Select(0, static_cast<int>(basic::characters(combo->Text()).size()));
}

void DirectHands::paste(ui::Control& control, const std::string& text) {
  focus(control);
  control.form().input().paste(basic::characters(text));
}

void DirectHands::pickDate(ui::DatePicker& picker, basic::Date date) {
  picker.form().input().pickDate(picker, date);
}

}  // namespace payslate::tests
