// The statements that read entries.
#include "persistence/EntryReader.h"

#include <algorithm>

#include "component/Amounts.h"
#include "component/CurrencySymbols.h"
#include "component/DatabaseValues.h"
#include "component/PayRows.h"
#include "component/Session.h"
#include "persistence/CarriedForward.h"
#include "platform/ado/Literal.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

using ado::CursorType;
using ado::LockType;

namespace {

std::string headerStatement(const Session& session, std::int32_t entryId) {
  return "select * from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID=" + session.companyText() + " and emhID=" + std::to_string(entryId);
}

std::string processedStatement(const Session& session, std::int32_t entryId) {
  return "Select count(emhCompanyID) from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID=" + session.companyText() +
         " and emhprocessed=1 and emhID=" + std::to_string(entryId);
}

std::string monthStatement(const Session& session, const char* employeeTest, std::int32_t employeeId,
                           const char* liveTest, basic::Date date) {
  return "select * from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID = " + session.companyText() + employeeTest + std::to_string(employeeId) +
         liveTest + " and month(emhDate)=" + std::to_string(date.month()) +
         " and year(emhDate)=" + std::to_string(date.year());
}

std::string deductionStatement(const Session& session, std::int32_t entryId) {
  return "select eddcompanyid, eddid,edddetailid, case when edd.edddeductionid "
         " is not null then pd.ddescription when edd.eddsavingsid is not null then "
         " sd.sdescription when edd.eddloanid is not null then l.ldescription end description, "
         " case when pd.dcurrencyid is not null then  pd.dcurrencyid  when "
         " sd.scurrencyid  is not null then sd.scurrencyid  when l.lcurrencyid is not "
         " null then l.lcurrencyid end curid,"
         " case when edd.edddeductionid is not null then  edd.edddeductionid  when "
         " edd.eddsavingsid is not null then edd.eddsavingsid when edd.eddloanid is not "
         " null then edd.eddloanid end typeid,eddamount, eddType type,eddLoanIssueID,eddOpenSavingsID "
         " from " +
         session.TableLinks["pemployeeDeductiondetail"] + " edd left  outer join " +
         session.TableLinks["pDeductions"] +
         " pd on edd.eddcompanyid = pd.dcompanyid And  edd.edddeductionid = pd.ddedid left outer join " +
         session.TableLinks["psavings"] +
         " sd on  edd.eddcompanyid = sd.scompanyid And edd.eddsavingsid = sd.ssavingsid  left outer join " +
         session.TableLinks["ploans"] +
         " l on edd.eddcompanyid = l.lcompanyid And edd.eddloanid  = l.lloanid where eddcompanyid=" +
         session.companyText() + " and eddid=" + std::to_string(entryId) + " order by edddetailid";
}

std::string allowanceStatement(const Session& session, std::int32_t entryId) {
  return "select eadcompanyid, eadid,  adescription, eadallowanceid, case when "
         " eaddefault =1 then 'Y' else 'N' end edefault,  eadamount from " +
         session.TableLinks["pemployeeallowancedetail"] + " ead , " + session.TableLinks["pAllowances"] +
         " a where  ead.eadcompanyid = a.acompanyid and ead.eadallowanceid  = a.aallowanceid "
         " and eadcompanyid=" +
         session.companyText() + " and eadid=" + std::to_string(entryId);
}

std::string facilityStatement(const Session& session, std::int32_t entryId, std::int32_t employeeId) {
  return "select fm.fmcurrencyid,fm.fmdeductionid ,h.fthTrackingID,fm.fmFacilityName,h.fthTrackingNo,"
         " h.fthDeductionAmt, sum(IsNull(fd.efddedamount, 0)) DedcutedAmt "
         " from pFacilityTrackingHeader h ,pdeductions d,pfacilitymaster fm,"
         " pempfacilitydeductiondetail fd Where d.dcompanyid = h.fthcompanyid "
         " And fm.fmcompanyid = d.dcompanyid  and fm.fmdeductionid = d.dDedID "
         " and fm.fmFacilityID=h.fthFacilityID and fd.efdcompanyid=h.fthcompanyid "
         " and h.fthTrackingID=fd.efdtrackingid and h.fthEmployeeID=" +
         std::to_string(employeeId) + " and  h.fthcompanyid=" + session.companyText() +
         " and fd.efdid=" + std::to_string(entryId) +
         " group by h.fthTrackingID,h.fthTrackingno,fm.fmFacilityName,fm.fmdeductionid,h.fthDeductionAmt,"
         "fm.fmcurrencyid";
}

// A recovery is shown once, however many rows of the entry take it.
std::string rowCountStatement(const Session& session, std::int32_t entryId) {
  const auto below = [&](const char* company, const char* entry) {
    return std::string(" where ") + company + " = " + session.companyText() + " and " + entry + " = " +
           std::to_string(entryId) + ")";
  };
  return "select (select count(*) from " + session.TableLinks["pemployeeallowancedetail"] +
         below("eadcompanyid", "eadid") + " allowances, (select count(*) from " +
         session.TableLinks["pemployeeDeductiondetail"] + below("eddcompanyid", "eddid") +
         " deductions, (select count(distinct isnull(efdtrackingid, 0)) from " +
         session.TableLinks["pempfacilitydeductiondetail"] + below("efdcompanyid", "efdid") +
         " recoveries, (select count(*) from pEmployeeCurrentDetails" +
         below("ecdCompanyID", "ecdPaySlateID") + " movements";
}

std::string openRecoveryStatement(const Session& session, std::int32_t employeeId) {
  return "select m.fmcurrencyid,h.fthTrackingID,h.fthTrackingno,m.fmFacilityName,"
         " h.fthDeductionAmt , sum(IsNull(d.efddedamount, 0)) DedcutedAmt,m.fmdeductionid "
         " from pFacilityMaster m,pdeductions de ,pFacilityTrackingHeader h"
         " left outer join  pempfacilitydeductiondetail d on h.fthTrackingID=d.efdtrackingid"
         " and h.fthCompanyID= d.efdcompanyid where h.fthCancelled=0 "
         " and  m.fmFacilityID=h.fthFacilityID and m.fmCompanyID=h.fthCompanyID and "
         " h.fthTrackingID not in (select distinct efdtrackingid from pEmpFacilityDeductiondetail"
         " where efdcompanyid =" +
         session.companyText() + ") and  h.fthEmployeeID= " + std::to_string(employeeId) +
         " and h.fthDeductionAmt>0 and h.fthCompanyID=" + session.companyText() +
         " and de.dCompanyID=m.fmCompanyID "
         " group by m.fmcurrencyid,h.fthTrackingID,h.fthTrackingno,m.fmFacilityName,h.fthDeductionAmt,"
         "m.fmdeductionid";
}

EntryRecord headerOf(ado::Recordset& row) {
  EntryRecord entry;
  entry.id = basic::CLng(row.Fields("emhID").Value());
  entry.employeeId = basic::CLng(row.Fields("emhempID").Value());
  entry.number = row.Fields("emhNo").Text();
  entry.date = dateOf(row.Fields("emhDate").Value());
  entry.basicPay = basic::numberText(numberOf(row.Fields("emhbasicpay").Value()));
  entry.paidCash = static_cast<PaidCash>(basic::CInt(numberOf(row.Fields("emhpaidcash").Value())));
  entry.periodStart = dateOf(row.Fields("emhstartdate").Value());
  entry.periodEnd = dateOf(row.Fields("emhenddate").Value());
  entry.cancelled = flagOf(row.Fields("emhCancelled").Value());
  entry.processed = numberOf(row.Fields("emhprocessed").Value()) == 1;
  return entry;
}

std::string serialNumber(const std::vector<ListRow>& rows) {
  return std::to_string(rows.size() + 1);
}

// A recovery that lacks something cannot be recovered rightly.
std::string requiredText(ado::Recordset& recovery, const char* column) {
  const basic::Value value = recovery.Fields(column).Value();
  if (basic::isNull(value))
    throw ado::Error("A facility recovery of the employee (" + recovery.Fields("fthTrackingID").Text() +
                         ") has no " + column + ": complete the facility before the entry is made.",
                     "22002");
  return basic::textOf(value);
}

std::optional<EntryRecord> firstHeader(Session& session, const std::string& statement) {
  ado::Recordset rows;
  rows.Open(statement, *session.adocon(), CursorType::Keyset, LockType::Optimistic);
  if (rows.Eof()) return {};
  return headerOf(rows);
}

}  // namespace

