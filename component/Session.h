// The session of a host's call, and what the component's forms pass to each other.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "component/TableLinkMap.h"
#include "platform/ado/Connection.h"
#include "platform/basic/Date.h"

namespace payslate {

/// Modes of the entry form, as `strMode` holds them.
namespace EntryMode {
constexpr const char* New = "N";
constexpr const char* Existing = "E";
}  // namespace EntryMode

/// One copy a process (in BasPaySlate); it outlives a Show and is overwritten by the next.
struct Session {
  /// Shared with the host; created unopened on first use if nothing was assigned.
  [[nodiscard]] const std::shared_ptr<ado::Connection>& adocon();
  void adocon(std::shared_ptr<ado::Connection> connection) { adocon_ = std::move(connection); }

  std::string MsgboxTitle;
  basic::Date ProcessDate;
  std::int16_t intUserID = 0;
  std::int32_t intInterfaceID = 0;
  std::int16_t intCompanyID = 0;
  std::int16_t intfinancialid = 0;

  TableLinkMap TableLinks;
  std::string strBrowseSQL;    ///< The browse list's statement; one row of it is read again after a save.
  std::string strBrowseTable;  ///< Physical name of the listed table.
  basic::Date dtPeriodStart;   ///< First day of the pay period being entered.
  basic::Date dtPeriodEnd;     ///< Last day of it.
  std::int16_t intDeptID = 0;  ///< Department of the selected employee; 0 when not known.
  std::string strComboTable;   ///< Physical name of the table that FillCombo reads.
  std::string strMode;         ///< EntryMode

  [[nodiscard]] bool isNewEntry() const { return strMode != EntryMode::Existing; }
  /// Is every change of an entry written down? Known once the links are loaded.
  [[nodiscard]] bool keepsJournal() const { return !TableLinks["pEntryJournal"].empty(); }
  /// The company as statements splice it in.
  [[nodiscard]] std::string companyText() const { return std::to_string(intCompanyID); }

 private:
  std::shared_ptr<ado::Connection> adocon_;
};

}  // namespace payslate
