// Which databases this program was built with.
#include "platform/ado/Provider.h"
#include "platform/odbc/OdbcProvider.h"
#include "platform/sqlite/SqliteProvider.h"

namespace payslate::ado {

std::vector<ProviderEntry> builtInProviders() {
  return {sqlite::providerEntry(), odbc::providerEntry()};
}

}  // namespace payslate::ado
