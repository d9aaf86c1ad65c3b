// Cancelling an entry with a reason.
#include "browser/frmCancel.h"

#include "component/BasPaySlate.h"
#include "persistence/Transaction.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

constexpr int singleQuote = '\'';
constexpr int doubleQuote = '"';
constexpr int reasonCharacters = 48;

std::string userStatement(const Session& session) {
  return "select username from " + session.TableLinks["pusers"] +
         " where companyid=" + session.companyText() + " and userid=" + std::to_string(session.intUserID);
}

std::string dropFacilities(const Session& session, const std::string& entryId) {
  return "delete from " + session.TableLinks["pempfacilitydeductiondetail"] +
         " where efdcompanyid = " + session.companyText() + " and efdid = " + entryId;
}

std::string markCancelled(const Session& session, const std::string& entryId, const std::string& remark) {
  std::string quoted;
  for (const char character : remark) quoted.append(character == singleQuote ? 2 : 1, character);
  return "update " + session.TableLinks["pempmonthlyentryheader"] +
         " set emhCancelled=1,emhCancelledRemarks='" + quoted + "' where emhID='" + entryId +
         "' and emhCompanyID=" + session.companyText();
}

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

std::string frmCancel::remark() const {
  ado::Recordset user;
  user.Open(userStatement(bas_), *bas_.adocon(), ado::CursorType::Keyset, ado::LockType::Optimistic);
  if (user.Eof()) return {};
  return basic::Trim(user.Fields("username").Text()) + ":" + basic::Trim(txtcanreason.Text());
}

void frmCancel::cmdOk_Click() {
  if (!bas_.fnCheckBlank(txtcanreason, "Enter reason for deletion", bas_.MsgboxTitle)) return;
  const std::string text = remark();
  const std::string entryId = bas_.entryList->currentEntryIdText();
  Transaction transaction(*bas_.adocon());
  transaction.begin();
  bas_.adocon()->Execute(dropFacilities(bas_, entryId));
  bas_.adocon()->Execute(markCancelled(bas_, entryId, text));
  transaction.commit();
  Unload();
}

}  // namespace payslate
