// The payroll database on the embedded engine: what creating and filling it must leave behind.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/ado/Recordset.h"
#include "schema/schema.h"

namespace payslate::schema {
namespace {

/// First field of the first row; "none" without a row.
std::string one(ado::Connection& connection, const std::string& statement) {
  ado::Recordset rows = connection.Execute(statement);
  return rows.Eof() ? "none" : rows.Fields(0).Text();
}

/// Description of the error that `statement` ends in; "" when it ran.
std::string errorOf(ado::Connection& connection, const std::string& statement) {
  try {
    connection.Execute(statement);
  } catch (const ado::Error& error) {
    return error.Description;
  }
  return "";
}

TEST(Schema, IsCreatedOnceAndAsAWhole) {
  ado::Connection connection;
  EXPECT_THROW(create(connection), ado::Error);
  connection.Open(":memory:");
  connection.Execute("create table ppaymonths (n int)");
  try {
    create(connection);
    ADD_FAILURE() << "created beside a table of the same name";
  } catch (const ado::Error& error) {
    EXPECT_NE(error.Description.find("not created"), std::string::npos);
    EXPECT_NE(error.Description.find("ppaymonths"), std::string::npos) << error.Description;
  }
  EXPECT_FALSE(connection.InTransaction());
  EXPECT_NE(errorOf(connection, "select * from linkTable"), "");
  connection.Execute("drop table ppaymonths");
  create(connection);
  EXPECT_THROW(create(connection), ado::Error);
  EXPECT_EQ(one(connection, "select count(*) from linkTable"), "36");
}

TEST(Schema, EveryLinkedTableInUseExists) {
  const std::vector<std::string> unused{
      "pEmployeeAllowanceHeader", "pEmployeeDeductionHeader", "ptables",         "ptablecolumns",
      "ploanrepaymentdetails",    "pgradeallowance",          "pemployeeleaves", "pgradeleaves"};
  ado::Connection connection;
  connection.Open(":memory:");
  create(connection);
  ado::Recordset links;
  links.Open("select tablename, linktablename from linkTable", connection, ado::CursorType::Keyset,
             ado::LockType::ReadOnly);
  for (; !links.Eof(); links.MoveNext()) {
    const std::string table = links.Fields("linktablename").Text();
    const bool used = std::find(unused.begin(), unused.end(), table) == unused.end();
    EXPECT_EQ(errorOf(connection, "select * from " + table + " where 1=2").empty(), used) << table;
  }
}

class DemoTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    connection = new ado::Connection;
    connection->Open(":memory:");
    createDemo(*connection);
  }
  static void TearDownTestSuite() {
    delete connection;
    connection = nullptr;
  }
  static std::string value(const std::string& statement) { return one(*connection, statement); }

  static ado::Connection* connection;
};

ado::Connection* DemoTest::connection = nullptr;

TEST_F(DemoTest, FormulaParametersCountWeekdaysInsideThePeriod) {
  struct Case {
    const char* arguments;
    const char* row;  // monthdays, then Sunday to Saturday
  };
  for (const Case& c : {Case{"1, 101, 2026,'2026/04/01'", "30 4 4 4 5 5 4 4"},
                        Case{"1, 101, 2026,'2026/02/01'", "28 4 4 4 4 4 4 4"},
                        Case{"1, 101, 2026,'2025/12/26'", "31 5 4 4 4 4 5 5"},
                        Case{"1, 101, 2026,'2024/02/01'", "29 4 4 4 4 5 4 4"},
                        Case{"1, 101, 2026,'2026/01/31'", "28 4 4 4 4 4 4 4"}}) {
    ado::Recordset rows = connection->Execute(std::string("spformulaparameter  ") + c.arguments);
    ASSERT_FALSE(rows.Eof()) << c.arguments;
    EXPECT_EQ(rows.Fields("basicpay").Text(), "30000");
    std::string row = rows.Fields("monthdays").Text();
    for (int day = 1; day <= 7; ++day) row += " " + rows.Fields("wk" + std::to_string(day) + "days").Text();
    EXPECT_EQ(row, c.row) << c.arguments;
  }
  EXPECT_EQ(value("spformulaparameter  1, 999, 2026,'2026/04/01'"), "none");
}

