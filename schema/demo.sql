-- Reference data of the demo companies. 1: calendar months, one calendar for all, loss of pay on the basic pay,
-- hourly rates from the basic pay. 2: from the 26th to the 25th, a calendar for each department, the other way
-- round in both.

insert into psettings (companyID, NoOfPreviousDays, calendardepwise, LOPThroughDeductions,
  PerHourRateFromEmployeeMaster) values
  (1, 90, null, 0, 0),
  (2, 0, 1, 1, 1)
go
insert into pPrefix (CompanyID, InterfaceID, Prefix) values
  (1, 40001, 'EN'),
  (2, 40001, 'KT')
go
-- User 6 has no rights row.
insert into pusers (companyid, userid, username) values
  (1, 1, 'Imke Overgaard'), (1, 2, 'Ravi Telwin'), (1, 3, 'Lotte Marisk  '), (1, 4, 'Owen Castleby'),
  (1, 5, 'Sanna Rook'), (1, 6, 'Piet Holm'),
  (2, 1, 'Imke Overgaard'), (2, 2, 'Ravi Telwin')
go
insert into puserrights (userid, interfaceid, FunctionRights) values
  (2, 40001, 'NEP'),
  (3, 40001, ' n e d '),
  (4, 40001, 'ADMIN'),
  (5, 40001, null)
go
insert into pDepartment (CompanyID, DepartmentID, DepartmentName) values
  (1, 10, 'Weaving'), (1, 20, 'Dye house'), (1, 30, 'Office'),
  (2, 10, 'Kiln'), (2, 20, 'Glazing'), (2, 30, 'Dispatch ')
go
insert into pCurrencyMaster (CompanyID, CurrencyID, Symbol) values
  (1, 1, 'Rs'), (1, 2, '$'), (1, 3, 'Eu'),
  (2, 1, 'Eu'), (2, 2, '$'), (2, 3, 'Rs')
go
insert into pformula (fCompanyID, fFormulaID, fFormulaName, fFormulacode) values
  (1, 1, 'BP * PD / MD * 0.10', 'F-PRESENT'),
  (1, 2, ' bp * 0.12 ', 'F-FUND'),
  (1, 3, 'WD1 * 150', 'F-SUNDAY'),
  (1, 4, 'ROUND( ( MD - AD ) * 16.5 ,0)', 'F-REGULAR'),
  (1, 5, '( BP / MD ) * ( LD + HD ) * 0.05', 'F-REST'),
  (2, 1, 'BP / MD * AD', 'K-ABSENCE'),
  (2, 2, 'BP * 0.08', 'K-FUND')
go
-- Formula 0 is no formula; such an allowance is no standing one.
insert into pAllowances (aCompanyID, aAllowanceID, aDescription, aActive, aformulaid, acurrencyid) values
  (1, 1, 'House rent', 1, null, 1), (1, 2, 'Attendance bonus', 1, 1, 1), (1, 3, 'Overtime', 1, 0, 1),
  (1, 4, 'Travel', 1, null, 2), (1, 5, 'Jubilee bonus', 0, null, 1), (1, 6, 'Sunday shift', 1, 3, 1),
  (1, 7, 'Schooling', 1, null, 3), (1, 8, 'Regularity', 1, 4, 1), (1, 9, 'Rest bonus', 1, 5, 1),
  (2, 1, 'Lodging', 1, null, 1), (2, 2, 'Kiln hours', 1, null, 1)
go
insert into pDeductions (dCompanyID, dDedID, dDescription, dActive, dformulaid, dcurrencyid) values
  (1, 1, 'Provident fund', 1, 2, 1), (1, 2, 'Canteen', 1, null, 1), (1, 3, 'Vehicle recovery', 1, null, 1),
  (1, 4, 'Late hours', 1, null, 1), (1, 5, 'Quarters recovery', 1, null, 1), (1, 6, 'Club', 0, null, 1),
  (1, 7, 'Union fee', 1, null, 1), (1, 8, 'Salary advance', 1, 0, 1),
  (2, 1, 'Loss of pay', 1, 1, 1), (2, 2, 'Fund', 1, 2, 1), (2, 3, 'Late hours', 1, null, 1),
  (2, 4, 'Tool recovery', 1, null, 1)
