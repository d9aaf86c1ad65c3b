// Random tables, rows and queries, alike for every pair of databases whose answers are compared.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace payslate::test {

/// The numbers that make a statement. Fewer or smaller ones make a smaller statement of the same kind.
class Choices {
 public:
  explicit Choices(unsigned seed) : random_(seed) {}
  /// Those that were taken once; behind the last of them always 0.
  explicit Choices(std::vector<std::uint32_t> given) : given_(std::move(given)), replays_(true) {}

  std::size_t below(std::size_t end);
  [[nodiscard]] const std::vector<std::uint32_t>& taken() const { return taken_; }

 private:
  std::mt19937 random_{0};
  std::vector<std::uint32_t> given_;
  std::vector<std::uint32_t> taken_;
  bool replays_ = false;
};

/// What both databases of a pair understand, and mean alike.
enum class Language {
  Own,     ///< All of the embedded engine's.
  Shared,  ///< What other servers agree with; Statements.cpp says what is left out, and why.
};

struct Table {
  const char* name;
  int rows;
};
/// A filter before few rows that many look for: the sizes differ.
inline constexpr Table tables[] = {{"ta", 24}, {"tb", 10}, {"tc", 6}};

/// The columns of every table, each a name and behind a blank what "create table" has to know.
std::vector<std::string> declarations(Language language);
std::vector<std::string> fillings(Language language, Choices& choices);
/// A query that every database of the language can answer, with rows in any order.
std::string query(Language language, Choices& choices);

}  // namespace payslate::test
