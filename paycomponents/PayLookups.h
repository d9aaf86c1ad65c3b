// What the database says of a type of allowance or deduction: its formula and its currency.
#pragma once

#include <cstdint>
#include <string>

#include "component/CurrencySymbols.h"

namespace payslate {

struct Session;

namespace common {
class CommonDB;
}

/// How one kind of pay component is kept: the table by its logical name, the field that points at the
/// formula, and the texts of the conditions, each followed by the company or the component's identifier.
struct PayComponentKind {
  PayKind kind;
  const char* table;
  const char* formulaField;
  const char* formulaCompany;
  const char* formulaComponent;
  const char* codeComponent;
};

extern const PayComponentKind allowanceKind;
extern const PayComponentKind deductionKind;

/// Lookups over one kind. An identifier that is unknown gives 0 and empty texts.
class PayLookups {
 public:
  PayLookups(const Session& session, const PayComponentKind& kind) : session_(session), kind_(kind) {}

  /// Below 1 when the component has no formula.
  [[nodiscard]] std::int32_t formulaId(common::CommonDB& database, std::int32_t componentId) const;
  [[nodiscard]] std::string symbol(common::CommonDB& database, std::int32_t componentId) const;
  /// The formula's short code; empty without a formula.
  [[nodiscard]] std::string formulaCode(common::CommonDB& database, std::int32_t componentId) const;

 private:
  const Session& session_;
  const PayComponentKind& kind_;
};

}  // namespace payslate
