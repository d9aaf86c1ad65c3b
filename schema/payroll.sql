-- The payroll database: tables, keys, indexes, the pay-month view and the formula parameters.
-- Statements stand between lines that say go; whole lines of comment alone. The embedded engine and a
-- Transact-SQL server run them unchanged.
--
-- Keys and indexes of what grows begin with the column that selects most (an employee, a sheet, an entry) and name
-- the company behind it: an engine without statistics takes a first column for selective, and would read all of
-- a company's rows to find one employee's.

-- ---- System and session ----

create table linkTable (
  tablename varchar(60) not null primary key,
  linktablename varchar(60) not null)
go
-- The version of this schema, in one row. Whoever changes what follows gives it the next number, and adds the step
-- that takes earlier databases there to steps.cpp.
create table pSchemaVersion (
  svVersion int not null)
go
insert into pSchemaVersion (svVersion) values (2)
go
create table psettings (
  companyID smallint not null primary key,
  NoOfPreviousDays int,
  calendardepwise smallint,
  LOPThroughDeductions bit,
  PerHourRateFromEmployeeMaster bit)
go
create table pPrefix (
  CompanyID smallint not null,
  InterfaceID int not null,
  Prefix varchar(10),
  primary key (CompanyID, InterfaceID))
go
create table pusers (
  companyid smallint not null,
  userid smallint not null,
  username varchar(60),
  primary key (companyid, userid))
go
create table puserrights (
  userid smallint not null,
  interfaceid int not null,
  FunctionRights varchar(30),
  primary key (userid, interfaceid))
go

-- ---- Employees and reference data ----

create table pemployee (
  eCompanyID smallint not null,
  eEmpID int not null,
  eName varchar(80),
  eActive smallint,
  eCurrencyID int,
  eGradeID int,
  eDesigID int,
  eBasic decimal(18,2),
  eDeptID int,
  eDateofJoin datetime,
  hrsofWork decimal(5,2),
  AllowancePerHourRate decimal(18,2),
  DeductionPerHourRate decimal(18,2),
  primary key (eCompanyID, eEmpID))
go
create table pDepartment (
  CompanyID smallint not null,
  DepartmentID int not null,
  DepartmentName varchar(60),
  primary key (CompanyID, DepartmentID))
go
create table pCurrencyMaster (
  CompanyID smallint not null,
  CurrencyID int not null,
  Symbol varchar(10),
  primary key (CompanyID, CurrencyID))
go
create table pformula (
  fCompanyID smallint not null,
  fFormulaID int not null,
  fFormulaName varchar(400),
  fFormulacode varchar(20),
  primary key (fCompanyID, fFormulaID))
go
create table pAllowances (
  aCompanyID smallint not null,
  aAllowanceID int not null,
  aDescription varchar(80),
  aActive smallint,
  aformulaid int,
  acurrencyid int,
  primary key (aCompanyID, aAllowanceID))
go
create table pDeductions (
  dCompanyID smallint not null,
  dDedID int not null,
  dDescription varchar(80),
  dActive smallint,
  dformulaid int,
  dcurrencyid int,
  primary key (dCompanyID, dDedID))
go
create table ploans (
  lcompanyid smallint not null,
  lloanid int not null,
  lDescription varchar(80),
  lcurrencyid int,
  primary key (lcompanyid, lloanid))
go
create table psavings (
  scompanyid smallint not null,
  sSavingsID int not null,
  sDescription varchar(80),
  scurrencyid int,
  primary key (scompanyid, sSavingsID))
go
create table pFacilityMaster (
  fmCompanyID smallint not null,
  fmFacilityID int not null,
  fmFacilityName varchar(80),
  fmdeductionid int,
  fmcurrencyid int,
  primary key (fmCompanyID, fmFacilityID))
go

-- ---- Standing assignments of an employee ----

create table pempallowances (
  eacompanyid smallint not null,
  eaempid int not null,
  eaallowanceid int not null,
  eaamount decimal(18,2),
  primary key (eacompanyid, eaempid, eaallowanceid))
