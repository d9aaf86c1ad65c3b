// Opening with one clear sentence for whatever stands in the way.
#include "host/Database.h"

#include <filesystem>
#include <system_error>

#include "host/Refusal.h"
#include "platform/ado/ConnectionString.h"
#include "platform/ado/Recordset.h"
#include "schema/upgrade.h"

namespace payslate::host {

namespace {

std::string trimmedEnd(std::string sentence) {
  while (sentence.ends_with('.')) sentence.pop_back();
  return sentence;
}

[[noreturn]] void refuse(const std::string& what, const std::string& why) {
  throw Refusal(what + ": " + trimmedEnd(why) + ".");
}

SharedConnection open(const std::string& connect, const std::string& connectionString) {
  if (connect.empty()) throw Refusal("The connection string is empty.");
  auto connection = std::make_shared<ado::Connection>();
  try {
    connection->Open(connectionString);
  } catch (const ado::Error& error) {
    throw Refusal(error.Description);
  }
  return connection;
}

bool hasRow(ado::Connection& connection, const std::string& statement) {
  ado::Recordset rows = connection.Execute(statement);
  return !rows.Eof();
}

constexpr const char* payrollProbe = "select tablename, linktablename from linkTable where 1 = 0";

// Asked of the catalog: servers differ in how they refuse a statement on a table that is not there. Some keep
// names in small letters.
constexpr const char* payrollTables =
    "select TABLE_NAME from INFORMATION_SCHEMA.TABLES where lower(TABLE_NAME) = 'linktable'";

bool holdsPayroll(ado::Connection& connection) {
  try {
    return hasRow(connection, payrollTables);
  } catch (const ado::Error& error) {
    throw Refusal("It cannot be told whether the database holds payroll tables: " +
                  trimmedEnd(error.Description) + ".");
  }
}

void refuseLaterVersion(ado::Connection& connection, const std::string& name) {
  int version = 0;
  try {
    version = schema::version(connection);
  } catch (const ado::Error& error) {
    refuse("It cannot be told which version the schema of the database has", error.Description);
  }
  if (version <= schema::presentVersion()) return;
  throw Refusal(name + " has schema version " + std::to_string(version) +
                ", and this program knows none after " + std::to_string(schema::presentVersion()) +
                ": use a newer program.");
}

/// A file that is made for a database; goes again unless the database was filled.
class NewFile {
 public:
  explicit NewFile(const std::string& connect)
      : path_(isUnmadeFile(connect) ? ado::ConnectionString(connect).path() : "") {}
  ~NewFile() {
    if (path_.empty()) return;
    std::error_code
        ignored;  // The embedded engine keeps two more files beside the database while it is open.
    for (const char* ending : {"", "-wal", "-shm"}) std::filesystem::remove(path_ + ending, ignored);
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  [[nodiscard]] bool isMade() const { return !path_.empty(); }
  void keep() { path_.clear(); }

 private:
  std::string path_;
};

bool isMissingFile(const std::string& connect) {
  const ado::ConnectionString parsed(connect);
  std::error_code unknown;
  return parsed.isPath() && !parsed.isInMemory() && !std::filesystem::exists(parsed.path(), unknown);
}

}  // namespace

bool isUnmadeFile(const std::string& connect) {
  const ado::ConnectionString parsed(connect);
  std::error_code unknown;
  return isMissingFile(connect) ||
         (parsed.isPath() && std::filesystem::is_regular_file(parsed.path(), unknown) &&
          std::filesystem::file_size(parsed.path(), unknown) == 0);
}

std::string databaseName(const std::string& connect) {
  const ado::ConnectionString parsed(connect);
  return parsed.isPath() ? "The database " + parsed.path() : "The database";
}

SharedConnection openDatabase(const std::string& connect) {
  if (!connect.empty() && isMissingFile(connect)) throw Refusal(databaseName(connect) + " does not exist.");
  SharedConnection connection = open(connect, connect);
  // What ends with its connection was never another program's.
  if (!ado::ConnectionString(connect).isInMemory()) refuseLaterVersion(*connection, databaseName(connect));
  return connection;
}

SharedConnection openPayroll(const std::string& connect) {
  SharedConnection connection = openDatabase(connect);
  try {
    connection->Execute(payrollProbe);
  } catch (const ado::Error& error) {
    refuse(databaseName(connect) + " holds no payroll", error.Description);
  }
  return connection;
}

SharedConnection createPayroll(const std::string& connect,
                               const std::function<void(ado::Connection&)>& fill) {
  NewFile file(connect);  // Goes after the connection.
  SharedConnection connection = open(connect, file.isMade() ? connect + ado::createFile : connect);
  const auto refuseFilled = [&] {
    if (!holdsPayroll(*connection)) return;
    file.keep();
    throw Refusal(databaseName(connect) + " holds payroll tables already.");
  };
  if (!file.isMade()) refuseLaterVersion(*connection, databaseName(connect));
  refuseFilled();
  try {
    fill(*connection);
  } catch (const std::exception& error) {
    refuseFilled();  // Somebody else was faster.
    refuse(databaseName(connect) + " was not set up", error.what());
  }
  file.keep();
  return connection;
}

void requireCompany(ado::Connection& connection, int company) {
  const std::string number = std::to_string(company);
  try {
    if (hasRow(connection, "select companyID from " + schema::linkedTable(connection, "psettings") +
                               " where companyID = " + number) ||
        hasRow(connection, "select eCompanyID from " + schema::linkedTable(connection, "pemployee") +
                               " where eCompanyID = " + number))
      return;
  } catch (const ado::Error& error) {
    refuse("The companies of the database cannot be read", error.Description);
  }
  throw Refusal("The database knows no company " + number + ".");
}

}  // namespace payslate::host
