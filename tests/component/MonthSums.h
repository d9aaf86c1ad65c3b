// What the entries of a demo month must add up to: computed from the masters alone, apart from the component.
#pragma once

#include <string>
#include <vector>

namespace payslate {

/// Two statements that must give one number.
struct MonthSum {
  const char* what;
  std::string stored;
  std::string masters;
};

inline std::string daysOf(const char* types) {
  return std::string("(select eaEmpID, count(distinct eaddate) days from pempattendancedetail d,") +
         " pEmployeeattendence h where h.eaid = d.eadAttendanceID and h.eacompanyid = d.eadcompanyid and"
         " eaCancelled = 0 and eadcompanyid = 1 and eaddate between '2026/04/01' and '2026/04/30' and eadtype in " +
         types + " group by eaEmpID)";
}

/// Sums over the entries of company 1 for April 2026 that meet `live`, a condition that begins with " and ".
inline std::vector<MonthSum> monthSums(const std::string& live) {
  const std::string entries = std::string(" from pempmonthlyentryheader");
  return {
      {"basic pay", "select sum(emhbasicpay)" + entries + " where 1 = 1" + live,
       "select sum(round(eBasic - eBasic / 30 * (isnull(whole.days, 0) + 0.5 * isnull(half.days, 0) + case when"
       " eDateofJoin > '2026/04/01' then datediff(d, '2026/04/01', eDateofJoin) else 0 end), 2))" +
           entries +
           " inner join pemployee on eEmpID = emhempID and eCompanyID = emhCompanyID left outer join " +
           daysOf("('a')") + " whole on whole.eaEmpID = emhempID left outer join " + daysOf("('AL', 'HA')") +
           " half on half.eaEmpID = emhempID where 1 = 1" + live},
      {"standing allowances of a fixed amount",
       "select sum(eadamount)" + entries +
           ", pemployeeallowancedetail, pAllowances where eadid = emhID and eadcompanyid = emhCompanyID and"
           " eadallowanceid = aAllowanceID and aCompanyID = 1 and eaddefault = 1 and isnull(aformulaid, 0) = 0" +
           live,
       "select sum(eaamount)" + entries +
           ", pempallowances, pAllowances where eaempid = emhempID and eacompanyid = 1 and eaallowanceid ="
           " aAllowanceID and aCompanyID = 1 and aActive = 1 and isnull(aformulaid, 0) = 0" +
           live},
      {"booked hours",
       "select sum(eadamount)" + entries +
           ", pemployeeallowancedetail where eadid = emhID and eadcompanyid = emhCompanyID and eaddefault = 0 and"
           " eadallowanceid = 3" +
           live,
       "select sum(amount) from (select round(sum(eaadHours) * eBasic / (round(hrsofWork, 0) * 30), 2) amount" +
           entries +
           ", pemployee, pEmployeeattendence, pEmpAttendanceAllowanceDeductions where eEmpID = emhempID and"
           " eCompanyID = 1 and eaEmpID = emhempID and eacompanyid = 1 and eaCancelled = 0 and eaadAttendanceID ="
           " eaid and eaadCompanyID = 1 and eaadAllowanceID = 3 and hrsofWork >= 1 and eaadDate between"
           " '2026/04/01' and '2026/04/30'" +
           live + " group by emhempID, eBasic, hrsofWork) hours"},
      {"provident fund by its formula",
       "select sum(eddamount)" + entries +
           ", pemployeeDeductiondetail where eddid = emhID and eddcompanyid = emhCompanyID and eddType = 'D' and"
           " edddeductionid = 1" +
           live,
       "select sum(round(eBasic * 0.12, 2))" + entries +
           ", pempdeductions, pemployee where edempid = emhempID and edcompanyid = 1 and eddeductionid = 1 and"
           " eEmpID = emhempID and eCompanyID = 1" +
           live},
      {"loan instalments",
       "select sum(eddamount)" + entries +
           ", pemployeeDeductiondetail where eddid = emhID and eddcompanyid = emhCompanyID and eddType = 'L'" +
           live,
       "select sum(case when liCurrentBalance < liInstallmentAmount then liCurrentBalance else"
       " liInstallmentAmount end)" +
           entries +
           ", pLoansIssue where liEmpID = emhempID and liCompanyID = 1 and liActive = 1 and licancelled = 0 and"
           " liDeductionMode = 1" +
           live},
  };
}

}  // namespace payslate
