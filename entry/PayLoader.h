// The pay of an employee as a new entry starts with it.
#pragma once

#include <cstdint>
#include <string>

#include "component/Origins.h"
#include "platform/basic/Date.h"
#include "platform/basic/Value.h"

namespace payslate {

class BasPaySlate;
class Formulas;
class HourlyItems;
struct EntryState;
struct FormHelpers;

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
  /// The helpers must be there before anything is loaded.
  PayLoader(BasPaySlate& bas, EntryState& state, const FormHelpers& helpers, const Formulas& formulas,
            HourlyItems& hourlyItems, const PayControls& controls)
      : bas_(bas),
        state_(state),
        helpers_(helpers),
        formulas_(formulas),
        hourlyItems_(hourlyItems),
        controls_(controls) {}

  /// Basic pay, currency, standing allowances and those for hours.
  void fnLoadEmployeePay(std::int32_t employeeId);
  /// Offers what is owed to the employee from entries before the date, as an allowance.
  void fnLoadCarryForward(std::int32_t employeeId, basic::Date entryDate);
  /// Standing deductions, loan instalments, the instalments of savings with a movement in the period, and
  /// deductions for hours.
  void fnLoadStandingDeductions(std::int32_t employeeId);

  /// Basic pay reduced for late joining and absence, unless the company takes loss of pay through deductions.
  [[nodiscard]] BasicPayOrigin basicPayOrigin(double totalDays, double absentDays,
                                              long daysBeforeJoining) const;

 private:
  /// Does the company take loss of pay through deductions? Not without a setting.
  [[nodiscard]] bool fnLOPThroughDeductions() const;
  void loadBasicPay(std::int32_t employeeId);
  void lookUpSymbol(const basic::Value& currencyId);
  [[nodiscard]] Origin standingOrigin(const std::string& component, const basic::Value& formula,
                                      const basic::Value& amount) const;
  void addDeduction(std::string description, Origin origin, std::string id, const char* type,
                    std::string transactionId);
  void loadStandingRows(std::int32_t employeeId);
  void loadLoans(std::int32_t employeeId);
  void loadSavings(std::int32_t employeeId);

  BasPaySlate& bas_;
  EntryState& state_;
  const FormHelpers& helpers_;
  const Formulas& formulas_;
  HourlyItems& hourlyItems_;
  PayControls controls_;
};

}  // namespace payslate
