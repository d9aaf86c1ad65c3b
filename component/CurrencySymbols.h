// Currency symbols as the database knows them.
#pragma once

#include <cstdint>
#include <string>

#include "platform/basic/Value.h"

namespace payslate {

struct Session;

namespace common {
class CommonDB;
}

/// Symbol of one of the company's currencies; empty for Null and for an unknown one.
std::string currencySymbol(const Session& session, common::CommonDB& database,
                           const basic::Value& currencyId);

/// Symbol of the currency that the employee is paid in; empty when either is unknown.
std::string employeeCurrencySymbol(const Session& session, common::CommonDB& database,
                                   std::int32_t employeeId);

}  // namespace payslate