go
create table pempdeductions (
  edcompanyid smallint not null,
  edempid int not null,
  eddeductionid int not null,
  edamount decimal(18,2),
  primary key (edcompanyid, edempid, eddeductionid))
go
create table pLoansIssue (
  liCompanyID smallint not null,
  liID int not null,
  liLoanID int not null,
  liEmpID int not null,
  liCurrentBalance decimal(18,2),
  liInstallmentAmount decimal(18,2),
  liActive smallint,
  licancelled smallint,
  liDeductionMode smallint,
  primary key (liID, liCompanyID))
go
create index ixLoansIssueEmployee on pLoansIssue (liEmpID, liCompanyID)
go
create table popeningsavings (
  osCompanyID smallint not null,
  osID int not null,
  osSavingsID int not null,
  osEmpID int not null,
  osCurrentBalance decimal(18,2),
  osInstallmentAmount decimal(18,2),
  osDeductionMode smallint,
  osActive smallint,
  osCancelled smallint,
  primary key (osID, osCompanyID))
go
create index ixOpeningSavingsEmployee on popeningsavings (osEmpID, osCompanyID)
go
create table psavingsdetails (
  sdCompanyID smallint not null,
  sdSavingsID int not null,
  sdOpenSavingID int not null,
  sdDate datetime not null)
go
create index ixSavingsDetailsAccount on psavingsdetails (sdOpenSavingID, sdCompanyID, sdDate)
go
create table pFacilityTrackingHeader (
  fthCompanyID smallint not null,
  fthTrackingID int not null,
  fthTrackingNo varchar(20),
  fthFacilityID int not null,
  fthEmployeeID int not null,
  fthDeductionAmt decimal(18,2),
  fthCancelled smallint,
  primary key (fthCompanyID, fthTrackingID))
go
create index ixFacilityTrackingEmployee on pFacilityTrackingHeader (fthEmployeeID, fthCompanyID)
go

-- ---- Attendance, leave, calendars ----

create table pEmployeeattendence (
  eaid int not null,
  eacompanyid smallint not null,
  eaEmpID int not null,
  eaStartDate datetime not null,
  eaEndDate datetime not null,
  eaCancelled smallint,
  primary key (eaid, eacompanyid))
go
create index ixAttendanceEmployee on pEmployeeattendence (eaEmpID, eacompanyid, eaStartDate)
go
create table pempattendancedetail (
  eadAttendanceID int not null,
  eadcompanyid smallint not null,
  eaddate datetime not null,
  eadtype varchar(4))
go
create index ixAttendanceDetailSheet on pempattendancedetail (eadAttendanceID, eadcompanyid, eaddate)
go
create table pEmpAttendanceAllowanceDeductions (
  eaadAttendanceID int not null,
  eaadCompanyID smallint not null,
  eaadDate datetime not null,
  eaadHours decimal(9,2),
  eaadAllowanceID int,
  eaadDeductionID int)
go
create index ixAttendanceHoursSheet on pEmpAttendanceAllowanceDeductions (eaadAttendanceID, eaadCompanyID)
go
create table pleaves (
  lCompanyID smallint not null,
  lLeaveID int not null,
  lDescription varchar(60),
  primary key (lCompanyID, lLeaveID))
go
create table pleaveregisterheader (
  lrhCompanyID smallint not null,
  lrhID int not null,
  lrhempid int not null,
  lrhcancelled smallint,
  primary key (lrhCompanyID, lrhID))
go
create index ixLeaveRegisterEmployee on pleaveregisterheader (lrhempid, lrhCompanyID)
go
create table pleaveregisterdetail (
  lrdCompanyID smallint not null,
  lrdID int not null,
  lrdLeaveID int not null,
  lrdFromDate datetime not null,
  lrdToDate datetime not null,
  lrdNoofDays decimal(6,1),
  primary key (lrdID, lrdCompanyID, lrdLeaveID, lrdFromDate))
go
create table pleavecancellationheader (
  lchcompanyid smallint not null,
  lchid int not null,
  lchcancelled smallint,
  primary key (lchcompanyid, lchid))
