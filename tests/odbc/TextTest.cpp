// Connection strings, the look at a statement, UTF-16: what no driver decides.
#include <gtest/gtest.h>

#include "platform/odbc/DriverString.h"
#include "platform/odbc/OdbcProvider.h"
#include "platform/odbc/SelectedTable.h"
#include "platform/odbc/WideText.h"

namespace payslate::odbc {
namespace {

TEST(OdbcTexts, ADriverIsNamedByTheUserOrTheUsualOne) {
  const ado::ProviderEntry entry = providerEntry();
  for (const char* own : {"DSN=pay", "Driver={x};UID=y", "UID=a;server=b", "filedsn=c", "dsn={odd"})
    EXPECT_TRUE(entry.accepts(own));
  for (const char* other : {":memory:", "pay.db;Create=True", "Provider=x", "x=y;Server", ""})
    EXPECT_FALSE(entry.accepts(other));
  const auto given = [](const char* text) { return driverString(ado::ConnectionString(text)); };
  EXPECT_EQ(given("Server=h;PWD= s3cret ;"), "Driver={FreeTDS};Timeout=60;Server=h;PWD= s3cret ;");
  EXPECT_EQ(given("dsn=pay;Password={a;b}}c}"), "dsn=pay;Password={a;b}}c}");
}

TEST(OdbcTexts, TheTableIsFoundInPlainSelectionsAlone) {
  const std::pair<const char*, const char*> tables[] = {
      {"select * from pay", "pay"},
      {" SELECT *\nFROM [dbo] . [my pay] where a = ';'", "[dbo].[my pay]"},
      {"select * from pay order by id;", "pay"},
      {"select * from company..[pay]", "company..[pay]"},
      {"/* all */ select * -- of it\n from \"p\"\"ay\"", "\"p\"\"ay\""},
  };
  for (const auto& [statement, table] : tables) EXPECT_EQ(selectedTable(statement), table) << statement;
  for (const char* other :
       {"select id from pay", "select * from pay, pay p", "select * from pay p", "select * from (x)",
        "select * from pay join b", "select * from company..", "select * from .pay",
        "select distinct * from pay", "select * from", "", "exec p"})
    EXPECT_FALSE(selectedTable(other)) << other;
  EXPECT_EQ(nameParts("[dbo].[my pay]"), (std::vector<std::string>{"dbo", "my pay"}));
  EXPECT_EQ(nameParts("company..pay"), (std::vector<std::string>{"company", "", "pay"}));
  for (const char* two : {"select 1 -- a\r;delete from t", "select 1;delete from t",
                          "select '; ' ; /* c */ x", "select [;] from t;;"})
    EXPECT_TRUE(holdsSecondStatement(two)) << two;
  for (const char* one : {"select ';x'", "select 1 ; -- x", "select [a;b], \"c;d\"", "select 1 /* ; x */"})
    EXPECT_FALSE(holdsSecondStatement(one)) << one;
}

TEST(OdbcTexts, Utf16) {
  const std::string text = "a\u00e9\u4e2d\U0001F600";
  EXPECT_EQ(toWide(text), u"a\u00e9\u4e2d\U0001F600");
  EXPECT_EQ(fromWide(toWide(text)), text);
  EXPECT_EQ(fromWide(std::u16string{u'a', char16_t{0xD800}, u'b', char16_t{0xDC00}}), "a\uFFFDb\uFFFD");
}

}  // namespace
}  // namespace payslate::odbc
