// The commands as a shell sees them: exit codes, sentences, and what is left behind.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "host/CommandLine.h"
#include "host/Database.h"
#include "platform/ado/ConnectionString.h"
#include "platform/ado/Recordset.h"
#include "schema/schema.h"
#include "tests/ado/ForwardingProvider.h"

namespace payslate::host {
namespace {

namespace fs = std::filesystem;

struct Outcome {
  int code;
  std::string out;
  std::string err;
};

/// Works in an empty folder of its own.
class CommandLine : public testing::Test {
 protected:
  void SetUp() override {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = fs::path(testing::TempDir()) / (std::string("payslate-host-") + test->name());
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    before_ = fs::current_path();
    fs::current_path(folder_);
  }
  void TearDown() override {
    fs::current_path(before_);
    fs::remove_all(folder_);
  }

  Outcome call(const std::vector<std::string>& words) {
    std::vector<const char*> argv{"payroll-host"};
    for (const std::string& word : words) argv.push_back(word.c_str());
    std::ostringstream out;
    std::ostringstream err;
    const ScreenMaker makeScreen = [] { return std::make_unique<ScriptedScreen>(); };
    const int code = run(static_cast<int>(argv.size()), argv.data(), makeScreen, out, err);
    return {code, out.str(), err.str()};
  }

  static void write(const std::string& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
  }

  /// Every file with its content.
  std::map<std::string, std::string> contents() const {
    std::map<std::string, std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
      std::ostringstream text;
      if (entry.is_regular_file()) text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
      found[entry.path().string()] = text.str();
    }
    return found;
  }

  static std::string valueOf(const std::string& database, const std::string& statement) {
    return openDatabase(database)->Execute(statement).Fields(0).Text();
  }

 private:
  fs::path folder_;
  fs::path before_;
};

std::vector<std::string> showing(const std::string& connect, const std::string& company = "1",
                                 const std::string& date = "2026/04/30") {
  return {"show",        "--connect", connect,  "--company", company,  "--user", "1",
          "--interface", "40001",     "--year", "2026",      "--date", date};
}

std::vector<std::string> journal(const std::string& connect, const std::vector<std::string>& words) {
  std::vector<std::string> all{"journal", "--connect", connect, "--company", "1"};
  all.insert(all.end(), words.begin(), words.end());
  return all;
}

TEST_F(CommandLine, RefusesInOneSentenceAndLeavesEverythingAsItWas) {
  ASSERT_EQ(call({"init", "--connect", "payroll.db"}).code, 0);
  write("notes.txt", std::string(5000, 'x'));
  write("wrong.errand", "show\nclik cmdOk\n");
  write("right.errand", "sql create table t (a int)\n");
  const struct {
    std::vector<std::string> words;
    std::string sentence;
  } cases[] = {
      {{}, "A command is missing"},
      {{"--colour"}, "--colour"},
      {{"secret"}, "There is no such command; use demo"},
      {{"demo", "--colour"}, "--colour"},
      {{"demo", "secret"}, "A word of the command line is not expected"},
      {{"demo", "--pwd=secret", "--colour", "secret", "-Psecret"}, "no option --pwd, --colour, -P."},
      {{"demo", "--database", "notes.txt"}, "notes.txt"},
      {{"demo", "--database", "none/demo.db"}, "none/demo.db"},
      {{"demo", "--database", "payroll.db"}, "no company 1"},
      {{"init"}, "--connect"},
      {{"init", "--connect", "payroll.db"}, "holds payroll tables already"},
      {{"init", "--connect", "notes.txt"}, "'notes.txt' cannot be opened: "},
      {{"init", "--connect", "none/new.db"}, "none/new.db"},
      {{"init", "--connect", ""}, "The connection string is empty"},
      {{"init", "--connect", "."}, "'.' is not a database file"},
      {{"errand"}, "FILE"},
      {{"errand", "none.errand"}, "none.errand: the file cannot be read"},
      {{"errand", "right.errand", "wrong.errand"}, "wrong.errand:2: there is no instruction \"clik\""},
      {{"errand", "right.errand", "--connect", "none.db"}, "none.db does not exist"},
      {{"show", "--connect", "payroll.db"}, "--company"},
      {journal("payroll.db", {}), "knows no company 1"},
      {journal("none.db", {}), "none.db does not exist"},
      {showing(""), "The connection string is empty"},
      {showing("none.db"), "none.db does not exist"},
      {showing("notes.txt"), "'notes.txt' cannot be opened: "},
      {showing(ado::inMemory), "holds no payroll"},
      {showing("payroll.db", "7"), "knows no company 7"},
      {showing("payroll.db", "70000"), "--company"},
      {showing("payroll.db", "1", "2026/02/30"), "2026/02/30"},
      {showing("Driver={No Such Driver};Server=127.0.0.1,1;PWD=secret"),
       "file not found. Name an installed driver"},
      {showing("payroll;UID=clerk;PWD=secret"), "payroll does not exist"},
      {{"init", "--connect", "pay.example,1433;PWD=secret"}, "'PWD' of the connection string"},
      {{"init", "--connect", "a.db", "DSN=pay;password = {sec;ret}secret"},
       "A word of the command line is not expected"},
      {{"DSN=pay;Pwd=secret"}, "There is no such command; use"},
      {{"errand", "DSN=pay;PWD=secret"}, "DSN=pay;PWD=***"},
  };
  const auto before = contents();
  for (const auto& one : cases) {
    const Outcome outcome = call(one.words);
    EXPECT_EQ(outcome.code, 2) << one.sentence;
    EXPECT_EQ(outcome.out, "") << one.sentence;
    EXPECT_EQ(outcome.err.find("payroll-host: "), 0U) << outcome.err;
    EXPECT_NE(outcome.err.find(one.sentence), std::string::npos) << outcome.err;
    EXPECT_EQ(outcome.err.find("secret"), std::string::npos) << outcome.err;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with(".\n") && !outcome.err.ends_with("..\n")) << outcome.err;
    EXPECT_EQ(contents(), before) << one.sentence;
  }
}

