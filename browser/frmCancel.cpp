// Cancelling an entry with a reason.
#include "browser/frmCancel.h"

#include "component/BasPaySlate.h"
#include "persistence/Cancellation.h"

namespace payslate {

namespace {

constexpr int singleQuote = '\'';
constexpr int doubleQuote = '"';
constexpr int reasonCharacters = 48;

}  // namespace

frmCancel::frmCancel(BasPaySlate& bas) : Form("frmCancel", bas.desktop()), bas_(bas) {
  arrange();
  Load = [this] { Form_Load(); };
  txtcanreason.KeyPress = [this](int& keyAscii) { txtcanreason_KeyPress(keyAscii); };
  cmdOk.Click = [this] { cmdOk_Click(); };
}

void frmCancel::arrange() {
  using namespace ui::layout;
  setFirstFocus(txtcanreason);
  setLayout(column({
      field(Label1, {item(txtcanreason).wide(reasonCharacters).growing()}),
      row({space(), item(cmdOk)}),
  }));
}

void frmCancel::Form_Load() {
  Caption = "Reason For Deletion";
  desktop().HelpFile = bas_.helpFile();
}

void frmCancel::txtcanreason_KeyPress(int& keyAscii) {
  if (keyAscii == singleQuote || keyAscii == doubleQuote) keyAscii = ui::KeyAscii::None;
  if (keyAscii == ui::KeyAscii::Return) cmdOk.SetFocus();
}

void frmCancel::cmdOk_Click() {
  if (!bas_.fnCheckBlank(txtcanreason, "Enter reason for deletion", bas_.MsgboxTitle)) return;
  if (const auto sentence = cancelEntry(bas_, entryId_, txtcanreason.Text())) bas_.message(*sentence);
  Unload();
}

}  // namespace payslate