EntryRecord readHeader(Session& session, std::int32_t entryId) {
  if (auto entry = firstHeader(session, headerStatement(session, entryId))) return *std::move(entry);
  throw ado::Error("This entry is not in the database any more. Close the list and open it again.", "02000");
}

std::optional<EntryRecord> liveInMonth(Session& session, std::int32_t employeeId, basic::Date date) {
  return firstHeader(session,
                     monthStatement(session, " and emhempID  = ", employeeId, " and emhCancelled=0", date));
}

std::optional<EntryRecord> liveAmongAllInMonth(Session& session, std::int32_t employeeId, basic::Date date) {
  ado::Recordset rows;
  rows.Open(monthStatement(session, " and emhempID = ", employeeId, "", date), *session.adocon(),
            CursorType::Keyset, LockType::Optimistic);
  for (; !rows.Eof(); rows.MoveNext())
    if (EntryRecord entry = headerOf(rows); !entry.cancelled) return entry;
  return {};
}

std::optional<std::int32_t> entryOfNumber(Session& session, const std::string& number) {
  ado::Recordset rows = session.adocon()->Execute(
      "select emhID from " + session.TableLinks["pempmonthlyentryheader"] +
      " where emhCompanyID = " + session.companyText() + " and emhNo = " + ado::literal(number));
  if (rows.Eof()) return {};
  return basic::CLng(rows.Fields(0).Value());
}

