// The run-time library as functions, aggregates and collations of a database handle.
#pragma once

struct sqlite3;

namespace payslate::sqlite {

class DatabaseFile;

/// `file` receives the errors that functions throw; it outlives the handle's statements.
void registerFunctions(sqlite3* handle, DatabaseFile& file);

}  // namespace payslate::sqlite
