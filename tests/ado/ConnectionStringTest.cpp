// Connection strings: what they are made of, and that no password gets out of them.
#include <gtest/gtest.h>

#include "platform/ado/ConnectionString.h"

namespace payslate::ado {
namespace {

// The path between bars, then the parts; "-" for a part without a value.
std::string takenApart(const std::string& text) {
  const ConnectionString string(text);
  std::string result = string.isPath() ? "|" + string.path() + "|" : "";
  for (const auto& [key, value] : string.parts()) result += " " + key + (value ? "=<" + *value + ">" : "-");
  return result;
}

TEST(ConnectionString, IsAPathOrKeysAndValues) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "||"},
      {":memory:", "|:memory:|"},
      {" a b.db ; create = True;;BusyTimeout=5;junk", "|a b.db| create=<True> BusyTimeout=<5> junk-"},
      {"h,1433;PWD=x", "|h,1433| PWD=<x>"},
      {"Server=h;;\tpwd = s3cret ;", " Server=<h> pwd=<s3cret>"},
      {"dsn=pay;Password= {a;b}}c} ;UID=", " dsn=<pay> Password=<a;b}c> UID=<>"},
      {"=x;Server={odd;a=b", " =<x> Server=<odd;a=b>"},
  };
  for (const auto& [text, parts] : cases) EXPECT_EQ(takenApart(text), parts) << text;
  EXPECT_TRUE(ConnectionString("a=b;Server=").has("SERVER"));
  EXPECT_FALSE(ConnectionString("a=b;Server").has("server"));
  EXPECT_TRUE(ConnectionString(":memory:;BusyTimeout=5").isInMemory());
  EXPECT_FALSE(ConnectionString("a=:memory:").isInMemory());
}

TEST(ConnectionString, ItsPasswordsAreBlottedOutOfMessages) {
  const struct {
    const char* string;
    const char* message;
    const char* blotted;
  } cases[] = {
      {"Server=h;PWD= s3cret ;", "s3cret and 's3cret' of s3cretary on h", "*** and '***' of s3cretary on h"},
      {"dsn=pay;Password={a;b}}c}", "is a;b}c wrong?", "is *** wrong?"},
      {"junk;Password={s3cret}", "s3cret", "***"},
      {"PWD=;UID=x", "nothing", "nothing"},
  };
  for (const auto& one : cases)
    EXPECT_EQ(ConnectionString(one.string).withoutSecrets(one.message), one.blotted) << one.string;
}

TEST(ConnectionString, PasswordsAreBlottedOutOfWhateverIsTyped) {
  const std::pair<const char*, const char*> cases[] = {
      {"not expected: DSN=pay;password = {sec;ret}ive;x=y", "not expected: DSN=pay;password = ***;x=y"},
      {"PWD={a}};b}; mypwd=c", "PWD=***; mypwd=***"},
      {"pwd={never closed;x=y", "pwd=***"},
      {"the pwd of a password", "the pwd of a password"},
      {"PWD=", "PWD=***"},
  };
  for (const auto& [typed, blotted] : cases) EXPECT_EQ(blotSecrets(typed), blotted) << typed;
}

}  // namespace
}  // namespace payslate::ado
