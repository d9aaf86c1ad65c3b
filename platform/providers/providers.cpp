// Which databases this program was built with, in the order in which they are asked. Linking this is enough.
#include "platform/ado/Provider.h"
#include "platform/odbc/OdbcProvider.h"
#include "platform/sqlite/SqliteProvider.h"

namespace payslate::ado {
namespace {

[[maybe_unused]] const bool registered = [] {
  registerProvider(sqlite::providerEntry(), ProviderRank::BuiltIn);
  registerProvider(odbc::providerEntry(), ProviderRank::BuiltIn);
  return true;
}();

}  // namespace
}  // namespace payslate::ado
