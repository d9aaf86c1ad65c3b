// Loading and looking up table links.
#include "component/TableLinkMap.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

// In the order in which a row of linkTable is tested against them; ploans has two slots.
constexpr const char* journal = "pEntryJournal";

constexpr std::array<std::string_view, 37> logicalNames{
    "pAllowances",
    "pEmployeeAllowanceHeader",
    "pemployeeallowancedetail",
    "pDeductions",
    "pemployeeDeductiondetail",
    "pEmployeeDeductionHeader",
    "ptables",
    "ptablecolumns",
    "puserrights",
    "pcalenderdetail",
    "pDepartment",
    "pcalenderheader",
    "ploans",
    "pLoansIssue",
    "ploanrepaymentdetails",
    "psavings",
    "ploans",
    "popeningsavings",
    "psavingsdetails",
    "pPrefix",
    "pformula",
    "pusers",
    "pgradeallowance",
    "pemployee",
    "pEmployeeattendence",
    "pemployeeleaves",
    "pgradeleaves",
    "pleaves",
    "psettings",
    "pempmonthlyentryheader",
    "pempattendancedetail",
    "pempfacilitydeductiondetail",
    "pFacilityTrackingHeader",
    "pFacilityMaster",
    "pEmpAttendanceAllowanceDeductions",
    "pCurrencyMaster",
    journal,
};

std::string journalStatement() {
  return std::string("select tablename, linktablename from linkTable where tablename = '") + journal + "'";
}

std::string linkStatement() {
  return "select tablename, linktablename from linkTable where tablename in  "
         " ('pAllowances','pEmployeeAllowanceHeader','pemployeeallowancedetail','pdeductions', "
         "'pemployeeDeductiondetail', 'pEmployeeDeductionHeader', 'ptables', "
         " 'ptablecolumns', 'puserrights','pcalenderdetail','pcalenderheader', 'ploans', 'pLoansIssue', "
         "'ploanrepaymentdetails', "
         " 'psavings ', 'popeningsavings','psavingsdetails','pPrefix', 'pformula', 'pusers ', 'pemployee',"
         " 'pEmployeeattendence', 'pemployeeleaves','pgradeleaves ','pgradeallowance','pleaves','psettings',"
         "'pempmonthlyentryheader','pempfacilitydeductiondetail', "
         " 'pFacilityTrackingHeader','pFacilityMaster','pEmpAttendanceAllowanceDeductions',"
         "'pempattendancedetail','pCurrencyMaster','pDepartment')";
}

}  // namespace

TableLinkMap::TableLinkMap() {
  slots_.reserve(logicalNames.size());
  for (const std::string_view name : logicalNames) slots_.emplace_back(name, std::string());
}

void TableLinkMap::load(ado::Connection& connection) {
  take(linkStatement(), connection);
}

void TableLinkMap::loadJournal(ado::Connection& connection) {
  assign(journal, {});
  take(journalStatement(), connection);
  const std::string& table = (*this)[journal];
  if (table.empty()) return;
  try {
    connection.Execute("select ejSequence from " + table + " where 1 = 0");
  } catch (ado::Error& error) {
    error.Description = "linkTable says that entries are journalled in " + table +
                        ", which cannot be read. Have the table made (payroll-host upgrade) or its row in "
                        "linkTable removed. " +
                        error.Description;
    throw;
  }
}

void TableLinkMap::take(const std::string& statement, ado::Connection& connection) {
  ado::Recordset links;
  links.Open(statement, connection, ado::CursorType::Keyset, ado::LockType::Optimistic);
  for (; !links.Eof(); links.MoveNext())
    assign(links.Fields("tablename").Text(), links.Fields("linktablename").Text());
  links.Close();
}

// The statement finds a name whatever blanks pad it, as a column of fixed width does.
void TableLinkMap::assign(std::string_view logicalName, const std::string& physicalName) {
  const std::string unpadded = basic::Trim(logicalName);
  for (auto& [name, physical] : slots_)
    if (basic::sameName(name, unpadded)) physical = physicalName;
}

const std::string& TableLinkMap::operator[](std::string_view logicalName) const {
  const auto same = [logicalName](const auto& slot) { return basic::sameName(slot.first, logicalName); };
  const auto found = std::find_if(slots_.begin(), slots_.end(), same);
  if (found == slots_.end())
    throw std::out_of_range("There is no table link " + std::string(logicalName) + ".");
  return found->second;
}

}  // namespace payslate
