// Reads case and set-up files.
#include "tests/tsql/CaseFile.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace payslate::test {

namespace {

std::vector<std::string> lines(const std::filesystem::path& file) {
  std::ifstream in(file);
  if (!in) throw std::runtime_error("cannot read " + file.string());
  std::vector<std::string> result;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    result.push_back(line);
  }
  return result;
}

}  // namespace

std::vector<Case> readCases(const std::filesystem::path& file) {
  const std::vector<std::string> all = lines(file);
  std::vector<Case> cases;
  std::size_t i = 0;
  while (i < all.size()) {
    if (all[i].empty() || all[i].front() == '#') {
      ++i;
      continue;
    }
    Case next;
    std::istringstream head(all[i++]);
    std::string word;
    head >> word;
    if (word == "statement") {
      head >> word;
      next.error = word == "error";
    } else {
      head >> next.types >> word;
      next.anyOrder = word == "rowsort";
    }
    next.line = static_cast<int>(i) + 1;
    for (; i < all.size() && !all[i].empty() && all[i] != "----"; ++i) {
      next.statement += (next.statement.empty() ? "" : "\n") + all[i];
    }
    if (i < all.size() && all[i] == "----") {
      for (++i; i < all.size() && !all[i].empty(); ++i) next.rows.push_back(all[i]);
    }
    cases.push_back(std::move(next));
  }
  return cases;
}

std::vector<std::string> readSetup(const std::filesystem::path& file) {
  std::vector<std::string> statements;
  for (std::string& line : lines(file)) {
    if (!line.empty()) statements.push_back(std::move(line));
  }
  return statements;
}

std::filesystem::path setupOf(const std::filesystem::path& caseFile) {
  const std::filesystem::path own = caseFile.parent_path() / (caseFile.stem().string() + "-setup.sql");
  return std::filesystem::exists(own) ? own : caseFile.parent_path() / "setup.sql";
}

}  // namespace payslate::test