TEST_F(DemoTest, HasSomebodyForEveryRule) {
  struct Case {
    const char* statement;
    const char* value;
  };
  for (const Case& c : {
           Case{"select count(*) from pemployee where eCompanyID = 1", "44"},
           Case{"select count(*) from pemployee where eCompanyID = 2", "12"},
           Case{"select count(*) from pemployee where eActive = 0", "1"},
           Case{"select count(distinct eCurrencyID) from pemployee where eCompanyID = 1", "3"},
           Case{"select count(distinct eDeptID) from pemployee where eCompanyID = 1", "3"},
           Case{"select startdate from vwPaymonthvsdate where companyid=1 and paymonth=4", "2026/04/01"},
           Case{"select startdate from vwPaymonthvsdate where companyid=2 and paymonth=1", "2025/12/26"},
           // attendance
           Case{"select count(distinct eadtype) from pempattendancedetail where eadcompanyid=1 and "
                "eaddate between '2026/04/01' and '2026/04/30'",
                "6"},
           Case{"select count(*) from pEmployeeattendence where eacompanyid=1 and eaEmpID=109 and "
                "eaStartDate >= '2026/04/01' and eaCancelled=0",
                "2"},
           Case{"select count(*) from pEmployeeattendence where eaEmpID in (140, 141)", "0"},
           Case{"select eaStartDate from pEmployeeattendence where eaEmpID=139", "2026/04/11"},
           Case{"select sum(datediff(d, eaStartDate, eaEndDate)+1) from pEmployeeattendence where "
                "eaEmpID=142 and "
                "eaStartDate >= '2026/04/01'",
                "15"},
           Case{"select count(*) from pempattendancedetail d, pEmployeeattendence h where "
                "h.eaid=d.eadAttendanceID "
                "and h.eacompanyid=d.eadcompanyid and h.eaCancelled=1",
                "29"},
           Case{"select sum(eaadHours) from pEmpAttendanceAllowanceDeductions d, pEmployeeattendence h where "
                "h.eaid=d.eaadAttendanceID and h.eacompanyid=d.eaadCompanyID and eaEmpID=101 and "
                "eaadAllowanceID=3 "
                "and eaadDate >= '20260401' and eaadDate <= '20260430'",
                "5.5"},
           // what an employee is due
           Case{"select count(*) from pempallowances where eaempid=121", "0"},
           Case{"select eaamount from pempallowances where eaempid=101 and eaallowanceid=1", "3000"},
           Case{"select count(*) from pempdeductions where edempid=121", "1"},
           Case{"select count(*) from pempdeductions where edempid=111", "0"},
           Case{"select count(distinct edempid) from pempdeductions where edcompanyid=1 and eddeductionid=1",
                "41"},
           Case{"select sum(case when liCurrentBalance < liInstallmentAmount then liCurrentBalance else "
                "liInstallmentAmount end) from pLoansIssue where liEmpID=101 and liActive=1 and "
                "licancelled=0 and "
                "liDeductionMode=1",
                "3900.5"},
           Case{"select count(*) from psavingsdetails where sdDate between '2026/04/01' and '2026/04/30'",
                "6"},
           Case{"select count(*) from pFacilityTrackingHeader where fthCompanyID=1 and fthCancelled=0 and "
                "fthDeductionAmt>0 and fthTrackingID not in (select distinct efdtrackingid from "
                "pempfacilitydeductiondetail where efdcompanyid=1)",
                "4"},
           // earlier entries
           Case{"select count(*) from pempmonthlyentryheader", "82"},
           Case{"select count(*) from pempmonthlyentryheader where emhCancelled=1", "3"},
           Case{"select count(*) from pempmonthlyentryheader where emhprocessed=1", "64"},
           Case{"select max(convert(int,right(emhNo,len(emhNo)-2))) from pempmonthlyentryheader where "
                "emhCompanyID=1",
                "64"},
           Case{"select count(*) from pempmonthlyentryheader where month(emhDate)=4 and emhCancelled=0", "2"},
           Case{"select count(*) from pemployeeDeductiondetail where eddType in ('L','S')", "6"},
           Case{"select count(*) from pemployeeallowancedetail where eaddefault=0", "12"},
       })
    EXPECT_EQ(value(c.statement), c.value) << c.statement;
}

