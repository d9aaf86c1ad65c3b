-- A database file as payroll-host demo made it before schemas had versions and files a format number: the whole schema,
-- two employees of the demo company, few rows. Statements of SQLite itself, each on lines of its own up to a semicolon.
CREATE TABLE catalog_objects (key TEXT NOT NULL PRIMARY KEY, kind TEXT NOT NULL, name TEXT NOT NULL, text TEXT) STRICT, WITHOUT ROWID;
CREATE TABLE catalog_columns (object TEXT NOT NULL, ordinal INT NOT NULL, name TEXT NOT NULL, type TEXT NOT NULL, not_null INT NOT NULL, key_position INT NOT NULL, PRIMARY KEY (object, ordinal)) STRICT, WITHOUT ROWID;
CREATE TABLE "linkTable" ("tablename" TEXT COLLATE ts_text NOT NULL, "linktablename" TEXT COLLATE ts_text NOT NULL, PRIMARY KEY ("tablename")) STRICT, WITHOUT ROWID;
CREATE TABLE "psettings" ("companyID" INT NOT NULL, "NoOfPreviousDays" INT, "calendardepwise" INT, "LOPThroughDeductions" INT, "PerHourRateFromEmployeeMaster" INT, PRIMARY KEY ("companyID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pPrefix" ("CompanyID" INT NOT NULL, "InterfaceID" INT NOT NULL, "Prefix" TEXT COLLATE ts_text, PRIMARY KEY ("CompanyID", "InterfaceID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pusers" ("companyid" INT NOT NULL, "userid" INT NOT NULL, "username" TEXT COLLATE ts_text, PRIMARY KEY ("companyid", "userid")) STRICT, WITHOUT ROWID;
CREATE TABLE "puserrights" ("userid" INT NOT NULL, "interfaceid" INT NOT NULL, "FunctionRights" TEXT COLLATE ts_text, PRIMARY KEY ("userid", "interfaceid")) STRICT, WITHOUT ROWID;
CREATE TABLE "pemployee" ("eCompanyID" INT NOT NULL, "eEmpID" INT NOT NULL, "eName" TEXT COLLATE ts_text, "eActive" INT, "eCurrencyID" INT, "eGradeID" INT, "eDesigID" INT, "eBasic" TEXT COLLATE ts_number, "eDeptID" INT, "eDateofJoin" INT, "hrsofWork" TEXT COLLATE ts_number, "AllowancePerHourRate" TEXT COLLATE ts_number, "DeductionPerHourRate" TEXT COLLATE ts_number, PRIMARY KEY ("eCompanyID", "eEmpID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pDepartment" ("CompanyID" INT NOT NULL, "DepartmentID" INT NOT NULL, "DepartmentName" TEXT COLLATE ts_text, PRIMARY KEY ("CompanyID", "DepartmentID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pCurrencyMaster" ("CompanyID" INT NOT NULL, "CurrencyID" INT NOT NULL, "Symbol" TEXT COLLATE ts_text, PRIMARY KEY ("CompanyID", "CurrencyID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pformula" ("fCompanyID" INT NOT NULL, "fFormulaID" INT NOT NULL, "fFormulaName" TEXT COLLATE ts_text, "fFormulacode" TEXT COLLATE ts_text, PRIMARY KEY ("fCompanyID", "fFormulaID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pAllowances" ("aCompanyID" INT NOT NULL, "aAllowanceID" INT NOT NULL, "aDescription" TEXT COLLATE ts_text, "aActive" INT, "aformulaid" INT, "acurrencyid" INT, PRIMARY KEY ("aCompanyID", "aAllowanceID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pDeductions" ("dCompanyID" INT NOT NULL, "dDedID" INT NOT NULL, "dDescription" TEXT COLLATE ts_text, "dActive" INT, "dformulaid" INT, "dcurrencyid" INT, PRIMARY KEY ("dCompanyID", "dDedID")) STRICT, WITHOUT ROWID;
CREATE TABLE "ploans" ("lcompanyid" INT NOT NULL, "lloanid" INT NOT NULL, "lDescription" TEXT COLLATE ts_text, "lcurrencyid" INT, PRIMARY KEY ("lcompanyid", "lloanid")) STRICT, WITHOUT ROWID;
CREATE TABLE "psavings" ("scompanyid" INT NOT NULL, "sSavingsID" INT NOT NULL, "sDescription" TEXT COLLATE ts_text, "scurrencyid" INT, PRIMARY KEY ("scompanyid", "sSavingsID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pFacilityMaster" ("fmCompanyID" INT NOT NULL, "fmFacilityID" INT NOT NULL, "fmFacilityName" TEXT COLLATE ts_text, "fmdeductionid" INT, "fmcurrencyid" INT, PRIMARY KEY ("fmCompanyID", "fmFacilityID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pempallowances" ("eacompanyid" INT NOT NULL, "eaempid" INT NOT NULL, "eaallowanceid" INT NOT NULL, "eaamount" TEXT COLLATE ts_number, PRIMARY KEY ("eacompanyid", "eaempid", "eaallowanceid")) STRICT, WITHOUT ROWID;
CREATE TABLE "pempdeductions" ("edcompanyid" INT NOT NULL, "edempid" INT NOT NULL, "eddeductionid" INT NOT NULL, "edamount" TEXT COLLATE ts_number, PRIMARY KEY ("edcompanyid", "edempid", "eddeductionid")) STRICT, WITHOUT ROWID;
CREATE TABLE "pLoansIssue" ("liCompanyID" INT NOT NULL, "liID" INT NOT NULL, "liLoanID" INT NOT NULL, "liEmpID" INT NOT NULL, "liCurrentBalance" TEXT COLLATE ts_number, "liInstallmentAmount" TEXT COLLATE ts_number, "liActive" INT, "licancelled" INT, "liDeductionMode" INT, PRIMARY KEY ("liCompanyID", "liID")) STRICT, WITHOUT ROWID;
CREATE TABLE "popeningsavings" ("osCompanyID" INT NOT NULL, "osID" INT NOT NULL, "osSavingsID" INT NOT NULL, "osEmpID" INT NOT NULL, "osCurrentBalance" TEXT COLLATE ts_number, "osInstallmentAmount" TEXT COLLATE ts_number, "osDeductionMode" INT, "osActive" INT, "osCancelled" INT, PRIMARY KEY ("osCompanyID", "osID")) STRICT, WITHOUT ROWID;
CREATE TABLE "psavingsdetails" ("sdCompanyID" INT NOT NULL, "sdSavingsID" INT NOT NULL, "sdOpenSavingID" INT NOT NULL, "sdDate" INT NOT NULL) STRICT;
CREATE TABLE "pFacilityTrackingHeader" ("fthCompanyID" INT NOT NULL, "fthTrackingID" INT NOT NULL, "fthTrackingNo" TEXT COLLATE ts_text, "fthFacilityID" INT NOT NULL, "fthEmployeeID" INT NOT NULL, "fthDeductionAmt" TEXT COLLATE ts_number, "fthCancelled" INT, PRIMARY KEY ("fthCompanyID", "fthTrackingID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pEmployeeattendence" ("eaid" INT NOT NULL, "eacompanyid" INT NOT NULL, "eaEmpID" INT NOT NULL, "eaStartDate" INT NOT NULL, "eaEndDate" INT NOT NULL, "eaCancelled" INT, PRIMARY KEY ("eaid", "eacompanyid")) STRICT, WITHOUT ROWID;
CREATE TABLE "pempattendancedetail" ("eadAttendanceID" INT NOT NULL, "eadcompanyid" INT NOT NULL, "eaddate" INT NOT NULL, "eadtype" TEXT COLLATE ts_text) STRICT;
CREATE TABLE "pEmpAttendanceAllowanceDeductions" ("eaadAttendanceID" INT NOT NULL, "eaadCompanyID" INT NOT NULL, "eaadDate" INT NOT NULL, "eaadHours" TEXT COLLATE ts_number, "eaadAllowanceID" INT, "eaadDeductionID" INT) STRICT;
CREATE TABLE "pleaves" ("lCompanyID" INT NOT NULL, "lLeaveID" INT NOT NULL, "lDescription" TEXT COLLATE ts_text, PRIMARY KEY ("lCompanyID", "lLeaveID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pleaveregisterheader" ("lrhCompanyID" INT NOT NULL, "lrhID" INT NOT NULL, "lrhempid" INT NOT NULL, "lrhcancelled" INT, PRIMARY KEY ("lrhCompanyID", "lrhID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pleaveregisterdetail" ("lrdCompanyID" INT NOT NULL, "lrdID" INT NOT NULL, "lrdLeaveID" INT NOT NULL, "lrdFromDate" INT NOT NULL, "lrdToDate" INT NOT NULL, "lrdNoofDays" TEXT COLLATE ts_number, PRIMARY KEY ("lrdID", "lrdCompanyID", "lrdLeaveID", "lrdFromDate")) STRICT, WITHOUT ROWID;
CREATE TABLE "pleavecancellationheader" ("lchcompanyid" INT NOT NULL, "lchid" INT NOT NULL, "lchcancelled" INT, PRIMARY KEY ("lchcompanyid", "lchid")) STRICT, WITHOUT ROWID;
CREATE TABLE "pleavecancellationdetail" ("lcdcompanyid" INT NOT NULL, "lcdid" INT NOT NULL, "lcdlrdid" INT NOT NULL, "lcdlrdleaveid" INT NOT NULL, "status" TEXT COLLATE ts_text) STRICT;
CREATE TABLE "pcalenderheader" ("CompanyID" INT NOT NULL, "CalenderID" INT NOT NULL, "departmentid" INT, "financialid" INT, PRIMARY KEY ("CompanyID", "CalenderID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pCalenderDetail" ("CompanyID" INT NOT NULL, "CalenderID" INT NOT NULL, "HolidayDate" INT NOT NULL, PRIMARY KEY ("CompanyID", "CalenderID", "HolidayDate")) STRICT, WITHOUT ROWID;
CREATE TABLE "pempmonthlyentryheader" ("emhCompanyID" INT NOT NULL, "emhID" INT NOT NULL, "emhNo" TEXT COLLATE ts_text, "emhDate" INT, "emhempID" INT NOT NULL, "emhbasicpay" TEXT COLLATE ts_number, "emhpaidcash" INT, "emhstartdate" INT, "emhenddate" INT, "emhOrginalBasic" TEXT COLLATE ts_number, "emhCancelled" INT NOT NULL, "emhCancelledRemarks" TEXT COLLATE ts_text, "emhprocessed" INT, PRIMARY KEY ("emhID", "emhCompanyID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pemployeeallowancedetail" ("eadcompanyid" INT NOT NULL, "eadid" INT NOT NULL, "eadallowanceid" INT NOT NULL, "eadamount" TEXT COLLATE ts_number, "eaddefault" INT) STRICT;
CREATE TABLE "pemployeeDeductiondetail" ("eddcompanyid" INT NOT NULL, "eddid" INT NOT NULL, "eddDetailID" INT NOT NULL, "edddeductionid" INT, "eddloanid" INT, "eddsavingsid" INT, "eddLoanIssueID" INT, "eddOpenSavingsID" INT, "eddType" TEXT COLLATE ts_text, "eddamount" TEXT COLLATE ts_number, PRIMARY KEY ("eddid", "eddcompanyid", "eddDetailID")) STRICT, WITHOUT ROWID;
CREATE TABLE "pempfacilitydeductiondetail" ("efdcompanyid" INT NOT NULL, "efdid" INT NOT NULL, "efddetailid" INT NOT NULL, "efdtrackingid" INT NOT NULL, "efddedamount" TEXT COLLATE ts_number, "efdfacilityamt" TEXT COLLATE ts_number, PRIMARY KEY ("efdid", "efdcompanyid", "efddetailid")) STRICT, WITHOUT ROWID;
CREATE TABLE "pEmployeeCurrentDetails" ("ecdCompanyID" INT NOT NULL, "ecdPaySlateID" INT NOT NULL, "ecdDetailID" INT NOT NULL, "ecdAmount" REAL, "ecdMode" INT, PRIMARY KEY ("ecdPaySlateID", "ecdCompanyID", "ecdDetailID")) STRICT, WITHOUT ROWID;
CREATE TABLE "ppaymonths" ("companyid" INT NOT NULL, "paymonth" INT NOT NULL, "startdate" INT NOT NULL, PRIMARY KEY ("companyid", "paymonth")) STRICT, WITHOUT ROWID;
CREATE INDEX "ploansissue.ixloansissueemployee" ON "pLoansIssue" ("liEmpID", "liCompanyID");
CREATE INDEX "popeningsavings.ixopeningsavingsemployee" ON "popeningsavings" ("osEmpID", "osCompanyID");
CREATE INDEX "psavingsdetails.ixsavingsdetailsaccount" ON "psavingsdetails" ("sdOpenSavingID", "sdCompanyID", "sdDate");
CREATE INDEX "pfacilitytrackingheader.ixfacilitytrackingemployee" ON "pFacilityTrackingHeader" ("fthEmployeeID", "fthCompanyID");
CREATE INDEX "pemployeeattendence.ixattendanceemployee" ON "pEmployeeattendence" ("eaEmpID", "eacompanyid", "eaStartDate");
CREATE INDEX "pempattendancedetail.ixattendancedetailsheet" ON "pempattendancedetail" ("eadAttendanceID", "eadcompanyid", "eaddate");
CREATE INDEX "pempattendanceallowancedeductions.ixattendancehourssheet" ON "pEmpAttendanceAllowanceDeductions" ("eaadAttendanceID", "eaadCompanyID");
CREATE INDEX "pleaveregisterheader.ixleaveregisteremployee" ON "pleaveregisterheader" ("lrhempid", "lrhCompanyID");
CREATE INDEX "pleavecancellationdetail.ixleavecancellationregister" ON "pleavecancellationdetail" ("lcdlrdid", "lcdcompanyid", "lcdlrdleaveid");
CREATE INDEX "pcalenderheader.ixcalendaryear" ON "pcalenderheader" ("financialid", "CompanyID", "departmentid");
CREATE UNIQUE INDEX "pempmonthlyentryheader.uxmonthlyentrylive" ON "pempmonthlyentryheader" ("emhempID", "emhCompanyID", "emhstartdate") WHERE ("emhCancelled" = 0);
CREATE UNIQUE INDEX "pempmonthlyentryheader.uxmonthlyentrylive.null" ON "pempmonthlyentryheader" (ifnull("emhempID", x'00'), ifnull("emhCompanyID", x'00'), ifnull("emhstartdate", x'00')) WHERE ("emhstartdate" IS NULL) AND ("emhCancelled" = 0);
CREATE UNIQUE INDEX "pempmonthlyentryheader.uxmonthlyentrynumber" ON "pempmonthlyentryheader" ("emhCompanyID", "emhNo") WHERE ("emhNo" IS NOT NULL);
CREATE UNIQUE INDEX "pempmonthlyentryheader.uxmonthlyentrynumber.null" ON "pempmonthlyentryheader" (ifnull("emhCompanyID", x'00'), ifnull("emhNo", x'00') COLLATE ts_text) WHERE ("emhNo" IS NULL) AND ("emhNo" IS NOT NULL);
CREATE INDEX "pempmonthlyentryheader.ixmonthlyentrynumber" ON "pempmonthlyentryheader" ("emhCompanyID", "emhNo");
CREATE INDEX "pempmonthlyentryheader.ixmonthlyentrydate" ON "pempmonthlyentryheader" ("emhCompanyID", "emhDate", "emhCancelled", "emhempID");
CREATE INDEX "pempmonthlyentryheader.ixmonthlyentryemployee" ON "pempmonthlyentryheader" ("emhempID", "emhCompanyID", "emhDate", "emhCancelled");
CREATE INDEX "pemployeeallowancedetail.ixallowancedetailentry" ON "pemployeeallowancedetail" ("eadid", "eadcompanyid");
CREATE UNIQUE INDEX "pempfacilitydeductiondetail.uxfacilitydetailtracking" ON "pempfacilitydeductiondetail" ("efdtrackingid", "efdcompanyid");
INSERT INTO "catalog_objects" VALUES
('linktable', 'table', 'linkTable', ''), ('pallowances', 'table', 'pAllowances', ''),
('pcalenderdetail', 'table', 'pCalenderDetail', ''), ('pcalenderheader', 'table', 'pcalenderheader', ''),
('pcurrencymaster', 'table', 'pCurrencyMaster', ''), ('pdeductions', 'table', 'pDeductions', ''),
('pdepartment', 'table', 'pDepartment', ''), ('pempallowances', 'table', 'pempallowances', ''),
('pempattendanceallowancedeductions', 'table', 'pEmpAttendanceAllowanceDeductions', ''),
('pempattendancedetail', 'table', 'pempattendancedetail', ''), ('pempdeductions', 'table', 'pempdeductions', ''),
('pempfacilitydeductiondetail', 'table', 'pempfacilitydeductiondetail', ''), ('pemployee', 'table', 'pemployee', ''),
('pemployeeallowancedetail', 'table', 'pemployeeallowancedetail', ''),
('pemployeeattendence', 'table', 'pEmployeeattendence', ''),
('pemployeecurrentdetails', 'table', 'pEmployeeCurrentDetails', ''),
('pemployeedeductiondetail', 'table', 'pemployeeDeductiondetail', ''),
('pempmonthlyentryheader', 'table', 'pempmonthlyentryheader', ''),
('pfacilitymaster', 'table', 'pFacilityMaster', ''),
('pfacilitytrackingheader', 'table', 'pFacilityTrackingHeader', ''), ('pformula', 'table', 'pformula', ''),
('pleavecancellationdetail', 'table', 'pleavecancellationdetail', ''),
('pleavecancellationheader', 'table', 'pleavecancellationheader', ''),
('pleaveregisterdetail', 'table', 'pleaveregisterdetail', ''),
('pleaveregisterheader', 'table', 'pleaveregisterheader', ''), ('pleaves', 'table', 'pleaves', ''),
('ploans', 'table', 'ploans', ''), ('ploansissue', 'table', 'pLoansIssue', ''),
('popeningsavings', 'table', 'popeningsavings', ''), ('ppaymonths', 'table', 'ppaymonths', ''),
('pprefix', 'table', 'pPrefix', ''), ('psavings', 'table', 'psavings', ''),
('psavingsdetails', 'table', 'psavingsdetails', ''), ('psettings', 'table', 'psettings', ''),
('puserrights', 'table', 'puserrights', ''), ('pusers', 'table', 'pusers', ''),
('spformulaparameter', 'procedure', 'spformulaparameter', 'create procedure spformulaparameter @company smallint, @employee int, @year smallint, @start datetime as
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
    datediff(d, ''19000107'', @start) % 7 firstday
  from pemployee
  where eCompanyID = @company and eEmpID = @employee) period'),
('vwpaymonthvsdate', 'view', 'vwPaymonthvsdate', 'create view vwPaymonthvsdate as
select companyid, paymonth, startdate from ppaymonths');
INSERT INTO "catalog_columns" VALUES
('linktable', 0, 'tablename', 'varchar(60)', 1, 1), ('linktable', 1, 'linktablename', 'varchar(60)', 1, 0),
('pallowances', 0, 'aCompanyID', 'smallint', 1, 1), ('pallowances', 1, 'aAllowanceID', 'int', 1, 2),
('pallowances', 2, 'aDescription', 'varchar(80)', 0, 0), ('pallowances', 3, 'aActive', 'smallint', 0, 0),
('pallowances', 4, 'aformulaid', 'int', 0, 0), ('pallowances', 5, 'acurrencyid', 'int', 0, 0),
('pcalenderdetail', 0, 'CompanyID', 'smallint', 1, 1), ('pcalenderdetail', 1, 'CalenderID', 'int', 1, 2),
('pcalenderdetail', 2, 'HolidayDate', 'datetime', 1, 3), ('pcalenderheader', 0, 'CompanyID', 'smallint', 1, 1),
('pcalenderheader', 1, 'CalenderID', 'int', 1, 2), ('pcalenderheader', 2, 'departmentid', 'int', 0, 0),
('pcalenderheader', 3, 'financialid', 'int', 0, 0), ('pcurrencymaster', 0, 'CompanyID', 'smallint', 1, 1),
('pcurrencymaster', 1, 'CurrencyID', 'int', 1, 2), ('pcurrencymaster', 2, 'Symbol', 'varchar(10)', 0, 0),
('pdeductions', 0, 'dCompanyID', 'smallint', 1, 1), ('pdeductions', 1, 'dDedID', 'int', 1, 2),
('pdeductions', 2, 'dDescription', 'varchar(80)', 0, 0), ('pdeductions', 3, 'dActive', 'smallint', 0, 0),
('pdeductions', 4, 'dformulaid', 'int', 0, 0), ('pdeductions', 5, 'dcurrencyid', 'int', 0, 0),
('pdepartment', 0, 'CompanyID', 'smallint', 1, 1), ('pdepartment', 1, 'DepartmentID', 'int', 1, 2),
('pdepartment', 2, 'DepartmentName', 'varchar(60)', 0, 0), ('pempallowances', 0, 'eacompanyid', 'smallint', 1, 1),
('pempallowances', 1, 'eaempid', 'int', 1, 2), ('pempallowances', 2, 'eaallowanceid', 'int', 1, 3),
('pempallowances', 3, 'eaamount', 'decimal(18,2)', 0, 0),
('pempattendanceallowancedeductions', 0, 'eaadAttendanceID', 'int', 1, 0),
('pempattendanceallowancedeductions', 1, 'eaadCompanyID', 'smallint', 1, 0),
('pempattendanceallowancedeductions', 2, 'eaadDate', 'datetime', 1, 0),
('pempattendanceallowancedeductions', 3, 'eaadHours', 'decimal(9,2)', 0, 0),
('pempattendanceallowancedeductions', 4, 'eaadAllowanceID', 'int', 0, 0),
('pempattendanceallowancedeductions', 5, 'eaadDeductionID', 'int', 0, 0),
('pempattendancedetail', 0, 'eadAttendanceID', 'int', 1, 0),
('pempattendancedetail', 1, 'eadcompanyid', 'smallint', 1, 0),
('pempattendancedetail', 2, 'eaddate', 'datetime', 1, 0), ('pempattendancedetail', 3, 'eadtype', 'varchar(4)', 0, 0),
('pempdeductions', 0, 'edcompanyid', 'smallint', 1, 1), ('pempdeductions', 1, 'edempid', 'int', 1, 2),
('pempdeductions', 2, 'eddeductionid', 'int', 1, 3), ('pempdeductions', 3, 'edamount', 'decimal(18,2)', 0, 0),
('pempfacilitydeductiondetail', 0, 'efdcompanyid', 'smallint', 1, 2),
('pempfacilitydeductiondetail', 1, 'efdid', 'int', 1, 1),
('pempfacilitydeductiondetail', 2, 'efddetailid', 'smallint', 1, 3),
('pempfacilitydeductiondetail', 3, 'efdtrackingid', 'int', 1, 0),
('pempfacilitydeductiondetail', 4, 'efddedamount', 'decimal(18,2)', 0, 0),
('pempfacilitydeductiondetail', 5, 'efdfacilityamt', 'decimal(18,2)', 0, 0),
('pemployee', 0, 'eCompanyID', 'smallint', 1, 1), ('pemployee', 1, 'eEmpID', 'int', 1, 2),
('pemployee', 2, 'eName', 'varchar(80)', 0, 0), ('pemployee', 3, 'eActive', 'smallint', 0, 0),
('pemployee', 4, 'eCurrencyID', 'int', 0, 0), ('pemployee', 5, 'eGradeID', 'int', 0, 0),
('pemployee', 6, 'eDesigID', 'int', 0, 0), ('pemployee', 7, 'eBasic', 'decimal(18,2)', 0, 0),
('pemployee', 8, 'eDeptID', 'int', 0, 0), ('pemployee', 9, 'eDateofJoin', 'datetime', 0, 0),
('pemployee', 10, 'hrsofWork', 'decimal(5,2)', 0, 0),
('pemployee', 11, 'AllowancePerHourRate', 'decimal(18,2)', 0, 0),
('pemployee', 12, 'DeductionPerHourRate', 'decimal(18,2)', 0, 0),
('pemployeeallowancedetail', 0, 'eadcompanyid', 'smallint', 1, 0),
('pemployeeallowancedetail', 1, 'eadid', 'int', 1, 0), ('pemployeeallowancedetail', 2, 'eadallowanceid', 'int', 1, 0),
('pemployeeallowancedetail', 3, 'eadamount', 'decimal(18,2)', 0, 0),
('pemployeeallowancedetail', 4, 'eaddefault', 'smallint', 0, 0), ('pemployeeattendence', 0, 'eaid', 'int', 1, 1),
('pemployeeattendence', 1, 'eacompanyid', 'smallint', 1, 2), ('pemployeeattendence', 2, 'eaEmpID', 'int', 1, 0),
('pemployeeattendence', 3, 'eaStartDate', 'datetime', 1, 0),
('pemployeeattendence', 4, 'eaEndDate', 'datetime', 1, 0),
('pemployeeattendence', 5, 'eaCancelled', 'smallint', 0, 0),
('pemployeecurrentdetails', 0, 'ecdCompanyID', 'smallint', 1, 2),
('pemployeecurrentdetails', 1, 'ecdPaySlateID', 'int', 1, 1),
('pemployeecurrentdetails', 2, 'ecdDetailID', 'smallint', 1, 3),
('pemployeecurrentdetails', 3, 'ecdAmount', 'float', 0, 0),
('pemployeecurrentdetails', 4, 'ecdMode', 'smallint', 0, 0),
('pemployeedeductiondetail', 0, 'eddcompanyid', 'smallint', 1, 2),
('pemployeedeductiondetail', 1, 'eddid', 'int', 1, 1),
('pemployeedeductiondetail', 2, 'eddDetailID', 'smallint', 1, 3),
('pemployeedeductiondetail', 3, 'edddeductionid', 'int', 0, 0),
('pemployeedeductiondetail', 4, 'eddloanid', 'int', 0, 0),
('pemployeedeductiondetail', 5, 'eddsavingsid', 'int', 0, 0),
('pemployeedeductiondetail', 6, 'eddLoanIssueID', 'int', 0, 0),
('pemployeedeductiondetail', 7, 'eddOpenSavingsID', 'int', 0, 0),
('pemployeedeductiondetail', 8, 'eddType', 'varchar(2)', 0, 0),
('pemployeedeductiondetail', 9, 'eddamount', 'decimal(18,2)', 0, 0),
('pempmonthlyentryheader', 0, 'emhCompanyID', 'smallint', 1, 2), ('pempmonthlyentryheader', 1, 'emhID', 'int', 1, 1),
('pempmonthlyentryheader', 2, 'emhNo', 'varchar(30)', 0, 0),
('pempmonthlyentryheader', 3, 'emhDate', 'datetime', 0, 0), ('pempmonthlyentryheader', 4, 'emhempID', 'int', 1, 0),
('pempmonthlyentryheader', 5, 'emhbasicpay', 'decimal(18,2)', 0, 0),
('pempmonthlyentryheader', 6, 'emhpaidcash', 'smallint', 0, 0),
('pempmonthlyentryheader', 7, 'emhstartdate', 'datetime', 0, 0),
('pempmonthlyentryheader', 8, 'emhenddate', 'datetime', 0, 0),
('pempmonthlyentryheader', 9, 'emhOrginalBasic', 'decimal(18,2)', 0, 0),
('pempmonthlyentryheader', 10, 'emhCancelled', 'smallint', 1, 0),
('pempmonthlyentryheader', 11, 'emhCancelledRemarks', 'varchar(500)', 0, 0),
('pempmonthlyentryheader', 12, 'emhprocessed', 'smallint', 0, 0),
('pfacilitymaster', 0, 'fmCompanyID', 'smallint', 1, 1), ('pfacilitymaster', 1, 'fmFacilityID', 'int', 1, 2),
('pfacilitymaster', 2, 'fmFacilityName', 'varchar(80)', 0, 0), ('pfacilitymaster', 3, 'fmdeductionid', 'int', 0, 0),
('pfacilitymaster', 4, 'fmcurrencyid', 'int', 0, 0), ('pfacilitytrackingheader', 0, 'fthCompanyID', 'smallint', 1, 1),
('pfacilitytrackingheader', 1, 'fthTrackingID', 'int', 1, 2),
('pfacilitytrackingheader', 2, 'fthTrackingNo', 'varchar(20)', 0, 0),
('pfacilitytrackingheader', 3, 'fthFacilityID', 'int', 1, 0),
('pfacilitytrackingheader', 4, 'fthEmployeeID', 'int', 1, 0),
('pfacilitytrackingheader', 5, 'fthDeductionAmt', 'decimal(18,2)', 0, 0),
('pfacilitytrackingheader', 6, 'fthCancelled', 'smallint', 0, 0), ('pformula', 0, 'fCompanyID', 'smallint', 1, 1),
('pformula', 1, 'fFormulaID', 'int', 1, 2), ('pformula', 2, 'fFormulaName', 'varchar(400)', 0, 0),
('pformula', 3, 'fFormulacode', 'varchar(20)', 0, 0),
('pleavecancellationdetail', 0, 'lcdcompanyid', 'smallint', 1, 0),
('pleavecancellationdetail', 1, 'lcdid', 'int', 1, 0), ('pleavecancellationdetail', 2, 'lcdlrdid', 'int', 1, 0),
('pleavecancellationdetail', 3, 'lcdlrdleaveid', 'int', 1, 0),
('pleavecancellationdetail', 4, 'status', 'varchar(4)', 0, 0),
('pleavecancellationheader', 0, 'lchcompanyid', 'smallint', 1, 1),
('pleavecancellationheader', 1, 'lchid', 'int', 1, 2),
('pleavecancellationheader', 2, 'lchcancelled', 'smallint', 0, 0),
('pleaveregisterdetail', 0, 'lrdCompanyID', 'smallint', 1, 2), ('pleaveregisterdetail', 1, 'lrdID', 'int', 1, 1),
('pleaveregisterdetail', 2, 'lrdLeaveID', 'int', 1, 3), ('pleaveregisterdetail', 3, 'lrdFromDate', 'datetime', 1, 4),
('pleaveregisterdetail', 4, 'lrdToDate', 'datetime', 1, 0),
('pleaveregisterdetail', 5, 'lrdNoofDays', 'decimal(6,1)', 0, 0),
('pleaveregisterheader', 0, 'lrhCompanyID', 'smallint', 1, 1), ('pleaveregisterheader', 1, 'lrhID', 'int', 1, 2),
('pleaveregisterheader', 2, 'lrhempid', 'int', 1, 0), ('pleaveregisterheader', 3, 'lrhcancelled', 'smallint', 0, 0),
('pleaves', 0, 'lCompanyID', 'smallint', 1, 1), ('pleaves', 1, 'lLeaveID', 'int', 1, 2),
('pleaves', 2, 'lDescription', 'varchar(60)', 0, 0), ('ploans', 0, 'lcompanyid', 'smallint', 1, 1),
('ploans', 1, 'lloanid', 'int', 1, 2), ('ploans', 2, 'lDescription', 'varchar(80)', 0, 0),
('ploans', 3, 'lcurrencyid', 'int', 0, 0), ('ploansissue', 0, 'liCompanyID', 'smallint', 1, 1),
('ploansissue', 1, 'liID', 'int', 1, 2), ('ploansissue', 2, 'liLoanID', 'int', 1, 0),
('ploansissue', 3, 'liEmpID', 'int', 1, 0), ('ploansissue', 4, 'liCurrentBalance', 'decimal(18,2)', 0, 0),
('ploansissue', 5, 'liInstallmentAmount', 'decimal(18,2)', 0, 0), ('ploansissue', 6, 'liActive', 'smallint', 0, 0),
('ploansissue', 7, 'licancelled', 'smallint', 0, 0), ('ploansissue', 8, 'liDeductionMode', 'smallint', 0, 0),
('popeningsavings', 0, 'osCompanyID', 'smallint', 1, 1), ('popeningsavings', 1, 'osID', 'int', 1, 2),
('popeningsavings', 2, 'osSavingsID', 'int', 1, 0), ('popeningsavings', 3, 'osEmpID', 'int', 1, 0),
('popeningsavings', 4, 'osCurrentBalance', 'decimal(18,2)', 0, 0),
('popeningsavings', 5, 'osInstallmentAmount', 'decimal(18,2)', 0, 0),
('popeningsavings', 6, 'osDeductionMode', 'smallint', 0, 0), ('popeningsavings', 7, 'osActive', 'smallint', 0, 0),
('popeningsavings', 8, 'osCancelled', 'smallint', 0, 0), ('ppaymonths', 0, 'companyid', 'smallint', 1, 1),
('ppaymonths', 1, 'paymonth', 'smallint', 1, 2), ('ppaymonths', 2, 'startdate', 'datetime', 1, 0),
('pprefix', 0, 'CompanyID', 'smallint', 1, 1), ('pprefix', 1, 'InterfaceID', 'int', 1, 2),
('pprefix', 2, 'Prefix', 'varchar(10)', 0, 0), ('psavings', 0, 'scompanyid', 'smallint', 1, 1),
('psavings', 1, 'sSavingsID', 'int', 1, 2), ('psavings', 2, 'sDescription', 'varchar(80)', 0, 0),
('psavings', 3, 'scurrencyid', 'int', 0, 0), ('psavingsdetails', 0, 'sdCompanyID', 'smallint', 1, 0),
('psavingsdetails', 1, 'sdSavingsID', 'int', 1, 0), ('psavingsdetails', 2, 'sdOpenSavingID', 'int', 1, 0),
('psavingsdetails', 3, 'sdDate', 'datetime', 1, 0), ('psettings', 0, 'companyID', 'smallint', 1, 1),
('psettings', 1, 'NoOfPreviousDays', 'int', 0, 0), ('psettings', 2, 'calendardepwise', 'smallint', 0, 0),
('psettings', 3, 'LOPThroughDeductions', 'bit', 0, 0), ('psettings', 4, 'PerHourRateFromEmployeeMaster', 'bit', 0, 0),
('puserrights', 0, 'userid', 'smallint', 1, 1), ('puserrights', 1, 'interfaceid', 'int', 1, 2),
('puserrights', 2, 'FunctionRights', 'varchar(30)', 0, 0), ('pusers', 0, 'companyid', 'smallint', 1, 1),
('pusers', 1, 'userid', 'smallint', 1, 2), ('pusers', 2, 'username', 'varchar(60)', 0, 0);
INSERT INTO "linkTable" VALUES
('pAllowances', 'pAllowances'), ('pcalenderdetail', 'pCalenderDetail'), ('pcalenderheader', 'pcalenderheader'),
('pCurrencyMaster', 'pCurrencyMaster'), ('pDeductions', 'pDeductions'), ('pDepartment', 'pDepartment'),
('pEmpAttendanceAllowanceDeductions', 'pEmpAttendanceAllowanceDeductions'),
('pempattendancedetail', 'pempattendancedetail'), ('pempfacilitydeductiondetail', 'pempfacilitydeductiondetail'),
('pemployee', 'pemployee'), ('pemployeeallowancedetail', 'pemployeeallowancedetail'),
('pEmployeeAllowanceHeader', 'pEmployeeAllowanceHeader'), ('pEmployeeattendence', 'pEmployeeattendence'),
('pemployeeDeductiondetail', 'pemployeeDeductiondetail'), ('pEmployeeDeductionHeader', 'pEmployeeDeductionHeader'),
('pemployeeleaves', 'pemployeeleaves'), ('pempmonthlyentryheader', 'pempmonthlyentryheader'),
('pFacilityMaster', 'pFacilityMaster'), ('pFacilityTrackingHeader', 'pFacilityTrackingHeader'),
('pformula', 'pformula'), ('pgradeallowance', 'pgradeallowance'), ('pgradeleaves', 'pgradeleaves'),
('pleaves', 'pleaves'), ('ploanrepaymentdetails', 'ploanrepaymentdetails'), ('ploans', 'ploans'),
('pLoansIssue', 'pLoansIssue'), ('popeningsavings', 'popeningsavings'), ('pPrefix', 'pPrefix'),
('psavings', 'psavings'), ('psavingsdetails', 'psavingsdetails'), ('psettings', 'psettings'),
('ptablecolumns', 'ptablecolumns'), ('ptables', 'ptables'), ('puserrights', 'puserrights'), ('pusers', 'pusers');
INSERT INTO "psettings" VALUES
(1, 90, NULL, 0, 0), (2, 0, 1, 1, 1);
INSERT INTO "pPrefix" VALUES
(1, 40001, 'EN'), (2, 40001, 'KT');
INSERT INTO "pusers" VALUES
(1, 1, 'Imke Overgaard'), (1, 2, 'Ravi Telwin'), (1, 3, 'Lotte Marisk  '), (1, 4, 'Owen Castleby'),
(1, 5, 'Sanna Rook'), (1, 6, 'Piet Holm'), (2, 1, 'Imke Overgaard'), (2, 2, 'Ravi Telwin');
INSERT INTO "puserrights" VALUES
(2, 40001, 'NEP'), (3, 40001, ' n e d '), (4, 40001, 'ADMIN'), (5, 40001, NULL);
INSERT INTO "pemployee" VALUES
(1, 101, 'Asha Verling', 1, 1, 2, 6, '30000.00', 10, 3471292800000, '8.00', NULL, NULL),
(1, 102, 'Bram Maruvi', 1, 1, 3, 1, '19370.00', 20, 3505766400000, '8.00', NULL, NULL);
INSERT INTO "pDepartment" VALUES
(1, 10, 'Weaving'), (1, 20, 'Dye house'), (1, 30, 'Office'), (2, 10, 'Kiln'), (2, 20, 'Glazing'),
(2, 30, 'Dispatch ');
INSERT INTO "pCurrencyMaster" VALUES
(1, 1, 'Rs'), (1, 2, '$'), (1, 3, 'Eu'), (2, 1, 'Eu'), (2, 2, '$'), (2, 3, 'Rs');
INSERT INTO "pformula" VALUES
(1, 1, 'BP * PD / MD * 0.10', 'F-PRESENT'), (1, 2, ' bp * 0.12 ', 'F-FUND'), (1, 3, 'WD1 * 150', 'F-SUNDAY'),
(1, 4, 'ROUND( ( MD - AD ) * 16.5 ,0)', 'F-REGULAR'), (1, 5, '( BP / MD ) * ( LD + HD ) * 0.05', 'F-REST'),
(2, 1, 'BP / MD * AD', 'K-ABSENCE'), (2, 2, 'BP * 0.08', 'K-FUND');
INSERT INTO "pAllowances" VALUES
(1, 1, 'House rent', 1, NULL, 1), (1, 2, 'Attendance bonus', 1, 1, 1), (1, 3, 'Overtime', 1, 0, 1),
(1, 4, 'Travel', 1, NULL, 2), (1, 5, 'Jubilee bonus', 0, NULL, 1), (1, 6, 'Sunday shift', 1, 3, 1),
(1, 7, 'Schooling', 1, NULL, 3), (1, 8, 'Regularity', 1, 4, 1), (1, 9, 'Rest bonus', 1, 5, 1),
(2, 1, 'Lodging', 1, NULL, 1), (2, 2, 'Kiln hours', 1, NULL, 1);
INSERT INTO "pDeductions" VALUES
(1, 1, 'Provident fund', 1, 2, 1), (1, 2, 'Canteen', 1, NULL, 1), (1, 3, 'Vehicle recovery', 1, NULL, 1),
(1, 4, 'Late hours', 1, NULL, 1), (1, 5, 'Quarters recovery', 1, NULL, 1), (1, 6, 'Club', 0, NULL, 1),
(1, 7, 'Union fee', 1, NULL, 1), (1, 8, 'Salary advance', 1, 0, 1), (2, 1, 'Loss of pay', 1, 1, 1),
(2, 2, 'Fund', 1, 2, 1), (2, 3, 'Late hours', 1, NULL, 1), (2, 4, 'Tool recovery', 1, NULL, 1);
INSERT INTO "ploans" VALUES
(1, 1, 'Festival loan', 1), (1, 2, 'House loan', 1), (2, 1, 'Bicycle loan', 1);
INSERT INTO "psavings" VALUES
(1, 1, 'Thrift', 1), (1, 2, 'Old age', 1), (1, 3, 'Relief', NULL), (2, 1, 'Thrift', 1);
INSERT INTO "pFacilityMaster" VALUES
(1, 1, 'Motor cycle', 3, 1), (1, 2, 'Company quarters', 5, 1), (2, 1, 'Tool set', 4, 1);
INSERT INTO "pempallowances" VALUES
(1, 101, 1, '3000.00'), (1, 101, 8, '0.00'), (1, 102, 1, '2324.40'), (1, 102, 6, '0.00'), (1, 102, 9, '0.00');
INSERT INTO "pempdeductions" VALUES
(1, 101, 1, '0.00'), (1, 101, 2, '300.25'), (1, 102, 1, '0.00'), (1, 102, 2, '280.00');
INSERT INTO "pLoansIssue" VALUES
(1, 1, 1, 101, '400.00', '1000.00', 1, 0, 1), (1, 2, 2, 101, '84000.00', '3500.50', 1, 0, 1),
(1, 3, 1, 101, '5000.00', '500.00', 1, 0, 2), (1, 4, 1, 101, '9000.00', '900.00', 1, 1, 1);
INSERT INTO "popeningsavings" VALUES
(1, 1, 1, 101, '5000.00', '250.00', 1, 1, 0), (1, 2, 1, 102, '5000.00', '250.00', 1, 1, 0);
INSERT INTO "psavingsdetails" VALUES
(1, 1, 1, 3982521600000), (1, 1, 1, 3983990400000), (1, 1, 1, 3986496000000), (1, 1, 2, 3983904000000),
(1, 1, 2, 3986582400000);
INSERT INTO "pFacilityTrackingHeader" VALUES
(1, 1, 'FT-1', 1, 101, '500.00', 0), (1, 2, 'FT-2', 1, 101, '250.75', 0), (1, 3, 'FT-3', 2, 101, '1200.00', 0),
(1, 4, 'FT-4', 1, 102, '800.00', 1);
INSERT INTO "pEmployeeattendence" VALUES
(4, 1, 101, 3983990400000, 3986496000000, 0);
INSERT INTO "pempattendancedetail" VALUES
(4, 1, 3984163200000, 'h'), (4, 1, 3984249600000, 'p'), (4, 1, 3984336000000, 'h'), (4, 1, 3984422400000, 'p'),
(4, 1, 3984508800000, 'a'), (4, 1, 3984595200000, 'HA'), (4, 1, 3984681600000, 'AL'), (4, 1, 3984768000000, 'p'),
(4, 1, 3984854400000, 'p'), (4, 1, 3984940800000, 'h'), (4, 1, 3985027200000, 'p'), (4, 1, 3985113600000, 'p'),
(4, 1, 3985200000000, 'p'), (4, 1, 3985286400000, 'p'), (4, 1, 3985372800000, 'p'), (4, 1, 3985459200000, 'p'),
(4, 1, 3985545600000, 'h'), (4, 1, 3985632000000, 'HL'), (4, 1, 3985718400000, 'p'), (4, 1, 3985804800000, 'p'),
(4, 1, 3985891200000, 'p'), (4, 1, 3985977600000, 'p'), (4, 1, 3986064000000, 'p'), (4, 1, 3986150400000, 'h'),
(4, 1, 3986236800000, 'p'), (4, 1, 3986323200000, 'p'), (4, 1, 3986409600000, 'p'), (4, 1, 3986496000000, 'p');
INSERT INTO "pEmpAttendanceAllowanceDeductions" VALUES
(4, 1, 3984854400000, '2.00', 3, NULL), (4, 1, 3985459200000, '3.50', 3, NULL),
(4, 1, 3985027200000, '1.00', NULL, 4);
INSERT INTO "pleaves" VALUES
(1, 1, 'Sick leave'), (1, 2, 'Casual leave'), (1, 3, 'Earned leave'), (2, 1, 'Sick leave'), (2, 2, 'Earned leave');
INSERT INTO "pleaveregisterheader" VALUES
(1, 1, 101, 0), (1, 2, 101, 0), (1, 3, 101, 1), (1, 4, 103, 0), (2, 1, 201, 0);
INSERT INTO "pleaveregisterdetail" VALUES
(1, 1, 1, 3983817600000, 3984076800000, '4.0'), (2, 1, 1, 3985977600000, 3986323200000, '5.0'),
(1, 2, 2, 3985632000000, 3985632000000, '0.5'), (1, 3, 3, 3985804800000, 3985891200000, '2.0'),
(1, 4, 2, 3984595200000, 3984681600000, '2.0');
INSERT INTO "pleavecancellationheader" VALUES
(1, 1, 0), (1, 2, 0), (2, 1, 0);
INSERT INTO "pleavecancellationdetail" VALUES
(1, 1, 1, 1, 's'), (1, 1, 2, 2, 'S'), (1, 1, 3, 3, 's'), (1, 2, 4, 2, 'c'), (2, 1, 1, 1, 's');
INSERT INTO "pcalenderheader" VALUES
(1, 1, NULL, 2025), (2, 1, 10, 2025), (2, 3, 20, 2025), (2, 5, 30, 2025), (1, 2, NULL, 2026), (2, 2, 10, 2026),
(2, 4, 20, 2026);
INSERT INTO "pCalenderDetail" VALUES
(1, 2, 3976214400000), (1, 2, 3978374400000), (1, 2, 3984163200000), (1, 2, 3986582400000), (2, 2, 3976214400000),
(2, 2, 3984163200000), (2, 4, 3976214400000), (2, 4, 3984163200000), (2, 4, 3984422400000);
INSERT INTO "pempmonthlyentryheader" VALUES
(1, 53, 'EN41', 3983904000000, 101, '30000.00', 0, 3981312000000, 3983904000000, '30000.00', 0, NULL, NULL),
(1, 54, 'EN42', 3983904000000, 102, '19370.00', 0, 3981312000000, 3983904000000, '19370.00', 0, NULL, 1),
(1, 83, 'EN65', 3986496000000, 101, '28000.00', 1, 3983990400000, 3986496000000, '30000.00', 1, 'Imke Overgaard:only shown', NULL);
INSERT INTO "pemployeeallowancedetail" VALUES
(1, 53, 1, '3000.00', 1), (1, 54, 1, '1937.00', 1), (1, 83, 1, '3000.00', 1), (1, 83, 8, '462.00', 1),
(1, 83, 3, '687.50', 0), (1, 83, 4, '45.50', 0);
INSERT INTO "pemployeeDeductiondetail" VALUES
(1, 53, 1, 1, NULL, NULL, NULL, NULL, 'D', '3600.00'), (1, 53, 2, NULL, 2, NULL, 2, NULL, 'L', '3500.50'),
(1, 53, 3, NULL, NULL, 1, NULL, 1, 'S', '250.00'), (1, 54, 1, 1, NULL, NULL, NULL, NULL, 'D', '2324.40'),
(1, 83, 1, 1, NULL, NULL, NULL, NULL, 'D', '3600.00'), (1, 83, 2, 2, NULL, NULL, NULL, NULL, 'D', '300.25'),
(1, 83, 3, NULL, 1, NULL, 1, NULL, 'L', '400.00'), (1, 83, 4, NULL, 2, NULL, 2, NULL, 'L', '3000.00'),
(1, 83, 5, NULL, NULL, 1, NULL, 1, 'S', '250.00'), (1, 83, 6, NULL, NULL, 1, NULL, 1, 'S', '250.00'),
(1, 83, 7, 4, NULL, NULL, NULL, NULL, 'O', '125.00'), (1, 83, 8, 7, NULL, NULL, NULL, NULL, 'N', '120.00'),
(1, 83, 9, 3, NULL, NULL, NULL, NULL, 'F', '600.00');
INSERT INTO "pEmployeeCurrentDetails" VALUES
(1, 53, 1, 500.0, 1), (1, 83, 1, 300.0, -1), (1, 83, 2, 1000.0, 1), (1, 83, 3, 25.0, 1);
INSERT INTO "ppaymonths" VALUES
(1, 1, 3976214400000), (1, 2, 3978892800000), (1, 3, 3981312000000), (1, 4, 3983990400000), (1, 5, 3986582400000),
(1, 6, 3989260800000), (1, 7, 3991852800000), (1, 8, 3994531200000), (1, 9, 3997209600000), (1, 10, 3999801600000),
(1, 11, 4002480000000), (1, 12, 4005072000000);
PRAGMA user_version = 55;
