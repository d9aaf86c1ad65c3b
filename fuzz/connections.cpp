// Fuzz target: connection strings, taken apart, offered to the databases, and blotted. Nothing is opened.
#include <memory>
#include <string>

#include "fuzz/Target.h"
#include "platform/ado/ConnectionString.h"
#include "platform/ado/Error.h"
#include "platform/ado/Provider.h"
#include "platform/odbc/DriverString.h"
#include "platform/odbc/OdbcProvider.h"
#include "platform/sqlite/SqliteProvider.h"

using namespace payslate;

namespace {

std::string chosen;  // Which database the last string was for.

void registerUnopened(ado::ProviderEntry entry) {
  entry.open = [name = entry.name](const std::string&) -> std::unique_ptr<ado::Provider> {
    chosen = name;
    return nullptr;
  };
  ado::registerProvider(entry, ado::ProviderRank::BuiltIn);
}

void offer(const std::string& text) {
  [[maybe_unused]] static const bool registered = [] {
    registerUnopened(sqlite::providerEntry());
    registerUnopened(odbc::providerEntry());
    return true;
  }();
  const ado::ConnectionString connection(text);
  chosen.clear();
  try {
    ado::openProvider(text);
  } catch (const ado::Error&) {
  }
  fuzz::require(connection.isPath() == (chosen == sqlite::providerEntry().name),
                "a path is for the engine alone");
  fuzz::require(connection.isPath() || odbc::isForDriver(connection) != chosen.empty(),
                "a driver gets the rest");
  if (odbc::isForDriver(connection))
    fuzz::require(odbc::isForDriver(ado::ConnectionString(odbc::driverString(connection))),
                  "a driver is named");
}

/// `password` between braces is blotted, whatever it holds, and so is what a message repeats of it.
void blot(const std::string& password) {
  if (password.empty()) return;
  std::string braced;
  for (const char c : password) braced += c == '}' ? "}}" : std::string(1, c);
  const std::string text = "Server=pay;uid=clerk; Pwd = {" + braced + "};Database=months";
  const ado::ConnectionString connection(text);
  fuzz::require(connection.parts().size() == 4 && connection.parts()[2].value == password,
                "braces hold anything");
  fuzz::require(
      ado::blotSecrets("(" + text + ")").find(password + "}") == std::string::npos || password == "**",
      "no password is seen");
  if (password.find('"') == std::string::npos)
    fuzz::require(connection.withoutSecrets("\"" + password + "\"") == "\"***\"",
                  "no message repeats a password");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = fuzz::textOf(data, size);
  offer(text);
  const std::string blotted = ado::blotSecrets(text);
  fuzz::require(ado::blotSecrets(blotted) == blotted, "what is blotted holds no secrets");
  fuzz::require(ado::ConnectionString(text).withoutSecrets("").empty(), "nothing is added");
  blot(text);
  return 0;
}
