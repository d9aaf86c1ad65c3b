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
constexpr const char* Added = "N";           ///< By the clerk, or from hours.
constexpr const char* CarriedForward = "B";  ///< Its "AllowID" is the balance.
}  // namespace AllowKind

/// Texts of `lvwDeduct`'s column "Type".
namespace DeductKind {
constexpr const char* Standing = "D";
constexpr const char* Loan = "L";
constexpr const char* Savings = "S";
constexpr const char* Facility = "F";
constexpr const char* Hourly = "O";
constexpr const char* Added = "N";
constexpr const char* CarriedForward = "B";
}  // namespace DeductKind

/// Descriptions of rows carried forward: what is paid out of the balance, and what is withheld.
constexpr const char* balanceDescription = "Previous Salary Carry Forward Balance";
constexpr const char* carryForwardDescription = "Salary Carry Forward";

}  // namespace payslate