go
create table pleavecancellationdetail (
  lcdcompanyid smallint not null,
  lcdid int not null,
  lcdlrdid int not null,
  lcdlrdleaveid int not null,
  status varchar(4))
go
create index ixLeaveCancellationRegister on pleavecancellationdetail (lcdlrdid, lcdcompanyid, lcdlrdleaveid)
go
create table pcalenderheader (
  CompanyID smallint not null,
  CalenderID int not null,
  departmentid int,
  financialid int,
  primary key (CompanyID, CalenderID))
go
create index ixCalendarYear on pcalenderheader (financialid, CompanyID, departmentid)
go
create table pCalenderDetail (
  CompanyID smallint not null,
  CalenderID int not null,
  HolidayDate datetime not null,
  primary key (CompanyID, CalenderID, HolidayDate))
go

-- ---- The monthly entry ----

create table pempmonthlyentryheader (
  emhCompanyID smallint not null,
  emhID int not null,
  emhNo varchar(30),
  emhDate datetime,
  emhempID int not null,
  emhbasicpay decimal(18,2),
  emhpaidcash smallint,
  emhstartdate datetime,
  emhenddate datetime,
  emhOrginalBasic decimal(18,2),
  emhCancelled smallint not null,
  emhCancelledRemarks varchar(500),
  emhprocessed smallint,
  primary key (emhID, emhCompanyID))
go
-- What two clerks at work at the same moment must not do: enter one employee's period twice,
create unique index uxMonthlyEntryLive on pempmonthlyentryheader (emhempID, emhCompanyID, emhstartdate)
  where emhCancelled = 0
go
-- or use an entry number twice. Cancelled entries keep theirs.
create unique index uxMonthlyEntryNumber on pempmonthlyentryheader (emhCompanyID, emhNo)
  where emhNo is not null
go
-- The next number is the largest of a company's, whatever stands before the digits: all are read, from here.
create index ixMonthlyEntryNumber on pempmonthlyentryheader (emhCompanyID, emhNo)
go
-- Who has an entry in a month, and which entries hold a balance, are read from the indexes alone.
create index ixMonthlyEntryDate on pempmonthlyentryheader (emhCompanyID, emhDate, emhCancelled, emhempID)
go
create index ixMonthlyEntryEmployee on pempmonthlyentryheader (emhempID, emhCompanyID, emhDate, emhCancelled)
go
-- No key: hours booked on a standing allowance make a second row of it.
create table pemployeeallowancedetail (
  eadcompanyid smallint not null,
  eadid int not null,
  eadallowanceid int not null,
  eadamount decimal(18,2),
  eaddefault smallint)
go
create index ixAllowanceDetailEntry on pemployeeallowancedetail (eadid, eadcompanyid)
go
create table pemployeeDeductiondetail (
  eddcompanyid smallint not null,
  eddid int not null,
  eddDetailID smallint not null,
  edddeductionid int,
  eddloanid int,
  eddsavingsid int,
  eddLoanIssueID int,
  eddOpenSavingsID int,
  eddType varchar(2),
  eddamount decimal(18,2),
  primary key (eddid, eddcompanyid, eddDetailID))
go
create table pempfacilitydeductiondetail (
  efdcompanyid smallint not null,
  efdid int not null,
  efddetailid smallint not null,
  efdtrackingid int not null,
  efddedamount decimal(18,2),
  efdfacilityamt decimal(18,2),
  primary key (efdid, efdcompanyid, efddetailid))
go
-- Once a recovery is taken no other entry takes it; cancelling an entry gives its recoveries up.
create unique index uxFacilityDetailTracking on pempfacilitydeductiondetail (efdtrackingid, efdcompanyid)
go
create table pEmployeeCurrentDetails (
  ecdCompanyID smallint not null,
  ecdPaySlateID int not null,
  ecdDetailID smallint not null,
  ecdAmount float,
  ecdMode smallint,
  primary key (ecdPaySlateID, ecdCompanyID, ecdDetailID))