TEST_F(CommandLine, HostileWordsRunNothing) {
  ASSERT_EQ(call({"init", "--connect", "payroll.db"}).code, 0);
  const auto before = contents();
  const std::vector<std::string> usual = showing("payroll.db");
  for (const std::string& word :
       {std::string("payroll.db'; drop table pusers; --"), std::string("1; delete from pusers"),
        std::string("1 /*"), std::string("\u2019 or 1=1"), std::string("1\n2\r3"), std::string("\xFF\xC3"),
        std::string(1U << 20U, '1')}) {
    for (std::size_t value = 2; value < usual.size(); value += 2) {
      std::vector<std::string> words = usual;
      words[value] = word;
      const Outcome outcome = call(words);
      EXPECT_EQ(outcome.code, 2) << words[value - 1] << word.substr(0, 30);
      EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err.substr(0, 300);
    }
    EXPECT_EQ(contents(), before) << word.substr(0, 30);
  }
}

/// Words every refusal in a way of its own.
class OddServer : public ado::ForwardingProvider {
 public:
  using ForwardingProvider::ForwardingProvider;
  std::unique_ptr<ado::Cursor> execute(std::string_view statement) override {
    try {
      return ForwardingProvider::execute(statement);
    } catch (ado::Error& error) {
      error.SQLState = "HY000";
      throw;
    }
  }
};

TEST_F(CommandLine, SetsUpWhateverServerHoldsNoPayroll) {
  ado::registerProvider({"odd", [](std::string_view connection) { return connection.starts_with("odd="); },
                         [](const std::string& connection) {
                           return std::make_unique<OddServer>(ado::openProvider(connection.substr(4)));
                         }});
  std::ofstream("shared.db").close();
  openDatabase("shared.db;Create=True")->Execute("create table other (a int)");
  const Outcome first = call({"init", "--connect", "odd=shared.db"});
  EXPECT_EQ(first.code, 0) << first.err;
  const Outcome second = call({"demo", "--connect", "odd=shared.db"});
  EXPECT_NE(second.err.find("holds payroll tables already"), std::string::npos) << second.err;
}

