// What of carried-forward salary and loss of pay the entry form looks up.
#pragma once

#include <cstdint>

#include "platform/basic/Date.h"

namespace payslate {

struct Session;

/// Salary still owed to the employee from entries dated before the date, in whole cents; negative when more
/// was paid out than withheld.
void fnGetCarryForwardBalance(Session& session, std::int32_t employeeId, basic::Date before, double& balance);

/// Does the company take loss of pay through deductions, so that basic pay is not reduced for absence? False
/// without a setting.
void fnLOPThroughDeductions(Session& session, bool& result);

}  // namespace payslate
