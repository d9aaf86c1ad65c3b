// Connection strings, the look at a statement, UTF-16: what no driver decides.
#include <gtest/gtest.h>

#include "platform/odbc/ConnectionString.h"
#include "platform/odbc/OdbcProvider.h"
#include "platform/odbc/SelectedTable.h"
#include "platform/odbc/WideText.h"

namespace payslate::odbc {
namespace {

TEST(OdbcTexts, ConnectionStringsAreTakenApart) {
  const ado::ProviderEntry entry = providerEntry();
  for (const char* own : {"DSN=pay", "Driver={x};UID=y", "UID=a;server=b", "filedsn=c"})
    EXPECT_TRUE(entry.accepts(own));
  for (const char* other : {":memory:", "pay.db;Create=True", "Provider=x", ""})
    EXPECT_FALSE(entry.accepts(other));
  const ConnectionString plain("Server=h;UID=clerk;PWD= s3cret ;");
  EXPECT_EQ(plain.forDriver(), "Driver={FreeTDS};Timeout=60;Server=h;UID=clerk;PWD= s3cret ;");
  EXPECT_EQ(plain.withoutSecrets("s3cret and 's3cret' of s3cretary"), "*** and '***' of s3cretary");
  const ConnectionString braces("dsn=pay;Password={a;b}}c};Server={odd;");
  EXPECT_EQ(braces.forDriver(), "dsn=pay;Password={a;b}}c};Server={odd;");
  EXPECT_EQ(braces.withoutSecrets("is a;b}c wrong?"), "is *** wrong?");
  EXPECT_TRUE(braces.has("SERVER"));
  for (const char* odd : {"Server=h;;PWD=s3cret", "Server=h;junk;\tpwd = s3cret", "junk;Password={s3cret}"})
    EXPECT_EQ(ConnectionString(odd).withoutSecrets("s3cret"), "***") << odd;
  EXPECT_EQ(ConnectionString("PWD=;UID=x").withoutSecrets("nothing"), "nothing");
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