// Killed in its first moments, creating leaves an empty file.
TEST_F(CommandLine, AnEmptyFileIsTakenOver) {
  write("init.db", "");
  EXPECT_EQ(call({"init", "--connect", "init.db"}).code, 0);
  EXPECT_EQ(valueOf("init.db", "select count(*) from pemployee"), "0");
  write("demo.db", "");
  EXPECT_EQ(call({"demo", "--database", "demo.db", "--screens", "pictures"}).code, 0);
}

TEST_F(CommandLine, HelpIsNoFailure) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"--help"}, {"demo", "--help"}, {"errand", "-h"}}) {
    const Outcome outcome = call(words);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_NE(outcome.out.find("Usage"), std::string::npos);
    EXPECT_EQ(outcome.err, "");
  }
}

TEST_F(CommandLine, ErrandsHoldOrTellTheFirstThatDoesNot) {
  fs::create_directories("errands");
  write("tables.sql",
        "-- two tables\ncreate table t (a int, b varchar(9));\r\n\ninsert into t (a, b) values (1, 'x')\n");
  write("errands/held.errand",
        "database ../tables.sql\nsql insert into t (a) values (2)\n"
        "expect sql select a, b from t order by a\n| 1 | x |\n| 2 | NULL |\n");
  write("errands/broken.errand", "database ../tables.sql\nexpect sql select b from t\n| y |\nsql never\n");
  write("errands/lost.errand", "database none.sql\n");
  // Each errand has a database of its own: the same tables can be made twice.
  const Outcome held = call({"errand", "errands/held.errand", "errands/held.errand"});
  EXPECT_EQ(held.code, 0) << held.out << held.err;
  EXPECT_NE(held.out.find("2 errands held."), std::string::npos);
  const Outcome broken = call({"errand", "errands/broken.errand", "errands/held.errand"});
  EXPECT_EQ(broken.code, 1);
  EXPECT_NE(broken.out.find("errands/broken.errand:2: expect sql select b from t\n"
                            "  expected: row 1, column 1: \"y\"\n"
                            "  found:    row 1, column 1: \"x\"\n"),
            std::string::npos)
      << broken.out;
  EXPECT_EQ(broken.out.find("held.errand"), std::string::npos);
  const Outcome lost = call({"errand", "errands/lost.errand"});
  EXPECT_EQ(lost.code, 1);
  EXPECT_NE(lost.out.find("none.sql cannot be read"), std::string::npos) << lost.out;
}

TEST_F(CommandLine, ErrandsOnAConnectionWorkInThatDatabase) {
  ASSERT_EQ(call({"init", "--connect", "payroll.db"}).code, 0);
  write("more.errand", "sql insert into pusers (companyid, userid, username) values (1, 9, 'Nine')\n");
  EXPECT_EQ(call({"errand", "more.errand", "--connect", "payroll.db"}).code, 0);
  EXPECT_EQ(valueOf("payroll.db", "select username from pusers where userid = 9"), "Nine");
}

