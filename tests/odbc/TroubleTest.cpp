// What can go wrong between a clerk and a server: every message names it and says what to do.
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "platform/odbc/Advice.h"
#include "tests/odbc/Backends.h"

namespace payslate::odbc {
namespace {

void expectParts(const std::string& text, const std::vector<std::string>& parts) {
  for (const std::string& part : parts)
    EXPECT_NE(text.find(part), std::string::npos) << part << "\n in " << text;
}

class OdbcServer : public testing::Test {
 protected:
  void SetUp() override {
    const auto found = std::find_if(backends().begin(), backends().end(),
                                    [](const Backend& one) { return one.name == "postgres"; });
    if (found == backends().end()) GTEST_SKIP() << "there is no server";
    connection_ = found->connection;
    provider_ = open(connection_);
    provider_->execute("drop table if exists pay");
    provider_->execute("create table pay (id int primary key, amount int)");
    provider_->execute("insert into pay values (1, 10), (2, 20)");
  }

  // Another user ends the connection of `provider_`.
  void cutOff() {
    const std::string process = first(*provider_, "select pg_backend_pid()");
    const auto other = open(connection_);
    first(*other, "select pg_terminate_backend(" + process + ")");
    while (first(*other, "select count(*) from pg_stat_activity where pid = " + process) != "0") {
    }
  }

  std::string connection_;
  std::unique_ptr<ado::Provider> provider_;
};

TEST(OdbcTrouble, OpeningSaysWhatIsWrongAndNoPassword) {
  expectParts(errorOf([] { open("Driver={no such driver};PWD=s3cret"); }),
              {"no such driver", "Name an installed driver"});
  expectParts(errorOf([] { open("DSN=no such source"); }),
              {"IM002", "data source", "Name an installed driver"});
  for (const char* driver : {"FreeTDS", "PostgreSQL Unicode"})
    expectParts(errorOf([&] {
                  open("Driver={" + std::string(driver) + "};Server=127.0.0.1;Port=1;UID=clerk;PWD=s3cret");
                }),
                {"08001 ", "The server cannot be reached"});
}

TEST(OdbcTrouble, ServersOfTransactSqlReportUnderTheirOwnCodes) {
  const std::pair<std::pair<const char*, int>, const char*> advices[] = {
      {{"40001", 1205}, "Try again"},      {{"HY000", 1222}, "in a moment"},
      {{"HYT00", 0}, "in a moment"},       {{"23000", 2627}, "Another user may"},
      {{"08S01", 20004}, "open it again"},
  };
  for (const auto& [error, part] : advices)
    EXPECT_NE(adviceFor(error.first, error.second).find(part), std::string::npos) << error.first;
  EXPECT_NE(adviceFor("42000", 18456, Doing::Connecting).find("login was refused"), std::string::npos);
  EXPECT_NE(adviceFor("HYT00", 0, Doing::Connecting).find("cannot be reached"), std::string::npos);
  EXPECT_NE(adviceFor("08S01", 0, Doing::Committing).find("may be there or not"), std::string::npos);
  EXPECT_EQ(adviceFor("IM001", 0), "") << "drivers that cannot do everything are drivers all the same";
  EXPECT_EQ(adviceFor("22012", 8134), "");
  EXPECT_EQ(adviceFor("23000", 515), "");
}

TEST_F(OdbcServer, ErrorsAreTheServersOwnAndLeaveTheConnectionUsable) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"select 1 / 0", {"22012", "division by zero"}},
      {"selec 1", {"42601", "selec"}},
      {"select * from nowhere", {"42P01", "nowhere"}},
      {"insert into pay values (1, 5)", {"23505", "pay_pkey", "Another user may have stored the same"}},
  };
  for (const auto& one : cases) {
    const std::string error = errorOf([&] {
      if (const auto cursor = provider_->execute(one.first)) cursor->next();
    });
    expectParts(error, one.second);
    EXPECT_EQ(error.find('['), std::string::npos)
        << "the names of driver and manager are of no use: " << error;
    EXPECT_EQ(first(*provider_, "select count(*) from pay"), "2");
  }
}

TEST_F(OdbcServer, ALostConnectionIsSaidAndStaysLost) {
  const auto reading = provider_->execute("select id from pay");
  ASSERT_TRUE(reading->next());
  provider_->begin();
  provider_->execute("update pay set amount = 99 where id = 1");
  cutOff();
  const auto lost = [&](const std::function<void()>& action) {
    expectParts(errorOf(action), {"08", "The connection to the database is lost", "has to open it again"});
  };
  lost([&] { provider_->insert("pay", {{"id", std::int64_t{3}}}); });
  EXPECT_EQ(errorOf([&] { provider_->rollback(); }), "no error") << "the server has rolled back";
  lost([&] { provider_->execute("select id from pay"); });
  lost([&] {
    provider_->begin();
    provider_->execute("delete from pay");
  });
  provider_ = open(connection_);
  EXPECT_EQ(first(*provider_, "select sum(amount) from pay"), "30") << "nothing of it is stored";
  provider_->begin();
  cutOff();
  expectParts(errorOf([&] { provider_->commit(); }), {"08", "may be there or not"});
  EXPECT_EQ(errorOf([&] { provider_->rollback(); }), "no error");
}

TEST_F(OdbcServer, ADeadlockVictimIsToldToTryAgain) {
  const auto other = open(connection_);
  provider_->begin();
  other->begin();
  provider_->execute("update pay set amount = 11 where id = 1");
  other->execute("update pay set amount = 22 where id = 2");
  // Who is refused lets go of his rows at once, as a save does.
  const auto update = [](ado::Provider& clerk, const char* statement) {
    std::string error = errorOf([&] { clerk.execute(statement); });
    if (error != "no error") clerk.rollback();
    return error;
  };
  std::string otherError;
  std::thread clerk([&] { otherError = update(*other, "update pay set amount = 21 where id = 1"); });
  const std::string ownError = update(*provider_, "update pay set amount = 12 where id = 2");
  clerk.join();
  const bool own = ownError != "no error";
  EXPECT_NE(own, otherError != "no error") << "one of them has to give way";
  expectParts(own ? ownError : otherError, {"40P01", "deadlock", "Try again"});
  ado::Provider& victim = own ? *provider_ : *other;
  (own ? *other : *provider_).commit();
  victim.begin();
  victim.execute("update pay set amount = amount + 1");
  victim.commit();
  EXPECT_EQ(first(*provider_, "select sum(amount) from pay"), own ? "45" : "25");
}

TEST_F(OdbcServer, ACommitThatFailsLeavesTheTransactionToBeRolledBack) {
  provider_->execute("alter table pay add constraint once unique (amount) deferrable initially deferred");
  provider_->begin();
  provider_->execute("update pay set amount = 5");
  expectParts(errorOf([&] { provider_->commit(); }), {"once"});
  provider_->rollback();
  EXPECT_EQ(first(*provider_, "select sum(amount) from pay"), "30");
  provider_->begin();
  provider_->execute("update pay set amount = amount + 1");
  provider_->commit();
  EXPECT_EQ(first(*provider_, "select sum(amount) from pay"), "32");
}

}  // namespace
}  // namespace payslate::odbc
