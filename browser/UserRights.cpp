// What the user may do, and what the payroll run has taken.
#include "browser/BrowseColumns.h"
#include "browser/FrmMaster.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

using ado::CursorType;
using ado::LockType;

namespace {

constexpr std::int16_t userWithAllRights = 1;
constexpr const char* allRights = "NEDUP";
constexpr const char* administrator = "ADMIN";

namespace Right {
constexpr const char* New = "N";
constexpr const char* Edit = "E";
constexpr const char* Delete = "D";
constexpr const char* PostLedgers = "U";
}  // namespace Right

std::string rightsStatement(const Session& session) {
  return "select functionrights from " + session.TableLinks["puserrights"] +
         " where userid = " + std::to_string(session.intUserID) +
         " and interfaceid = " + std::to_string(session.intInterfaceID);
}

std::string processedStatement(const Session& session, const std::string& entryId) {
  return "Select count(emhCompanyID) from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID=" + session.companyText() + " and emhprocessed=1 and emhID=" + entryId;
}

}  // namespace

void FrmMaster::UserRights() {
  if (bas_.intUserID == userWithAllRights) {
    strRights = allRights;
  } else {
    ado::Recordset rights;
    rights.Open(rightsStatement(bas_), *bas_.adocon(), CursorType::Keyset, LockType::Optimistic);
    if (rights.RecordCount() < 1) return;
    strRights = rights.Fields("FunctionRights").Text();
  }
  cmdnew.Enabled = holds(Right::New);
  setEditAndDelete();
  cmdUpdate.Enabled = holds(Right::PostLedgers);
}

bool FrmMaster::fnUserRights(std::string& letter) {
  letter = basic::upper(basic::Trim(letter));
  strRights = basic::upper(basic::Trim(strRights));
  if (strRights == administrator) return false;
  return strRights.find(letter) != std::string::npos;
}

bool FrmMaster::holds(const char* right) {
  std::string letter = right;
  return fnUserRights(letter);
}

void FrmMaster::setEditAndDelete() {
  CmdEdit.Enabled = holds(Right::Edit);
  CmdDelete.Enabled = holds(Right::Delete);
}

bool FrmMaster::fnCheckPayrollProcessed() {
  ado::Recordset processed;
  processed.Open(processedStatement(bas_, currentCell(BrowseColumn::EntryId)), *bas_.adocon(),
                 CursorType::ForwardOnly, LockType::ReadOnly);
  return basic::CLng(processed.Fields(0).Value()) != 0;
}

}  // namespace payslate
