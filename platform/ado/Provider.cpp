// The registry of databases.
#include "platform/ado/Provider.h"

#include <utility>

#include "platform/ado/Error.h"

namespace payslate::ado {
namespace {

constexpr const char* notConnected = "08001";

/// In the order in which they are asked.
std::vector<ProviderEntry>& registry() {
  static std::vector<ProviderEntry> entries;
  return entries;
}

}  // namespace

void registerProvider(ProviderEntry entry, ProviderRank rank) {
  std::vector<ProviderEntry>& entries = registry();
  entries.insert(rank == ProviderRank::Program ? entries.begin() : entries.end(), std::move(entry));
}

std::unique_ptr<Provider> openProvider(const std::string& connection) {
  // Copied: an entry that opens another database asks the registry again.
  const std::vector<ProviderEntry> entries = registry();
  if (entries.empty()) throw Error("This program was built without a database to connect to", notConnected);
  std::string known;
  for (const ProviderEntry& entry : entries) {
    if (entry.accepts(connection)) return entry.open(connection);
    known += (known.empty() ? "" : ", ") + entry.name;
  }
  // The string itself may hold a password and stays out of the message.
  throw Error("No database of this program accepts the connection string; it knows: " + known, notConnected);
}

}  // namespace payslate::ado
