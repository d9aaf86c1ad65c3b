// Asking the form's rules.
#include "entry/EntryFacts.h"

#include "component/FormHelpers.h"
#include "paycomponents/Formulas.h"
#include "paycomponents/HourlyItems.h"
#include "paycomponents/PayLookups.h"

namespace payslate {

std::int32_t EntryFacts::formulaOf(PayKind kind, std::int32_t componentId) {
  return PayLookups(session(), kind == PayKind::Allowance ? allowanceKind : deductionKind)
      .formulaId(*rules_.helpers.objCommonDB, componentId);
}

FormulaOrigin EntryFacts::formula(std::int32_t formulaId, const FormulaDays& days) {
  return rules_.formulas.computed(formulaId, days);
}

HoursOrigin EntryFacts::rate(PayKind kind) {
  return rules_.hourlyItems.rateOf(
      kind == PayKind::Allowance ? HourlyKind::Allowances : HourlyKind::Deductions, employeeId());
}

}  // namespace payslate
