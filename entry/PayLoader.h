// The pay of an employee as a new entry starts with it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/basic/Value.h"

namespace payslate {

class BasPaySlate;
class Formulas;
struct EntryState;

namespace common {
class CommonDB;
}
namespace ui {
class Label;
class ListView;
}  // namespace ui

struct PayControls {
  ui::Label& lblBasicPay;
  ui::Label& lblcursymbol;
  ui::ListView& lvwAllow;
  ui::ListView& lvwDeduct;
};

class PayLoader {
 public:
  PayLoader(BasPaySlate& bas, EntryState& state, const Formulas& formulas, const PayControls& controls)
      : bas_(bas), state_(state), formulas_(formulas), controls_(controls) {}

  /// Basic pay, currency and standing allowances.
  void fnLoadEmployeePay(common::CommonDB& database, std::int32_t employeeId);
  /// Standing deductions, loan instalments, and the instalments of savings with a movement in the period.
  void fnLoadStandingDeductions(common::CommonDB& database, std::int32_t employeeId);

  /// Basic pay reduced for late joining and absence, unless the company takes loss of pay through deductions.
  [[nodiscard]] double reducedBasicPay(double totalDays, double absentDays, long daysBeforeJoining) const;

 private:
  void loadBasicPay(common::CommonDB& database, std::int32_t employeeId);
  void lookUpSymbol(common::CommonDB& database, const basic::Value& currencyId);
  [[nodiscard]] std::string standingAmount(const basic::Value& formula, const basic::Value& amount) const;
  void addDeduction(std::string description, std::string amount, std::string id, const char* type,
                    std::string transactionId);
  void loadStandingRows(common::CommonDB& database, std::int32_t employeeId);
  void loadLoans(common::CommonDB& database, std::int32_t employeeId);
  void loadSavings(common::CommonDB& database, std::int32_t employeeId);

  BasPaySlate& bas_;
  EntryState& state_;
  const Formulas& formulas_;
  PayControls controls_;
};

}  // namespace payslate