std::string numberOfEntry(Session& session, std::int32_t entryId) {
  const auto header = firstHeader(session, headerStatement(session, entryId));
  return header ? header->number : std::string();
}

bool isProcessedEntry(Session& session, std::int32_t entryId) {
  ado::Recordset processed;
  processed.Open(processedStatement(session, entryId), *session.adocon(), CursorType::ForwardOnly,
                 LockType::ReadOnly);
  return basic::CLng(processed.Fields(0).Value()) != 0;
}

ListRow EntryReader::deduction(ado::Recordset& rows) {
  // A column of fixed width pads it, and every page compares it with a letter.
  const std::string type = basic::Trim(rows.Fields("type").Text());
  std::string transaction;
  if (type == DeductKind::Loan) transaction = rows.Fields("eddLoanIssueID").Text();
  if (type == DeductKind::Savings) transaction = rows.Fields("eddOpenSavingsID").Text();
  const std::string symbol =
      CurrencySymbols(session_, database_).ofStoredDeduction(rows.Fields("curid").Text());
  return {{},
          rows.Fields("description").Text(),
          amountText(rows.Fields("eddamount").Value()),
          rows.Fields("typeid").Text(),
          type,
          symbol,
          transaction};
}

void EntryReader::readDeductions(EntryRecord& entry) {
  ado::Recordset rows;
  rows.Open(deductionStatement(session_, entry.id), *session_.adocon(), CursorType::Keyset,
            LockType::Optimistic);
  for (; !rows.Eof(); rows.MoveNext()) {
    ListRow row = deduction(rows);
    row[DeductColumn::SlNo] = serialNumber(entry.deductions);
    entry.deductions.push_back(std::move(row));
  }
}

void EntryReader::readAllowances(EntryRecord& entry) {
  ado::Recordset rows;
  rows.Open(allowanceStatement(session_, entry.id), *session_.adocon(), CursorType::Keyset,
            LockType::Optimistic);
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::string id = rows.Fields("eadallowanceid").Text();
    entry.allowances.push_back({serialNumber(entry.allowances), rows.Fields("aDescription").Text(),
                                amountText(rows.Fields("eadamount").Value()), id,
                                rows.Fields("edefault").Text(),
                                CurrencySymbols(session_, database_).ofStoredAllowance(id)});
  }
}

