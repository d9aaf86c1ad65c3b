// Right letters of a user.
#include "component/FunctionRights.h"

#include "component/Session.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

constexpr std::int16_t userWithAllRights = 1;
constexpr const char* allRights = "NEDUP";
constexpr const char* administrator = "ADMIN";

std::string rightsStatement(const Session& session) {
  return "select functionrights from " + session.TableLinks["puserrights"] +
         " where userid = " + std::to_string(session.intUserID) +
         " and interfaceid = " + std::to_string(session.intInterfaceID);
}

}  // namespace

bool FunctionRights::load(Session& session) {
  if (session.intUserID == userWithAllRights) {
    strRights = allRights;
    return true;
  }
  ado::Recordset rights;
  rights.Open(rightsStatement(session), *session.adocon(), ado::CursorType::Keyset,
              ado::LockType::Optimistic);
  if (rights.RecordCount() < 1) return false;
  strRights = rights.Fields("FunctionRights").Text();
  return true;
}

bool FunctionRights::fnUserRights(std::string& letter) {
  letter = basic::upper(basic::Trim(letter));
  strRights = basic::upper(basic::Trim(strRights));
  if (strRights == administrator) return false;
  return strRights.find(letter) != std::string::npos;
}

bool FunctionRights::holds(const char* right) {
  std::string letter = right;
  return fnUserRights(letter);
}

}  // namespace payslate