go
insert into ploans (lcompanyid, lloanid, lDescription, lcurrencyid) values
  (1, 1, 'Festival loan', 1), (1, 2, 'House loan', 1), (2, 1, 'Bicycle loan', 1)
go
insert into psavings (scompanyid, sSavingsID, sDescription, scurrencyid) values
  (1, 1, 'Thrift', 1), (1, 2, 'Old age', 1), (1, 3, 'Relief', null), (2, 1, 'Thrift', 1)
go
insert into pFacilityMaster (fmCompanyID, fmFacilityID, fmFacilityName, fmdeductionid, fmcurrencyid) values
  (1, 1, 'Motor cycle', 3, 1), (1, 2, 'Company quarters', 5, 1), (2, 1, 'Tool set', 4, 1)
go
insert into pleaves (lCompanyID, lLeaveID, lDescription) values
  (1, 1, 'Sick leave'), (1, 2, 'Casual leave'), (1, 3, 'Earned leave'), (2, 1, 'Sick leave'), (2, 2, 'Earned leave')
go
-- Company 2's third department has no calendar for 2026.
insert into pcalenderheader (CompanyID, CalenderID, departmentid, financialid) values
  (1, 1, null, 2025), (1, 2, null, 2026),
  (2, 1, 10, 2025), (2, 2, 10, 2026), (2, 3, 20, 2025), (2, 4, 20, 2026), (2, 5, 30, 2025)
go
insert into pCalenderDetail (CompanyID, CalenderID, HolidayDate) values
  (1, 2, '2026/01/01'), (1, 2, '2026/01/26'), (1, 2, '2026/04/03'), (1, 2, '2026/05/01'),
  (2, 2, '2026/01/01'), (2, 2, '2026/04/03'), (2, 4, '2026/01/01'), (2, 4, '2026/04/03'), (2, 4, '2026/04/06')
go
insert into ppaymonths (companyid, paymonth, startdate) values
  (1, 1, '2026/01/01'), (1, 2, '2026/02/01'), (1, 3, '2026/03/01'), (1, 4, '2026/04/01'),
  (1, 5, '2026/05/01'), (1, 6, '2026/06/01'), (1, 7, '2026/07/01'), (1, 8, '2026/08/01'),
  (1, 9, '2026/09/01'), (1, 10, '2026/10/01'), (1, 11, '2026/11/01'), (1, 12, '2026/12/01'),
  (2, 1, '2025/12/26'), (2, 2, '2026/01/26'), (2, 3, '2026/02/26'), (2, 4, '2026/03/26'),
  (2, 5, '2026/04/26'), (2, 6, '2026/05/26'), (2, 7, '2026/06/26'), (2, 8, '2026/07/26'),
  (2, 9, '2026/08/26'), (2, 10, '2026/09/26'), (2, 11, '2026/10/26'), (2, 12, '2026/11/26')
go

-- ---- Single employees' cases; the people stand in demo_people.cpp ----

-- 121 is paid in dollars and owes rupees, and saves in a scheme without a currency: negative pay in both.
insert into pempdeductions (edcompanyid, edempid, eddeductionid, edamount) values (1, 121, 2, 300.25)
go
-- 101: a loan nearly repaid beside a running one, one paid back in cash, one cancelled; 103: one that has ended.
insert into pLoansIssue (liCompanyID, liID, liLoanID, liEmpID, liCurrentBalance, liInstallmentAmount, liActive,
  licancelled, liDeductionMode) values
  (1, 1, 1, 101, 400, 1000, 1, 0, 1), (1, 2, 2, 101, 84000, 3500.50, 1, 0, 1), (1, 3, 1, 101, 5000, 500, 1, 0, 2),
  (1, 4, 1, 101, 9000, 900, 1, 1, 1), (1, 5, 1, 103, 0, 750, 0, 0, 1), (1, 6, 2, 104, 120000, 4000, 1, 0, 1),
  (2, 1, 1, 201, 300, 120, 1, 0, 1)
