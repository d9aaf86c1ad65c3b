// Values that a client sends beside a statement, and how they are written into it.
#pragma once

#include <string>

#include "platform/basic/Value.h"
#include "tools/tsqlserver/Bytes.h"

namespace payslate::tsqlserver {

struct Parameter {
  std::string name;  ///< With its sign; empty when it goes by position.
  bool output = false;
  basic::Value value;
};

/// The next parameter of a call. ado::Error for a type that the engine has no value for.
Parameter readParameter(Reader& call);

/// As a literal of Transact-SQL that has the value's type; ado::Error for a number that is none.
std::string literalOf(const basic::Value& value);

}  // namespace payslate::tsqlserver
