// The employee's leave days inside the pay period.
#include "component/BasPaySlate.h"
#include "platform/ado/Recordset.h"
#include "platform/ui/ListView.h"

namespace payslate {

namespace {

std::string leaveStatement(const Session& session, std::int32_t employeeId) {
  const std::string start = slashDate(session.dtPeriodStart);
  const std::string end = slashDate(session.dtPeriodEnd);
  return "select lrhempid,lrdleaveid,sum(noofdays) noofdays,FromDate,ToDate,lDescription from "
         "(select nd.lrhempid,nd.lrdleaveid,case when lrdNoofDays=0.5 then 0.5 else "
         "convert(numeric(6,1),datediff(dd,nd.FromDate,nd.ToDate)+1) end noofdays,nd.FromDate,nd.ToDate "
         ",lm.lDescription from "
         "(select lh.lrhempid,ld.lrdLeaveID,ld.lrdID,ld.lrdCompanyID,"
         "case when ld.lrdFromDate<'" +
         start + "' then '" + start +
         "' else ld.lrdFromDate end FromDate,"
         "case when ld.lrdToDate>'" +
         end + "' then '" + end +
         "' else ld.lrdToDate end ToDate,lrdNoofDays "
         "from pleaveregisterheader lh,pleaveregisterdetail ld "
         "where lh.lrhCompanyID = ld.lrdCompanyID and lh.lrhID = ld.lrdID and lh.lrhcancelled =0) Nd,"
         "(select lchcompanyid, lcdlrdid, lcdlrdleaveid, status "
         "from pleavecancellationheader ch, pleavecancellationdetail cd "
         "where ch.lchcompanyid = cd.lcdcompanyid and ch.lchid = cd.lcdid and ch.lchcancelled =0) ls "
         ",pleaves lm Where nd.lrdCompanyID = ls.lchcompanyid And nd.lrdid = ls.lcdlrdid "
         "and nd.lrdleaveid = ls.lcdlrdleaveid  and ls.status ='s' and "
         "nd.lrdCompanyID = lm.lCompanyID And nd.lrdLeaveID = lm.lLeaveID and nd.lrhempid=" +
         std::to_string(employeeId) + " and nd.ToDate>='" + start + "' and nd.FromDate<='" + end +
         "' group by nd.lrhempid, lm.lDescription,nd.lrdleaveid,nd.FromDate,nd.ToDate,lrdNoofDays) a "
         " group by lrhempid,lDescription,lrdleaveid,FromDate,ToDate ";
}

}  // namespace

void BasPaySlate::fnLoadLeaveSummary(std::int32_t employeeId, ui::ListView& lvwLeaves) {
  lvwLeaves.clear();
  ado::Recordset leaves;
  leaves.Open(leaveStatement(*this, employeeId), *adocon(), ado::CursorType::Keyset,
              ado::LockType::Optimistic);
  for (int number = 1; !leaves.Eof(); leaves.MoveNext(), ++number) {
    lvwLeaves.addRow({std::to_string(number), cellText(leaves.Fields("ldescription")),
                      cellText(leaves.Fields("lrdleaveid")), cellText(leaves.Fields("noofdays"))});
  }
  leaves.Close();
}

}  // namespace payslate
