// One arithmetic operation on two values of a type.
#pragma once

#include "platform/tsql/Cell.h"
#include "platform/tsql/Type.h"

namespace payslate::tsql {

/// `op` is one of + - * / %; the result has `type`. SqlError for a division by zero or an overflow.
Cell compute(char op, const CellView& left, const CellView& right, const Type& type);

}  // namespace payslate::tsql
