// Allowances and deductions for hours booked in the attendance sheets.
#pragma once

#include <cstdint>

namespace payslate {

class BasPaySlate;
class Formulas;
struct FormHelpers;

namespace ui {
class ListView;
}

enum class HourlyKind { Allowances, Deductions };

class HourlyItems {
 public:
  struct Controls {
    ui::ListView& lvwAllow;
    ui::ListView& lvwDeduct;
  };

  /// The helpers must be there before anything is loaded.
  HourlyItems(BasPaySlate& bas, const FormHelpers& helpers, const Formulas& formulas,
              const Controls& controls)
      : bas_(bas), helpers_(helpers), formulas_(formulas), controls_(controls) {}

  /// Adds a row for every active allowance or deduction with hours in the pay period: hours times the rate,
  /// or the amount of its formula. Nothing when there is no rate. Rows added before an error stay.
  void fnLoadHourlyItems(HourlyKind kind, std::int32_t employeeId);

 private:
  struct Rates {
    double allowance = 0;
    double deduction = 0;
  };

  [[nodiscard]] Rates ratesOf(std::int32_t employeeId);
  [[nodiscard]] Rates masterRates(std::int32_t employeeId);
  [[nodiscard]] double rateOfBasicPay(double basicPay, std::int32_t dailyHours,
                                      std::int32_t employeeId) const;
  [[nodiscard]] double amountOf(HourlyKind kind, std::int32_t componentId, double amountByHours);
  void addRow(HourlyKind kind, std::int32_t componentId, double amount);

  BasPaySlate& bas_;
  const FormHelpers& helpers_;
  const Formulas& formulas_;
  Controls controls_;
};

}  // namespace payslate
