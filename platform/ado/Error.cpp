// Construction of database errors.
#include "platform/ado/Error.h"

#include <utility>

namespace payslate::ado {

Error::Error(std::string description, std::string sqlState, std::string source, std::int32_t number,
             std::int32_t nativeError)
    : Number(number),
      SQLState(std::move(sqlState)),
      Source(std::move(source)),
      Description(std::move(description)),
      NativeError(nativeError) {}

bool Error::gaveWay() const {
  constexpr std::int32_t deadlockVictim = 1205;  // Of Transact-SQL servers; drivers differ in the SQLSTATE.
  return SQLState == "40001" || SQLState == "40P01" || NativeError == deadlockVictim;
}

bool Error::brokeARule() const {
  return SQLState.starts_with("23");
}

}  // namespace payslate::ado
