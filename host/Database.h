// Opening and creating payroll databases for the commands.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/ado/Connection.h"

namespace payslate::host {

using SharedConnection = std::shared_ptr<ado::Connection>;

/// A database for messages: connection strings may hold passwords, so only paths are repeated.
std::string databaseName(const std::string& connect);

/// Opens a database that exists; Refusal when it cannot be opened, or when its schema is of a later version
/// than this program's. Creates nothing.
SharedConnection openDatabase(const std::string& connect);

/// As openDatabase, and the payroll tables must be there.
SharedConnection openPayroll(const std::string& connect);

/// Opens a database without payroll tables, making the file if `connect` is a path where none is, or an empty
/// one, and lets `fill` write into it. Refusal when there are payroll tables already or when filling fails; a
/// file that was made for it is then gone again.
SharedConnection createPayroll(const std::string& connect, const std::function<void(ado::Connection&)>& fill);

/// Does this connection string name a file that is not there, or one that is empty, as an interrupted
/// creation leaves it?
bool isUnmadeFile(const std::string& connect);

/// Refusal when neither the settings nor the employees know the company.
void requireCompany(ado::Connection& connection, int company);

}  // namespace payslate::host
