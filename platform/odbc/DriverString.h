// What a driver manager needs of a connection string.
#pragma once

#include <string>

#include "platform/ado/ConnectionString.h"

namespace payslate::odbc {

/// Does it name a driver, a data source or a server?
bool isForDriver(const ado::ConnectionString& connection);

/// For the driver manager: with a driver named, when only a server was.
std::string driverString(const ado::ConnectionString& connection);

}  // namespace payslate::odbc