TEST_F(CommandLine, TheUnwatchedDemoEntersOneMoreEmployeeEachTime) {
  const std::vector<std::string> words{"demo", "--database", "demo.db", "--screens", "pictures"};
  const std::string count = "select count(*) from pempmonthlyentryheader where emhCompanyID = 1";
  const Outcome first = call(words);
  ASSERT_EQ(first.code, 0) << first.out << first.err;
  const int entries = std::stoi(valueOf("demo.db", count));
  for (const std::string shown :
       {"choose cboEmpname", "Header\n", "Allowances\n", "Deductions\n", "emhNo", "FT-2", "ecdMode"})
    EXPECT_NE(first.out.find(shown), std::string::npos) << first.out;
  const Outcome second = call(words);
  ASSERT_EQ(second.code, 0) << second.out << second.err;
  EXPECT_EQ(std::stoi(valueOf("demo.db", count)), entries + 1);
  openDatabase("demo.db")->Execute("update pemployee set eActive = 0");
  const Outcome last = call(words);
  EXPECT_EQ(last.code, 0) << last.out << last.err;
  EXPECT_NE(last.out.find("nothing left to enter"), std::string::npos) << last.out;
  EXPECT_EQ(std::stoi(valueOf("demo.db", count)), entries + 1);
}

TEST_F(CommandLine, TheMonthIsReviewedAndAccepted) {
  ASSERT_EQ(call({"demo", "--database", "demo.db", "--screens", "pictures"}).code, 0);
  const auto said = [this](const std::vector<std::string>& words, int code) {
    std::vector<std::string> all{"review", "--connect", "demo.db",     "--company", "1",
                                 "--user", "2",         "--interface", "40001",     "--year",
                                 "2026",   "--date",    "2026/04/30"};
    all.insert(all.end(), words.begin(), words.end());
    const Outcome outcome = call(all);
    EXPECT_EQ(outcome.code, code) << outcome.err;
    return outcome.out + outcome.err;
  };
  const auto expectIn = [](const std::string& text, const std::string& part) {
    EXPECT_NE(text.find(part), std::string::npos) << text;
  };
  const std::string csv = said({"--format", "csv", "--department", "20"}, 0);
  EXPECT_EQ(
      csv.find("employee,name,department,entry,currency,basic,allowances,deductions,net,before,difference,"
               "flags,remarks\n102,Bram Maruvi,Dye house,,Rs,,,,,18982.60,-18982.60,no-entry missing,"
               "try a dry run\n"),
      0U)
      << csv;
  expectIn(csv,
           "\n119,Samir Farrow,Dye house,EN64,Rs,19660.00,1966.00,2359.20,19266.80,19266.80,0.00,hold,\n");
  expectIn(said({}, 0), "\nTotals:\n");
  const std::string table = said({"--accept", "April"}, 0);
  expectIn(table, "\n  April  Ravi Telwin  20");
  expectIn(table, "\n43 employees, 45 lines, ");
  const std::string json = said({"--format", "json", "--percent", "10.5", "--amount", "500"}, 0);
  expectIn(json, "\"percent\": \"10.5\",\n    \"amount\": \"500\"");
  expectIn(json, "\"name\": \"April\",\n      \"user\": \"Ravi Telwin\"");
  expectIn(json, "\"flags\": \"no-entry\",\n      \"remarks\": \"joins later, 2026/05/04\"");
  expectIn(json, "\"sums\": [");
  expectIn(json,
           "\"changes\": [],\n  \"totals changed\": [],\n  \"employees\": \"43\",\n  \"statements\": \"");
  expectIn(said({"--percent", "-1"}, 2), "--percent is \"-1\" and no number like 25 or 12.50.");
  expectIn(said({"--amount", "much"}, 2), "--amount is \"much\"");
  expectIn(said({"--accept", " "}, 2), "--accept takes the name");
  expectIn(said({"--accept", "x", "--department", "10"}, 2), "A month is accepted as a whole");
  openDatabase("demo.db")->Execute("delete from ppaymonths where companyid = 1");
  expectIn(said({}, 2), "Pay month 4 of this company has no start date");
}

