// Recorded cases: statements with the rows, or the refusal, that a Transact-SQL server answers.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace payslate::test {

struct Case {
  int line = 0;  ///< Of the statement, in its file.
  std::string statement;
  bool error = false;             ///< The statement is to fail.
  std::string types;              ///< A letter a column: I R T D.
  bool anyOrder = false;          ///< Rows compare as sorted text.
  std::vector<std::string> rows;  ///< Columns apart by a tab.
};

std::vector<Case> readCases(const std::filesystem::path& file);
/// One statement a line.
std::vector<std::string> readSetup(const std::filesystem::path& file);
/// What a case file runs on: NAME-setup.sql beside it, else setup.sql.
std::filesystem::path setupOf(const std::filesystem::path& caseFile);

}  // namespace payslate::test
