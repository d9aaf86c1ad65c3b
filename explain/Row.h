// A row of the allowances or deductions that is being explained.
#pragma once

#include <cstdint>
#include <string>

#include "component/CurrencySymbols.h"
#include "component/Origins.h"
#include "explain/Explainer.h"

namespace payslate {

struct Explainer::Row {
  PayKind kind = PayKind::Allowance;
  const char* part = "";
  std::string description;
  std::string amount;
  std::string id;
  std::string type;  ///< AllowKind or DeductKind
  std::string symbol;
  std::string transaction;
  Origin origin;
  std::size_t index = 0;  ///< In its list.

  [[nodiscard]] std::int32_t componentId() const;
  /// The amount that the rule's line is about: before somebody changed it.
  [[nodiscard]] const std::string& ruleAmount() const {
    return origin.change == ChangedBy::Nobody ? amount : origin.before;
  }
};

}  // namespace payslate
