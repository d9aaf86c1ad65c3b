// Databases to measure on: forty companies, of which the first is measured.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/basic/Date.h"

namespace payslate::bench {

/// Sizes differ in how many headers there are and in nothing else: half of them are the measured company's,
/// 500 of these, with the present prefix, belong to the employees that are chosen, five each.
struct PayrollSize {
  std::int32_t headers = 0;    ///< From 1,000 on, even.
  std::int32_t employees = 0;  ///< Of the measured company; more than the chosen ones.
};

constexpr std::int16_t measuredCompany = 1;
constexpr std::int32_t interfaceId = 40001;
constexpr std::int16_t financialYear = 2026;
constexpr const char* presentPrefix = "EN";
/// That of an earlier year, under which the company has 32,000 numbers where there are enough headers.
constexpr const char* fullPrefix = "LA";
constexpr std::int32_t numbersOfFullPrefix = 32'000;
constexpr std::int32_t chosenEmployees = 100;
constexpr int ownEntries = 5;  ///< Of each chosen employee, one a month up to March 2026.
basic::Date processDate();     ///< In April 2026, for which nobody has an entry.

/// The chosen employees, spread over the company's.
std::vector<std::int32_t> chosen(const PayrollSize& size);
/// A chosen employee's entry of March 2026.
std::int32_t lastEntry(const PayrollSize& size, std::size_t position);
/// Has the company 32,000 numbers under the full prefix?
bool hasFullPrefix(const PayrollSize& size);

/// Makes the database, always with the same rows, where there is none, or one of another version of the
/// schema. ado::Error when it cannot.
void makePayroll(const std::string& path, const PayrollSize& size);

}  // namespace payslate::bench