TEST_F(DemoTest, CarriesSalaryForward) {
  for (const auto& [employee, balance] :
       {std::pair{101, "500"}, {103, "0"}, {105, "1500"}, {106, "600"}, {107, "0"}})
    EXPECT_EQ(
        value(
            "Select coalesce(sum(b.ecdAmount*b.ecdmode),0) from pEmpMonthlyEntryHeader a, "
            "pEmployeeCurrentDetails b Where a.emhCompanyID = b.ecdCompanyID and a.emhId =  b.ecdPaySlateID "
            "and a.emhCancelled=0 and a.emhEmpID=" +
            std::to_string(employee) + " and a.emhCompanyID=1 and a.emhdate < '20260430'"),
        balance)
        << employee;
}

TEST_F(DemoTest, RefusesWhatTwoClerksMustNotDo) {
  const auto insert = [](const char* company, const char* id, const char* number, const char* start,
                         const char* cancelled) {
    return errorOf(*connection, std::string("insert into pempmonthlyentryheader (emhCompanyID, emhID, emhNo, "
                                            "emhempID, emhstartdate, emhCancelled) values (") +
                                    company + ", " + id + ", " + number + ", 118, '" + start + "', " +
                                    cancelled + ")");
  };
  connection->BeginTrans();
  EXPECT_NE(insert("1", "1001", "'X1'", "2026/04/01", "0"), "") << "a second live entry of the period";
  EXPECT_EQ(insert("1", "1001", "'X1'", "2026/04/01", "1"), "") << "a cancelled one";
  EXPECT_EQ(insert("1", "1002", "'X2'", "2026/05/01", "0"), "") << "another period";
  EXPECT_NE(insert("1", "1003", "'en1'", "2026/06/01", "0"), "") << "a number in use";
  EXPECT_NE(insert("1", "1003", "'X1 '", "2026/06/01", "0"), "") << "a cancelled entry's number";
  EXPECT_EQ(insert("2", "1003", "'EN1'", "2026/06/01", "0"), "") << "another company's number";
  EXPECT_EQ(insert("1", "1004", "null", "2026/06/01", "0"), "");
  EXPECT_EQ(insert("1", "1005", "null", "2026/07/01", "0"), "") << "no number is no use of one";
  EXPECT_NE(insert("1", "1001", "'X3'", "2026/08/01", "0"), "") << "a key in use";
  const auto take = [](const char* company, const char* entry, const char* recovery) {
    return errorOf(*connection, std::string("insert into pempfacilitydeductiondetail (efdcompanyid, efdid, "
                                            "efddetailid, efdtrackingid) values (") +
                                    company + ", " + entry + ", 1, " + recovery + ")");
  };
  EXPECT_EQ(take("1", "1001", "1"), "");
  EXPECT_NE(take("1", "1002", "1"), "") << "a recovery that is taken";
  EXPECT_EQ(take("2", "1001", "1"), "") << "another company's";
  connection->RollbackTrans();
}

TEST(Schema, IsFilledOnceAndAsAWhole) {
  ado::Connection connection;
  connection.Open(":memory:");
  int left = 300;  // statements until the database fails: in the middle of the people
  connection.StatementSent = [&left](std::string_view) {
    if (--left == 0) throw ado::Error("The disk is full.", "HY000");
  };
  EXPECT_THROW(createDemo(connection), ado::Error);
  EXPECT_FALSE(connection.InTransaction());
  EXPECT_NE(errorOf(connection, "select * from linkTable"), "") << "not even the tables are there";
  createDemo(connection);
  const std::string days = one(connection, "select count(*) from pempattendancedetail");
  EXPECT_GT(std::stoi(days), 5000);
  EXPECT_THROW(createDemo(connection), ado::Error);
  EXPECT_FALSE(connection.InTransaction());
  EXPECT_EQ(one(connection, "select count(*) from pempattendancedetail"), days);
}

}  // namespace
}  // namespace payslate::schema
