// Columns and row kinds of the lists that hold an entry's pay, as plain data.
#pragma once

namespace payslate {

namespace AllowColumn {
enum : int { SlNo, AllowanceType, Amount, AllowID, Default, Symbol };
}
namespace DeductColumn {
enum : int { SlNo, DeductionType, Amount, DeductID, Type, CurrencySymbol, TransactionID };
}

/// Texts of `lvwAllow`'s column "Default".
namespace AllowKind {
constexpr const char* Standing = "Y";
constexpr const char* CarriedForward = "B";
}  // namespace AllowKind

/// Texts of `lvwDeduct`'s column "Type".
namespace DeductKind {
constexpr const char* Standing = "D";
constexpr const char* Loan = "L";
constexpr const char* Savings = "S";
constexpr const char* CarriedForward = "B";
}  // namespace DeductKind

}  // namespace payslate
