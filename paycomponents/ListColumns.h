// How the pay lists show their columns.
#pragma once

#include <vector>

#include "component/PayRows.h"
#include "platform/ui/ListView.h"

namespace payslate {

namespace CurrencyColumn {
enum : int { SiNo, Details, Amount };
}

inline std::vector<ui::ColumnLayout> allowColumns() {
  using enum ui::Alignment;
  return {{"SlNo", 926, Left},  {"Allowance Type", 7409, Left}, {"Amount", 2540, Right},
          {"AllowID", 0, Left}, {"Default", 0, Left},           {"Symbol", 2540, Left}};
}

inline std::vector<ui::ColumnLayout> deductColumns() {
  using enum ui::Alignment;
  return {
      {"SlNo", 926, Left}, {"Deduction Type", 7408, Left}, {"Amount", 2540, Right},   {"DeductID", 0, Left},
      {"Type", 0, Left},   {"CurrencySymbol", 2540, Left}, {"TransactionID", 0, Left}};
}

inline std::vector<ui::ColumnLayout> currencyColumns() {
  using enum ui::Alignment;
  return {{"SI.No", 0, Left}, {"Details", 7937, Left}, {"Amount", 2646, Right}};
}

}  // namespace payslate
