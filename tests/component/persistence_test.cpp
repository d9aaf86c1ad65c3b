// Writing entries from plain rows: what each kind of row becomes, and writing an entry again.
#include <gtest/gtest.h>

#include "component/Session.h"
#include "persistence/EntryWriter.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Error.h"
#include "platform/common/clsCommonDB.h"
#include "schema/schema.h"

namespace payslate {
namespace {

class Persistence : public ::testing::Test {
 protected:
  Persistence() {
    session_.adocon()->Open(":memory:");
    schema::create(*session_.adocon());
    session_.TableLinks.load(*session_.adocon());
    session_.intCompanyID = 1;
    session_.intInterfaceID = 70000;
    session_.strMode = EntryMode::New;
    session_.dtPeriodStart = basic::Date::fromCalendar(2026, 4, 1);
    session_.dtPeriodEnd = basic::Date::fromCalendar(2026, 4, 30);
    session_.adocon()->Execute(
        "insert into pPrefix (CompanyID, InterfaceID, Prefix) values (1, 70000, 'EN')");
    session_.adocon()->Execute(
        "insert into pemployee (eCompanyID, eEmpID, eName, eBasic) values (1, 70001, 'Asha', 30000)");
    database_.adocon(session_.adocon());
    entry_.employeeId = 70001;
    entry_.entryDate = session_.dtPeriodEnd;
    entry_.basicPay = "28000.005";
  }

  std::int32_t save() {
    EntryWriter writer(session_, database_, entry_);
    const std::int32_t id = writer.fnSaveHeader();
    writer.fnDeleteCarryForward(id);
    writer.fnSaveAllowanceDetails();
    writer.fnSaveDeductionDetails();
    return id;
  }

  std::string rows(const std::string& statement) {
    ado::Recordset result;
    result.Open(statement, *session_.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
    std::string text;
    for (; !result.Eof(); result.MoveNext()) {
      for (std::size_t field = 0; field < result.FieldCount(); ++field) {
        const basic::Value value = result.Fields(field).Value();
        text +=
            (field == 0 ? "" : " ") + (basic::isNull(value) ? std::string("-") : result.Fields(field).Text());
      }
      text += "|";
    }
    return text;
  }

  Session session_;
  common::clsCommonDB database_;
  EntryRecord entry_;
};

constexpr const char* deductionRows =
    "select eddDetailID, edddeductionid, eddloanid, eddsavingsid, eddLoanIssueID, eddOpenSavingsID, eddType, "
    "eddamount "
    "from pemployeeDeductiondetail order by eddDetailID";
constexpr const char* movementRows =
    "select ecdDetailID, ecdAmount, ecdMode from pEmployeeCurrentDetails order by ecdDetailID";

TEST_F(Persistence, EachKindOfRowFillsItsColumns) {
  entry_.allowances = {{"1", "House", "1500.00", "11", "Y", "Rs"},
                       {"2", "Previous Salary Carry Forward Balance", "300", "500", "B", "Rs"},
                       {"3", "Travel", "20.5", "12", "N", "Rs"}};
  entry_.deductions = {{"1", "Canteen", "300.25", "2", "D", "Rs", ""},
                       {"2", "Salary Carry Forward", "1000.00", "", "B", "Rs", ""},
                       {"3", "Loan", "400", "5", "L", "Rs", "51"},
                       {"4", "Thrift", "200", "9", "S", "Rs", "61"},
                       {"5", "Late", "1", "4", "l", "Rs", "77"}};
  save();
  EXPECT_EQ(rows("select eadallowanceid, eadamount, eaddefault from pemployeeallowancedetail order by "
                 "eadallowanceid"),
            "11 1500 1|12 20.5 0|");
  EXPECT_EQ(rows(deductionRows),
            "1 2 - - - - D 300.25|3 - 5 - 51 - L 400|4 - - 9 - 61 S 200|5 4 - - - - l 1|");
  EXPECT_EQ(rows(movementRows), "1 300 -1|2 1000 1|");
  EXPECT_EQ(
      rows("select emhID, emhNo, emhbasicpay, emhpaidcash, emhOrginalBasic from pempmonthlyentryheader"),
      "1 EN1 28000.01 0 30000|");
}

TEST_F(Persistence, RefusesWhatTheColumnsCannotHold) {
  const struct {
    std::vector<ListRow> allowances;
    std::vector<ListRow> deductions;
  } bad[] = {
      {{{"1", "House", "1500.00", "", "Y", "Rs"}}, {}},
      {{{"1", "House", "much", "11", "Y", "Rs"}}, {}},
      {{{"1", "Balance", "much", "500", "B", "Rs"}}, {}},
      {{}, {{"1", "Loan", "400", "5", "L", "Rs", ""}}},
  };
  for (const auto& rowsOf : bad) {
    entry_.allowances = rowsOf.allowances;
    entry_.deductions = rowsOf.deductions;
    session_.adocon()->BeginTrans();
    EXPECT_ANY_THROW(save());
    session_.adocon()->RollbackTrans();
  }
  // An entry that is cancelled, or that the list does not name, cannot be written again.
  session_.strMode = EntryMode::Existing;
  entry_.browseEntryId = "99";
  EXPECT_THROW(save(), ado::Error);
  entry_.browseEntryId = "";
  EXPECT_THROW(save(), basic::ValueError);
}

}  // namespace
}  // namespace payslate
