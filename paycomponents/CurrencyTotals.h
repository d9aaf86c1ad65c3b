// The statement of pay per currency.
#pragma once

#include <string>
#include <vector>

#include "component/PayStatement.h"

namespace payslate {

namespace ui {
class Label;
class ListView;
class TextBox;
}  // namespace ui

/// The controls that the statement is made from, and the list that shows it.
struct CurrencyControls {
  const ui::Label& lblcursymbol;
  const ui::TextBox& txtBasicPay;
  const ui::ListView& lvwAllow;
  const ui::ListView& lvwDeduct;
  ui::ListView& lvwCurrency;
};

/// What is left to be paid in one currency, as the statement shows it.
struct NetPay {
  std::string symbol;
  std::string amount;
};

class CurrencyTotals {
 public:
  explicit CurrencyTotals(const CurrencyControls& controls) : controls_(controls) {}

  /// Rebuilds the statement: for each currency basic pay, allowances, deductions and the net total of the
  /// figures as shown.
  void DisplayCurrency();
  /// The net totals of the statement.
  [[nodiscard]] const std::vector<NetPay>& netPay() const { return netPay_; }
  /// What its rows are about.
  [[nodiscard]] const std::vector<StatementRow>& statement() const { return statement_; }

 private:
  struct ListPart {
    const ui::ListView& list;
    const char* heading;
    int description;
    int amount;
    int symbol;
    int sign;
    StatementPart part;
  };

  void showcurrency();
  void AddcurrencySyboltoArray(const std::string& symbol);
  void showCurrency(const std::string& symbol);
  [[nodiscard]] double showPart(const ListPart& part, const std::string& symbol);
  /// Adds a row with an amount and returns the amount as shown.
  double addAmount(const std::string& indent, StatementRow row, double amount);
  void addRow(const std::string& indent, StatementRow row);

  CurrencyControls controls_;
  std::vector<std::string> cur_;
  std::vector<NetPay> netPay_;
  std::vector<StatementRow> statement_;
};

}  // namespace payslate
