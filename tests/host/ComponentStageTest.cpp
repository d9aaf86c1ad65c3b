// The component behind an errand: whose statements count, and what a show hands over.
#include <gtest/gtest.h>

#include "host/ComponentStage.h"
#include "host/Screen.h"
#include "platform/ado/ConnectionString.h"
#include "platform/ado/Recordset.h"

namespace payslate::host {
namespace {

TEST(ComponentStage, CountsTheStatementsOfTheComponentAlone) {
  ScriptedScreen screen;
  const SharedConnection connection = openDatabase(ado::inMemory);
  {
    ComponentStage stage(screen.desktop(), connection, "");
    stage.runStatement("create table t (a int)");
    EXPECT_TRUE(stage.rows("select a from t").empty());
    EXPECT_THROW(stage.runStatement("select b from t"), ado::Error);
    EXPECT_THROW(stage.rows("delete from t"), std::exception);
    EXPECT_EQ(stage.takeSentCount(), 0);
    connection->Execute("insert into t (a) values (1)");
    connection->Execute("select a from t");
    EXPECT_EQ(stage.takeSentCount(), 2);
    EXPECT_EQ(stage.takeSentCount(), 0);
    connection->Execute("select a from t");
    // Without tables the list cannot load: its error arrives here, and the count starts with the show.
    stage.setSession({1, 1, 40001, 2026, basic::Date::fromCalendar(2026, 4, 30), "Payroll"});
    EXPECT_THROW(stage.show(), ado::Error);
    EXPECT_EQ(stage.takeSentCount(), 1);
    EXPECT_EQ(screen.desktop().MessageTitle, "Payroll");
  }
  connection->Execute("select a from t");
}

}  // namespace
}  // namespace payslate::host