TEST_F(CommandLine, AWholeEntryIsExplained) {
  ASSERT_EQ(call({"demo", "--database", "demo.db", "--screens", "pictures"}).code, 0);
  const auto said = [this](const std::string& user, const std::string& entry,
                           const std::vector<std::string>& more = {}) {
    std::vector<std::string> words{"explain", "--connect", "demo.db",     "--company", "1",
                                   "--user",  user,        "--interface", "40001",     "--year",
                                   "2026",    "--date",    "2026/04/30",  "--entry",   entry};
    words.insert(words.end(), more.begin(), more.end());
    const Outcome outcome = call(words);
    return std::to_string(outcome.code) + outcome.out + outcome.err;
  };
  const auto expectIn = [](const std::string& text, const std::string& part) {
    EXPECT_NE(text.find(part), std::string::npos) << text;
  };
  const std::string entry = said("1", "EN65");
  expectIn(
      entry,
      "0Entry EN65 of 30/04/2026, Asha Verling\nRecord deleted. Cannot edit.\n\nDays\n  Total days: 30\n");
  expectIn(
      entry,
      "\nDeductions\n  Provident fund: 3600.00 Rs\n    Stored: 3600.00\n    Formula: F-FUND: bp * 0.12\n");
  expectIn(said("1", "EN65", {"--format", "csv"}),
           "Deductions,House loan,3000.00,Rs,Due,\"the instalment, 3500.50\"\n");
  expectIn(said("1", "EN0"), "2payroll-host: The company has no entry with the number EN0.");
  expectIn(said("5", "EN65"), "2payroll-host: This user has no right to open entries (E).");
}

TEST_F(CommandLine, TheJournalIsShownSealedAndProved) {
  ASSERT_EQ(call({"demo", "--database", "demo.db", "--screens", "pictures"}).code, 0);
  const auto said = [this](const std::vector<std::string>& words, int code) {
    const Outcome outcome = call(journal("demo.db", words));
    EXPECT_EQ(outcome.code, code) << outcome.err;
    return outcome.out + outcome.err;
  };
  const auto expectIn = [](const std::string& text, const std::string& part) {
    EXPECT_NE(text.find(part), std::string::npos) << text;
  };
  expectIn(said({"--entry", "EN65"}, 0),
           "Imke Overgaard  Changed    Paid                               normal  cash");
  const std::string csv = said({"--entry", "EN65", "--format", "csv"}, 0);
  EXPECT_EQ(csv.find("sequence,time,user,done,what,before,after,hash\n1,20"), 0U) << csv;
  expectIn(csv, ",Imke Overgaard,Entered,\"Salary carried forward, paid out\",,300.00,");
  expectIn(said({"--entry", "EN65", "--format", "json"}, 0), "\"what\": \"Allowance House rent\"");
  std::string seal = said({"--seal", "--user", "1"}, 0);
  EXPECT_EQ(seal.find("1-1-"), 0U);
  seal.pop_back();
  expectIn(said({"--verify", "--seal", seal}, 0), "The journal is as it was written.");
  openDatabase("demo.db")->Execute("update pEntryJournal set ejAfter = '9' where ejSequence = 9");
  openDatabase("demo.db")->Execute("update pempmonthlyentryheader set emhbasicpay = 1 where emhNo = 'EN65'");
  const std::string faults = said({"--verify", "--format", "csv"}, 1);
  expectIn(faults, "entry,fault,what\nEN65,journal,\"row 9 was changed, ");
  expectIn(faults, "\nEN65,entry,\"entry basic pay is 1.00, and in the journal 28000.00\"\n");
  expectIn(said({"--verify", "--seal", "1-1-0"}, 1), "not the one of the seal 1-1-0");
  expectIn(said({}, 2), "Say what to do with the journal: --entry NUMBER, --seal, or --verify.");
  expectIn(said({"--seal", seal}, 2), "a text goes with --verify");
  expectIn(said({"--verify", "--seal"}, 2), "takes the text of a seal");
  expectIn(said({"--entry", "EN'"}, 2), "no entry with the number EN'.");
  expectIn(said({"--entry", "EN65", "--format", "xml"}, 2), "--format");
  openDatabase("demo.db")->Execute("delete from linkTable where tablename = 'pEntryJournal'");
  expectIn(said({"--verify"}, 2), "No journal of entries is kept in this database");
}

}  // namespace
}  // namespace payslate::host