go
-- What was done to an entry, in its order. Rows are added and never changed: each one's hash covers the one before.
create table pEntryJournal (
  ejCompanyID smallint not null,
  ejEntryID int not null,
  ejSequence int not null,
  ejTime varchar(19) not null,
  ejUserID smallint not null,
  ejAction varchar(10) not null,
  ejKind varchar(12) not null,
  ejItem varchar(40) not null,
  ejBefore varchar(60),
  ejAfter varchar(max),
  ejHash varchar(64) not null,
  primary key (ejEntryID, ejCompanyID, ejSequence))
go

-- ---- Pay months and formula parameters ----

create table ppaymonths (
  companyid smallint not null,
  paymonth smallint not null,
  startdate datetime not null,
  primary key (companyid, paymonth))
go
create view vwPaymonthvsdate as
select companyid, paymonth, startdate from ppaymonths
go
-- Weekdays are counted inside the pay period, 1 = Sunday. firstday is 0 when the period starts on a Sunday
-- (7 January 1900 was one), whatever first day of the week the server is set to; (n - firstday) % 7 days lie
-- before the period's first such weekday.
create procedure spformulaparameter @company smallint, @employee int, @year smallint, @start datetime as
select basicpay, monthdays,
  (monthdays + 6 - (7 - firstday) % 7) / 7 wk1days,
  (monthdays + 6 - (8 - firstday) % 7) / 7 wk2days,
  (monthdays + 6 - (9 - firstday) % 7) / 7 wk3days,
  (monthdays + 6 - (10 - firstday) % 7) / 7 wk4days,
  (monthdays + 6 - (11 - firstday) % 7) / 7 wk5days,
  (monthdays + 6 - (12 - firstday) % 7) / 7 wk6days,
  (monthdays + 6 - (13 - firstday) % 7) / 7 wk7days
from (
  select eBasic basicpay,
    datediff(d, @start, dateadd(month, 1, @start)) monthdays,
    datediff(d, '19000107', @start) % 7 firstday
  from pemployee
  where eCompanyID = @company and eEmpID = @employee) period
go

-- ---- Logical names of the tables ----

insert into linkTable (tablename, linktablename) values
  ('pAllowances', 'pAllowances'),
  ('pEmployeeAllowanceHeader', 'pEmployeeAllowanceHeader'),
  ('pemployeeallowancedetail', 'pemployeeallowancedetail'),
  ('pDeductions', 'pDeductions'),
  ('pemployeeDeductiondetail', 'pemployeeDeductiondetail'),
  ('pEmployeeDeductionHeader', 'pEmployeeDeductionHeader'),
  ('ptables', 'ptables'),
  ('ptablecolumns', 'ptablecolumns'),
  ('puserrights', 'puserrights'),
  ('pcalenderdetail', 'pCalenderDetail'),
  ('pDepartment', 'pDepartment'),
  ('pcalenderheader', 'pcalenderheader'),
  ('ploans', 'ploans'),
  ('pLoansIssue', 'pLoansIssue'),
  ('ploanrepaymentdetails', 'ploanrepaymentdetails'),
  ('psavings', 'psavings'),
  ('popeningsavings', 'popeningsavings'),
  ('psavingsdetails', 'psavingsdetails'),
  ('pPrefix', 'pPrefix'),
  ('pformula', 'pformula'),
  ('pusers', 'pusers'),
  ('pgradeallowance', 'pgradeallowance'),
  ('pemployee', 'pemployee'),
  ('pEmployeeattendence', 'pEmployeeattendence'),
  ('pemployeeleaves', 'pemployeeleaves'),
  ('pgradeleaves', 'pgradeleaves'),
  ('pleaves', 'pleaves'),
  ('psettings', 'psettings'),
  ('pempmonthlyentryheader', 'pempmonthlyentryheader'),
  ('pempattendancedetail', 'pempattendancedetail'),
  ('pempfacilitydeductiondetail', 'pempfacilitydeductiondetail'),
  ('pFacilityTrackingHeader', 'pFacilityTrackingHeader'),
  ('pFacilityMaster', 'pFacilityMaster'),
  ('pEmpAttendanceAllowanceDeductions', 'pEmpAttendanceAllowanceDeductions'),
  ('pCurrencyMaster', 'pCurrencyMaster'),
  ('pEntryJournal', 'pEntryJournal')