go
-- 101: two movements in April; 102: none in April; 104: nothing left; 105: less left than the instalment.
insert into popeningsavings (osCompanyID, osID, osSavingsID, osEmpID, osCurrentBalance, osInstallmentAmount,
  osDeductionMode, osActive, osCancelled) values
  (1, 1, 1, 101, 5000, 250, 1, 1, 0), (1, 2, 1, 102, 5000, 250, 1, 1, 0), (1, 3, 2, 104, 0, 300, 1, 1, 0),
  (1, 4, 2, 105, 180, 300, 1, 1, 0), (1, 5, 3, 121, 60, 20, 1, 1, 0), (2, 1, 1, 202, 900, 75, 1, 1, 0)
go
insert into psavingsdetails (sdCompanyID, sdSavingsID, sdOpenSavingID, sdDate) values
  (1, 1, 1, '2026/03/15'), (1, 1, 1, '2026/04/01'), (1, 1, 1, '2026/04/30'), (1, 1, 2, '2026/03/31'),
  (1, 1, 2, '2026/05/01'), (1, 2, 3, '2026/04/10'), (1, 2, 4, '2026/04/15'), (1, 3, 5, '2026/04/15'),
  (2, 1, 1, '2026/04/25')
go
-- 101: two costs of one deduction type and one of another; 102: cancelled; 106: recovered in March; 107: nothing.
insert into pFacilityTrackingHeader (fthCompanyID, fthTrackingID, fthTrackingNo, fthFacilityID, fthEmployeeID,
  fthDeductionAmt, fthCancelled) values
  (1, 1, 'FT-1', 1, 101, 500, 0), (1, 2, 'FT-2', 1, 101, 250.75, 0), (1, 3, 'FT-3', 2, 101, 1200, 0),
  (1, 4, 'FT-4', 1, 102, 800, 1), (1, 5, 'FT-5', 1, 106, 640, 0), (1, 6, 'FT-6', 2, 107, 0, 0),
  (1, 7, 'FT-7', 2, 108, 950, 0), (2, 1, 'TS-1', 1, 201, 90, 0)
go
-- 101: across the start of April, a half day, a cancelled one; 103: not confirmed; 201: across the period's end.
insert into pleaveregisterheader (lrhCompanyID, lrhID, lrhempid, lrhcancelled) values
  (1, 1, 101, 0), (1, 2, 101, 0), (1, 3, 101, 1), (1, 4, 103, 0), (2, 1, 201, 0)
go
insert into pleaveregisterdetail (lrdCompanyID, lrdID, lrdLeaveID, lrdFromDate, lrdToDate, lrdNoofDays) values
  (1, 1, 1, '2026/03/30', '2026/04/02', 4), (1, 2, 2, '2026/04/20', '2026/04/20', 0.5),
  (1, 3, 3, '2026/04/22', '2026/04/23', 2), (1, 4, 2, '2026/04/08', '2026/04/09', 2),
  (2, 1, 1, '2026/04/24', '2026/04/28', 5)
go
insert into pleavecancellationheader (lchcompanyid, lchid, lchcancelled) values
  (1, 1, 0), (1, 2, 0), (2, 1, 0)
go
insert into pleavecancellationdetail (lcdcompanyid, lcdid, lcdlrdid, lcdlrdleaveid, status) values
  (1, 1, 1, 1, 's'), (1, 1, 2, 2, 'S'), (1, 1, 3, 3, 's'), (1, 2, 4, 2, 'c'), (2, 1, 1, 1, 's')
