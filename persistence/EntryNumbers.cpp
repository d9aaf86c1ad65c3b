// Numbering entries.
#include "persistence/EntryNumbers.h"

#include "component/Session.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/basic/Unicode.h"
#include "platform/common/CommonDB.h"

namespace payslate {

namespace {

std::string prefixStatement(const Session& session) {
  return "SELECT Prefix FROM " + session.TableLinks["pPrefix"] +
         " WHERE CompanyID = " + session.companyText() +
         " and InterfaceID = " + std::to_string(session.intInterfaceID);
}

std::string largestNumberStatement(const Session& session, const std::string& prefix) {
  const std::string length = std::to_string(basic::characterCount(prefix));
  return "Select isnull(max(convert(int,right(emhNo,len(emhNo)- " + length + "))),0) from " +
         session.TableLinks["pempmonthlyentryheader"] + " where emhCompanyID = " + session.companyText() +
         " and len(emhNo)>len('" + prefix + "') and " + " isnumeric(isnull(right(emhNo,len(emhNo)-" + length +
         "),0)) =1 and substring(emhNo,1,len('" + prefix + "'))='" + prefix + "'";
}

}  // namespace

std::int32_t StoredEntryNumbers::nextId() {
  database_.strTableName(session_.TableLinks["pempmonthlyentryheader"]);
  return database_.fnGetNextMaxNo("emhID");
}

std::string StoredEntryNumbers::entryPrefix() {
  ado::Recordset row;
  row.Open(prefixStatement(session_), *session_.adocon(), ado::CursorType::Static, ado::LockType::ReadOnly);
  if (row.Bof() || row.Eof()) return {};
  const basic::Value prefix = row.Fields("Prefix").Value();
  if (basic::isNull(prefix))
    throw ado::Error("The entry-number prefix of this company and screen is Null; give it a text.", "22002");
  return basic::textOf(prefix);
}

double StoredEntryNumbers::largestRunningNumber(const std::string& prefix) {
  ado::Recordset row;
  row.Open(largestNumberStatement(session_, prefix), *session_.adocon(), ado::CursorType::Keyset,
           ado::LockType::Pessimistic);
  return row.Eof() ? 0 : basic::Val(row.Fields(0).Text());
}

std::string StoredEntryNumbers::fnGetEntryNo() {
  const std::string prefix = entryPrefix();
  return prefix + std::to_string(basic::CInt(largestRunningNumber(prefix) + 1));
}

CountedEntryNumbers::CountedEntryNumbers(StoredEntryNumbers& stored)
    : nextId_(stored.nextId()),
      prefix_(stored.entryPrefix()),
      largest_(stored.largestRunningNumber(prefix_)) {}

std::string CountedEntryNumbers::fnGetEntryNo() {
  return prefix_ + std::to_string(basic::CInt(++largest_));
}

}  // namespace payslate
