// Reading a stored entry: header, day counts and the rows of its lists.
#include "browser/StoredEntry.h"

#include "component/BasPaySlate.h"
#include "component/ListPage.h"
#include "component/PayRows.h"
#include "entry/frmpayslate.h"
#include "persistence/EntryRecord.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/common/CommonDB.h"
#include "platform/common/CommonGen.h"

namespace payslate {

using ado::CursorType;
using ado::LockType;

namespace {

constexpr const char* amountPattern = "0.00";
constexpr int paidOut = -1;  // ecdMode of what the entry paid out of the balance.

std::string headerStatement(const Session& session, const std::string& entryId) {
  return "select * from " + session.TableLinks["pempmonthlyentryheader"] +
         " where emhCompanyID=" + session.companyText() + " and emhID=" + entryId;
}

// Whole days alone: half days that count when the month is entered do not count here.
// The three day counts differ in their head, in blanks, and in the attendance types that they count.
struct DayCount {
  const char* head;
  const char* afterDetail;
  const char* types;
  const char* untilStart;
};

constexpr DayCount presentDays{"select count(distinct(eaddate)) present from ", " d,",
                               "d.eadtype in ('p','h')", " eaddate <='"};
constexpr DayCount absentDays{"select count(distinct(eaddate)) absent from ", " d ,", "d.eadtype ='a'",
                              " eaddate <= '"};
constexpr DayCount holidays{"select count(distinct(eaddate)) Holidays from ", " d ,", "d.eadtype ='h'",
                            " eaddate <= '"};

std::string countStatement(const Session& session, const DayCount& count, std::int32_t employeeId) {
  return count.head + session.TableLinks["pempattendancedetail"] + count.afterDetail +
         session.TableLinks["pEmployeeattendence"] +
         " h  where h.eaid = d.eadAttendanceID and  h.eacompanyid = d.eadcompanyid and h.eaCancelled =0 and " +
         count.types + " and eaddate >= '" + slashDate(session.dtPeriodStart) + "' and " + count.untilStart +
         slashDate(session.dtPeriodEnd) + "' and eadCompanyId=" + session.companyText() +
         " and eaEmpID=" + std::to_string(employeeId);
}

std::string deductionStatement(const Session& session, const std::string& entryId) {
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
         session.companyText() + " and eddid=" + entryId + " order by edddetailid";
}

std::string allowanceStatement(const Session& session, const std::string& entryId) {
  return "select eadcompanyid, eadid,  adescription, eadallowanceid, case when "
         " eaddefault =1 then 'Y' else 'N' end edefault,  eadamount from " +
         session.TableLinks["pemployeeallowancedetail"] + " ead , " + session.TableLinks["pAllowances"] +
         " a where  ead.eadcompanyid = a.acompanyid and ead.eadallowanceid  = a.aallowanceid "
         " and eadcompanyid=" +
         session.companyText() + " and eadid=" + entryId;
}

std::string facilityStatement(const Session& session, const std::string& entryId, std::int32_t employeeId) {
  return "select fm.fmcurrencyid,fm.fmdeductionid ,h.fthTrackingID,fm.fmFacilityName,h.fthTrackingNo,"
         " h.fthDeductionAmt, sum(IsNull(fd.efddedamount, 0)) DedcutedAmt "
         " from pFacilityTrackingHeader h ,pdeductions d,pfacilitymaster fm,"
         " pempfacilitydeductiondetail fd Where d.dcompanyid = h.fthcompanyid "
         " And fm.fmcompanyid = d.dcompanyid  and fm.fmdeductionid = d.dDedID "
         " and fm.fmFacilityID=h.fthFacilityID and fd.efdcompanyid=h.fthcompanyid "
         " and h.fthTrackingID=fd.efdtrackingid and h.fthEmployeeID=" +
         std::to_string(employeeId) + " and  h.fthcompanyid=" + session.companyText() +
         " and fd.efdid=" + entryId +
         " group by h.fthTrackingID,h.fthTrackingno,fm.fmFacilityName,fm.fmdeductionid,h.fthDeductionAmt,"
         "fm.fmcurrencyid";
}

std::string carryForwardStatement(const Session& session, const std::string& entryId) {
  return "Select b.ecdCompanyID,b.ecdPaySlateID,b.ecdDetailID,b.ecdAmount,b.ecdMode,d.Symbol"
         " from pEmpMonthlyEntryHeader a,pEmployeeCurrentDetails b,pEmployee c, " +
         session.TableLinks["pCurrencyMaster"] +
         " d Where a.emhCompanyID = b.ecdCompanyID and a.emhId=b.ecdPaySlateID and "
         "a.emhCompanyID=c.eCompanyID and a.emhEmpID=c.eEmpID and "
         "c.eCompanyID=d.CompanyID and c.eCurrencyID=d.CurrencyID and "
         "a.emhCancelled=0 and a.emhID=" +
         entryId + " and a.emhCompanyID=" + session.companyText();
}

std::string amountOf(const ado::Field& field) {
  return basic::Format(numberOf(field.Value()), amountPattern);
}

}  // namespace

StoredEntry::StoredEntry(BasPaySlate& bas, common::CommonDB& database, std::string entryId)
    : bas_(bas), database_(database), entryId_(std::move(entryId)) {
  ado::Recordset header;
  header.Open(headerStatement(bas_, entryId_), *bas_.adocon(), CursorType::Keyset, LockType::Optimistic);
  if (header.Eof())
    throw ado::Error("This entry is not in the database any more. Close the list and open it again.",
                     "02000");
  employeeId_ = basic::CLng(header.Fields("emhempID").Value());
  number_ = header.Fields("emhNo").Text();
  date_ = dateOf(header.Fields("emhDate").Value());
  basicPay_ = numberOf(header.Fields("emhbasicpay").Value());
  paidCash_ = basic::CInt(numberOf(header.Fields("emhpaidcash").Value()));
  cancelled_ = flagOf(header.Fields("emhCancelled").Value());
}

void StoredEntry::showHeader(frmpayslate& form, common::CommonGen& general) const {
  dateAndNumber(form);
  general.selectcomboitembyvalue(form.cboEmpname, employeeId_);
  dateAndNumber(form);  // The choice may have met another, cancelled entry of the month first.
  form.txtBasicPay.Text = basic::numberText(basicPay_);

  const auto code = static_cast<PaidCash>(paidCash_);
  if (code != PaidCash::Normal && code != PaidCash::PaidInCash && code != PaidCash::OnHold) return;
  using enum ui::CheckState;
  form.Chkpaid.Value = code == PaidCash::PaidInCash ? Checked : Unchecked;
  form.chkHold.Value = code == PaidCash::OnHold ? Checked : Unchecked;
}

void StoredEntry::dateAndNumber(frmpayslate& form) const {
  form.txtAtteNo.Text = number_;
  form.dtpattdate.Value = date_;
}

void StoredEntry::fnLoadAttendanceCounts(frmpayslate& form, std::int32_t employeeId) {
  const auto count = [&](const DayCount& days, auto take) {
    ado::Recordset row;
    row.Open(countStatement(bas_, days, employeeId), *bas_.adocon(), CursorType::Keyset,
             LockType::Optimistic);
    if (!row.Eof()) take(basic::CDbl(row.Fields(0).Value()));
  };
  count(presentDays, [&](double days) { form.txtNoPresent.Text = basic::numberText(days); });
  count(absentDays, [&](double days) { form.txtNoAbsent.Text = basic::numberText(days); });
  count(holidays, [&](double days) { form.dblHolidays(days); });

  using basic::Val;
  const double days = basic::CInt(basic::daysBetween(bas_.dtPeriodStart, bas_.dtPeriodEnd) + 1);
  form.txtNoLeave.Text =
      basic::numberText(days - (Val(form.txtNoAbsent.Text()) + Val(form.txtNoPresent.Text())));
  form.txtworkingdays.Text = basic::numberText(days - Val(form.txtNoLeave.Text()));
}

std::string StoredEntry::currencySymbol(const char* field, const std::string& condition) {
  database_.strTableName(bas_.TableLinks["pCurrencyMaster"]);
  return basic::textOf(database_.fnreturnfield(field, condition));
}

void StoredEntry::loadDeductions(ui::ListView& lvwDeduct) {
  ado::Recordset rows;
  rows.Open(deductionStatement(bas_, entryId_), *bas_.adocon(), CursorType::Keyset, LockType::Optimistic);
  for (; !rows.Eof(); rows.MoveNext()) {
    // A column of fixed width pads it, and every page compares it with a letter.
    const std::string type = basic::Trim(rows.Fields("type").Text());
    std::string transaction;
    if (type == DeductKind::Loan) transaction = rows.Fields("eddLoanIssueID").Text();
    if (type == DeductKind::Savings) transaction = rows.Fields("eddOpenSavingsID").Text();
    const std::string currency = rows.Fields("curid").Text();
    const std::string symbol =
        currency.empty()
            ? std::string()
            : currencySymbol("Symbol", " CompanyID=" + bas_.companyText() + " and CurrencyID=" + currency);
    lvwDeduct.addRow({nextSerialNumber(lvwDeduct), rows.Fields("description").Text(),
                      amountOf(rows.Fields("eddamount")), rows.Fields("typeid").Text(), type, symbol,
                      transaction});
  }
}

std::string StoredEntry::allowanceSymbol(const std::string& allowanceId) {
  database_.strTableName(bas_.TableLinks["pAllowances"] + " a," + bas_.TableLinks["pCurrencyMaster"] +
                         " c where a.aCompanyID=c.CompanyID and a.acurrencyid=c.CurrencyID and "
                         " a.aAllowanceID=" +
                         allowanceId + " and a.aCompanyID=" + bas_.companyText());
  return basic::textOf(database_.fnreturnfield("Symbol"));
}

void StoredEntry::loadAllowances(ui::ListView& lvwAllow) {
  ado::Recordset rows;
  rows.Open(allowanceStatement(bas_, entryId_), *bas_.adocon(), CursorType::Keyset, LockType::Optimistic);
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::string id = rows.Fields("eadallowanceid").Text();
    lvwAllow.addRow({nextSerialNumber(lvwAllow), rows.Fields("aDescription").Text(),
                     amountOf(rows.Fields("eadamount")), id, rows.Fields("edefault").Text(),
                     allowanceSymbol(id)});
  }
}

