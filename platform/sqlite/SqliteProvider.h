// The embedded database: Transact-SQL over SQLite.
#pragma once

#include "platform/ado/Provider.h"

namespace payslate::sqlite {

/// Accepts `:memory:` and file paths: everything that has no "=" before its first ";".
ado::ProviderEntry providerEntry();

}  // namespace payslate::sqlite
