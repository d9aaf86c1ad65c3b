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

}  // namespace payslate::ado
