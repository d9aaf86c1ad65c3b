// A sum over the stored catalog and over SQLite's own account of its tables and indexes. It is kept beside
// them: a byte that changed by itself would change a type, a rule or a name, and money with them, without a
// word.
#pragma once

#include "platform/sqlite/DatabaseFile.h"

namespace payslate::sqlite {

/// Inside the transaction of a change, behind it.
void sealCatalog(DatabaseFile& file);

/// ado::Error where the sum is not the kept one. A file without a seal passes, and one whose catalog was
/// changed since by a program that knew of no seal.
void requireSeal(DatabaseFile& file);

}  // namespace payslate::sqlite
