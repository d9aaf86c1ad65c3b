// Earlier payroll databases: refused, upgraded as a whole, or left exactly as they were.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>

#include "host/CommandLine.h"
#include "platform/ado/Connection.h"
#include "platform/ado/Recordset.h"
#include "platform/sqlite/DatabaseFile.h"
#include "schema/schema.h"
#include "schema/steps.h"

namespace payslate::host {
namespace {

namespace fs = std::filesystem;

using Dump = std::map<std::string, std::vector<std::string>>;

std::vector<std::string> texts(sqlite::DatabaseFile& file, const std::string& query) {
  std::vector<std::string> found;
  for (const auto statement = file.prepare(query); statement->step();)
    found.push_back(std::get<std::string>(statement->column(0)));
  return found;
}

/// Definitions of tables and indexes under "", and the rows of every table under its name.
Dump dumped(const std::string& path) {
  sqlite::DatabaseFile file({.path = path});
  Dump dump;
  dump[""] = texts(file, "SELECT sql FROM sqlite_schema WHERE sql IS NOT NULL ORDER BY sql");
  for (const std::string& table : texts(file, "SELECT name FROM sqlite_schema WHERE type = 'table'")) {
    std::string columns =
        "SELECT group_concat('quote(\"' || name || '\")', ' || '' '' || ') FROM pragma_table_info('";
    columns.append(table).append("')");
    std::string rows = "SELECT ";
    rows.append(texts(file, columns).front()).append(" FROM \"").append(table).append("\" ORDER BY 1");
    dump[table] = texts(file, rows);
  }
  return dump;
}

constexpr const char* enter =
    "session company 1 user 1 interface 40001 year 2026 date 2026/04/30 title \"Payroll\"\nshow\nclick cmdnew\n"
    "choose cboEmpname \"Asha Verling\"\nclick cmdOk\nexpect form FrmMaster\nclose\n";

class Upgrade : public testing::Test {
 protected:
  /// A file of before there were versions: the recorded one.
  void SetUp() override {
    folder_ = fs::path(testing::TempDir()) / (std::string("payslate-upgrade-") +
                                              testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    std::ifstream in(fs::path(PAYSLATE_HOST_TEST_FOLDER) / "version0.sql");
    sqlite::DatabaseFile file({.path = path(), .create = true});
    file.run("BEGIN");
    std::string statement;
    for (std::string line; std::getline(in, line); statement += '\n') {
      statement += line;
      if (line.ends_with(';')) file.run(std::exchange(statement, ""));
    }
    file.run("COMMIT");
  }
  void TearDown() override { fs::remove_all(folder_); }

  [[nodiscard]] std::string path(const std::string& name = "old.db") const {
    return (folder_ / name).string();
  }
  void run(const std::vector<std::string>& statements) const {
    ado::Connection connection;
    connection.Open(path());
    for (const std::string& statement : statements) connection.Execute(statement);
  }
  [[nodiscard]] std::string value(const std::string& statement) const {
    ado::Connection connection;
    connection.Open(path());
    return connection.Execute(statement).Fields(0).Text();
  }
  /// Exit code, then what was said.
  static std::string call(const std::vector<std::string>& given) {
    std::vector<const char*> words{"payroll-host"};
    for (const std::string& word : given) words.push_back(word.c_str());
    std::ostringstream said;
    const ScreenMaker makeScreen = [] { return std::make_unique<ScriptedScreen>(); };
    const int code = host::run(static_cast<int>(words.size()), words.data(), makeScreen, said, said);
    return std::to_string(code) + ' ' + said.str();
  }
  [[nodiscard]] std::string upgrade() const { return call({"upgrade", "--connect", path()}); }
  /// A clerk stores an entry.
  [[nodiscard]] std::string entered(const std::string& database) const {
    std::ofstream(path("enter.errand")) << enter;
    return call({"errand", path("enter.errand"), "--connect", path(database)});
  }
  [[nodiscard]] Dump fresh() const {
    {
      ado::Connection connection;
      connection.Open(path("new.db") + ";Create=True");
      schema::create(connection);
      EXPECT_EQ(schema::version(connection), schema::presentVersion());
    }
    return dumped(path("new.db"));
  }

  fs::path folder_;
};

// From before there were versions, and by way of version 1. The definitions name the keys' columns in their
// order.
TEST_F(Upgrade, EndsInThePresentSchemaWithEveryRow) {
  fs::copy_file(path(), path("first.db"));
  {
    ado::Connection connection;
    connection.Open(path("first.db"));
    schema::upgradeBy({schema::steps().front()}, connection);
  }
  EXPECT_NE(call({"upgrade", "--connect", path("first.db")}).find("from schema version 1 to 2.\n"),
            std::string::npos);
  fs::copy_file(path(), path("as-it-was.db"));
  EXPECT_EQ(entered("as-it-was.db").front(), '0') << entered("as-it-was.db");
  run({"drop index uxMonthlyEntryLive on pempmonthlyentryheader",
       "drop index uxFacilityDetailTracking on pempfacilitydeductiondetail"});
  Dump before = dumped(path());
  const std::string told = upgrade();
  EXPECT_NE(told.find("is upgraded from schema version 0 to 2.\n"), std::string::npos) << told;
  Dump after = dumped(path());
  Dump expected = fresh();
  for (const char* own : {"", "catalog_objects", "catalog_columns", "linkTable", "pSchemaVersion"})
    EXPECT_EQ(after[own], expected[own]) << own;
  Dump first = dumped(path("first.db"));
  first["catalog_seal"] = after["catalog_seal"];  // Counts the changes.
  EXPECT_TRUE(first == after);
  for (const auto& [table, rows] : before) {
    if (expected[table].empty()) {
      EXPECT_EQ(after[table], rows) << table;
    }
  }
  EXPECT_EQ(upgrade().find("0 The database " + path() + " has schema version 2 already"), 0U);
  EXPECT_EQ(dumped(path()), after);
  EXPECT_EQ(entered("old.db").front(), '0');
  EXPECT_EQ(dumped(path())["pempmonthlyentryheader"].size(), before["pempmonthlyentryheader"].size() + 1);
}

TEST_F(Upgrade, IsForbiddenByRowsThatAreThereTwice) {
  const struct {
    std::vector<std::string> statements;
    std::string sentence;
    std::string remedy;
  } cases[] = {
      {{"drop index uxMonthlyEntryLive on pempmonthlyentryheader",
        "insert into pempmonthlyentryheader (emhCompanyID, emhID, emhempID, emhstartdate, emhCancelled) values"
        " (1, 91, 101, '2026/03/01', 0), (1, 92, 101, '2026/03/01', 0), (1, 93, 101, '2026/03/01', 1)"},
       "uxMonthlyEntryLive cannot be made on pempmonthlyentryheader: 1 key is there more than once: "
       "emhempID 101, emhCompanyID 1, emhstartdate 2026/03/01 (3 rows).\n",
       "delete from pempmonthlyentryheader where emhID in (91, 92)"},
      {{"drop index uxMonthlyEntryNumber on pempmonthlyentryheader",
        "insert into pempmonthlyentryheader (emhCompanyID, emhID, emhNo, emhempID, emhCancelled) values"
        " (1, 94, 'en41 ', 7, 1), (1, 95, null, 7, 1), (1, 96, null, 7, 1)"},
       "uxMonthlyEntryNumber cannot be made on pempmonthlyentryheader: 1 key is there more than once: "
       "emhCompanyID 1, emhNo EN41 (2 rows).\n",
       "delete from pempmonthlyentryheader where emhID = 94"},
      {{"create table t_recoveries (efdcompanyid smallint, efdid int, efddetailid smallint, efdtrackingid int)",
        "insert into t_recoveries values (1, 1, 1, 1), (1, 2, 1, 1), (1, 1, 2, 2), (1, 2, 2, 2), (1, 1, 3, 3),"
        " (1, 2, 3, 3), (1, 1, 4, null), (1, 2, 4, null), (1, 1, 5, 5)",
        "update linkTable set linktablename = 'dbo.[t_recoveries] ' where tablename = 'pempfacilitydeductiondetail'"},
       "uxFacilityDetailTracking cannot be made on dbo.[t_recoveries]: 4 keys are there more than once: efdtrackingid "
       "Null, efdcompanyid 1 (2 rows); efdtrackingid 1, efdcompanyid 1 (2 rows); efdtrackingid 2, efdcompanyid 1 "
       "(2 rows); and 1 more.\n",
       "delete from t_recoveries where efdid = 2"},
      {{"create view v_recoveries as select * from t_recoveries",
        "update linkTable set linktablename = 'v_recoveries' where tablename = 'pempfacilitydeductiondetail'"},
       "uxFacilityDetailTracking cannot be made on v_recoveries: it is no table of this database.\n",
       "update linkTable set linktablename = 't_recoveries' where tablename = 'pempfacilitydeductiondetail'"},
      {{"create table t_loans (liID int, liEmpID int, liCompanyID smallint)",
        "update linkTable set linktablename = 't_loans' where tablename = 'pLoansIssue'"},
       "The primary key (liID, liCompanyID) cannot be made on t_loans: the column liID allows Null, the column "
       "liCompanyID allows Null.\n",
       "drop table t_loans"},
      {{"create table t_loans (liID int not null, liEmpID int, LICOMPANYID smallint not null)",
        "insert into t_loans values (5, 1, 1), (5, 2, 1), (5, 2, 2)"},
       "The primary key (liID, liCompanyID) cannot be made on t_loans: 1 key is there more than once: liID 5, "
       "liCompanyID 1 (2 rows).\n",
       "delete from t_loans where liEmpID = 1"},
  };
  for (const auto& one : cases) {
    run(one.statements);
    const Dump before = dumped(path());
    const std::string told = upgrade();
    EXPECT_EQ(told.front(), '2') << told;
    EXPECT_NE(told.find(one.sentence), std::string::npos) << told;
    EXPECT_NE(told.find("nothing in it was changed"), std::string::npos) << told;
    EXPECT_EQ(dumped(path()), before) << one.sentence;
    run({one.remedy});
  }
  EXPECT_EQ(upgrade().front(), '0');
  EXPECT_EQ(
      value("select count(*) from sys.indexes where name in ('uxMonthlyEntryLive', 'uxMonthlyEntryNumber')"),
      "2");
  EXPECT_EQ(value("select t.name from sys.tables t, sys.indexes i where i.object_id = t.object_id"
                  " and i.name = 'uxFacilityDetailTracking' and t.name like 't%'"),
            "t_recoveries");
  EXPECT_EQ(value("select max(COLUMN_NAME) + min(COLUMN_NAME) from INFORMATION_SCHEMA.KEY_COLUMN_USAGE"
                  " where TABLE_NAME = 't_loans'"),
            "liIDLICOMPANYID");
}

TEST_F(Upgrade, KeepsAJournalThatIsThere) {
  run({"create table t_journal (ejEntryID int)", "insert into t_journal values (7)",
       "insert into linkTable values ('pEntryJournal', 't_journal')"});
  EXPECT_EQ(upgrade().front(), '0');
  EXPECT_EQ(value("select ejEntryID from t_journal"), "7");
  EXPECT_EQ(value("select linktablename from linkTable where tablename = 'pEntryJournal'"), "t_journal");
  EXPECT_EQ(value("select count(*) from sys.tables where name = 'pEntryJournal'"), "0");
}

// Steps yet to come, and a failure at any statement of theirs.
TEST_F(Upgrade, IsWholeOrNothing) {
  run({"drop index uxMonthlyEntryNumber on pempmonthlyentryheader"});
  std::vector<schema::Step> steps = schema::steps();
  const int next = schema::presentVersion() + 1;
  steps.push_back({.version = next,
                   .statements = {"create index ixNew on {pLoansIssue} (liLoanID)",
                                  "update {pusers} set username = 'x'"}});
  steps.push_back({.version = next + 1,
                   .tables = {{schema::NewTable::Name::Fixed, "pNew", "n int"}},
                   .statements = {"insert into pNew values (5)"}});
  const Dump before = dumped(path());
  int failing = 0;
  for (bool failed = true; failed;) {
    ado::Connection connection;
    connection.Open(path());
    int left = ++failing;
    connection.StatementSent = [&left](std::string_view) {
      if (--left == 0) throw ado::Error("The disk is full.", "HY000");
    };
    try {
      EXPECT_EQ(schema::upgradeBy(steps, connection).from, 0);
      failed = false;
    } catch (const ado::Error&) {
      EXPECT_FALSE(connection.InTransaction());
      connection.Close();
      ASSERT_EQ(dumped(path()), before) << "after a failure at statement " << failing;
    }
  }
  EXPECT_GT(failing, 20);
  EXPECT_EQ(value("select svVersion + n from pSchemaVersion, pNew"), std::to_string(next + 1 + 5));
  EXPECT_EQ(value("select count(*) from sys.indexes where name in ('uxMonthlyEntryNumber', 'ixNew')"), "2");

  std::ofstream(path("any.errand")) << "sql delete from pusers\n";
  const Dump later = dumped(path());
  const std::vector<std::string> commands[] = {{"upgrade", "--connect"},
                                               {"init", "--connect"},
                                               {"demo", "--connect"},
                                               {"demo", "--database"},
                                               {"errand", path("any.errand"), "--connect"},
                                               {"show", "--company", "1", "--user", "1", "--interface", "1",
                                                "--year", "2026", "--date", "2026/04/30", "--connect"}};
  for (std::vector<std::string> words : commands) {
    words.push_back(path());
    const std::string told = call(words);
    EXPECT_EQ(told, "2 payroll-host: The database " + path() +
                        " has schema version 4, and this program knows none after 2: use a newer program.\n")
        << words.front();
  }
  EXPECT_EQ(dumped(path()), later);
}

}  // namespace
}  // namespace payslate::host
