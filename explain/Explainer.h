// Explaining the figures of a month, one or all.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "component/Explanation.h"
#include "component/PayFacts.h"
#include "explain/ExplainedMonth.h"

namespace payslate {

/// A row of a new month is explained by what loading knew; a stored one says what is stored, and what the
/// rule gives today. Where facts can be asked they fill in what loading did not know.
class Explainer {
 public:
  /// Without facts nothing is asked. Both must outlive the explainer.
  Explainer(const ExplainedMonth& month, PayFacts* facts) : month_(month), facts_(facts) {}

  // Rows count from 0 and must be there. What `facts` throws is passed on, but for a formula that cannot be
  // computed any more, which is told.
  [[nodiscard]] Explanation allowance(std::size_t row) const;
  [[nodiscard]] Explanation deduction(std::size_t row) const;
  [[nodiscard]] Explanation recovery(std::size_t row) const;
  [[nodiscard]] Explanation basicPay() const;
  /// Of a row of the statement; none for a heading.
  [[nodiscard]] std::optional<Explanation> statement(std::size_t row) const;
  /// With the sheets and every day of them.
  [[nodiscard]] Explanation dayCount(DayBox box) const;

  /// Everything, each figure once.
  [[nodiscard]] std::vector<Explanation> all() const;

 private:
  struct Row;
  [[nodiscard]] Row allowanceRow(std::size_t row) const;
  [[nodiscard]] Row deductionRow(std::size_t row) const;
  [[nodiscard]] Explanation explained(const Row& row) const;

  // RowExplanations.cpp: a rule each. What it gives today, where that is asked for.
  using Today = std::optional<double>;
  Today standing(const Row& row, std::vector<ExplanationLine>& lines) const;
  Today added(const Row& row, std::vector<ExplanationLine>& lines) const;
  Today hours(const Row& row, std::vector<ExplanationLine>& lines) const;
  Today account(const Row& row, std::vector<ExplanationLine>& lines) const;
  Today recoveries(const Row& row, std::vector<ExplanationLine>& lines) const;
  Today balance(const Row& row, std::vector<ExplanationLine>& lines) const;
  Today keptBack(const Row& row, std::vector<ExplanationLine>& lines) const;
  Today formulaToday(const Row& row, std::vector<ExplanationLine>& lines) const;
  void formula(const FormulaOrigin& formula, std::vector<ExplanationLine>& lines) const;

  // DayExplanations.cpp
  [[nodiscard]] Explanation countOf(DayBox box) const;
  [[nodiscard]] BasicPayOrigin basicPayToday(const EmployeeFact& employee) const;
  void sheets(std::vector<ExplanationLine>& lines) const;
  [[nodiscard]] FormulaDays enteredDays() const;

  [[nodiscard]] Explanation total(std::size_t row) const;

  const ExplainedMonth& month_;
  PayFacts* facts_;
};

}  // namespace payslate
