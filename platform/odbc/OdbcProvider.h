// Databases behind an ODBC driver: the payroll server that many clerks share.
#pragma once

#include "platform/ado/Provider.h"

namespace payslate::odbc {

/// Accepts connection strings with Driver=, DSN= or Server=.
ado::ProviderEntry providerEntry();

}  // namespace payslate::odbc
