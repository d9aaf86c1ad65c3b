// Performs every recorded case: those of this folder, and those of the folder that the
// environment names in PAYSLATE_TSQL_CASES.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "platform/ado/Error.h"
#include "platform/ado/Provider.h"
#include "platform/basic/Numbers.h"
#include "tests/tsql/CaseFile.h"

namespace payslate::test {

namespace {

std::string shownNumber(const basic::Value& value) {
  constexpr int decimals = 4;
  if (const auto* exact = std::get_if<basic::Decimal>(&value)) return exact->rounded(decimals).text();
  return basic::Decimal::fromDouble(basic::CDbl(value), decimals).text();
}

std::string shown(const basic::Value& value, char type) {
  if (basic::isNull(value)) return "NULL";
  switch (type) {
    case 'I':
      return std::to_string(
          basic::CLng(value) < 0 && std::holds_alternative<bool>(value) ? 1 : basic::CLng(value));
    case 'R':
      return shownNumber(value);
    case 'D':
      return basic::formatDate(std::get<basic::Date>(value), "yyyy/mm/dd");
    default:
      break;
  }
  std::string text = basic::textOf(value);
  text.erase(text.find_last_not_of(' ') + 1);
  return text.empty() ? "(empty)" : text;
}

std::vector<std::string> answer(ado::Provider& provider, const Case& wanted) {
  std::vector<std::string> rows;
  const std::unique_ptr<ado::Cursor> cursor = provider.execute(wanted.statement);
  if (!cursor) return rows;
  while (cursor->next()) {
    std::string row;
    for (std::size_t i = 0; i < cursor->columns().size(); ++i) {
      row += (i > 0 ? "\t" : "") + shown(cursor->value(i), i < wanted.types.size() ? wanted.types[i] : 'T');
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

void check(ado::Provider& provider, Case wanted) {
  SCOPED_TRACE("line " + std::to_string(wanted.line) + ": " + wanted.statement);
  try {
    std::vector<std::string> rows = answer(provider, wanted);
    if (wanted.error) {
      ADD_FAILURE() << "expected an error";
      return;
    }
    if (wanted.anyOrder) {
      std::sort(rows.begin(), rows.end());
      std::sort(wanted.rows.begin(), wanted.rows.end());
    }
    EXPECT_EQ(rows, wanted.rows);
  } catch (const ado::Error& error) {
    if (!wanted.error) ADD_FAILURE() << error.SQLState << " " << error.Description;
  }
}

std::vector<std::string> caseFiles() {
  std::vector<std::string> files;
  const char* more = std::getenv("PAYSLATE_TSQL_CASES");
  for (const std::string& folder :
       {std::string(PAYSLATE_TSQL_CASE_FOLDER), std::string(more == nullptr ? "" : more)}) {
    if (folder.empty()) continue;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.path().extension() == ".test") files.push_back(entry.path().string());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

class RecordedCases : public testing::TestWithParam<std::string> {};

TEST_P(RecordedCases, GiveTheServersAnswers) {
  const std::unique_ptr<ado::Provider> provider = ado::openProvider(":memory:");
  for (const std::string& statement : readSetup(setupOf(GetParam()))) provider->execute(statement);
  const std::vector<Case> cases = readCases(GetParam());
  ASSERT_FALSE(cases.empty());
  for (const Case& wanted : cases) check(*provider, wanted);
}

std::string testName(const testing::TestParamInfo<std::string>& info) {
  std::string name = std::filesystem::path(info.param).stem().string() + std::to_string(info.index);
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Files, RecordedCases, testing::ValuesIn(caseFiles()), testName);

}  // namespace

}  // namespace payslate::test
