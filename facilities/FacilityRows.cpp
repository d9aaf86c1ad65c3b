// Writing facility recoveries.
#include "facilities/FacilityRows.h"

#include "component/Session.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate {

void fnSaveFacilityDetails(Session& session, std::int32_t entryId, const std::string& browseEntryId,
                           const std::vector<FacilityRow>& taken) {
  const std::string& table = session.TableLinks["pempfacilitydeductiondetail"];
  if (!session.isNewEntry())
    session.adocon()->Execute("delete from " + table + " where efdcompanyid = " + session.companyText() +
                              " and efdid = " + std::to_string(basic::CLng(basic::Val(browseEntryId))));
  ado::Recordset rows;
  rows.Open("select * from " + table + " where efdcompanyid = " + session.companyText(), *session.adocon(),
            ado::CursorType::Keyset, ado::LockType::Optimistic);
  for (const FacilityRow& row : taken) {
    rows.AddNew();
    rows.Fields("efdcompanyid") = session.intCompanyID;
    rows.Fields("efdid") = entryId;
    rows.Fields("efddetailid") = row.position;
    rows.Fields("efdtrackingid") = row.trackingId;
    rows.Fields("efddedamount") = row.settlement;
    rows.Fields("efdfacilityamt") = row.actual;
    rows.Update();
  }
}

}  // namespace payslate
