// The header row of an entry and its number.
#include "component/Session.h"
#include "persistence/EntryWriter.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/basic/Unicode.h"
#include "platform/common/CommonDB.h"

namespace payslate {

namespace {

constexpr const char* moneyPattern = "0.00";
constexpr std::int16_t notCancelled = 0;

// Two decimals; what is no number stays as it is, for the column to refuse.
std::string moneyText(const std::string& typed) {
  return basic::IsNumeric(typed) ? basic::Format(basic::Val(typed), moneyPattern) : typed;
}

std::string newHeaderStatement(const Session& session, std::int32_t employeeId) {
  return "select * from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID= " + session.companyText() + " and emhempID = " + std::to_string(employeeId) +
         " and emhCancelled = 0 ";
}

std::string storedHeaderStatement(const Session& session, std::int32_t entryId) {
  return "select * from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID = " + session.companyText() + " and emhID = " + std::to_string(entryId) +
         " and emhCancelled = 0 ";
}

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

bool isProcessed(const basic::Value& mark) {
  return !basic::isNull(mark) && basic::CLng(mark) == 1;
}

}  // namespace

std::string EntryWriter::entryPrefix() {
  ado::Recordset row;
  row.Open(prefixStatement(session_), *session_.adocon(), ado::CursorType::Static, ado::LockType::ReadOnly);
  if (row.Bof() || row.Eof()) return {};
  const basic::Value prefix = row.Fields("Prefix").Value();
  if (basic::isNull(prefix))
    throw ado::Error("The entry-number prefix of this company and screen is Null; give it a text.", "22002");
  return basic::textOf(prefix);
}

double EntryWriter::largestRunningNumber(const std::string& prefix) {
  ado::Recordset row;
  row.Open(largestNumberStatement(session_, prefix), *session_.adocon(), ado::CursorType::Keyset,
           ado::LockType::Pessimistic);
  return row.Eof() ? 0 : basic::Val(row.Fields(0).Text());
}

void EntryWriter::fnGetEntryNo() {
  const std::string prefix = entryPrefix();
  strEntryNo_ = prefix + std::to_string(basic::CInt(largestRunningNumber(prefix) + 1));
}

basic::Value EntryWriter::originalBasic() {
  const std::string employee =
      "eCompanyID=" + session_.companyText() + " and eEmpID=" + std::to_string(entry_.employeeId);
  database_.strTableName(session_.TableLinks["pemployee"]);
  basic::Value basicPay = database_.fnreturnfield("eBasic", employee);
  if (basic::isNull(basicPay) && basic::isNull(database_.fnreturnfield("eEmpID", employee)))
    throw ado::Error("The employee was removed while the entry was open. Nothing is stored.", "02000");
  return basicPay;
}

std::int32_t EntryWriter::fnSaveHeader() {
  ado::Recordset header;
  if (session_.isNewEntry()) {
    header.Open(newHeaderStatement(session_, entry_.employeeId), *session_.adocon(), ado::CursorType::Keyset,
                ado::LockType::Optimistic);
    header.AddNew();
    header.Fields("emhCompanyID") = session_.intCompanyID;
    database_.strTableName(session_.TableLinks["pempmonthlyentryheader"]);
    lngEntryID_ = database_.fnGetNextMaxNo("emhID");
    header.Fields("emhID") = lngEntryID_;
    fnGetEntryNo();
    header.Fields("emhNo") = strEntryNo_;
    header.Fields("emhDate") = entry_.entryDate;
  } else {
    lngEntryID_ = basic::CLng(entry_.browseEntryId);
    header.Open(storedHeaderStatement(session_, lngEntryID_), *session_.adocon(), ado::CursorType::Keyset,
                ado::LockType::Optimistic);
    if (header.Eof())
      throw ado::Error("This entry was cancelled or removed while it was open. Nothing is stored.", "02000");
    if (isProcessed(header.Fields("emhprocessed").Value()))
      throw ado::Error("The payroll run has taken this entry while it was open. Nothing is stored.", "02000");
  }
  header.Fields("emhempID") = entry_.employeeId;
  header.Fields("emhpaidcash") = static_cast<std::int16_t>(entry_.paidCash);
  header.Fields("emhCancelled") = notCancelled;
  header.Fields("emhbasicpay") = moneyText(entry_.basicPay);
  header.Fields("emhstartdate") = session_.dtPeriodStart;
  header.Fields("emhenddate") = session_.dtPeriodEnd;
  header.Fields("emhOrginalBasic") = originalBasic();
  header.Update();
  return lngEntryID_;
}

}  // namespace payslate
