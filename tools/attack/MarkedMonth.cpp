// Marked rows, and looking for those that are missing.
#include "tools/attack/MarkedMonth.h"

#include "component/EntryRecord.h"
#include "component/PayRows.h"
#include "persistence/Cancellation.h"
#include "persistence/EntryReader.h"
#include "persistence/EntryStore.h"
#include "persistence/JournalProof.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/Transaction.h"
#include "platform/basic/Numbers.h"

namespace payslate::attack {

namespace {

constexpr int trackingsOfAnEmployee = 10;

/// The rows below a header: how many of them an entry of a mark has.
struct Detail {
  const char* table;
  const char* company;
  const char* entry;
  const char* amount;
  int mostRows;
};
constexpr Detail allowances{"pemployeeallowancedetail", "eadcompanyid", "eadid", "eadamount", 4};
constexpr Detail deductions{"pemployeeDeductiondetail", "eddcompanyid", "eddid", "eddamount", 5};
constexpr Detail facilities{"pempfacilitydeductiondetail", "efdcompanyid", "efdid", "efddedamount", 3};
constexpr Detail movements{"pEmployeeCurrentDetails", "ecdCompanyID", "ecdPaySlateID", "ecdAmount", 2};

int rowsOf(const Detail& detail, std::int32_t mark) {
  return 1 + mark % detail.mostRows;
}

EntryRecord marked(std::int32_t employee, std::int32_t mark) {
  const std::string amount = std::to_string(mark);
  EntryRecord entry;
  entry.date = entry.periodEnd = basic::Date::fromCalendar(2026, 5, 31);
  entry.periodStart = basic::Date::fromCalendar(2026, 5, 1);
  entry.employeeId = employee;
  entry.basicPay = amount;
  for (int row = 0; row < rowsOf(allowances, mark); ++row)
    entry.allowances.push_back({"", "Travel", amount, "4", AllowKind::Added, "Rs"});
  for (int row = 0; row < rowsOf(deductions, mark); ++row)
    entry.deductions.push_back({"", "Union fee", amount, "7", DeductKind::Added, "Rs", ""});
  for (int row = 0; row < rowsOf(movements, mark); ++row)
    entry.deductions.push_back({"", "", amount, amount, DeductKind::CarriedForward, "Rs"});
  for (int row = 0; row < rowsOf(facilities, mark); ++row) {
    const std::string tracking = std::to_string(employee * trackingsOfAnEmployee + row);
    entry.facilities.push_back(
        {static_cast<std::int16_t>(row), tracking, "", "", amount, amount, amount, "3", "Rs"});
  }
  return entry;
}

std::int32_t whole(ado::Recordset& rows, std::size_t column) {
  return basic::CLng(rows.Fields(column).Value());
}

void require(bool holds, std::int32_t entry, const std::string& what) {
  if (!holds) throw Broken("Entry " + std::to_string(entry) + " " + what + ".");
}

}  // namespace

Holding Holding::after(const Deed& deed) const {
  Holding next = *this;
  next.live = deed.kind == Kind::Cancel ? 0 : deed.mark;
  if (deed.kind == Kind::Cancel) next.cancelled.insert(live);
  return next;
}

MarkedMonth::MarkedMonth(const std::string& path)
    : database_(common::createObjectAs<common::CommonDB>(common::CommonDB::registeredName)) {
  session_.adocon()->Open(path);
  session_.intCompanyID = 1;
  session_.intUserID = 1;
  session_.intInterfaceID = 40001;
  session_.TableLinks.load(*session_.adocon());
  session_.TableLinks.loadJournal(*session_.adocon());
  database_->adocon(session_.adocon());
}

std::int32_t MarkedMonth::liveEntry(std::int32_t employee) {
  const auto found = liveInMonth(session_, employee, basic::Date::fromCalendar(2026, 5, 31));
  if (!found) throw Broken("Employee " + std::to_string(employee) + " has no live entry.");
  return found->id;
}

void MarkedMonth::perform(const Deed& deed) {
  if (deed.kind == Kind::Cancel) {
    const auto refusal = cancelEntry(session_, liveEntry(deed.employee), std::to_string(deed.mark));
    if (refusal) throw Broken(*refusal);
    return;
  }
  EntryRecord entry = marked(deed.employee, deed.mark);
  if (deed.kind == Kind::Rewrite) entry.id = liveEntry(deed.employee);
  storeEntry(session_, *database_, entry, {});
}

Holdings MarkedMonth::holdings() {
  ado::Connection& connection = *session_.adocon();
  const ado::Transaction moment(connection);
  Holdings found;
  std::map<std::int32_t, std::int32_t> marks;  // By entry; 0 for one that is not of this month.
  std::map<std::int32_t, bool> cancelled;
  ado::Recordset headers = connection.Execute(
      "select emhID, emhempID, emhbasicpay, emhCancelled, case when emhDate = '2026/05/31' then 1 else 0 "
      "end, isnull(emhCancelledRemarks, '') from pempmonthlyentryheader where emhCompanyID = 1");
  for (; !headers.Eof(); headers.MoveNext()) {
    const std::int32_t id = whole(headers, 0);
    if (marks[id] = 0; whole(headers, 4) == 0) continue;
    const std::int32_t mark = marks[id] = whole(headers, 2);
    Holding& holding = found[whole(headers, 1)];
    cancelled[id] = whole(headers, 3) != 0;
    require(headers.Fields(5).Text().ends_with(":" + std::to_string(mark)) == cancelled[id], id,
            "is cancelled by half");
    if (!cancelled[id]) require(std::exchange(holding.live, mark) == 0, id, "is a second live one");
    if (cancelled[id]) holding.cancelled.insert(mark);
  }
  for (const Detail& detail : {allowances, deductions, facilities, movements}) {
    std::map<std::int32_t, int> counted;
    ado::Recordset rows =
        connection.Execute(std::string("select ") + detail.entry + ", count(*), min(" + detail.amount +
                           "), max(" + detail.amount + ") from " + detail.table + " where " + detail.company +
                           " = 1 group by " + detail.entry);
    for (; !rows.Eof(); rows.MoveNext()) {
      const std::int32_t id = whole(rows, 0);
      const auto entry = marks.find(id);
      require(entry != marks.end(), id, std::string("has no header, but rows of ") + detail.table);
      if (entry->second == 0) continue;
      counted[id] = whole(rows, 1);
      require(whole(rows, 2) == entry->second && whole(rows, 3) == entry->second, id,
              std::string("is mixed with another in ") + detail.table);
    }
    for (const auto& [id, mark] : marks) {
      if (mark == 0) continue;
      const bool given = detail.table == facilities.table && cancelled[id];
      require(counted[id] == (given ? 0 : rowsOf(detail, mark)), id,
              std::string("has not its rows of ") + detail.table);
    }
  }
  return found;
}

EntryRows MarkedMonth::rows() {
  const std::pair<const char*, const char*> statements[] = {
      {"emhID", "* from pempmonthlyentryheader where emhCompanyID = 1"},
      {"eadid", "* from pemployeeallowancedetail where eadcompanyid = 1"},
      {"eddid", "* from pemployeeDeductiondetail where eddcompanyid = 1"},
      {"efdid", "* from pempfacilitydeductiondetail where efdcompanyid = 1"},
      {"ecdPaySlateID", "* from pEmployeeCurrentDetails where ecdCompanyID = 1"},
      {"ejEntryID",
       "ejEntryID, ejSequence, ejUserID, ejAction, ejKind, ejItem, ejBefore, ejAfter from pEntryJournal "
       "where ejCompanyID = 1"}};
  EntryRows entries;
  for (const auto& [id, statement] : statements) {
    ado::Recordset found = session_.adocon()->Execute(std::string("select ") + statement);
    for (; !found.Eof(); found.MoveNext()) {
      std::string line = id;
      for (std::size_t field = 0; field < found.FieldCount(); ++field)
        line += '|' + found.Fields(field).Text();
      entries[basic::CLng(found.Fields(id).Value())].insert(line);
    }
  }
  return entries;
}

void MarkedMonth::requireJournal() {
  const JournalProof proof = proveJournal(session_, {});
  for (const auto& faults : {proof.broken, proof.foreign})
    for (const JournalFault& fault : faults) throw Broken("The journal of an entry: " + fault.what + ".");
}

}  // namespace payslate::attack