void StoredEntry::fnLoadEntryFacilities(ui::ListView& lvwfacility, std::int32_t employeeId) {
  ado::Recordset rows;
  rows.Open(facilityStatement(bas_, entryId_, employeeId), *bas_.adocon(), CursorType::Keyset,
            LockType::Optimistic);
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::string currency = rows.Fields("fmcurrencyid").Text();
    const std::string symbol =
        currency.empty()
            ? std::string()
            : currencySymbol("symbol", "CurrencyID=" + currency + " and companyid=" + bas_.companyText());
    const std::string deducted = rows.Fields("DedcutedAmt").Text();
    lvwfacility.addRow({nextSerialNumber(lvwfacility), rows.Fields("fthTrackingID").Text(),
                        rows.Fields("fthTrackingno").Text(), rows.Fields("fmFacilityName").Text(),
                        rows.Fields("fthDeductionAmt").Text(), deducted, deducted,
                        rows.Fields("fmdeductionid").Text(), symbol},
                       true);
  }
}

void StoredEntry::fnLoadEntryCarryForward(frmpayslate& form) {
  ado::Recordset rows;
  rows.Open(carryForwardStatement(bas_, entryId_), *bas_.adocon(), CursorType::ForwardOnly,
            LockType::ReadOnly);
  for (; !rows.Eof(); rows.MoveNext()) {
    const bool allowance = basic::CLng(rows.Fields("ecdMode").Value()) == paidOut;
    ui::ListView& list = allowance ? form.lvwAllow : form.lvwDeduct;
    const std::string amount = amountOf(rows.Fields("ecdAmount"));
    list.addRow({nextSerialNumber(list), allowance ? balanceDescription : carryForwardDescription, amount,
                 amount, allowance ? AllowKind::CarriedForward : DeductKind::CarriedForward,
                 rows.Fields("symbol").Text()});
  }
}

}  // namespace payslate
