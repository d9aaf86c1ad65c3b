// The registry of databases.
#include "platform/ado/Provider.h"

#include <utility>

#include "platform/ado/Error.h"

namespace payslate::ado {
namespace {

std::vector<ProviderEntry>& registered() {
  static std::vector<ProviderEntry> entries;  // the latest last
  return entries;
}

}  // namespace

void registerProvider(ProviderEntry entry) {
  registered().push_back(std::move(entry));
}

std::unique_ptr<Provider> openProvider(const std::string& connection) {
  // Copied: an entry that opens another database asks the registry again.
  std::vector<ProviderEntry> entries(registered().rbegin(), registered().rend());
  for (ProviderEntry& builtIn : builtInProviders()) entries.push_back(std::move(builtIn));
  std::string known;
  for (const ProviderEntry& entry : entries) {
    if (entry.accepts(connection)) return entry.open(connection);
    known += (known.empty() ? "" : ", ") + entry.name;
  }
  // The string itself may hold a password and stays out of the message.
  throw Error("No database of this program accepts the connection string; it knows: " + known, "08001");
}

}  // namespace payslate::ado
