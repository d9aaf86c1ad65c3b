// The keys that name a driver, and the driver of those who name none.
#include "platform/odbc/DriverString.h"

#include <algorithm>

namespace payslate::odbc {
namespace {

// This driver ends what a silent server keeps waiting when it is told so here, and in no other way.
constexpr const char* usualDriver = "Driver={FreeTDS};Timeout=60;";
constexpr const char* driverKeys[] = {"driver", "dsn", "filedsn"};

bool namesDriver(const ado::ConnectionString& connection) {
  return std::any_of(std::begin(driverKeys), std::end(driverKeys),
                     [&connection](const char* key) { return connection.has(key); });
}

}  // namespace

bool isForDriver(const ado::ConnectionString& connection) {
  return namesDriver(connection) || connection.has("server");
}

std::string driverString(const ado::ConnectionString& connection) {
  return namesDriver(connection) ? connection.text() : usualDriver + connection.text();
}

}  // namespace payslate::odbc
