// Loading and looking up table links.
#include "component/TableLinkMap.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <stdexcept>

#include "platform/ado/Error.h"
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

// Of a plain name, or of one in brackets or quotation marks, in which the closing sign stands twice. Nothing
// where the quoted name does not end.
std::optional<std::size_t> namePart(std::string_view text) {
  if (text.empty() || (text.front() != '[' && text.front() != '"')) {
    const auto isPlain = [](unsigned char c) {
      return c >= 0x80U || std::isalnum(c) != 0 || c == '_' || c == '#' || c == '@' || c == '$';
    };
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isPlain) - text.begin());
  }
  const char close = text.front() == '[' ? ']' : '"';
  for (std::size_t at = text.find(close, 1); at != std::string_view::npos; at = text.find(close, at + 2))
    if (text.substr(at + 1, 1) != std::string_view(&close, 1)) return at + 1;
  return std::nullopt;
}

// Parts between points, as in server.database..table; nothing is a name too, which the database will miss.
bool isTableName(std::string_view text) {
  const auto skipBlanks = [&text] { text.remove_prefix(std::min(text.find_first_not_of(' '), text.size())); };
  for (;;) {
    skipBlanks();
    const auto part = namePart(text);
    if (!part) return false;
    text.remove_prefix(*part);
    skipBlanks();
    if (text.empty()) return true;
    if (text.front() != '.') return false;
    text.remove_prefix(1);
  }
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
  if (!isTableName(found->second))
    throw ado::Error("The table link " + std::string(found->first) + " is '" + found->second +
                         "', which is not the name of a table. Have linkTable corrected.",
                     "42000");
  return found->second;
}

}  // namespace payslate
