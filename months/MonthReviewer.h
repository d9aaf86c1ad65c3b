// Looking over a month before the payroll run: everybody at once, by a fixed number of statements.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "component/Session.h"
#include "months/MonthReview.h"
#include "persistence/MonthAcceptances.h"
#include "persistence/MonthReader.h"
#include "review/MonthFlags.h"

namespace payslate {

class MonthReviewer {
 public:
  /// The session says company, user, month and connection; its links are loaded here. It must outlive the
  /// reviewer.
  MonthReviewer(Session& session, ReviewOptions options);

  /// MonthRefused where the month has no pay period, or cannot be accepted; ado::Error. Only an acceptance
  /// writes anything.
  MonthReview review();

 private:
  void refuse() const;
  void readPeriod();
  void addLines(MonthRows& rows);
  void addLine(const CurrencyPay& pay, const MonthGround& ground);
  void addAmounts(ReviewLine& line, const CurrencyPay& pay);
  void addTotals();
  void compare(const MonthAcceptance& accepted, const MonthRows& rows);
  void compareTotals(const MonthAcceptance& accepted);
  void accept(const MonthRows& rows);
  [[nodiscard]] ReviewAcceptance shown(const MonthAcceptance& acceptance);
  [[nodiscard]] std::string userName(std::int16_t userId);
  [[nodiscard]] AcceptedTotals totalsToAccept() const;

  /// Of a department, or of all, in one currency.
  struct Total {
    std::string department;
    std::size_t employees = 0;
    PaySums now;
    basic::Decimal before = noMoney();
  };
  using Totals = std::map<std::pair<std::int32_t, std::string>, Total>;
  [[nodiscard]] static ReviewTotal shown(const std::string& currency, const Total& total);

  Session& session_;
  ReviewOptions options_;
  MonthScope scope_;
  Totals totals_;
  std::vector<LastChange> lastChanges_;
  std::optional<std::map<std::int16_t, std::string>> users_;
  MonthReview review_;
};

}  // namespace payslate
