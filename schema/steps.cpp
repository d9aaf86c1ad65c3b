// What each version of the schema brought.
#include "schema/steps.h"

namespace payslate::schema {

const std::vector<Step>& steps() {
  static const std::vector<Step> all = {
      {1,
       {{NewTable::Name::Fixed, "pSchemaVersion", "svVersion int not null"},
        {NewTable::Name::Linked, "pEntryJournal",
         "ejCompanyID smallint not null, ejEntryID int not null, ejSequence int not null,"
         " ejTime varchar(19) not null, ejUserID smallint not null, ejAction varchar(10) not null,"
         " ejKind varchar(12) not null, ejItem varchar(40) not null, ejBefore varchar(60),"
         " ejAfter varchar(max), ejHash varchar(64) not null,"
         " primary key (ejEntryID, ejCompanyID, ejSequence)"}},
       // What hosts made for themselves may lack them.
       {{"uxMonthlyEntryLive", "pempmonthlyentryheader", "emhempID, emhCompanyID, emhstartdate",
         "emhCancelled = 0"},
        {"uxMonthlyEntryNumber", "pempmonthlyentryheader", "emhCompanyID, emhNo", "emhNo is not null"},
        {"uxFacilityDetailTracking", "pempfacilitydeductiondetail", "efdtrackingid, efdcompanyid", ""}}},
      // Behind the company both would be read whole for one employee.
      {.version = 2,
       .keys = {{"pLoansIssue", {"liID", "liCompanyID"}}, {"popeningsavings", {"osID", "osCompanyID"}}}},
  };
  return all;
}

}  // namespace payslate::schema
