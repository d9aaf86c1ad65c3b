// Statements that the recordings leave out: what a formula may try, where an error is, and the types' edges.
#include <gtest/gtest.h>

#include <string>

#include "platform/ado/Error.h"
#include "platform/basic/Numbers.h"
#include "platform/sqlite/SqliteProvider.h"
#include "tests/tsql/CaseFile.h"

namespace payslate::test {

namespace {

std::unique_ptr<ado::Provider> preparedDatabase() {
  std::unique_ptr<ado::Provider> provider = sqlite::providerEntry().open(":memory:");
  const std::filesystem::path folder = PAYSLATE_TSQL_CASE_FOLDER;
  for (const std::string& statement : readSetup(folder / "setup.sql")) provider->execute(statement);
  return provider;
}

std::string shown(const basic::Value& value) {
  if (basic::isNull(value)) return "NULL";
  if (const auto* exact = std::get_if<basic::Decimal>(&value)) return exact->text();
  return basic::textOf(value, "yyyy/mm/dd");
}

/// Columns apart by a comma, rows by a bar; an error is its SQLSTATE and description.
std::string answer(ado::Provider& provider, const std::string& statement) {
  std::string text;
  try {
    const std::unique_ptr<ado::Cursor> cursor = provider.execute(statement);
    if (!cursor) return "done";
    while (cursor->next()) {
      if (!text.empty()) text += "|";
      for (std::size_t i = 0; i < cursor->columns().size(); ++i)
        text += (i > 0 ? "," : "") + shown(cursor->value(i));
    }
  } catch (const ado::Error& error) {
    return error.SQLState + " " + error.Description;
  }
  return text;
}

struct Pair {
  std::string statement;
  std::string expected;  ///< The whole answer, or how it starts.
};

void expectAnswers(const std::vector<Pair>& pairs) {
  const std::unique_ptr<ado::Provider> provider = preparedDatabase();
  for (const Pair& pair : pairs)
    EXPECT_EQ(answer(*provider, pair.statement), pair.expected) << pair.statement;
}

void expectErrors(const std::vector<Pair>& pairs) {
  const std::unique_ptr<ado::Provider> provider = preparedDatabase();
  for (const Pair& pair : pairs) {
    const std::string given = answer(*provider, pair.statement);
    EXPECT_EQ(given.substr(0, pair.expected.size()), pair.expected) << pair.statement << "\n  gave " << given;
    EXPECT_EQ(answer(*provider, "select 1"), "1") << "after " << pair.statement;
  }
}

std::string repeated(const std::string& text, int times) {
  std::string result;
  for (int i = 0; i < times; ++i) result += text;
  return result;
}

/// A text of 8,000 characters, and around it `levels` derived tables that compute with its name, t.
std::string nestedTables(const std::string& expression, int levels) {
  const std::string table = "(select " + expression + " t from ";
  return "(select t from " + repeated(table, levels) + "(select replicate('x', 8000) t) a" +
         repeated(") a", levels) + ")";
}

TEST(Statements, MalformedOnesSayWhere) {
  expectErrors({
      {"", "42000 The statement is empty."},
      {"   -- nothing", "42000 The statement is empty."},
      {"select", "42000 Line 1, column 7: "},
      {"select 1+", "42000 Line 1, column 10: "},
      {"select 30000.00/30.00*", "42000 Line 1, column 23: "},
      {"select ((1+2)*3", "42000 Line 1, column 16: "},
      {"select (1))", "42000 Line 1, column 11: "},
      {"select 1\nfrom emp\n  where", "42000 Line 3, column 8: "},
      {"select '\xC3\xA9', 'open", "42000 Line 1, column 13: The text that starts here is not closed."},
      {"select [open", "42000 Line 1, column 8: "},
      {"select 1 /* open", "42000 Line 1, column 10: The comment"},
      {"select 5 ! 3", "42000 Line 1, column 10: The character '!'"},
      {"select 0x1F", "42000 Line 1, column 8: A hexadecimal"},
      {"select case when 1=1 then 2", "42000 Line 1, column 28: "},
      {"update emp set name = 'x' where", "42000 Line 1, column 32: "},
      {"insert into emp (id, nope) values (1, 2)", "42S22 Line 1, column 22: "},
      {"selec 1", "42000 Line 1, column 1: There is no statement and no stored procedure 'selec'."},
      {"select id from emp where id = 1 and", "42000 Line 1, column 36: "},
      {"select bp*2", "42S22 Line 1, column 8: There is no column 'bp'."},
      {"select e.id from emp x", "42S22 Line 1, column 8: There is no column 'e.id'."},
      {"select id from nosuch", "42S02 Line 1, column 16: There is no table or view 'nosuch'."},
      {"select id from emp, sheets", "42000 Line 1, column 8: The column name 'id' is ambiguous."},
  });
}

TEST(Statements, OnlyOneInAText) {
  expectErrors({
      {"select 1; drop table emp", "42000 Line 1, column 11: Incorrect syntax near 'drop'"},
      {"select 1 drop table emp", "42000 Line 1, column 10: "},
      {"select 1 select 2", "42000 Line 1, column 10: "},
      {"select 1;;", "42000 Line 1, column 10: "},
      {"select 1 /* x */ ; -- y\n delete from emp", "42000 Line 2, column 2: "},
      {"delete from emp where id = 1 delete from emp", "42000 Line 1, column 30: "},
  });
  expectAnswers({{"select 1;", "1"}, {"select 2 -- two", "2"}, {"select count(*) from emp", "5"}});
}

TEST(Statements, WhatIsNotKnownIsNamed) {
  expectErrors({
      {"select * into x from emp", "42000 Line 1, column 10: 'select"},
      {"select top 50 percent id from emp", "42000 Line 1, column 15: 'top"},
      {"select count(*) over () from emp", "42000 Line 1, column 17: A window"},
      {"select soundex('a')", "42000 Line 1, column 8: The function 'soundex' is not supported."},
      {"select convert(xml, 'a')", "42000 Line 1, column 16: The type 'xml' is not supported."},
      {"select id from emp except select 1", "42000 Line 1, column 20: 'except'"},
      {"select convert(varchar(9), getdate(), 999)", "42000 The style 999"},
      {"create table x (a int identity)", "42000 Line 1, column 23: An identity column"},
      {"truncate table emp", "42000 Line 1, column 1: The statement 'truncate'"},
      {"begin transaction", "42000 Line 1, column 1: The statement 'begin'"},
      {"select @@version", "42000 Line 1, column 8: The variable '@@version'"},
      {"update emp set id = 1 from sheets", "42000 Line 1, column 23: 'update"},
  });
}

TEST(Statements, ConditionsAndValuesAreDifferentThings) {
  expectErrors({
      {"select 1 = 1", "42000 Line 1, column 10: A condition stands where a value"},
      {"select 30000.00>20.00", "42000 Line 1, column 16: A condition"},
      {"select 1 where 1", "42000 Line 1, column 16: A value stands where a condition"},
      {"select case when 1 then 2 end", "42000 Line 1, column 18: A value"},
      {"select 1 where not 5", "42000 Line 1, column 20: A value"},
      {"select name, count(*) from emp", "42000 Line 1, column 8: Column 'name' is neither"},
      {"select count(*) from emp where count(*) > 1", "42000 Line 1, column 32: An aggregate"},
      {"select sum(count(*)) from emp", "42000 Line 1, column 12: An aggregate"},
      {"select name from emp where basic = (select max(basic) p)", "42000 Line 1, column 44: An aggregate"},
      {"select sum(name) from emp", "42000 Line 1, column 12: A value of type varchar(60)"},
      {"select 'a' - 'b'", "42000 Line 1, column 12: A value of type varchar"},
      {"select dept d, sum(basic) from emp group by d", "42S22 Line 1, column 45: "},
      {"select (select id, name from emp)", "42000 Line 1, column 8: "},
      {"select (select name from emp)", "21000 A subquery that stands for one value"},
      {"select * from (select id from emp order by id) d", "42000 Line 1, column 44: 'order by'"},
      {"select distinct name from emp order by basic", "42000 Line 1, column 40: "},
      {"select id, name from emp order by 1 + 1", "42000 Line 1, column 37: An expression of 'order by'"},
      {"select id from emp order by 'a' + isnull('b', null), id", "42000 Line 1, column 33: An expression"},
      {"select dept from emp group by 'a' + 'b'", "42000 Line 1, column 35: An expression of 'group by'"},
  });
}

TEST(Statements, DepthHasALimitAndNoCrash) {
  expectErrors({
      {"select " + repeated("(", 10000) + "1" + repeated(")", 10000),
       "42000 Line 1, column 158: The statement is nested"},
      {"select " + repeated("- ", 10000) + "1", "42000 Line 1, column "},
      {"select " + repeated("1+", 10000) + "1", "42000 Line 1, column 805: The expression chains"},
      {"select " + repeated("(select ", 5000) + "1", "42000 Line 1, column "},
      {"select 1 where " + repeated("not ", 5000) + "1=1", "42000 Line 1, column "},
      {"select " + repeated("case when 1=1 then ", 3000) + "1", "42000 Line 1, column "},
      {"select " + repeated("abs(", 60) + "id" + repeated(")", 60) + " from emp",
       "42000 The statement is nested too deeply"},
      {"select '" + repeated("x", 1'000'000) + "'", "42000 The statement is longer"},
      {"select len(" + nestedTables("concat(t, t)", 10) + ")", "22011 The text made by concat is too long."},
      {"select len(" + nestedTables("t + t + t + t + t", 5) + ")", "22001 A text is longer than"},
      {"select len(" + nestedTables("concat(t" + repeated(", t", 90) + ")", 4) + ")",
       "42000 Line 1, column 330: The statement is too large"},
  });
  expectAnswers({
      {"select " + repeated("(", 100) + "7" + repeated(")", 100), "7"},
      {"select " + repeated("1+", 300) + "1", "301"},
      {"select " + repeated("id+", 300) + "id from emp where company = 1 and id = 2", "602"},
      {"select count(*) from emp where " + repeated("id = 1 or ", 300) + "id = 2", "3"},
  });
}

TEST(Statements, NumbersKeepTheirTypes) {
  expectAnswers({
      {"select 30000.00/31.00*17.00", "16451.612901800"},
      {"select 2.0/3, 1/3, 1e0/4", "0.666666,0,0.25"},
      {"select 0.1 + 0.2, 1.10 * 1.10, 10.00 - 0.005", "0.3,1.2100,9.995"},
      {"select 2147483648 - 1, -2147483648", "2147483647,-2147483648"},
      {"select 5.5 % 2, -5 % 3", "1.5,-2"},
      {"select cast(9999999999 as bigint) * 2", "19999999998"},
      {"select floor(-1.5), ceiling(-1.5), round(1250.55, -2), round(150.75, 0, 1)", "-2,-1,1300.00,150.00"},
      {"select isnumeric('--1'), isnumeric('$-5'), isnumeric('1,000'), isnumeric('1.2.3'), isnumeric(null)",
       "0,1,1,0,0"},
      {"select avg(basic), sum(amount * mode) from emp, pay where emp.id = 1 and pay.emp = 1 and emp.company "
       "= pay.company",
       "24999.997500,1460.65"},
      {"select sum(distinct dept), avg(distinct dept), count(distinct upper(name)) from emp", "30,15,4"},
      {"select coalesce(null, 1, 2.5), case when 1 = 2 then 1 when 1 = 1 then 2.55 else 3e0 end", "1.0,2.55"},
      {"select convert(money, '$1,234.567'), cast(5 as money) / 3", "1234.5670,1.6666"},
      {"select isnull(10 / nullif(0, 0), 0), null + 1, 'a' + null", "0,NULL,NULL"},
      {"select convert(datetime, '2006-04-30T10:20:30.456'), datediff(wk, '2006/04/01', '2006/04/02'), case 'A' when 'a ' then 1 end",
       "2006/04/30 10:20:30,1,1"},
  });
  expectErrors({
      {"select cast(30000 as smallint) * cast(2 as smallint)", "22003 "},
      {"select abs(-2147483647 - 1)", "22003 "},
      {"select sum(n * 100000) from nums", "22003 "},
      {"select 1e308 * 10", "22003 "},
      {"select round(9.9, 0)", "22003 "},
      {"select round(cast('9223372036854775807' as bigint), -1)", "22003 "},
      {"select round(" + repeated("9", 38) + ", -38)", "22003 "},
      {"select power(10, 30)", "22003 "},
      {"select substring('abc', cast('9223372036854775807' as bigint), 2)", "22003 "},
      {"select dateadd(dd, cast('-9223372036854775808' as bigint), '2006/04/30')", "22008 "},
      {"select sqrt(-1)", "22003 "},
      {"select 5 % 0", "22012 "},
      {"select 1.5e0 / 0", "22012 "},
      {"select power(0, -1)", "22012 "},
      {"select convert(decimal(5,2), '')", "22018 "},
      {"select 1 + 'x'", "22018 "},
      {"select '2006/02/30' + convert(datetime, '2006/01/01')", "22007 "},
      {"select left('abc', -1)", "22011 "},
  });
}

TEST(Statements, NumbersBecomeTextInTheStyleOfConvert) {
  const auto money = [](const char* style) {
    return "select convert(varchar(20), cast(-1234567.8951 as money)" + std::string(style) + ")";
  };
  const auto number = [](const char* style) {
    return "select convert(varchar(30), 1234567.5e0" + std::string(style) + "), convert(char(9), 0.001e0)";
  };
  expectAnswers({
      {money(""), "-1234567.90"},
      {money(", 1"), "-1,234,567.90"},
      {money(", 2"), "-1234567.8951"},
      {money(", 126"), "-1234567.8951"},
      {"select convert(varchar(9), cast(123 as money), 1), convert(varchar(9), 1234, 1)", "123.00,1234"},
      {number(""), "1.23457e+006,0.001    "},
      {number(", 1"), "1.2345675e+006,0.001    "},
      {number(", 2"), "1.234567500000000e+006,0.001    "},
      {number(", 3"), "1.2345675000000000e+006,0.001    "},
      {"select convert(smalldatetime, '2079/06/06 23:59:29')", "2079/06/06 23:59:00"},
  });
  expectErrors({{money(", 3"), "42000 The style 3 of convert is not supported for money."},
                {number(", 4"), "42000 The style 4 of convert is not supported for float."}});
}

TEST(Statements, ErrorsWaitForTheRowThatNeedsThem) {
  expectAnswers({
      {"select case when 1 = 2 then 1 / 0 else 7 end", "7"},
      {"select 1 / 0 from emp where id = 99", ""},
      {"select convert(int, t) from nums where isnumeric(t) = 1 and t not like '%.%' and len(t) > 0", "7|12"},
      {"select case when id = 1 then 'x' else name end from emp where company = 2", "x"},
  });
}

TEST(Statements, DatesThatAreNoneAreRefused) {
  expectErrors({
      {"select convert(datetime, '1752/12/31')", "22008 "},
      {"select convert(datetime, '9999/12/31 23:59:59.999')", "22008 "},
      {"select convert(smalldatetime, '1899/12/31')",
       "22008 The date lies outside the days of smalldatetime"},
      {"select convert(smalldatetime, '2079/06/06 23:59:30')", "22008 "},
      {"select dateadd(yy, 9000, '2006/01/01')", "22008 "},
      {"select year('2006/13/01')", "22007 "},
      {"select datediff(foo, '2006/01/01', '2006/01/02')", "42000 Line 1, column 17: "},
      {"select case when kind is null then 'none' else d end from days", "22007 "},
  });
}

}  // namespace

}  // namespace payslate::test
