// Values looked up in the database as the program's own kinds, and dates as statements write them.
#pragma once

#include <string>

#include "platform/basic/Date.h"
#include "platform/basic/Value.h"

namespace payslate {

/// Null, which stands for "no row" too, is 0, false, the zero date.
double numberOf(const basic::Value& looked);
bool flagOf(const basic::Value& looked);
basic::Date dateOf(const basic::Value& looked);

/// Dates as statements splice them in, and as dates are compared as text.
std::string slashDate(basic::Date date);    ///< yyyy/mm/dd
std::string compactDate(basic::Date date);  ///< yyyymmdd

}  // namespace payslate