void EntryReader::fnLoadEntryFacilities(EntryRecord& entry) {
  ado::Recordset rows;
  rows.Open(facilityStatement(session_, entry.id, entry.employeeId), *session_.adocon(), CursorType::Keyset,
            LockType::Optimistic);
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::string deducted = rows.Fields("DedcutedAmt").Text();
    entry.facilities.push_back(
        {static_cast<std::int16_t>(entry.facilities.size() + 1), rows.Fields("fthTrackingID").Text(),
         rows.Fields("fthTrackingno").Text(), rows.Fields("fmFacilityName").Text(),
         rows.Fields("fthDeductionAmt").Text(), deducted, deducted, rows.Fields("fmdeductionid").Text(),
         CurrencySymbols(session_, database_).ofStoredRecovery(rows.Fields("fmcurrencyid").Text())});
  }
}

void EntryReader::fnLoadEntryCarryForward(EntryRecord& entry) {
  for (const Movement& movement : readMovements(session_, entry.id)) {
    if (movement.mode == MovementMode::PaidOut) {
      entry.allowances.push_back({serialNumber(entry.allowances), balanceDescription, movement.amount,
                                  movement.amount, AllowKind::CarriedForward, movement.symbol});
    } else {
      entry.deductions.push_back({serialNumber(entry.deductions), carryForwardDescription, movement.amount,
                                  movement.amount, DeductKind::CarriedForward, movement.symbol});
    }
  }
}

// Kind by kind, or a row shown twice would hide one that is not shown. Deductions and movements are one kind:
// every deduction is shown, with any letter, also with that of a movement.
int EntryReader::hiddenRows(const EntryRecord& entry) {
  ado::Recordset stored;
  stored.Open(rowCountStatement(session_, entry.id), *session_.adocon(), CursorType::ForwardOnly,
              LockType::ReadOnly);
  const auto count = [&stored](const char* kind) { return basic::CLng(stored.Fields(kind).Value()); };
  const auto size = [](const auto& rows) { return static_cast<std::int32_t>(rows.size()); };
  const auto fromMovement = [](const ListRow& row) {
    return cell(row, AllowColumn::Default) == AllowKind::CarriedForward;
  };
  const auto paidOut = static_cast<std::int32_t>(
      std::count_if(entry.allowances.begin(), entry.allowances.end(), fromMovement));
  return std::max(0, count("allowances") - (size(entry.allowances) - paidOut)) +
         std::max(0, count("deductions") + count("movements") - (size(entry.deductions) + paidOut)) +
         std::max(0, count("recoveries") - size(entry.facilities));
}

void EntryReader::readRows(EntryRecord& entry) {
  readDeductions(entry);
  readAllowances(entry);
  fnLoadEntryFacilities(entry);
  fnLoadEntryCarryForward(entry);
}

EntryRecord EntryReader::whole(std::int32_t entryId) {
  EntryRecord entry = readHeader(session_, entryId);
  readRows(entry);
  return entry;
}

std::vector<FacilityRow> EntryReader::openRecoveries(std::int32_t employeeId) {
  ado::Recordset rows;
  rows.Open(openRecoveryStatement(session_, employeeId), *session_.adocon(), CursorType::Keyset,
            LockType::Optimistic);
  std::vector<FacilityRow> recoveries;
  for (; !rows.Eof(); rows.MoveNext()) {
    FacilityRow row;
    row.position = static_cast<std::int16_t>(recoveries.size() + 1);
    row.actual = row.deducted = row.settlement = requiredText(rows, "fthDeductionAmt");
    row.trackingId = requiredText(rows, "fthTrackingID");
    row.number = requiredText(rows, "fthTrackingno");
    row.name = requiredText(rows, "fmFacilityName");
    row.deductionId = requiredText(rows, "fmdeductionid");
    static_cast<void>(requiredText(rows, "fmcurrencyid"));
    row.symbol = CurrencySymbols(session_, database_).ofCurrency(rows.Fields("fmcurrencyid").Value());
    recoveries.push_back(std::move(row));
  }
  return recoveries;
}

}  // namespace payslate
