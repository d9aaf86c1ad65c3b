// Opening with one clear sentence for whatever stands in the way.
#include "host/Database.h"

#include <filesystem>
#include <system_error>

#include "host/Refusal.h"
#include "platform/ado/ConnectionString.h"
#include "platform/ado/Recordset.h"

namespace payslate::host {

namespace {

// Connection strings may hold passwords: only paths are repeated.
std::string nameOf(const std::string& connect) {
  const ado::ConnectionString parsed(connect);
  return parsed.isPath() ? "The database " + parsed.path() : "The database";
}

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

// The physical name of a table of the payroll, as the database itself links it.
std::string linkedTable(ado::Connection& connection, const std::string& logical) {
  ado::Recordset rows =
      connection.Execute("select linktablename from linkTable where tablename = '" + logical + "'");
  return rows.Eof() ? logical : rows.Fields(0).Text();
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

SharedConnection openDatabase(const std::string& connect) {
  if (!connect.empty() && isMissingFile(connect)) throw Refusal(nameOf(connect) + " does not exist.");
  return open(connect, connect);
}

SharedConnection openPayroll(const std::string& connect) {
  SharedConnection connection = openDatabase(connect);
  try {
    connection->Execute(payrollProbe);
  } catch (const ado::Error& error) {
    refuse(nameOf(connect) + " holds no payroll", error.Description);
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
    throw Refusal(nameOf(connect) + " holds payroll tables already.");
  };
  refuseFilled();
  try {
    fill(*connection);
  } catch (const std::exception& error) {
    refuseFilled();  // Somebody else was faster.
    refuse(nameOf(connect) + " was not set up", error.what());
  }
  file.keep();
  return connection;
}

void requireCompany(ado::Connection& connection, int company) {
  const std::string number = std::to_string(company);
  try {
    if (hasRow(connection, "select companyID from " + linkedTable(connection, "psettings") +
                               " where companyID = " + number) ||
        hasRow(connection, "select eCompanyID from " + linkedTable(connection, "pemployee") +
                               " where eCompanyID = " + number))
      return;
  } catch (const ado::Error& error) {
    refuse("The companies of the database cannot be read", error.Description);
  }
  throw Refusal("The database knows no company " + number + ".");
}

}  // namespace payslate::host
