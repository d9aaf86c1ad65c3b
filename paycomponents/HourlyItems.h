// Allowances and deductions for hours booked in the attendance sheets.
#pragma once

#include <cstdint>

#include "component/Origins.h"

namespace payslate {

class BasPaySlate;
class Formulas;
class RowOrigins;
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
  HourlyItems(BasPaySlate& bas, const FormHelpers& helpers, const Formulas& formulas, RowOrigins& origins,
              const Controls& controls)
      : bas_(bas), helpers_(helpers), formulas_(formulas), origins_(origins), controls_(controls) {}

  /// Adds a row for every active allowance or deduction with hours in the pay period: hours times the rate,
  /// or the amount of its formula. Nothing when there is no rate. Rows added before an error stay.
  void fnLoadHourlyItems(HourlyKind kind, std::int32_t employeeId);

  /// The rate of one kind, and where it is from; 0 without one.
  [[nodiscard]] HoursOrigin rateOf(HourlyKind kind, std::int32_t employeeId);

 private:
  struct Rates {
    HoursOrigin allowance;
    HoursOrigin deduction;
  };

  [[nodiscard]] Rates ratesOf(std::int32_t employeeId);
  [[nodiscard]] Rates masterRates(std::int32_t employeeId);
  void rateOfBasicPay(HoursOrigin& rate, std::int32_t employeeId) const;
  [[nodiscard]] double amountOf(HourlyKind kind, std::int32_t componentId, Origin& origin);
  void addRow(HourlyKind kind, std::int32_t componentId, double amount, Origin origin);

  BasPaySlate& bas_;
  const FormHelpers& helpers_;
  const Formulas& formulas_;
  RowOrigins& origins_;
  Controls controls_;
};

}  // namespace payslate
