// What of carried-forward salary and loss of pay the entry form looks up.
#pragma once

namespace payslate {

struct Session;

/// Does the company take loss of pay through deductions, so that basic pay is not reduced for absence? False
/// without a setting.
void fnLOPThroughDeductions(Session& session, bool& result);

}  // namespace payslate
